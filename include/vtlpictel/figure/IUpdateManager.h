#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QRect;

namespace Vantrel::Pictel {

class Figure;

/// Takes the requests of figures to be validated and repainted.
///
/// Registered figures are not owned and wait until performUpdate(); dirty rectangles are passed on at once.
class VTLPICTEL_EXPORT IUpdateManager
{
public:
    virtual ~IUpdateManager();

    /// Asks for a repaint of \a rect, given in the coordinates of \a figure's bounds (its parent's).
    virtual void addDirtyRegion(Figure *figure, const QRect &rect) = 0;
    /// Asks for a repaint of \a rect, given in absolute content coordinates.
    virtual void addDirtyRegion(const QRect &rect) = 0;
    /// Has \a figure validated by the next performUpdate().
    virtual void addInvalidFigure(Figure *figure) = 0;
    /// Validates the registered figures in the order of registration, then forgets them.
    virtual void performUpdate() = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IUpdateManager, "IUpdateManager.Pictel.Vantrel.vantrel.org")
