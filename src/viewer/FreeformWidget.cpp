#include <vtlpictel/viewer/FreeformWidget.h>

#include "support/BoundedRect.h"
#include "viewer/FreeformWidget_p.h"

#include <QCoreApplication>
#include <QHoverEvent>
#include <QMessageLogger>
#include <QPixmap>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace Vantrel::Pictel {

namespace {

// Scales \a rect about \a center, position and size rounded on their own.
QRect zoomedRect(const QRect &rect, const QPoint &center, double factor)
{
    const double left = double(roundToInt(factor * (double(rect.x()) - center.x()))) + center.x();
    const double top = double(roundToInt(factor * (double(rect.y()) - center.y()))) + center.y();
    const double width = roundToInt(factor * rect.width());
    const double height = roundToInt(factor * rect.height());
    return boundedRect(left, top, left + width - 1, top + height - 1);
}

} // namespace

bool isUsableScale(double scale)
{
    return scale > 0.0 && std::isfinite(scale) && std::isfinite(1.0 / scale);
}

FreeformWidget::FreeformWidget(FreeformViewer *viewer, Qt::WindowFlags flags)
    : QWidget(viewer, flags)
    , d(std::make_unique<Private>(this, viewer))
{
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_MouseTracking);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMinimumSize(300, 200);
}

FreeformWidget::~FreeformWidget()
{
    d->releaseContent();
}

UpdateManager *FreeformWidget::getUpdateManager()
{
    return d->updateManager;
}

void FreeformWidget::setUpdateManager(UpdateManager *updateManager)
{
    if (d->updateManager == updateManager)
        return;
    d->updateManager = updateManager;
    if (d->content)
        d->content->setUpdateManager(updateManager);
}

QRect &FreeformWidget::elasticBand()
{
    return d->elasticBand;
}

// Coordinate mapping

QPointF FreeformWidget::toLogical(const QPointF &point)
{
    return d->toLogical.map(point);
}

QRectF FreeformWidget::toLogical(const QRectF &rect)
{
    return d->toLogical.mapRect(rect);
}

QPointF FreeformWidget::fromLogical(const QPointF &point)
{
    return d->fromLogical.map(point);
}

QRectF FreeformWidget::fromLogical(const QRectF &rect)
{
    return d->fromLogical.mapRect(rect);
}

// Each transform is built from its own formula: inverting one fails long before the scale gets useless.
void FreeformWidget::Private::setTransformation(double originX, double originY, double newScale)
{
    toLogical = QTransform(1.0 / newScale, 0.0, 0.0, 1.0 / newScale, originX, originY);
    fromLogical = QTransform(newScale, 0.0, 0.0, newScale, -originX * newScale, -originY * newScale);
    q->update();
}

QPointF FreeformWidget::getPointAtOrigin() const
{
    return d->pointAtOrigin;
}

void FreeformWidget::setPointAtOrigin(const QPoint &point)
{
    if (QPointF(point) == d->pointAtOrigin)
        return;
    d->pointAtOrigin = point;
    d->setTransformation(point.x(), point.y(), d->scale);
}

// Content

Figure *FreeformWidget::getContent() const
{
    return d->content;
}

bool FreeformWidget::setContent(Figure *content)
{
    auto *pane = qobject_cast<FreeformLayeredPane *>(content);
    if (!pane) {
        QMessageLogger().warning("FreeformWidget::setContent(): assigned content not a FreeformedLayeredPane");
        return false;
    }
    d->content = pane;
    pane->setBackgroundColor(Qt::transparent);
    pane->addNotify();
    connect(pane, SIGNAL(extentChanged()), this, SLOT(contentExtentChanged()));
    connect(pane, &QObject::destroyed, this, qOverload<>(&QWidget::update), Qt::UniqueConnection);
    if (d->updateManager)
        d->updateManager->addInvalidFigure(pane);
    pane->setUpdateManager(d->updateManager);
    update();
    return true;
}

// Content that another viewer shows meanwhile keeps that viewer's manager.
void FreeformWidget::Private::releaseContent()
{
    if (content && content->getUpdateManager() == updateManager)
        content->setUpdateManager(nullptr);
}

