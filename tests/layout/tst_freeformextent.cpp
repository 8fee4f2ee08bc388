#include "layout/FreeformLayoutTest.h"
#include "support/ProbeLocator.h"

#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/figure/SimpleBorder.h>
#include <vtlpictel/layout/FreeformStackLayout.h>

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

// Resolves rectangles as any figure does, or to larger ones, without a message and counting how often it is asked.
class ResolvingFigure : public HintedFigure
{
public:
    using HintedFigure::HintedFigure;

    int growth = 0;
    int asked = 0;

    QRect resolveBounds(const QRect &bounds) override
    {
        ++asked;
        QRect resolved = bounds.adjusted(-growth, -growth, growth, growth);
        if (!bounds.isValid() && bounds.width() < 1 && preferred.width() >= 1)
            resolved.setWidth(preferred.width());
        if (!bounds.isValid() && bounds.height() < 1 && preferred.height() >= 1)
            resolved.setHeight(preferred.height());
        return resolved;
    }
};

// Takes figures, itself perhaps, out of their parent when it is asked for its bounds.
class LeavingFigure : public HintedFigure
{
public:
    QList<Figure *> leaving;

    QRect resolveBounds(const QRect &bounds) override
    {
        const QList<Figure *> toRemove = std::exchange(leaving, {});
        for (Figure *figure : toRemove) {
            if (Figure *parent = figure->getParentFigure())
                parent->remove(figure);
        }
        return bounds;
    }
};

// Leaves rectangles as they are until it is told to grow them, and can act when it is asked.
class ChangeableFigure : public HintedFigure
{
public:
    int growth = 0;
    std::function<void()> action;
    std::function<void()> onRemoveNotify;
    using HintedFigure::setFlag;

    QRect resolveBounds(const QRect &bounds) override
    {
        const int grown = growth;
        if (const auto current = std::exchange(action, nullptr))
            current();
        return bounds.adjusted(-grown, -grown, grown, grown);
    }
    void removeNotify() override
    {
        HintedFigure::removeNotify();
        if (onRemoveNotify)
            onRemoveNotify();
    }
};

// The extent as a plain walk over the children finds it.
QRect walkedExtent(const FreeformLayout &layout)
{
    QRect extent;
    Figure *container = layout.getFigure();
    if (!container)
        return extent;
    for (Figure *child : layout.childFigures()) {
        const QVariant constraint = layout.getConstraint(child);
        const bool isRect = constraint.typeId() == QMetaType::QRect || constraint.typeId() == QMetaType::QRectF;
        if (child->isVisible() && isRect)
            extent = extent.united(child->resolveBounds(constraint.toRect()));
    }
    if (const Border *border = container->getBorder())
        border->getInsets().stripFrom(extent);
    return extent;
}

// A monitored or unmonitored sheet, and figures that come and go on it at random.
class RandomSheet
{
public:
    explicit RandomSheet(quint32 seed)
        : m_random(seed)
        , m_layout(nullptr, m_random.bounded(2) == 1)
    {
        m_border.setInsets(Insets(1, 2, 3, 4));
        m_sheet.setLayoutManager(&m_layout);
        m_sheet.setBounds(QRect(0, 0, 500, 400));
    }

    OpenFreeformLayout &layout() { return m_layout; }

    void step()
    {
        const int choice = m_figures.empty() ? 0 : m_random.bounded(14);
        if (choice < 3)
            addFigure();
        else if (choice == 3)
            m_sheet.remove(any());
        else if (choice == 4)
            m_figures.erase(m_figures.begin() + m_random.bounded(int(m_figures.size())));
        else if (choice < 8)
            m_layout.setConstraint(any(), constraint());
        else if (choice == 8)
            any()->setVisible(m_random.bounded(3) > 0);
        else if (choice < 11)
            any()->setBounds(rect());
        else if (choice == 11)
            any()->preferred = size();
        else if (choice == 12)
            changeContainer();
        else
            m_sheet.add(any(), constraint(), m_random.bounded(8) - 1);
    }

private:
    ResolvingFigure *any() { return m_figures[size_t(m_random.bounded(int(m_figures.size())))].get(); }
    int coordinate() { return m_random.bounded(400) - 200; }
    QSize size() { return QSize(m_random.bounded(60) - 10, m_random.bounded(60) - 10); }
    QRect rect() { return QRect(QPoint(coordinate(), coordinate()), size()); }

    QVariant constraint()
    {
        switch (m_random.bounded(8)) {
        case 0:
            return QVariant();
        case 1:
            return QStringLiteral("west");
        case 2:
            return QRectF(rect()).translated(0.5, 0.25);
        case 3:
            return QRect(coordinate(), coordinate(), 0, 0);
        case 4:
            return QRect(coordinate(), coordinate(), 0, m_random.bounded(20));
        default:
            return rect();
        }
    }

