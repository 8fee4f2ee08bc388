#include "layout/HintedFigure.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/DelegatingLayout.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

class OpenDelegatingLayout : public DelegatingLayout
{
public:
    using DelegatingLayout::DelegatingLayout;
    using DelegatingLayout::isClipping;
    using DelegatingLayout::performLayout;
};

} // namespace

class tst_DelegatingLayout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_container.reset(); }

    void locatorPlacesTheChildAtOnceAndAtEachLayout();
    void locatorTypedConstraintIsFound();
    void hiddenChildIsLeftToItsLocator();
    void otherConstraintsAreIgnored();
    void deletedLocatorIsIgnored();
    void layoutIgnoresTheClientArea();
    void sizesAreTheLargestPreferredOnes();
    void sizesWithoutContainerAreInvalid();
    void sizesWithoutChildrenAreInvalid();
    void childrenDeletedDuringLayoutAreSkipped();
    void layoutIsAbsoluteAndDoesNotClip();
    void defaultParentIsNull();

private:
    std::unique_ptr<Figure> m_container;
    OpenDelegatingLayout *m_layout = nullptr;
};

void tst_DelegatingLayout::init()
{
    PictelTest::init();
    m_container = std::make_unique<Figure>();
    m_layout = new OpenDelegatingLayout(m_container.get());
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(10, 20, 300, 200));
}

void tst_DelegatingLayout::locatorPlacesTheChildAtOnceAndAtEachLayout()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    HintedFigure child;
    m_container->add(&child, QVariant::fromValue<QObject *>(&locator));
    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
    locator.place = QRect(5, 6, 7, 8);
    locator.calls = 0;
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(locator.calls, 1);
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

void tst_DelegatingLayout::locatorTypedConstraintIsFound()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    HintedFigure child;
    m_container->add(&child, QVariant::fromValue(&locator));
    locator.calls = 0;
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(locator.calls, 1);
}

void tst_DelegatingLayout::hiddenChildIsLeftToItsLocator()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    HintedFigure child;
    child.setVisible(false);
    m_container->add(&child, QVariant::fromValue(&locator));
    locator.calls = 0;
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(locator.calls, 1);
}

void tst_DelegatingLayout::otherConstraintsAreIgnored()
{
    const QVariantList constraints {QVariant(), QRect(1, 2, 3, 4), QStringLiteral("west"),
                                    QVariant::fromValue<QObject *>(nullptr), QVariant::fromValue<QObject *>(this)};
    for (const QVariant &constraint : constraints) {
        HintedFigure child;
        child.setBounds(QRect(9, 9, 9, 9));
        m_container->add(&child, constraint);
        setParent(m_container.get());
        QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
        QCOMPARE(child.getBounds(), QRect(9, 9, 9, 9));
        m_container->remove(&child);
        setParent(nullptr);
    }
}

void tst_DelegatingLayout::deletedLocatorIsIgnored()
{
    auto locator = std::make_unique<ProbeLocator>(QRect(1, 2, 3, 4), this);
    HintedFigure child;
    m_container->add(&child, QVariant::fromValue(locator.get()));
    locator.reset();
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(m_layout->getConstraint(&child), QVariant());
}

void tst_DelegatingLayout::layoutIgnoresTheClientArea()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    HintedFigure child;
    m_container->add(&child, QVariant::fromValue(&locator));
    locator.calls = 0;
    QVERIFY(m_layout->performLayout(QRect()));
    QCOMPARE(locator.calls, 1);
}

void tst_DelegatingLayout::sizesAreTheLargestPreferredOnes()
{
    HintedFigure wide(QSize(50, 10), QSize(500, 500));
    HintedFigure high(QSize(20, 60), QSize(500, 500));
    high.setVisible(false);
    m_container->add(&wide);
    m_container->add(&high);
    QCOMPARE(m_layout->getMinimumSize(), QSize(50, 60));
    QCOMPARE(m_layout->getPreferredSize(), QSize(50, 60));
}

void tst_DelegatingLayout::sizesWithoutContainerAreInvalid()
{
    HintedFigure child(QSize(50, 10));
    m_container->add(&child);
    m_layout->setFigure(nullptr);
    QCOMPARE(m_layout->getMinimumSize(), QSize(-1, -1));
    QCOMPARE(m_layout->getPreferredSize(), QSize(-1, -1));
    m_layout->setFigure(m_container.get());
    QCOMPARE(m_layout->getMinimumSize(), QSize(50, 10));
}

void tst_DelegatingLayout::sizesWithoutChildrenAreInvalid()
{
    QCOMPARE(m_layout->getMinimumSize(), QSize(-1, -1));
    QCOMPARE(m_layout->getPreferredSize(), QSize(-1, -1));
}

void tst_DelegatingLayout::childrenDeletedDuringLayoutAreSkipped()
{
    ProbeLocator here(QRect(1, 2, 3, 4), this);
    ProbeLocator there(QRect(5, 6, 7, 8), this);
    HintedFigure first;
    auto second = std::make_unique<HintedFigure>();
    m_container->add(&first, QVariant::fromValue(&here));
    m_container->add(second.get(), QVariant::fromValue(&there));
    here.place = QRect(2, 2, 3, 4);
    there.calls = 0;
    connect(&first, &Figure::figureMoved, this, [&] { second.reset(); });
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(there.calls, 0);
    QCOMPARE(first.getBounds(), QRect(2, 2, 3, 4));
}

void tst_DelegatingLayout::layoutIsAbsoluteAndDoesNotClip()
{
    QVERIFY(!m_layout->isRelativeLayout());
    QVERIFY(!m_layout->isClipping());
}

void tst_DelegatingLayout::defaultParentIsNull()
{
    DelegatingLayout layout;
    QCOMPARE(layout.parent(), nullptr);
    QCOMPARE(m_layout->parent(), m_container.get());
}

PICTEL_TEST_MAIN(tst_DelegatingLayout)
#include "tst_delegatinglayout.moc"
