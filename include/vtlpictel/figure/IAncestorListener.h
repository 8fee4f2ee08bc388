#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

namespace Vantrel::Pictel {

class Figure;

/// Hears when the chain of figures from one figure up to its root moves or changes.
///
/// Registered with IFigure::addAncestorListener(). The figure connects its signals of the same names to the listener,
/// so an implementer is a QObject that declares the three operations as slots, their parameters written as
/// `Figure *` without a namespace. The figure does not own its listeners; a deleted listener is simply disconnected.
class VTLPICTEL_EXPORT IAncestorListener
{
public:
    virtual ~IAncestorListener();

    /// The observed figure, or one above it, was hung under \a ancestor.
    virtual void ancestorAdded(Figure *ancestor) = 0;
    /// \a ancestor, the observed figure itself or one above it, moved or changed size.
    virtual void ancestorMoved(Figure *ancestor) = 0;
    /// The observed figure, or one above it, was taken away from \a ancestor.
    virtual void ancestorRemoved(Figure *ancestor) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IAncestorListener, "IAncestorListener.Pictel.Vantrel.vantrel.org")
