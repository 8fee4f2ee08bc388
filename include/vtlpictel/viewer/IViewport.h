#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

class QSize;

namespace Vantrel::Pictel {

class Figure;

/// A window onto scaled and scrolled content.
///
/// Content coordinates are the logical ones of the figures; viewport coordinates are pixels of the visible area.
class VTLPICTEL_EXPORT IViewport
{
public:
    virtual ~IViewport();

    /// The root of the shown figures, or null; not owned.
    virtual Figure *getContent() = 0;
    /// How many pixels one page of scrolling moves; 0 for anything but one of the two orientations.
    virtual int getPageStep(Qt::Orientation orientation) = 0;
    /// The content coordinates of the viewport's top-left corner.
    virtual QPoint getViewLocation() = 0;
    /// The visible part of the content, in content coordinates.
    virtual QRect getViewRect() = 0;
    /// Shows \a content, which is not owned; false when it was refused.
    virtual bool setContent(Figure *content) = 0;
    /// Scrolls the content point \a location to the top-left corner, at once or, when \a deferred, from the event loop.
    virtual void setViewLocation(const QPoint &location, bool deferred) = 0;
    /// Schedules a repaint of everything visible.
    virtual void update() = 0;
    /// Repaints everything visible at once.
    virtual void repaint() = 0;
    /// Gives the visible area the size \a size, in pixels.
    virtual void resizeViewport(const QSize &size) = 0;
    /// Keeps \a x and \a y free beside the content.
    virtual void setXYMargins(int x, int y) = 0;

    /// Maps from viewport to content coordinates; the integer variants round.
    virtual QPointF toContent(const QPointF &point) = 0;
    /// \copydoc toContent(const QPointF &)
    virtual QPoint toContent(const QPoint &point) = 0;
    /// \copydoc toContent(const QPointF &)
    virtual QRectF toContent(const QRectF &rect) = 0;
    /// \copydoc toContent(const QPointF &)
    virtual QRect toContent(const QRect &rect) = 0;
    /// Maps from content to viewport coordinates; the integer variants round.
    virtual QPointF fromContent(const QPointF &point) = 0;
    /// \copydoc fromContent(const QPointF &)
    virtual QPoint fromContent(const QPoint &point) = 0;
    /// \copydoc fromContent(const QPointF &)
    virtual QRectF fromContent(const QRectF &rect) = 0;
    /// \copydoc fromContent(const QPointF &)
    virtual QRect fromContent(const QRect &rect) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IViewport, "IViewport.Pictel.Vantrel.vantrel.org")
