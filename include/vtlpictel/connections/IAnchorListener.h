#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

namespace Vantrel::Pictel {

class IConnectionAnchor;

/// Hears when an anchor has moved.
///
/// Anchors connect their signal of the same name to the listener, so an implementer is a QObject that declares the
/// operation as a slot, its parameter written as `IConnectionAnchor *` without a namespace.
class VTLPICTEL_EXPORT IAnchorListener
{
public:
    virtual ~IAnchorListener();

    /// \a anchor, or the figure that it sits on, has moved.
    virtual void anchorMoved(IConnectionAnchor *anchor) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IAnchorListener, "IAnchorListener.Pictel.Vantrel.vantrel.org")
