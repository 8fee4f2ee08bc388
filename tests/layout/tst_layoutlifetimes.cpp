#include "layout/LayoutContractTest.h"
#include "support/TreeInvariants.h"

#include <QTest>

#include <algorithm>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

enum class Part { Container, Layout, First, Second, Locator };

} // namespace

/// Containers, layouts, children and locators may die at any time. Each test runs once for each layout.
class tst_LayoutLifetimes : public LayoutContractTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addLayouts(); }
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void partsDieInAnyOrder_data();
    void partsDieInAnyOrder();
    void childDyingDuringLayoutIsSkipped();
    void containerDyingDuringLayoutIsSurvived();
    void layoutDyingDuringLayoutIsSurvived();
    void childDyingWhileAddedIsSurvived();
    void layoutDyingWhileAChildIsAddedIsSurvived();
    void layoutDyingWhileAChildIsRemovedIsSurvived();
    void childDyingWhileRemovedIsSurvived();

private:
    void destroy(Part part);
};

void tst_LayoutLifetimes::destroy(Part part)
{
    switch (part) {
    case Part::Container:
        m_container.reset();
        break;
    case Part::Layout:
        delete m_layout;
        break;
    case Part::First:
    case Part::Second:
        m_children[part == Part::First ? 0 : 1].reset();
        break;
    case Part::Locator:
        m_locators.clear();
    }
}

void tst_LayoutLifetimes::partsDieInAnyOrder_data()
{
    QTest::addColumn<QList<int>>("order");
    QList<int> order {0, 1, 2, 3, 4};
    do {
        QString name;
        for (const int part : order)
            name += QStringLiteral("CL12P").at(part);
        QTest::newRow(qPrintable(name)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_LayoutLifetimes::partsDieInAnyOrder()
{
    QFETCH(QList<int>, order);
    addChild();
    addChild();
    m_container->addNotify();
    m_container->validate();
    for (const int part : order) {
        destroy(Part(part));
        if (m_layout)
            QCOMPARE(m_layout->getFigure(), m_container.get());
        if (m_container && m_layout)
            m_container->invalidate();
        if (m_container)
            m_container->validate();
        if (m_container)
            QCOMPARE(brokenInvariant(m_container.get()), QString());
        for (const auto &child : m_children) {
            if (child)
                child->setBounds(child->getBounds().translated(1, 1));
        }
    }
}

void tst_LayoutLifetimes::childDyingDuringLayoutIsSkipped()
{
    FreeformProbe *first = addChild();
    addChild();
    FreeformProbe *third = addChild();
    displace({first, third});
    connect(first, &Figure::figureMoved, this, [this] { m_children[1].reset(); });
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(children(), Figures({first, third}));
    QVERIFY(third->getBounds() != QRect(900, 900, 5, 5));
}

void tst_LayoutLifetimes::containerDyingDuringLayoutIsSurvived()
{
    FreeformProbe *first = addChild();
    FreeformProbe *second = addChild();
    displace({first, second});
    connect(first, &Figure::figureMoved, this, [this] { m_container.reset(); });
    QVERIFY(!m_layout->layout(m_container.get()));
    QCOMPARE(m_layout->getFigure(), nullptr);
    QCOMPARE(m_layout->childFigureCount(), 0);
    QCOMPARE(first->getParentFigure(), nullptr);
}

void tst_LayoutLifetimes::layoutDyingDuringLayoutIsSurvived()
{
    FreeformProbe *first = addChild();
    FreeformProbe *second = addChild();
    displace({first, second});
    connect(first, &Figure::figureMoved, this, [this] { delete m_layout; });
    QVERIFY(!m_layout->layout(m_container.get()));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(second->getBounds(), QRect(900, 900, 5, 5));
}

void tst_LayoutLifetimes::childDyingWhileAddedIsSurvived()
{
    auto child = std::make_unique<FreeformProbe>();
    connect(child.get(), &Figure::propertyChanged, this, [&] { child.reset(); });
    m_layout->add(child.get(), QVariant(), -1);
    QCOMPARE(m_layout->childFigureCount(), 0);
    child = std::make_unique<FreeformProbe>();
    connect(child.get(), &Figure::propertyChanged, this, [&] { child.reset(); });
    m_layout->add(child.get(), 1U, 1U, -1);
    QCOMPARE(m_layout->childFigureCount(), 0);
}

void tst_LayoutLifetimes::layoutDyingWhileAChildIsAddedIsSurvived()
{
    FreeformProbe child;
    connect(&child, &Figure::propertyChanged, this, [this] { delete m_layout; });
    m_container->add(&child, QRect(1, 2, 3, 4));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(child.getBounds(), QRect());
}

void tst_LayoutLifetimes::layoutDyingWhileAChildIsRemovedIsSurvived()
{
    FreeformProbe *child = addChild();
    connect(child, &Figure::propertyChanged, this, [this] { delete m_layout; });
    QVERIFY(m_container->remove(child));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(child->getParentFigure(), nullptr);
}

void tst_LayoutLifetimes::childDyingWhileRemovedIsSurvived()
{
    FreeformProbe *child = addChild();
    FreeformProbe *other = addChild();
    connect(child, &Figure::propertyChanged, this, [this] { m_children[0].reset(); });
    QVERIFY(m_layout->remove(child));
    QCOMPARE(children(), Figures({other}));
}

PICTEL_TEST_MAIN(tst_LayoutLifetimes)
#include "tst_layoutlifetimes.moc"