void FreeformWidget::saveBounds()
{
    if (d->content)
        d->savedBounds = d->content->getBounds();
}

void FreeformWidget::restoreBounds()
{
    if (d->content)
        d->content->setBounds(d->savedBounds);
}

QRect FreeformWidget::Private::extent() const
{
    return content ? content->getFreeformExtent() : QRect();
}

QRect FreeformWidget::Private::withMargins(const QRect &rect) const
{
    return grownRect(rect, xMargin, yMargin);
}

// Zoom

double FreeformWidget::getScale() const
{
    return d->scale;
}

double FreeformWidget::setScale(double scale, const QPoint *topLeft)
{
    return scale < 0.0 ? d->scaleToFit(scale) : adjustSizeToScale(scale, topLeft);
}

double FreeformWidget::setScaleAt(double scale, const QPoint &fixedPoint)
{
    const double newScale = d->boundedScale(scale);
    return newScale == d->scale ? newScale : d->zoom(newScale, &fixedPoint, nullptr);
}

double FreeformWidget::adjustSizeToScale(double scale, const QPoint *topLeft)
{
    const double newScale = d->boundedScale(scale);
    if (newScale == d->scale && !topLeft)
        return newScale;
    return d->zoom(newScale, nullptr, topLeft);
}

double FreeformWidget::Private::boundedScale(double requested) const
{
    if (minimumScale <= 0.0 || maximumScale <= 0.0 || std::isnan(requested))
        return requested;
    return minimumScale > requested ? minimumScale : std::min(maximumScale, requested);
}

void FreeformWidget::setScaleBounds(double bound, double otherBound)
{
    d->minimumScale = std::min(bound, otherBound);
    d->maximumScale = std::max(bound, otherBound);
    adjustSizeToScale(d->scale, nullptr);
}

void FreeformWidget::resetScaleBounds()
{
    setScaleBounds(-1.0, -1.0);
}

// The fitting scale is stored before the layout, so that this only moves the view to the middle of the extent.
double FreeformWidget::Private::scaleToFit(double requested)
{
    const QRect bareExtent = extent();
    if (!bareExtent.isValid())
        return requested;
    const QRect range = withMargins(bareExtent);
    const QSizeF view = viewportSize();
    const double fit = std::min(view.width() / range.width(), view.height() / range.height());
    if (!isUsableScale(fit))
        return requested;
    scale = fit;
    const QPoint halfView(truncateToInt(view.width() / fit) / 2, truncateToInt(view.height() / fit) / 2);
    const QPoint topLeft = range.center() - halfView;
    q->adjustSizeToScale(fit, &topLeft);
    return fit;
}

// Zooms the visible part about a point, its own centre unless another one is given, and lays content and widget out so
// that they hold the extent with its margins as well as the new visible part.
double FreeformWidget::Private::zoom(double newScale, const QPoint *fixedPoint, const QPoint *topLeft)
{
    const QRect bareExtent = extent();
    if (!bareExtent.isValid() || !isUsableScale(newScale))
        return scale;
    const QScopedValueRollback<bool> busy(resizing, true);
    QRect view = visiblePart();
    if (newScale != scale) {
        view = zoomedRect(view, fixedPoint ? *fixedPoint : view.center(), scale / newScale);
        scale = newScale;
    }
    if (topLeft)
        view = rectMovedTo(view, *topLeft);
    const QRect range = withMargins(bareExtent);
    layOut(range.contains(view) ? range : range.united(view), view.topLeft());
    return scale;
}

void FreeformWidget::Private::layOut(const QRect &range, const QPoint &viewTopLeft)
{
    pointAtOrigin = range.topLeft();
    setTransformation(pointAtOrigin.x(), pointAtOrigin.y(), scale);
    content->setFreeformBounds(range);
    const QSize size = sizeFor(range);
    if (size != q->size())
        q->resize(size);
    const QPoint scrolled = roundedPoint(q->fromLogical(QPointF(viewTopLeft)));
    if (viewer)
        viewer->updateScrollBars(scrolled.x(), scrolled.y());
}

QSize FreeformWidget::Private::sizeFor(const QRect &range) const
{
    return roundedRect(q->fromLogical(QRectF(range))).size();
}

