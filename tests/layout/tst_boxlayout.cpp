#include "layout/BoxLayoutTest.h"

#include <QTest>

#include <limits>

using namespace Vantrel::Pictel;

namespace {

constexpr int highest = std::numeric_limits<int>::max();

} // namespace

class tst_BoxLayout : public BoxLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addOrientations(); }
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void sizesAddUpAlongTheRow_data();
    void sizesAddUpAlongTheRow();
    void negativeSpacingCountsAsNone();
    void sizesSkipHiddenChildren();
    void sizesWithoutContainerAreZero();
    void minimumSizeIgnoresConstraints();
    void preferredSizeTakesConstraints();

    void childrenFollowEachOther_data();
    void childrenFollowEachOther();
    void childWithoutWidthIsFollowedBySpacing();
    void rowStartsAtZeroWhateverTheClientArea();
    void preferredSizeIsTheCachedOne();
    void hiddenChildTakesNoRoom();
    void invalidAreaIsRefused();
    void childThatDoesNotExpandIsAligned_data();
    void childThatDoesNotExpandIsAligned();
    void childThatExpandsFillsItsSlot_data();
    void childThatExpandsFillsItsSlot();
    void stretchOfTheOtherDirectionHasNoEffect();
    void hiddenChildHasNoShare();
    void childDeletedDuringLayoutIsSkipped();
    void layoutSurvivesItsOwnDeletion();
    void sizesAtTheEndsOfTheNumbersDoNotWrap();
    void rowBeyondTheNumbersStaysAtTheirEnd();
    void childDeletedWhenAskedForItsSizeIsSkipped();

    void alignmentAndSpacingAtFirst();
    void layoutIsRelativeAndClips();
    void layoutIsTheClassItself();
};

void tst_BoxLayout::sizesAddUpAlongTheRow_data()
{
    QTest::addColumn<Guests>("guests");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QSize>("size");

    QTest::newRow("nobody") << Guests() << 2 << QSize(0, 0);
    QTest::newRow("one") << Guests {{QSize(10, 7)}} << 2 << QSize(10, 7);
    QTest::newRow("three") << Guests {{QSize(10, 7)}, {QSize(20, 9)}, {QSize(30, 5)}} << 2 << QSize(64, 9);
    QTest::newRow("wider spacing") << Guests {{QSize(10, 7)}, {QSize(20, 9)}} << 11 << QSize(41, 9);
    QTest::newRow("first without width") << Guests {{QSize(0, 7)}, {QSize(10, 3)}} << 2 << QSize(10, 7);
    QTest::newRow("two without width") << Guests {{QSize(0, 7)}, {QSize(0, 8)}, {QSize(10, 3)}} << 2 << QSize(10, 8);
    QTest::newRow("last without width") << Guests {{QSize(10, 7)}, {QSize(0, 3)}} << 2 << QSize(12, 7);
}

void tst_BoxLayout::sizesAddUpAlongTheRow()
{
    QFETCH(Guests, guests);
    QFETCH(int, spacing);
    QFETCH(QSize, size);
    m_layout->setSpacing(spacing);
    addChildren(guests);
    QCOMPARE(m_layout->getMinimumSize(), along(size));
    QCOMPARE(m_layout->getPreferredSize(), along(size));
}

void tst_BoxLayout::negativeSpacingCountsAsNone()
{
    m_layout->setSpacing(-5);
    addChildren({{QSize(10, 7)}, {QSize(20, 9)}});
    QCOMPARE(m_layout->getMinimumSize(), along(QSize(30, 9)));
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(30, 9)));
    QVERIFY(performLayout(QRect(0, 0, 30, 9)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 10, 9), QRect(10, 0, 20, 9)}));
}

void tst_BoxLayout::sizesSkipHiddenChildren()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9)}, {QSize(30, 5)}});
    m_children[1]->setVisible(false);
    QCOMPARE(m_layout->getMinimumSize(), along(QSize(42, 7)));
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(42, 7)));
}

void tst_BoxLayout::sizesWithoutContainerAreZero()
{
    addChildren({{QSize(10, 7)}});
    m_layout->setFigure(nullptr);
    QCOMPARE(m_layout->getMinimumSize(), QSize(0, 0));
    QCOMPARE(m_layout->getPreferredSize(), QSize(0, 0));
    m_layout->setFigure(m_container.get());
}

void tst_BoxLayout::minimumSizeIgnoresConstraints()
{
    HintedFigure *child = addChild({QSize(10, 7), 0, QSize(50, 60)});
    child->minimum = along(QSize(3, 4));
    child->preferred = along(QSize(90, 90));
    QCOMPARE(m_layout->getMinimumSize(), along(QSize(3, 4)));
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(50, 60)));
}

