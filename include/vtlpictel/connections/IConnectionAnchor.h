#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>
#include <QPoint>

namespace Vantrel::Pictel {

class Figure;
class IAnchorListener;

/// Decides where one end of a connection lies and tells its listeners when that place may have changed.
///
/// All points are in absolute coordinates. An anchor owns neither the figure that it sits on nor its listeners.
class VTLPICTEL_EXPORT IConnectionAnchor
{
public:
    virtual ~IConnectionAnchor();

    /// Has \a listener told of moves; it must be a QObject and is not owned.
    virtual void addAnchorListener(IAnchorListener *listener) = 0;
    /// The end of a connection that comes from \a reference.
    virtual QPoint getLocation(const QPoint &reference) const = 0;
    /// The figure that the anchor sits on, or null.
    virtual Figure *getOwner() const = 0;
    /// The point that the other end of a connection aims at.
    virtual QPoint getReferencePoint() const = 0;
    /// Takes back addAnchorListener(); \a listener is not deleted.
    virtual void removeAnchorListener(IAnchorListener *listener) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IConnectionAnchor, "IConnectionAnchor.Pictel.Vantrel.vantrel.org")
