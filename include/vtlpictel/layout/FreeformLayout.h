#pragma once

#include <vtlpictel/layout/XYLayout.h>

#include <QRect>

#include <memory>

namespace Vantrel::Pictel {

class ExtentIndex;

/// Absolute placement on a sheet without borders: children may lie anywhere, also at negative coordinates.
///
/// The layout knows how far its visible children with rectangle constraints reach, the freeform extent, so that a
/// scrolling view can size its range. Coordinates are those of the container's parent, since the layout is not
/// relative; the extent includes the container's border.
///
/// The extent is computed when it is first asked for and then kept. It is examined again, and extentChanged() emitted
/// if it differs, by examineExtent(), when a child is removed or deleted, and, while the content is monitored, when a
/// child moves. After adding or hiding a child, or setting a constraint that moves nothing, call examineExtent().
/// Examining costs a little for each child that changed since the last time, not for all of them. Children whose
/// constraint is a rectangle without area, or who resolve one with area to another (Figure::resolveBounds()), count as
/// changed each time, since their preferred size may be another; thousands of them make each removal slow.
/// A child that left its constraint rectangle as it is keeps that answer until its constraint or visibility is set:
/// an override that would give another one later calls for setConstraint() first.
///
/// Ownership and bad input: see Layout.
class VTLPICTEL_EXPORT FreeformLayout : public XYLayout
{
    Q_OBJECT
    Q_PROPERTY(bool contentMonitored READ isContentMonitored WRITE setContentMonitored)

public:
    /// With \a contentMonitored, every child that is added makes the layout examine the extent whenever it moves.
    FreeformLayout(QObject *parent, bool contentMonitored);
    ~FreeformLayout() override;

    /// Always (0, 0).
    QPoint getOrigin(Figure *figure) const override;

    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;
    /// False: the children share the coordinates of the container's parent.
    bool isRelativeLayout() const override;

    /// The area that the visible children cover, in the container's parent's coordinates; null without children.
    QRect getFreeformExtent();
    bool isContentMonitored() const { return m_contentMonitored; }
    /// Children added from now on are watched or not; those present stay as they were added. Besides, the container's
    /// own moves are watched from each call with true, twice after two calls, until the state changes to false.
    void setContentMonitored(bool monitored);

public Q_SLOTS:
    /// Computes the extent, and emits extentChanged() if it is not the one known so far.
    void examineExtent();

Q_SIGNALS:
    /// getFreeformExtent() has a new answer.
    void extentChanged();

protected:
    /// The minimum size, without a margin.
    QSize calculatePreferredSize() override;
    /// The size of the freeform extent.
    QSize calculateMinimumSize() override;
    /// The current extent, whatever is cached; null without a container.
    QRect calculateFreeformExtent() const;

private:
    friend class ExtentIndex;

    template <typename... Arguments>
    bool addMonitored(Figure *child, const Arguments &...arguments);

    QRect m_extent;
    bool m_contentMonitored;
    std::unique_ptr<ExtentIndex> m_index;
};

} // namespace Vantrel::Pictel