void tst_BoxLayout::preferredSizeTakesConstraints()
{
    addChildren({{QSize(10, 7), 0, QSize(50, 60)}, {QSize(20, 90)}, {QSize(10, 7), 0, QSizeF(4.5, 6.4)}});
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(50 + 2 + 20 + 2 + 5, 90)));
}

void tst_BoxLayout::childrenFollowEachOther_data()
{
    QTest::addColumn<Guests>("guests");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QSize>("area");
    QTest::addColumn<Rects>("expected");

    const Guests three {{QSize(10, 7)}, {QSize(20, 9)}, {QSize(30, 5)}};
    QTest::newRow("exact fit") << three << 2 << QSize(64, 9)
                               << Rects {QRect(0, 0, 10, 9), QRect(12, 0, 20, 9), QRect(34, 0, 30, 9)};
    QTest::newRow("room left over") << three << 2 << QSize(100, 50)
                                    << Rects {QRect(0, 0, 10, 50), QRect(12, 0, 20, 50), QRect(34, 0, 30, 50)};
    QTest::newRow("too little room") << three << 2 << QSize(5, 4)
                                     << Rects {QRect(0, 0, 10, 4), QRect(12, 0, 20, 4), QRect(34, 0, 30, 4)};
    QTest::newRow("no spacing") << three << 0 << QSize(64, 9)
                                << Rects {QRect(0, 0, 10, 9), QRect(10, 0, 20, 9), QRect(30, 0, 30, 9)};
    QTest::newRow("constraint replaces the preferred size")
        << Guests {{QSize(10, 7), 0, QSize(15, 3)}, {QSize(10, 3)}} << 2 << QSize(10, 7)
        << Rects {QRect(0, 0, 15, 7), QRect(17, 0, 10, 7)};
    QTest::newRow("real constraint is rounded")
        << Guests {{QSize(10, 7), 0, QSizeF(14.5, 3)}, {QSize(10, 7), 0, QSizeF(3.4, 3)}, {QSize(10, 3)}} << 2
        << QSize(10, 7) << Rects {QRect(0, 0, 15, 7), QRect(17, 0, 3, 7), QRect(22, 0, 10, 7)};

    const auto stretched = [](unsigned int first, unsigned int second) {
        return Guests {{QSize(10, 7), first}, {QSize(20, 9), second}};
    };
    QTest::newRow("stretch, a pixel lost")
        << stretched(1, 2) << 2 << QSize(42, 9) << Rects {QRect(0, 0, 13, 9), QRect(15, 0, 26, 9)};
    QTest::newRow("stretch, one pixel") << stretched(1, 0) << 2 << QSize(33, 9)
                                        << Rects {QRect(0, 0, 11, 9), QRect(13, 0, 20, 9)};
    QTest::newRow("stretch of the second")
        << stretched(0, 5) << 2 << QSize(42, 9) << Rects {QRect(0, 0, 10, 9), QRect(12, 0, 30, 9)};
    QTest::newRow("stretch without room")
        << stretched(1, 2) << 2 << QSize(32, 9) << Rects {QRect(0, 0, 10, 9), QRect(12, 0, 20, 9)};
    QTest::newRow("stretch with too little room")
        << stretched(1, 2) << 2 << QSize(20, 9) << Rects {QRect(0, 0, 10, 9), QRect(12, 0, 20, 9)};
    QTest::newRow("stretch beyond half of all numbers")
        << stretched(0x80000000U, 0) << 2 << QSize(33, 9) << Rects {QRect(0, 0, 11, 9), QRect(13, 0, 20, 9)};
    QTest::newRow("stretch product wraps")
        << stretched(0x40000000U, 0) << 2 << QSize(37, 9) << Rects {QRect(0, 0, 11, 9), QRect(13, 0, 20, 9)};
    QTest::newRow("stretch sum wraps to nothing")
        << stretched(0x80000000U, 0x80000000U) << 2 << QSize(42, 9) << Rects {QRect(0, 0, 10, 9), QRect(12, 0, 20, 9)};
}

void tst_BoxLayout::childrenFollowEachOther()
{
    QFETCH(Guests, guests);
    QFETCH(int, spacing);
    QFETCH(QSize, area);
    QFETCH(Rects, expected);
    m_layout->setSpacing(spacing);
    addChildren(guests);
    m_container->setBounds(QRect(QPoint(0, 0), along(area)));
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(boundsInRow(), expected);
}