    void addFigure()
    {
        m_figures.push_back(std::make_unique<ResolvingFigure>(size()));
        m_figures.back()->growth = m_random.bounded(6) == 0 ? 3 : 0;
        if (m_random.bounded(4) == 0)
            m_figures.back()->setBounds(rect());
        if (m_random.bounded(4) == 0)
            m_sheet.add(m_figures.back().get(), 0U, 0U, m_random.bounded(8) - 1);
        else
            m_sheet.add(m_figures.back().get(), constraint(), m_random.bounded(8) - 1);
    }

    void changeContainer()
    {
        switch (m_random.bounded(5)) {
        case 0:
            m_sheet.setBorder(m_sheet.getBorder() ? nullptr : &m_border);
            break;
        case 1:
            m_layout.setFigure(m_layout.getFigure() ? nullptr : &m_sheet);
            break;
        case 2:
            m_layout.invalidate();
            break;
        default:
            m_layout.layout(&m_sheet);
        }
    }

    QRandomGenerator m_random;
    SimpleBorder m_border;
    Figure m_sheet;
    OpenFreeformLayout m_layout;
    std::vector<std::unique_ptr<ResolvingFigure>> m_figures;
};

} // namespace

/// What the freeform extent of a FreeformLayout is, and how it is reached.
class tst_FreeformExtent : public FreeformLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void extentUnitesRectangleConstraints();
    void extentLeavesOutHiddenAndOtherwiseConstrainedChildren();
    void extentOfRealRectangleIsRounded();
    void extentAsksTheChildToResolve();
    void extentFollowsThePreferredSizeOfUnsizedChild();
    void extentIncludesTheBorder();
    void extentWithoutContainerIsNull();
    void extentWithoutChildrenIsNull();
    void extentWithoutAreaKeepsThePlaceOfTheLastChild();
    void extentIsKeptUntilExamined();
    void extentIsComputedAnewWhileInvalid();
    void extentSurvivesInvalidation();
    void extentFollowsSizeConstraintAndVisibility();
    void extentEqualsAWalkOverTheChildren_data();
    void extentEqualsAWalkOverTheChildren();
    void examiningAsksOnlyTheChildThatChanged();
    void examiningLeavesOutAChildThatIsLeaving();
    void examiningSurvivesChildrenThatLeaveWhenAsked();
    void examiningSurvivesItsLayout();
    void examiningSurvivesItsContainer();
    void answerToAConstraintIsKeptUntilTheConstraintIsSet();
    void answerGivenWhileTheChildIsAskedCounts();
    void extentFollowsTheVisibleFlag();
    void childRemovedWhileLeavingTakesNoOtherAlong();
    void childrenWithoutAreaAreRemovedByTheThousand();
    void extentWiderThanTheNumbersHasABoundedSize();
    void examineExtentIsAPublicSlot();
};

void tst_FreeformExtent::extentUnitesRectangleConstraints()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
    addChild(QRect(-50, 30, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(-50, 20, 90, 40));
    addChild(QRect(0, -60, 1, 1));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(-50, -60, 90, 120));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-50, -60, 90, 120));
}

void tst_FreeformExtent::extentLeavesOutHiddenAndOtherwiseConstrainedChildren()
{
    ProbeLocator locator(QRect(300, 300, 9, 10), this);
    addChild(QRect(10, 20, 30, 40));
    addChild(QRect(-50, -60, 5, 5))->setVisible(false);
    addChild(QVariant::fromValue(&locator));
    addChild(QStringLiteral("west"))->setBounds(QRect(400, 400, 5, 5));
    addChild(QVariant())->setBounds(QRect(500, 500, 5, 5));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::extentOfRealRectangleIsRounded()
{
    addChild(QRectF(-10.5, 20.25, 30.75, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRectF(-10.5, 20.25, 30.75, 40).toRect());
}

void tst_FreeformExtent::extentAsksTheChildToResolve()
{
    ResolvingFigure figure;
    figure.growth = 3;
    m_container->add(&figure, QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(7, 17, 36, 46));
    figure.growth = 5;
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(5, 15, 40, 50));
}

void tst_FreeformExtent::extentFollowsThePreferredSizeOfUnsizedChild()
{
    HintedFigure *child = addChild(QRect(10, 20, 0, 0));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 40, 20));
    child->preferred = QSize(50, 60);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 40, 20));
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 50, 60));
    child->preferred = QSize(51, 60);
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 51, 60));
}

