#include "layout/BoxLayoutTest.h"

#include <QTest>

using namespace Vantrel::Pictel;

void BoxLayoutTest::addOrientations()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("row") << false;
    QTest::newRow("column") << true;
}

bool BoxLayoutTest::isVertical() const
{
    QFETCH_GLOBAL(bool, vertical);
    return vertical;
}

QRect BoxLayoutTest::along(const QRect &rect) const
{
    return isVertical() ? QRect(rect.y(), rect.x(), rect.height(), rect.width()) : rect;
}

QVariant BoxLayoutTest::along(const QVariant &constraint) const
{
    if (!isVertical())
        return constraint;
    if (constraint.typeId() == QMetaType::QSizeF)
        return constraint.toSizeF().transposed();
    return constraint.typeId() == QMetaType::QSize ? QVariant(constraint.toSize().transposed()) : constraint;
}

void BoxLayoutTest::setUp()
{
    m_container = std::make_unique<Figure>();
    if (isVertical())
        m_layout = new OpenBox<VBoxLayout>(m_container.get());
    else
        m_layout = new OpenBox<HBoxLayout>(m_container.get());
    m_container->setLayoutManager(m_layout);
}

void BoxLayoutTest::tearDown()
{
    m_children.clear();
    m_container.reset();
}

HintedFigure *BoxLayoutTest::addChild(const Guest &guest)
{
    auto child = std::make_unique<HintedFigure>(along(guest.preferred), along(guest.preferred));
    child->setExpandingDirections(Qt::Horizontal);
    const unsigned int vertical = isVertical() ? guest.stretch : 0;
    const unsigned int horizontal = isVertical() ? 0 : guest.stretch;
    m_container->add(child.get(), vertical, horizontal, -1);
    if (guest.constraint.isValid()) {
        child->minimum = QSize(0, 0);
        m_layout->setConstraint(child.get(), along(guest.constraint));
    }
    m_children.push_back(std::move(child));
    return m_children.back().get();
}

void BoxLayoutTest::addChildren(const Guests &guests)
{
    for (const Guest &guest : guests)
        addChild(guest);
}

Rects BoxLayoutTest::boundsInRow() const
{
    Rects bounds;
    for (const auto &child : m_children)
        bounds << along(child->getBounds());
    return bounds;
}

bool BoxLayoutTest::performLayout(const QRect &area)
{
    if (isVertical())
        return static_cast<OpenBox<VBoxLayout> *>(m_layout)->performLayout(along(area));
    return static_cast<OpenBox<HBoxLayout> *>(m_layout)->performLayout(area);
}

bool BoxLayoutTest::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (isVertical())
        return static_cast<OpenBox<VBoxLayout> *>(m_layout)->applyConstraint(child, constraint);
    return static_cast<OpenBox<HBoxLayout> *>(m_layout)->applyConstraint(child, constraint);
}