void tst_BoxLayout::childWithoutWidthIsFollowedBySpacing()
{
    addChildren({{QSize(0, 7)}, {QSize(10, 3)}});
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(10, 7)));
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    QVERIFY(performLayout(QRect(0, 0, 10, 7)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 0, 7), QRect(2, 0, 10, 7)}));
}

void tst_BoxLayout::rowStartsAtZeroWhateverTheClientArea()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9), 1}});
    QVERIFY(performLayout(QRect(100, 200, 40, 50)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 10, 50), QRect(12, 0, 28, 50)}));
}

void tst_BoxLayout::preferredSizeIsTheCachedOne()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9), 1}});
    QCOMPARE(m_layout->getPreferredSize(), along(QSize(32, 9)));
    m_children[0]->preferred = along(QSize(5, 7));
    QVERIFY(performLayout(QRect(0, 0, 40, 9)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 5, 9), QRect(7, 0, 28, 9)}));
}

void tst_BoxLayout::hiddenChildTakesNoRoom()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9)}, {QSize(30, 5)}});
    m_children[1]->setBounds(QRect(1, 2, 3, 4));
    m_children[1]->setVisible(false);
    QVERIFY(performLayout(QRect(0, 0, 64, 9)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 10, 9), along(QRect(1, 2, 3, 4)), QRect(12, 0, 30, 9)}));
}

void tst_BoxLayout::invalidAreaIsRefused()
{
    HintedFigure *child = addChild({QSize(10, 7)});
    QVERIFY(!performLayout(QRect()));
    QVERIFY(!performLayout(QRect(0, 0, 10, 0)));
    QVERIFY(!performLayout(QRect(0, 0, 0, 10)));
    m_container->setBounds(QRect(0, 0, 10, 10));
    m_container->setMargin(6);
    QVERIFY(!m_layout->layout(m_container.get()));
    QCOMPARE(child->getBounds(), QRect());
}

void tst_BoxLayout::childThatDoesNotExpandIsAligned_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<QRect>("rowBounds");
    QTest::addColumn<QRect>("columnBounds");

    // The row's slot is 10,10 wide and 30 high behind 12 pixels, stretched by 20; the column's is its transpose.
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignCenter) << QRect(22, 10, 10, 10) << QRect(10, 22, 10, 10);
    QTest::newRow("left top") << (Qt::AlignLeft | Qt::AlignTop) << QRect(12, 0, 10, 10) << QRect(0, 12, 10, 10);
    QTest::newRow("right bottom") << (Qt::AlignRight | Qt::AlignBottom) << QRect(32, 20, 10, 10)
                                  << QRect(20, 32, 10, 10);
    QTest::newRow("left middle") << (Qt::AlignLeft | Qt::AlignVCenter) << QRect(12, 10, 10, 10) << QRect(0, 22, 10, 10);
}

void tst_BoxLayout::childThatDoesNotExpandIsAligned()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(QRect, rowBounds);
    QFETCH(QRect, columnBounds);
    m_layout->setAlignment(alignment);
    addChildren({{QSize(10, 7)}, {QSize(10, 10), 1}});
    m_children[1]->setExpandingDirections(Qt::Orientations());
    QVERIFY(performLayout(QRect(0, 0, 42, 30)));
    QCOMPARE(m_children[1]->getBounds(), isVertical() ? columnBounds : rowBounds);
}

void tst_BoxLayout::childThatExpandsFillsItsSlot_data()
{
    QTest::addColumn<Qt::Orientations>("directions");
    QTest::newRow("horizontally") << Qt::Orientations(Qt::Horizontal);
    QTest::newRow("vertically") << Qt::Orientations(Qt::Vertical);
    QTest::newRow("both ways") << (Qt::Horizontal | Qt::Vertical);
}

void tst_BoxLayout::childThatExpandsFillsItsSlot()
{
    QFETCH(Qt::Orientations, directions);
    HintedFigure *child = addChild({QSize(10, 10), 1});
    child->setExpandingDirections(directions);
    QVERIFY(performLayout(QRect(0, 0, 42, 30)));
    QCOMPARE(boundsInRow(), Rects({QRect(0, 0, 42, 30)}));
}

void tst_BoxLayout::stretchOfTheOtherDirectionHasNoEffect()
{
    HintedFigure child(along(QSize(10, 7)));
    child.setExpandingDirections(Qt::Vertical);
    m_container->add(&child, isVertical() ? 0U : 5U, isVertical() ? 5U : 0U, -1);
    QVERIFY(performLayout(QRect(0, 0, 42, 30)));
    QCOMPARE(along(child.getBounds()), QRect(0, 0, 10, 30));
}

