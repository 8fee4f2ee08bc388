#pragma once

#include <vtlpictel/figure/IFigure.h>
#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QPoint;
class QPointF;

namespace Vantrel::Pictel {

/// A figure, such as an arrow head, whose tip is placed at one point and which turns away from another.
///
/// Both points are in the coordinates of the decoration's bounds.
class VTLPICTEL_EXPORT IRotatableDecoration : public virtual IFigure
{
public:
    ~IRotatableDecoration() override;

    /// Places the tip.
    virtual void setLocation(const QPointF &location) = 0;
    /// \copydoc setLocation(const QPointF &)
    virtual void setLocation(const QPoint &location) = 0;
    /// Turns the decoration so that it points away from \a reference.
    virtual void setReferencePoint(const QPointF &reference) = 0;
    /// \copydoc setReferencePoint(const QPointF &)
    virtual void setReferencePoint(const QPoint &reference) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IRotatableDecoration, "IRotatableDecoration.Pictel.Vantrel.vantrel.org")
