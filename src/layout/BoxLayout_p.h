#pragma once

#include "support/LifeGuard.h"
#include "support/Rounding.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/Transposer.h>
#include <vtlpictel/layout/Layout.h>

#include <QStyle>

#include <optional>

namespace Vantrel::Pictel {

/// The size that \a constraint holds, rounded to integers, or nothing when it holds none.
inline std::optional<QSize> sizeConstraint(const QVariant &constraint)
{
    if (constraint.typeId() == QMetaType::QSize)
        return constraint.toSize();
    if (constraint.typeId() != QMetaType::QSizeF)
        return std::nullopt;
    const QSizeF size = constraint.toSizeF();
    return QSize(roundToInt(size.width()), roundToInt(size.height()));
}

/// \a size with each dimension raised to that of \a minimum, unless it is negative.
template <typename Size>
Size raisedTo(const QSize &minimum, Size size)
{
    const Size raised = size.expandedTo(minimum);
    return Size(size.width() >= 0 ? raised.width() : size.width(),
                size.height() >= 0 ? raised.height() : size.height());
}

/// The work of both box layouts: children in a row, one after the other.
///
/// All of it is written for a horizontal row. For a vertical one the transposer swaps sizes and slots, on the way in
/// and on the way out, so "width" and x below run along the row and "height" across it. Box is the layout class,
/// which lets this one in.
template <typename Box>
class BoxLayout
{
public:
    BoxLayout(Box &box, Qt::Orientation orientation);

    QSize preferredSize();
    QSize minimumSize();
    bool setConstraint(Figure *child, const QVariant &constraint);
    bool applyConstraint(Figure *child, const QVariant &constraint);
    /// Places the children along \a area, which contributes its size only: the row starts at (0, 0).
    bool place(const QRect &area);

private:
    template <typename SizeOf>
    QSize rowSize(SizeOf sizeOf);
    QSize preferredSize(Figure *child) const;
    void placeNext(Figure *child);
    int shareOf(quint32 stretch) const;

    Box &m_box;
    const bool m_isVertical;
    Transposer m_transposer;
    const int m_spacing;
    const Qt::Alignment m_alignment;

    // While placing: the room that is left over, and where the row has got to
    int m_extra = 0;
    double m_totalStretch = 0.0;
    int m_height = 0;
    int m_x = 0;
    int m_advance = 0;
};

template <typename Box>
BoxLayout<Box>::BoxLayout(Box &box, Qt::Orientation orientation)
    : m_box(box)
    , m_isVertical(orientation == Qt::Vertical)
    , m_spacing(qMax(box.getSpacing(), 0))
    , m_alignment(box.getAligment())
{
    m_transposer.setEnabled(m_isVertical);
}

template <typename Box>
QSize BoxLayout<Box>::preferredSize()
{
    return rowSize([this](Figure *child) { return preferredSize(child); });
}

template <typename Box>
QSize BoxLayout<Box>::minimumSize()
{
    return rowSize([](Figure *child) { return child->getMinimumSize(); });
}

template <typename Box>
bool BoxLayout<Box>::setConstraint(Figure *child, const QVariant &constraint)
{
    const LifeGuard<Layout> box(&m_box);
    QVariant raised = constraint;
    if (child && constraint.typeId() == QMetaType::QSize)
        raised = raisedTo(child->getMinimumSize(), constraint.toSize());
    else if (child && constraint.typeId() == QMetaType::QSizeF)
        raised = raisedTo(child->getMinimumSize(), constraint.toSizeF());
    return box.isAlive() && m_box.Layout::setConstraint(child, raised);
}

template <typename Box>
bool BoxLayout<Box>::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!m_box.Layout::applyConstraint(child, constraint))
        return false;
    const std::optional<QSize> size = sizeConstraint(constraint);
    if (!size || *size == child->getBounds().size())
        return true;
    const LifeGuard<Figure> guest(child);
    child->setBounds(QRect(child->getBounds().topLeft(), *size));
    if (guest.isAlive())
        child->validate();
    return true;
}

template <typename Box>
bool BoxLayout<Box>::place(const QRect &area)
{
    if (!area.isValid())
        return false;
    const LifeGuard<Layout> box(&m_box);
    const QSize available = m_transposer.t(area.size());
    m_height = available.height();
    m_extra = available.width() - m_transposer.t(m_box.getPreferredSize()).width();
    if (!box.isAlive())
        return false;
    if (m_extra > 0)
        m_totalStretch = m_isVertical ? m_box.getVTotalStretch() : m_box.getHTotalStretch();
    m_box.forEachChild([this](Figure *child) { placeNext(child); });
    return true;
}

// Spacing follows only what has some width: a run of children without any at the start adds none.
template <typename Box>
template <typename SizeOf>
QSize BoxLayout<Box>::rowSize(SizeOf sizeOf)
{
    QSize row(0, 0);
    if (!m_box.getFigure())
        return row;
    m_box.forEachChild([&](Figure *child) {
        if (!child->isVisible())
            return;
        const QSize size = m_transposer.t(sizeOf(child));
        const int gap = row.width() > 0 ? m_spacing : 0;
        row = QSize(boundedSum(boundedSum(row.width(), gap), size.width()), qMax(row.height(), size.height()));
    });
    return m_transposer.t(row);
}

template <typename Box>
QSize BoxLayout<Box>::preferredSize(Figure *child) const
{
    const std::optional<QSize> size = sizeConstraint(m_box.getConstraint(child));
    return size ? *size : child->getPreferredSize();
}

template <typename Box>
void BoxLayout<Box>::placeNext(Figure *child)
{
    const Layout::LayoutHelper *helper = child->isVisible() ? m_box.getHelper(child) : nullptr;
    if (!helper)
        return;
    if (m_advance >= 1)
        m_x = boundedSum(m_x, m_advance);
    const int share = shareOf(m_isVertical ? helper->vStretch : helper->hStretch);
    const LifeGuard<Figure> guest(child);
    const QSize size = preferredSize(child);
    if (!guest.isAlive())
        return;
    const int width = boundedSum(m_transposer.t(size).width(), share);
    const QRect slot = m_transposer.t(QRect(QPoint(m_x, 0), QSize(width, m_height)));
    m_advance = boundedSum(m_spacing, width);
    const bool fillsSlot = (child->expandingDirections() & (Qt::Horizontal | Qt::Vertical)) != Qt::Orientations();
    child->setBounds(fillsSlot ? slot : QStyle::alignedRect(Qt::LeftToRight, m_alignment, size, slot));
}

// The product wraps as 32-bit integers do; the fraction of a pixel is lost, so some pixels at the end stay unused.
template <typename Box>
int BoxLayout<Box>::shareOf(quint32 stretch) const
{
    return m_totalStretch > 0.0 ? truncateToInt((stretch * static_cast<quint32>(m_extra)) / m_totalStretch) : 0;
}

} // namespace Vantrel::Pictel