void tst_BoxLayout::hiddenChildHasNoShare()
{
    addChildren({{QSize(10, 7), 1}, {QSize(20, 9), 1}});
    m_children[1]->setVisible(false);
    QVERIFY(performLayout(QRect(0, 0, 42, 30)));
    QCOMPARE(along(m_children[0]->getBounds()), QRect(0, 0, 42, 30));
}

void tst_BoxLayout::childDeletedDuringLayoutIsSkipped()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9)}, {QSize(30, 5)}});
    connect(m_children[0].get(), &Figure::figureMoved, this, [this] { m_children[1].reset(); });
    QVERIFY(performLayout(QRect(0, 0, 64, 9)));
    QCOMPARE(along(m_children[2]->getBounds()), QRect(12, 0, 30, 9));
    QCOMPARE(m_container->childFigureCount(), 2);
}

void tst_BoxLayout::layoutSurvivesItsOwnDeletion()
{
    addChildren({{QSize(10, 7)}, {QSize(20, 9)}});
    m_container->setBounds(QRect(0, 0, 64, 64));
    connect(m_children[0].get(), &Figure::figureMoved, this, [this] { delete m_layout; });
    m_container->validate();
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(m_children[1]->getBounds(), QRect());
}

void tst_BoxLayout::alignmentAndSpacingAtFirst()
{
    const Qt::Alignment expected
        = isVertical() ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignHCenter | Qt::AlignVCenter;
    QCOMPARE(m_layout->getAligment(), expected);
    QCOMPARE(int(m_layout->getAligment()), isVertical() ? 0x81 : 0x84);
    QCOMPARE(m_layout->getSpacing(), 2);
    QCOMPARE(m_layout->expandingDirections(), Qt::Horizontal | Qt::Vertical);
    QCOMPARE(m_layout->parent(), m_container.get());
}

void tst_BoxLayout::layoutIsRelativeAndClips()
{
    QVERIFY(m_layout->isRelativeLayout());
    QVERIFY(isVertical() ? static_cast<OpenBox<VBoxLayout> *>(m_layout)->isClipping()
                         : static_cast<OpenBox<HBoxLayout> *>(m_layout)->isClipping());
}

void tst_BoxLayout::layoutIsTheClassItself()
{
    const char *name = isVertical() ? "Vantrel::Pictel::VBoxLayout" : "Vantrel::Pictel::HBoxLayout";
    QCOMPARE(m_layout->metaObject()->className(), name);
    QCOMPARE(m_layout->metaObject()->superClass(), &Layout::staticMetaObject);
}

void tst_BoxLayout::sizesAtTheEndsOfTheNumbersDoNotWrap()
{
    addChildren({{QSize(highest, 7)}, {QSize(highest, highest)}, {QSize(5, 5)}});
    QCOMPARE(m_layout->getPreferredSize(), QSize(highest, highest));
    QCOMPARE(m_layout->getMinimumSize(), QSize(highest, highest));
    m_layout->setSpacing(highest);
    m_layout->invalidate();
    QCOMPARE(m_layout->getPreferredSize(), QSize(highest, highest));
}

void tst_BoxLayout::rowBeyondTheNumbersStaysAtTheirEnd()
{
    m_layout->setSpacing(highest);
    addChildren({{QSize(10, 7)}, {QSize(0, 7)}, {QSize(0, 9)}});
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    QVERIFY(performLayout(QRect(0, 0, 30, 9)));
    const Rects bounds = boundsInRow();
    QCOMPARE(bounds[0], QRect(0, 0, 10, 9));
    QCOMPARE(bounds[1].x(), highest);
    QCOMPARE(bounds[2].x(), highest);
}

void tst_BoxLayout::childDeletedWhenAskedForItsSizeIsSkipped()
{
    class VanishingFigure : public HintedFigure
    {
    public:
        using HintedFigure::HintedFigure;
        bool isVanishing = false;

        QSize getPreferredSize() override
        {
            if (isVanishing)
                delete this;
            return QSize(10, 7);
        }
    };
    auto *vanishing = new VanishingFigure(QSize(10, 7));
    m_container->add(vanishing);
    addChildren({{QSize(20, 9)}});
    m_layout->getPreferredSize();
    vanishing->isVanishing = true;
    QVERIFY(performLayout(QRect(0, 0, 30, 9)));
    QCOMPARE(m_container->childFigureCount(), 1);
    QCOMPARE(m_children[0]->getBounds().size(), along(QSize(20, 9)));
}

PICTEL_TEST_MAIN(tst_BoxLayout)
#include "tst_boxlayout.moc"
