#include "layout/LayoutContractTest.h"

#include <vtlpictel/layout/DelegatingLayout.h>
#include <vtlpictel/layout/FreeformLayout.h>
#include <vtlpictel/layout/FreeformStackLayout.h>
#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/StackLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

template <typename LayoutClass>
Layout *make(QObject *parent)
{
    return new LayoutClass(parent);
}

template <bool contentMonitored>
Layout *makeFreeform(QObject *parent)
{
    return new FreeformLayout(parent, contentMonitored);
}

} // namespace

void LayoutContractTest::addLayouts()
{
    QTest::addColumn<LayoutMaker>("make");
    QTest::newRow("XYLayout") << LayoutMaker(make<XYLayout>);
    QTest::newRow("FreeformLayout") << LayoutMaker(makeFreeform<false>);
    QTest::newRow("FreeformLayout, monitored") << LayoutMaker(makeFreeform<true>);
    QTest::newRow("StackLayout") << LayoutMaker(make<StackLayout>);
    QTest::newRow("FreeformStackLayout") << LayoutMaker(make<FreeformStackLayout>);
    QTest::newRow("DelegatingLayout") << LayoutMaker(make<DelegatingLayout>);
    QTest::newRow("HBoxLayout") << LayoutMaker(make<HBoxLayout>);
    QTest::newRow("VBoxLayout") << LayoutMaker(make<VBoxLayout>);
}

void LayoutContractTest::setUp()
{
    QFETCH_GLOBAL(LayoutMaker, make);
    m_container = std::make_unique<Figure>();
    m_layout = make(nullptr);
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 300, 200));
}

void LayoutContractTest::tearDown()
{
    delete m_layout;
    m_container.reset();
    m_children.clear();
    m_locators.clear();
}

FreeformProbe *LayoutContractTest::addChild()
{
    m_children.push_back(std::make_unique<FreeformProbe>(QRect(0, 0, 10, 10)));
    FreeformProbe *child = m_children.back().get();
    child->setPreferredSize(QSize(10, 10));
    m_container->add(child, place());
    return child;
}

QVariant LayoutContractTest::place()
{
    if (qobject_cast<XYLayout *>(m_layout))
        return QRect(20, 30, 10, 10);
    if (!qobject_cast<DelegatingLayout *>(m_layout))
        return QVariant();
    m_locators.push_back(std::make_unique<ProbeLocator>(QRect(20, 30, 10, 10), this));
    return QVariant::fromValue(m_locators.back().get());
}

void LayoutContractTest::displace(const Figures &figures)
{
    m_layout->invalidate();
    if (auto *stack = qobject_cast<FreeformStackLayout *>(m_layout))
        stack->setFreeformBounds(QRect(1, 1, 40, 40));
    for (Figure *child : figures)
        child->setBounds(QRect(900, 900, 5, 5));
}
