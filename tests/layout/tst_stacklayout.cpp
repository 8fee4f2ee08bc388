#include "layout/HintedFigure.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/StackLayout.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

class OpenStackLayout : public StackLayout
{
public:
    using StackLayout::isClipping;
    using StackLayout::isLaidOut;
    using StackLayout::performLayout;
    using StackLayout::StackLayout;
};

class CountingFigure : public HintedFigure
{
public:
    using HintedFigure::HintedFigure;

    int asked = 0;

    QSize getPreferredSize() override
    {
        ++asked;
        return preferred;
    }
};

} // namespace

class tst_StackLayout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_container.reset(); }

    void everyVisibleChildGetsTheArea();
    void hiddenChildKeepsItsBounds();
    void invalidAreaIsRefused();
    void clientAreaOfTheContainerIsUsed();
    void sizesAreTheLargestOfAllChildren();
    void sizesCountHiddenChildren();
    void sizesWithoutChildrenAreInvalid();
    void invalidSizeIsAskedForAgain();
    void constraintDoesNotPlace();
    void childDeletedDuringLayoutIsSkipped();
    void layoutIsAbsoluteAndClips();
    void defaultParentIsNull();

private:
    std::unique_ptr<Figure> m_container;
    OpenStackLayout *m_layout = nullptr;
};

void tst_StackLayout::init()
{
    PictelTest::init();
    m_container = std::make_unique<Figure>();
    m_layout = new OpenStackLayout(m_container.get());
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(10, 20, 300, 200));
}

void tst_StackLayout::everyVisibleChildGetsTheArea()
{
    HintedFigure first;
    HintedFigure second;
    m_container->add(&first);
    m_container->add(&second);
    QVERIFY(m_layout->performLayout(QRect(5, 6, 70, 80)));
    QCOMPARE(first.getBounds(), QRect(5, 6, 70, 80));
    QCOMPARE(second.getBounds(), QRect(5, 6, 70, 80));
}

void tst_StackLayout::hiddenChildKeepsItsBounds()
{
    HintedFigure hidden;
    hidden.setVisible(false);
    hidden.setBounds(QRect(1, 2, 3, 4));
    m_container->add(&hidden);
    QVERIFY(m_layout->performLayout(QRect(5, 6, 70, 80)));
    QCOMPARE(hidden.getBounds(), QRect(1, 2, 3, 4));
}

void tst_StackLayout::invalidAreaIsRefused()
{
    HintedFigure child;
    child.setBounds(QRect(1, 2, 3, 4));
    m_container->add(&child);
    QVERIFY(!m_layout->performLayout(QRect()));
    QVERIFY(!m_layout->performLayout(QRect(0, 0, 10, 0)));
    m_container->setMargin(200);
    QVERIFY(!m_layout->layout(m_container.get()));
    QVERIFY(!m_layout->isLaidOut());
    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_StackLayout::clientAreaOfTheContainerIsUsed()
{
    HintedFigure child;
    m_container->setMargin(5);
    m_container->add(&child);
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(child.getBounds(), QRect(15, 25, 290, 190));
}

void tst_StackLayout::sizesAreTheLargestOfAllChildren()
{
    HintedFigure wide(QSize(50, 10), QSize(40, 5));
    HintedFigure high(QSize(20, 60), QSize(10, 30));
    m_container->add(&wide);
    m_container->add(&high);
    QCOMPARE(m_layout->getPreferredSize(), QSize(50, 60));
    QCOMPARE(m_layout->getMinimumSize(), QSize(40, 30));
}

void tst_StackLayout::sizesCountHiddenChildren()
{
    HintedFigure hidden(QSize(50, 10), QSize(40, 5));
    hidden.setVisible(false);
    m_container->add(&hidden);
    QCOMPARE(m_layout->getPreferredSize(), QSize(50, 10));
    QCOMPARE(m_layout->getMinimumSize(), QSize(40, 5));
}

void tst_StackLayout::sizesWithoutChildrenAreInvalid()
{
    QCOMPARE(m_layout->getPreferredSize(), QSize(-1, -1));
    QCOMPARE(m_layout->getMinimumSize(), QSize(-1, -1));
}

void tst_StackLayout::invalidSizeIsAskedForAgain()
{
    CountingFigure child(QSize(-1, -1));
    m_container->add(&child);
    child.asked = 0;
    QCOMPARE(m_layout->getPreferredSize(), QSize(-1, -1));
    QCOMPARE(m_layout->getPreferredSize(), QSize(-1, -1));
    QCOMPARE(child.asked, 2);
    child.preferred = QSize(3, 4);
    QCOMPARE(m_layout->getPreferredSize(), QSize(3, 4));
    QCOMPARE(m_layout->getPreferredSize(), QSize(3, 4));
    QCOMPARE(child.asked, 3);
}

void tst_StackLayout::constraintDoesNotPlace()
{
    HintedFigure child;
    m_container->add(&child, QRect(1, 2, 3, 4));
    QCOMPARE(child.getBounds(), QRect());
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(child.getBounds(), QRect(10, 20, 300, 200));
}

void tst_StackLayout::childDeletedDuringLayoutIsSkipped()
{
    HintedFigure first;
    auto second = std::make_unique<HintedFigure>();
    HintedFigure third;
    m_container->add(&first);
    m_container->add(second.get());
    m_container->add(&third);
    connect(&first, &Figure::figureMoved, this, [&] { second.reset(); });
    QVERIFY(m_layout->performLayout(QRect(5, 6, 70, 80)));
    QCOMPARE(third.getBounds(), QRect(5, 6, 70, 80));
    QCOMPARE(m_container->childFigureCount(), 2);
}

void tst_StackLayout::layoutIsAbsoluteAndClips()
{
    QVERIFY(!m_layout->isRelativeLayout());
    QVERIFY(m_layout->isClipping());
}

void tst_StackLayout::defaultParentIsNull()
{
    StackLayout layout;
    QCOMPARE(layout.parent(), nullptr);
    QCOMPARE(m_layout->parent(), m_container.get());
}

PICTEL_TEST_MAIN(tst_StackLayout)
#include "tst_stacklayout.moc"
