#pragma once

#include <vtlpictel/connections/ConnectionAnchorBase.h>

#include <QPoint>

namespace Vantrel::Pictel {

/// An anchor at a fixed point, on no figure: for the loose end of a connection that is being dragged.
///
/// The location is in absolute coordinates and is at the same time the reference point.
class VTLPICTEL_EXPORT XYAnchor : public ConnectionAnchorBase
{
    Q_OBJECT

public:
    explicit XYAnchor(const QPoint &location, QObject *parent = nullptr);
    ~XYAnchor() override;

    /// The stored location, wherever \a reference is.
    QPoint getLocation(const QPoint &reference) const override;
    /// Null.
    Figure *getOwner() const override;
    /// The stored location.
    QPoint getReferencePoint() const override;

    /// Stores \a location and emits anchorMoved(), also when the location is the same.
    void setLocation(const QPoint &location);

private:
    QPoint m_location;
};

} // namespace Vantrel::Pictel