void tst_FreeformExtent::extentIncludesTheBorder()
{
    SimpleBorder border;
    border.setInsets(Insets(1, 2, 3, 4));
    m_container->setBorder(&border);
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40).adjusted(-4, -1, 2, 3));
}

void tst_FreeformExtent::extentWithoutContainerIsNull()
{
    addChild(QRect(10, 20, 30, 40));
    m_layout->setFigure(nullptr);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect());
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    m_layout->setFigure(m_container.get());
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::extentWithoutChildrenIsNull()
{
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    QCOMPARE(m_layout->getMinimumSize(), QSize(0, 0));
}

void tst_FreeformExtent::extentWithoutAreaKeepsThePlaceOfTheLastChild()
{
    std::vector<std::unique_ptr<ResolvingFigure>> figures;
    for (const QRect &place : {QRect(5, 6, 0, 0), QRect(7, 8, 0, 0), QRect(9, 9, 0, 0)}) {
        figures.push_back(std::make_unique<ResolvingFigure>());
        m_container->add(figures.back().get(), place, 0);
    }
    m_layout->examineExtent();
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(5, 6, 0, 0));
    m_container->remove(figures.front().get());
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(7, 8, 0, 0));
}

void tst_FreeformExtent::extentIsKeptUntilExamined()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    addChild(QRect(-10, -20, 3, 4));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-10, -20, 50, 80));
}

void tst_FreeformExtent::extentIsComputedAnewWhileInvalid()
{
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::extentSurvivesInvalidation()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getMinimumSize(), QSize(30, 40));
    addChild(QRect(-10, -20, 3, 4));
    m_layout->invalidate();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getMinimumSize(), QSize(30, 40));
}

void tst_FreeformExtent::extentFollowsSizeConstraintAndVisibility()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *second = addChild(QRect(0, 0, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 40, 60));
    second->setVisible(false);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
    second->setVisible(true);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 40, 60));
    m_layout->setConstraint(second, QRect(50, 60, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 45, 45));
    m_layout->setConstraint(second, QStringLiteral("west"));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::extentEqualsAWalkOverTheChildren_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 24; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_FreeformExtent::extentEqualsAWalkOverTheChildren()
{
    QFETCH(quint32, seed);
    RandomSheet sheet(seed);
    for (int step = 0; step < 400; ++step) {
        sheet.step();
        const QRect expected = walkedExtent(sheet.layout());
        const QRect actual = sheet.layout().calculateFreeformExtent();
        if (actual != expected)
            qInfo("seed %u, step %d", seed, step);
        QCOMPARE(actual, expected);
    }
}

void tst_FreeformExtent::examiningAsksOnlyTheChildThatChanged()
{
    std::vector<std::unique_ptr<ResolvingFigure>> figures;
    for (int place = 0; place < 100; ++place) {
        figures.push_back(std::make_unique<ResolvingFigure>());
        m_container->add(figures.back().get(), QRect(10 * place, 0, 5, 5));
    }
    m_layout->examineExtent();
    for (const auto &figure : figures)
        figure->asked = 0;
    m_layout->setConstraint(figures[50].get(), QRect(500, -100, 5, 5));
    m_layout->examineExtent();
    QCOMPARE(figures[50]->asked, 2); // once to move there, once for the extent
    QVERIFY(std::all_of(figures.begin(), figures.end(),
                        [&](const auto &figure) { return figure == figures[50] || figure->asked == 0; }));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(0, -100, 995, 105));
}

