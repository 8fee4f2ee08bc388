#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>
#include <QPoint>
#include <QRect>

namespace Vantrel::Pictel {

class IViewport;
class UpdateManager;

/// The widget that shows a figure tree, as the rest of the library sees it.
class VTLPICTEL_EXPORT IFigureViewer
{
public:
    virtual ~IFigureViewer();

    /// The manager through which the shown figures ask for validation and repaint.
    virtual UpdateManager *getUpdateManager() = 0;
    /// Replaces the update manager; the previous one is deleted later.
    virtual void setUpdateManager(UpdateManager *updateManager) = 0;
    /// The visible part of the content; lives as long as the viewer.
    virtual IViewport *getViewport() = 0;
    /// Schedules a repaint of \a rect, given in absolute content coordinates.
    virtual void updateContentRect(const QRect &rect) = 0;
    /// The rectangle of the elastic band, in content coordinates, to be read and changed in place.
    virtual QRect &elasticBand() = 0;
    /// Maps \a point from the scrolled widget to the screen.
    virtual QPoint toGlobal(const QPoint &point) = 0;
    /// Maps \a point from the screen to the scrolled widget.
    virtual QPoint fromGlobal(const QPoint &point) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IFigureViewer, "IFigureViewer.Pictel.Vantrel.vantrel.org")
