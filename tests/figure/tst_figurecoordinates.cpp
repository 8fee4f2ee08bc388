#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// root (bounds 1000,2000, margin 5) > middle (bounds 100,200, insets left 4, top 2) > leaf
struct Nest
{
    Nest()
        : border(Insets(2, 4, 8, 16))
    {
        root.setLayoutManager(&rootLayout);
        middle.setLayoutManager(&middleLayout);
        root.setBounds(QRect(1000, 2000, 500, 500));
        root.setMargin(5);
        middle.setBounds(QRect(100, 200, 300, 300));
        middle.setBorder(&border);
        root.add(&middle);
        middle.add(&leaf);
        leaf.setBounds(QRect(10, 20, 30, 40));
    }

    ProbeBorder border;
    ProbeLayout rootLayout;
    ProbeLayout middleLayout;
    Figure root;
    Figure middle;
    Figure leaf;
};

template <typename Value>
Value toParent(Figure &figure, Value value)
{
    Value &result = figure.translateToParent(value);
    return &result == &value ? value : Value();
}

template <typename Value>
Value fromParent(Figure &figure, Value value)
{
    Value &result = figure.translateFromParent(value);
    return &result == &value ? value : Value();
}

template <typename Value>
Value toAbsolute(Figure &figure, Value value)
{
    Value &result = figure.translateToAbsolute(value);
    return &result == &value ? value : Value();
}

template <typename Value>
Value toRelative(Figure &figure, Value value)
{
    Value &result = figure.translateToRelative(value);
    return &result == &value ? value : Value();
}

} // namespace

class tst_FigureCoordinates : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void toParentAddsClientOrigin();
    void fromParentSubtractsClientOrigin();
    void figureWithoutLayoutIsLocalToo();
    void absoluteLayoutSharesTheParentsCoordinates();
    void invalidBoundsLeaveValuesUnchanged_data();
    void invalidBoundsLeaveValuesUnchanged();
    void toAbsoluteWalksUpAllAncestors();
    void toRelativeWalksDownFromTheRoot();
    void rootIsItsOwnAbsolute();
    void ancestorWithAbsoluteLayoutAddsNothing();
    void realValuesKeepTheirFractions();
    void overriddenMappingOfAnAncestorIsUsed();
    void randomNestsMapThereAndBack();
};

void tst_FigureCoordinates::toParentAddsClientOrigin()
{
    Nest nest;
    QCOMPARE(toParent(nest.root, QPoint(1, 2)), QPoint(1006, 2007));
    QCOMPARE(toParent(nest.middle, QPoint(1, 2)), QPoint(105, 204));
    QCOMPARE(toParent(nest.middle, QPointF(1, 2)), QPointF(105, 204));
    QCOMPARE(toParent(nest.middle, QRect(1, 2, 3, 4)), QRect(105, 204, 3, 4));
    QCOMPARE(toParent(nest.middle, QRectF(1, 2, 3, 4)), QRectF(105, 204, 3, 4));
    nest.middle.setMargin(10);
    QCOMPARE(toParent(nest.middle, QPoint(1, 2)), QPoint(115, 214));
}

void tst_FigureCoordinates::fromParentSubtractsClientOrigin()
{
    Nest nest;
    QCOMPARE(fromParent(nest.root, QPoint(1006, 2007)), QPoint(1, 2));
    QCOMPARE(fromParent(nest.middle, QPoint(105, 204)), QPoint(1, 2));
    QCOMPARE(fromParent(nest.middle, QPointF(105, 204)), QPointF(1, 2));
    QCOMPARE(fromParent(nest.middle, QRect(105, 204, 3, 4)), QRect(1, 2, 3, 4));
    QCOMPARE(fromParent(nest.middle, QRectF(105, 204, 3, 4)), QRectF(1, 2, 3, 4));
}

void tst_FigureCoordinates::figureWithoutLayoutIsLocalToo()
{
    Nest nest;
    QCOMPARE(toParent(nest.leaf, QPoint(1, 2)), QPoint(11, 22));
    QCOMPARE(fromParent(nest.leaf, QPoint(11, 22)), QPoint(1, 2));
}

