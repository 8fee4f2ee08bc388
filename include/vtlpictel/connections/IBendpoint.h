#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QMetaType>
#include <QObject>
#include <QPoint>

namespace Vantrel::Pictel {

/// A point that a connection must pass through.
///
/// Pointers to bendpoints can travel in a QVariant, which does not own them. Routing constraints, though, hold
/// bendpoints by value (see BendpointConnectionRouter).
class VTLPICTEL_EXPORT IBendpoint
{
public:
    virtual ~IBendpoint();

    virtual QPoint getLocation() const = 0;
    /// Moves the bendpoint, where its kind allows it.
    virtual void setLocation(const QPoint &location) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IBendpoint, "IBendpoint.Pictel.Vantrel.vantrel.org")
Q_DECLARE_METATYPE(Vantrel::Pictel::IBendpoint *)
