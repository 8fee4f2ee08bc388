#pragma once

#include <vtlpictel/layout/StackLayout.h>

#include <QRect>

namespace Vantrel::Pictel {

/// Stacks freeform figures (IFreeformFigure): it unites how far they reach and hands each the bounds given from above.
///
/// The children, this layout's container and the rectangles here share one coordinate system, that of the container's
/// parent. The extent is computed when it is first asked for and kept until examineExtent() finds it changed; connect
/// the children's extentChanged() signals to that slot. Children that are no freeform figures are left alone.
///
/// A new layout counts as laid out: nothing happens before the container is invalidated. Ownership: see Layout.
class VTLPICTEL_EXPORT FreeformStackLayout : public StackLayout
{
    Q_OBJECT

public:
    explicit FreeformStackLayout(QObject *parent = nullptr);
    ~FreeformStackLayout() override;

public Q_SLOTS:
    /// Computes the extent, and emits extentChanged() if it is not the one known so far.
    virtual void examineExtent();

public:
    /// The union of the freeform extents of the children, hidden ones included; null without any.
    QRect getFreeformExtent();
    /// Hands \a bounds to every visible freeform child, and again to those that have others at the next layout.
    void setFreeformBounds(const QRect &bounds);

Q_SIGNALS:
    /// getFreeformExtent() has a new answer.
    void extentChanged();

protected:
    /// The minimum size.
    QSize calculatePreferredSize() override;
    /// The size of the freeform extent.
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
    /// The current extent, whatever is cached; null without a container.
    QRect calculateFreeformExtent() const;
    /// The bounds last handed on; invalid before the first.
    QRect getCurrentChildBounds() const { return m_currentChildBounds; }

private:
    QRect m_extent;
    QRect m_currentChildBounds;
};

} // namespace Vantrel::Pictel