void tst_FreeformExtent::examiningLeavesOutAChildThatIsLeaving()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *leaving = addChild(QRect(-5, -6, 3, 4));
    m_layout->examineExtent();
    QRect extentMeanwhile;
    connect(leaving, &Figure::propertyChanged, this, [&] { extentMeanwhile = m_layout->calculateFreeformExtent(); });
    m_container->remove(leaving);
    QCOMPARE(extentMeanwhile, QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::examiningSurvivesChildrenThatLeaveWhenAsked()
{
    addChild(QRect(10, 20, 30, 40));
    LeavingFigure first;
    LeavingFigure second;
    m_container->add(&first, QRect(-5, -6, 3, 4));
    m_container->add(&second, QRect(-7, -8, 3, 4));
    first.leaving = {&first, &second};
    second.leaving = {&first, &second};
    m_layout->examineExtent();
    QCOMPARE(m_container->childFigureCount(), 1);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::examiningSurvivesItsLayout()
{
    addChild(QRect(10, 20, 30, 40));
    ChangeableFigure figure;
    m_container->add(&figure, QRect(-5, -6, 3, 4));
    QSignalSpy changes(m_layout, &FreeformLayout::extentChanged);
    figure.action = [this] { delete m_layout; };
    m_layout->examineExtent();
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(changes.size(), 0);

    auto *layout = new OpenFreeformLayout(m_container.get(), false);
    m_container->setLayoutManager(layout);
    m_container->add(&figure, QRect(-5, -6, 3, 4));
    figure.action = [layout] { delete layout; };
    layout->getMinimumSize();
    QCOMPARE(m_container->getLayoutManager(), nullptr);
}

void tst_FreeformExtent::examiningSurvivesItsContainer()
{
    OpenFreeformLayout layout(nullptr, true);
    auto container = std::make_unique<Figure>();
    container->setLayoutManager(&layout);
    ChangeableFigure figure;
    container->add(&figure, QRect(-5, -6, 3, 4));
    figure.action = [&] { container.reset(); };
    layout.examineExtent();
    QCOMPARE(container.get(), nullptr);
    QCOMPARE(layout.calculateFreeformExtent(), QRect());
}

void tst_FreeformExtent::answerToAConstraintIsKeptUntilTheConstraintIsSet()
{
    ChangeableFigure figure;
    m_container->add(&figure, QRect(10, 20, 30, 40));
    m_layout->examineExtent();
    figure.growth = 3;
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    m_layout->setConstraint(&figure, QRect(10, 20, 30, 41));
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(7, 17, 36, 47));
    figure.growth = 4;
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(6, 16, 38, 49));
}

void tst_FreeformExtent::answerGivenWhileTheChildIsAskedCounts()
{
    addChild(QRect(0, 0, 10, 10));
    ChangeableFigure figure;
    m_container->add(&figure, QRect(10, 20, 30, 40));
    figure.action = [&] {
        m_layout->setConstraint(&figure, QRect(50, 60, 70, 80));
        m_layout->examineExtent();
    };
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(0, 0, 120, 140));
}

void tst_FreeformExtent::extentFollowsTheVisibleFlag()
{
    addChild(QRect(0, 0, 10, 10));
    ChangeableFigure figure;
    m_container->add(&figure, QRect(10, 20, 30, 40));
    m_layout->examineExtent();
    figure.setFlag(Figure::FLAG_VISIBLE, false);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 10, 10));
    figure.setFlag(Figure::FLAG_VISIBLE, true);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 40, 60));
}

void tst_FreeformExtent::childRemovedWhileLeavingTakesNoOtherAlong()
{
    m_container->addNotify();
    addChild(QRect(10, 20, 30, 40));
    ChangeableFigure figure;
    m_container->add(&figure, QRect(-5, -6, 3, 4));
    m_layout->examineExtent();
    figure.onRemoveNotify = [&] { m_container->remove(&figure); };
    QVERIFY(m_container->remove(&figure));
    QCOMPARE(m_container->childFigureCount(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
    HintedFigure *next = addChild(QRect(100, 20, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 95, 40));
    m_container->remove(next);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformExtent::childrenWithoutAreaAreRemovedByTheThousand()
{
    std::vector<std::unique_ptr<ResolvingFigure>> figures;
    for (int place = 0; place < 2000; ++place) {
        figures.push_back(std::make_unique<ResolvingFigure>(QSize(4, 6)));
        m_container->add(figures.back().get(), QRect(10 * place, place, 0, 0));
    }
    m_layout->examineExtent();
    for (int left = 2000; left > 0; --left) {
        QCOMPARE(m_layout->getFreeformExtent(), QRect(0, 0, 10 * left - 6, left + 5));
        m_container->remove(figures[size_t(left - 1)].get());
    }
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
}

void tst_FreeformExtent::extentWiderThanTheNumbersHasABoundedSize()
{
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int far = 1500000000;
    addChild(QRect(-far, -far, 100, 100));
    addChild(QRect(QPoint(far, far), QSize(100, 100)));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(QPoint(-far, -far), QPoint(far + 99, far + 99)));
    QCOMPARE(m_layout->getMinimumSize(), QSize(highest, highest));
    QCOMPARE(m_layout->getPreferredSize(), QSize(highest, highest));
}

void tst_FreeformExtent::examineExtentIsAPublicSlot()
{
    for (const QMetaObject *meta : {&FreeformLayout::staticMetaObject, &FreeformStackLayout::staticMetaObject}) {
        const QMetaMethod examine = meta->method(meta->indexOfSlot("examineExtent()"));
        QCOMPARE(examine.access(), QMetaMethod::Public);
        QCOMPARE(examine.enclosingMetaObject(), meta);
    }
}

PICTEL_TEST_MAIN(tst_FreeformExtent)
#include "tst_freeformextent.moc"
