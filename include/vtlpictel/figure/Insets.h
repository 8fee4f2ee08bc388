#pragma once

#include <vtlpictel/vtlpictel_export.h>

class QRect;
class QRectF;
class QSize;

namespace Vantrel::Pictel {

/// The widths of the four edges of a rectangle, in the units of whatever they are applied to (logical pixels).
///
/// A plain value without an owner. Negative widths are allowed and work the other way round; integer sums wrap
/// silently.
class VTLPICTEL_EXPORT Insets
{
public:
    /// All four widths are 0.
    Insets() = default;
    /// Mind the order: top, left, bottom, right.
    Insets(int top, int left, int bottom, int right);
    Insets(const Insets &other) = default;
    virtual ~Insets();
    Insets &operator=(const Insets &other) = default;

    int top() const { return m_top; }
    int left() const { return m_left; }
    int bottom() const { return m_bottom; }
    int right() const { return m_right; }
    /// True when all four widths are 0.
    bool isNull() const;
    bool operator==(const Insets &other) const;
    bool operator!=(const Insets &other) const { return !(*this == other); }

    /// Grows \a size in place by the widths of both sides; returns it.
    QSize &addTo(QSize &size) const;
    /// Takes back addTo() in place; returns \a size.
    QSize &removeFrom(QSize &size) const;
    /// Shrinks \a rect in place and returns it. The left edge moves in by the right width and the right edge by the
    /// left width; callers count on this crossing, which shows only with unequal sides.
    QRect &applyTo(QRect &rect) const;
    /// \copydoc applyTo(QRect &) const
    QRectF &applyTo(QRectF &rect) const;
    /// Grows \a rect in place, undoing applyTo() with the same crossing; returns it.
    QRect &stripFrom(QRect &rect) const;
    /// \copydoc stripFrom(QRect &) const
    QRectF &stripFrom(QRectF &rect) const;

private:
    int m_top = 0;
    int m_bottom = 0;
    int m_right = 0;
    int m_left = 0;
};

} // namespace Vantrel::Pictel
