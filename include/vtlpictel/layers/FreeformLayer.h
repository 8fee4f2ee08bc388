#pragma once

#include <vtlpictel/layers/IFreeformFigure.h>
#include <vtlpictel/layers/Layer.h>

namespace Vantrel::Pictel {

/// A layer for unbounded content: its figures may lie anywhere, also at negative coordinates.
///
/// The layer owns a FreeformLayout: the constraint of a figure is its rectangle, in content coordinates. How far the
/// figures reach together is the freeform extent; extentChanged() tells when the layout finds another one.
///
/// Under another kind of layout manager the freeform operations do nothing and return null rectangles.
class VTLPICTEL_EXPORT FreeformLayer : public Layer, public IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFreeformFigure)

public:
    /// With \a contentMonitored, moves of the figures added from then on change the extent at once.
    FreeformLayer(QObject *parent, bool contentMonitored);
    ~FreeformLayer() override;

    bool isContentMonitored() const;
    /// See FreeformLayout::setContentMonitored().
    void setContentMonitored(bool monitored);
    /// The logical pixels added to the extent on all four sides; 0 by default.
    int getExtentPadding() const { return m_extentPadding; }
    /// Stores the padding, negative values as 0; it counts when the extent is asked for the next time.
    void setExtentPadding(int padding) { m_extentPadding = qMax(padding, 0); }

    /// The union of the rectangles that the visible figures have as constraints, grown by the padding, in content
    /// coordinates. Figures without one, such as lines and connections, do not count.
    QRect getFreeformExtent() override;
    /// Makes \a bounds (parent's coordinates) the layer's own.
    void setFreeformBounds(const QRect &bounds) override;

Q_SIGNALS:
    void extentChanged() override;

private:
    int m_extentPadding = 0;
};

} // namespace Vantrel::Pictel