QSize FreeformWidget::Private::viewportSize() const
{
    return viewer ? viewer->viewport()->size() : q->size();
}

QRect FreeformWidget::Private::visiblePart() const
{
    return viewer ? viewer->getViewRect() : roundedRect(q->toLogical(QRectF(q->rect())));
}

bool FreeformWidget::isResizing() const
{
    return d->resizing;
}

// Extent and margins

int FreeformWidget::getXMargin() const
{
    return d->xMargin;
}

int FreeformWidget::getYMargin() const
{
    return d->yMargin;
}

void FreeformWidget::setMargins(int x, int y)
{
    d->xMargin = qMax(x, 0);
    d->yMargin = qMax(y, 0);
}

bool FreeformWidget::extentHandlingEnabled() const
{
    return d->extentHandling;
}

void FreeformWidget::enableExtentHandling(bool enabled)
{
    d->extentHandling = enabled;
}

// A new extent is laid out by the next zoom, scroll or resize; a drawing that grows must not jump under the mouse.
void FreeformWidget::contentExtentChanged() { }

bool FreeformWidget::ensureViewable(const QRect &rect, bool withMargins, bool apply)
{
    if (!d->content || !rect.isValid())
        return false;
    const QRect bounds = d->contentBounds();
    if (bounds.contains(rect))
        return false;
    if (!apply)
        return true;
    QRect range = withMargins ? d->withMargins(rect) : boundedRect(rect);
    if (bounds.isValid())
        range = range.united(bounds);
    d->setContentRange(bounds, range);
    if (range.size() != bounds.size())
        resize(d->sizeFor(range));
    return true;
}

void FreeformWidget::minimizeViewable(const QRect &view)
{
    if (!d->content)
        return;
    const QRect extent = d->extent();
    if (!extent.isValid()) {
        d->showNothing(view);
        return;
    }
    const QRect grown = d->withMargins(extent);
    const QRect range = view.isValid() ? grown.united(boundedRect(view)) : grown;
    const QRect bounds = d->contentBounds();
    if (bounds == range)
        return;
    d->setContentRange(bounds, range);
    if (range.size() == bounds.size())
        return;
    setVisible(false);
    resize(d->sizeFor(range));
    setVisible(true);
}

// Leaves the widget hidden when its size changes: there is nothing to see until a zoom lays it out again.
void FreeformWidget::Private::showNothing(const QRect &view)
{
    content->setFreeformBounds(view);
    const QSize size = sizeFor(boundedRect(view));
    if (size == q->size())
        return;
    q->setVisible(false);
    q->resize(size);
}

QRect FreeformWidget::Private::contentBounds() const
{
    return boundedRect(content->getBounds());
}

void FreeformWidget::Private::setContentRange(const QRect &oldRange, const QRect &range)
{
    content->setFreeformBounds(range);
    if (oldRange.topLeft() != range.topLeft())
        q->setPointAtOrigin(range.topLeft());
}

QSize FreeformWidget::sizeHint() const
{
    const QRect extent = d->extent();
    if (!extent.isValid())
        return minimumSize();
    const QRectF area = mutableSelf()->fromLogical(QRectF(d->withMargins(extent)));
    return boundedRect(area).size().toSize();
}

// Highlight

bool FreeformWidget::isHighlighted() const
{
    return d->highlighted;
}

void FreeformWidget::setHighlighted(bool highlighted)
{
    if (d->highlighted == highlighted)
        return;
    d->highlighted = highlighted;
    repaint();
}

int FreeformWidget::getHighlightStyle() const
{
    return d->highlightStyle;
}

void FreeformWidget::setHighlightStyle(int style)
{
    d->highlightStyle = style;
    if (d->highlighted)
        repaint();
}

// Events

bool FreeformWidget::event(QEvent *event)
{
    if (!event)
        return false;
    if (event->type() == QEvent::HoverMove && d->viewer) {
        const auto *hover = static_cast<QHoverEvent *>(event);
        QCoreApplication::postEvent(
            d->viewer, new QHoverEvent(hover->type(), hover->position(), hover->globalPosition(), hover->oldPosF()));
    }
    return QWidget::event(event);
}

} // namespace Vantrel::Pictel