void tst_FigureCoordinates::absoluteLayoutSharesTheParentsCoordinates()
{
    Nest nest;
    nest.middleLayout.isRelative = false;
    QCOMPARE(toParent(nest.middle, QPoint(1, 2)), QPoint(1, 2));
    QCOMPARE(toParent(nest.middle, QPointF(1, 2)), QPointF(1, 2));
    QCOMPARE(fromParent(nest.middle, QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
    QCOMPARE(fromParent(nest.middle, QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
}

void tst_FigureCoordinates::invalidBoundsLeaveValuesUnchanged_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::newRow("no size") << QRect(5, 6, 0, 0);
    QTest::newRow("no width") << QRect(5, 6, 0, 10);
    QTest::newRow("no height") << QRect(5, 6, 10, 0);
}

void tst_FigureCoordinates::invalidBoundsLeaveValuesUnchanged()
{
    QFETCH(QRect, bounds);
    Figure figure;
    figure.setMaximumSize(QSize(0, 0));
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    figure.setBounds(bounds);
    figure.setMargin(3);
    QCOMPARE(toParent(figure, QPoint(1, 2)), QPoint(1, 2));
    QCOMPARE(fromParent(figure, QPoint(1, 2)), QPoint(1, 2));
}

void tst_FigureCoordinates::toAbsoluteWalksUpAllAncestors()
{
    Nest nest;
    QCOMPARE(toAbsolute(nest.leaf, QPoint(1, 2)), QPoint(1110, 2209));
    QCOMPARE(toAbsolute(nest.leaf, QPointF(1, 2)), QPointF(1110, 2209));
    QCOMPARE(toAbsolute(nest.leaf, QRect(1, 2, 3, 4)), QRect(1110, 2209, 3, 4));
    QCOMPARE(toAbsolute(nest.leaf, QRectF(1, 2, 3, 4)), QRectF(1110, 2209, 3, 4));
    QCOMPARE(toAbsolute(nest.middle, QPoint(1, 2)), QPoint(1006, 2007));
}

void tst_FigureCoordinates::toRelativeWalksDownFromTheRoot()
{
    Nest nest;
    QCOMPARE(toRelative(nest.leaf, QPoint(1110, 2209)), QPoint(1, 2));
    QCOMPARE(toRelative(nest.leaf, QPointF(1110, 2209)), QPointF(1, 2));
    QCOMPARE(toRelative(nest.leaf, QRect(1110, 2209, 3, 4)), QRect(1, 2, 3, 4));
    QCOMPARE(toRelative(nest.leaf, QRectF(1110, 2209, 3, 4)), QRectF(1, 2, 3, 4));
    QCOMPARE(toRelative(nest.middle, QPoint(1006, 2007)), QPoint(1, 2));
}

void tst_FigureCoordinates::rootIsItsOwnAbsolute()
{
    Nest nest;
    QCOMPARE(toAbsolute(nest.root, QPoint(1, 2)), QPoint(1, 2));
    QCOMPARE(toRelative(nest.root, QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
}

void tst_FigureCoordinates::ancestorWithAbsoluteLayoutAddsNothing()
{
    Nest nest;
    nest.middleLayout.isRelative = false;
    QCOMPARE(toAbsolute(nest.leaf, QPoint(1, 2)), QPoint(1006, 2007));
    QCOMPARE(toRelative(nest.leaf, QPoint(1006, 2007)), QPoint(1, 2));
}

void tst_FigureCoordinates::realValuesKeepTheirFractions()
{
    Nest nest;
    QCOMPARE(toAbsolute(nest.leaf, QPointF(1.25, 2.5)), QPointF(1110.25, 2209.5));
    QCOMPARE(toRelative(nest.leaf, QRectF(1110.25, 2209.5, 0.5, 0.75)), QRectF(1.25, 2.5, 0.5, 0.75));
}

void tst_FigureCoordinates::overriddenMappingOfAnAncestorIsUsed()
{
    class Doubling : public Figure
    {
    public:
        using Figure::translateFromParent;
        using Figure::translateToParent;
        QPoint &translateToParent(QPoint &point) override { return point *= 2; }
        QPoint &translateFromParent(QPoint &point) override { return point /= 2; }
    };
    Doubling parent;
    Figure child;
    child.setParentFigure(&parent);
    QCOMPARE(toAbsolute(child, QPoint(3, 4)), QPoint(6, 8));
    QCOMPARE(toRelative(child, QPoint(6, 8)), QPoint(3, 4));
}

void tst_FigureCoordinates::randomNestsMapThereAndBack()
{
    constexpr quint32 seed = 20221;
    QRandomGenerator random(seed);
    for (int round = 0; round < 50; ++round) {
        std::vector<std::unique_ptr<ProbeLayout>> layouts;
        std::vector<std::unique_ptr<Figure>> chain;
        QPoint origin;
        for (int depth = 0; depth < 8; ++depth) {
            layouts.push_back(std::make_unique<ProbeLayout>());
            layouts.back()->isRelative = random.bounded(2) == 0;
            chain.push_back(std::make_unique<Figure>());
            Figure &figure = *chain.back();
            figure.setBounds(QRect(random.bounded(-500, 500), random.bounded(-500, 500), 10, 10));
            figure.setMargin(random.bounded(20));
            figure.setLayoutManager(layouts.back().get());
            if (depth > 0)
                figure.setParentFigure(chain[chain.size() - 2].get());
            if (depth < 7 && layouts.back()->isRelative)
                origin += figure.getBounds().topLeft() + QPoint(figure.getMargin(), figure.getMargin());
        }
        const QPoint point(random.bounded(1000), random.bounded(1000));
        QCOMPARE(toAbsolute(*chain.back(), point), point + origin);
        QCOMPARE(toRelative(*chain.back(), point + origin), point);
        while (!chain.empty())
            chain.pop_back();
    }
}

PICTEL_TEST_MAIN(tst_FigureCoordinates)
#include "tst_figurecoordinates.moc"
