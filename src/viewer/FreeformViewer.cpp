#include <vtlpictel/viewer/FreeformViewer.h>

#include "support/BoundedRect.h"
#include "support/RectExtents.h"
#include "viewer/DirtyArea_p.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/PageLayout.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>

namespace Vantrel::Pictel {

namespace {

// Gives the bar the range of a content under a view of that length, and returns the value as the bar took it.
int scrollTo(QScrollBar *bar, int contentLength, int viewLength, int value)
{
    bar->setRange(0, contentLength - viewLength);
    bar->setPageStep(viewLength);
    bar->setValue(value);
    return bar->value();
}

} // namespace

class FreeformViewer::Private
{
public:
    explicit Private(FreeformViewer *viewer)
        : q(viewer)
        , m_widget(new FreeformWidget(viewer))
        , updateManager(new UpdateManager(viewer))
    { }

    // A viewer is never without a widget: a hidden one stands in when the scroll area was given another widget.
    FreeformWidget *widget()
    {
        if (!m_widget) {
            m_widget = new FreeformWidget(q);
            m_widget->setUpdateManager(updateManager);
        }
        return m_widget;
    }

    // Deletes the widget, unless it was taken out of the viewer.
    void deleteWidget()
    {
        if (m_widget && q->isAncestorOf(m_widget))
            delete m_widget;
    }

private:
    FreeformViewer *const q;
    QPointer<FreeformWidget> m_widget;

public:
    DirtyArea dirtyArea;
    QPointer<UpdateManager> updateManager;
    QPointer<PageLayout> pageLayout;
    QPoint lastClickLocation;
    bool hasLastClickLocation = false;
};

FreeformViewer::FreeformViewer(QWidget *parent)
    : QScrollArea(parent)
    , d(std::make_unique<Private>(this))
{
    d->updateManager->setViewer(this);
    d->widget()->setUpdateManager(d->updateManager);
    setBackgroundRole(QPalette::Dark);
    setWidget(d->widget());
    connect(horizontalScrollBar(), SIGNAL(sliderReleased()), this, SLOT(evaluateContentBounds()));
    connect(verticalScrollBar(), SIGNAL(sliderReleased()), this, SLOT(evaluateContentBounds()));
}

// The widget goes first, while there still is a viewer for it to talk to.
FreeformViewer::~FreeformViewer()
{
    d->deleteWidget();
    if (!d->updateManager)
        return;
    d->updateManager->setViewer(nullptr);
    if (!d->updateManager->parent())
        d->updateManager->deleteLater();
}

// Content

UpdateManager *FreeformViewer::getUpdateManager()
{
    return d->updateManager;
}

void FreeformViewer::setUpdateManager(UpdateManager *updateManager)
{
    if (d->updateManager == updateManager)
        return;
    if (d->updateManager)
        d->updateManager->deleteLater();
    d->updateManager = updateManager;
    if (updateManager)
        updateManager->setViewer(this);
    d->widget()->setUpdateManager(updateManager);
}

IViewport *FreeformViewer::getViewport()
{
    return this;
}

Figure *FreeformViewer::getContent()
{
    return d->widget()->getContent();
}

bool FreeformViewer::setContent(Figure *content)
{
    return d->widget()->setContent(content);
}

// Unless content units are pixels, the rounded rectangle can miss pixels that figures reach: parts of pixels at its
// edges, and half the width of lines along them. One unit and one pixel more covers those.
void FreeformViewer::updateContentRect(const QRect &rect)
{
    FreeformWidget *widget = d->widget();
    d->dirtyArea.add(*widget, roundedRect(widget->fromLogical(toRectF(rect))));
    if (widget->getScale() == 1.0 || !rect.isValid())
        return;
    const QRectF reached = widget->fromLogical(QRectF(grownRect(rect, 1, 1)));
    d->dirtyArea.add(*widget, grownRect(boundedRect(reached).toAlignedRect(), 1, 1));
}

QRect &FreeformViewer::elasticBand()
{
    return d->widget()->elasticBand();
}

// Scale

double FreeformViewer::getScale() const
{
    return d->widget()->getScale();
}

void FreeformViewer::setScale(double scale, const QPoint *pTopLeft)
{
    Q_EMIT scaleChanged(d->widget()->setScale(scale, pTopLeft));
}

double FreeformViewer::setScaleAt(double scale, const QPoint &fixedPoint)
{
    const double oldScale = d->widget()->getScale();
    const double newScale = d->widget()->setScaleAt(scale, fixedPoint);
    if (newScale != oldScale)
        Q_EMIT scaleChanged(newScale);
    return newScale;
}

void FreeformViewer::scaleToNormal()
{
    setScale(1.0);
}

void FreeformViewer::scaleToFit()
{
    setScale(-1.0);
    setScale(-1.0);
}

void FreeformViewer::setScaleBounds(double bound, double otherBound)
{
    d->widget()->setScaleBounds(bound, otherBound);
}

void FreeformViewer::resetScaleBounds()
{
    d->widget()->resetScaleBounds();
}

// Scrolling

int FreeformViewer::getPageStep(Qt::Orientation orientation)
{
    if (orientation == Qt::Horizontal)
        return horizontalScrollBar()->pageStep();
    return orientation == Qt::Vertical ? verticalScrollBar()->pageStep() : 0;
}

QPoint FreeformViewer::getViewLocation()
{
    return roundedPoint(toContent(QPointF(0.0, 0.0)));
}

QRect FreeformViewer::getViewRect()
{
    return toContent(viewport()->rect());
}

void FreeformViewer::setViewLocation(const QPoint &location, bool deferred)
{
    if (deferred)
        QMetaObject::invokeMethod(this, "moveViewTo", Qt::QueuedConnection, Q_ARG(int, location.x()),
                                  Q_ARG(int, location.y()));
    else
        moveViewTo(location.x(), location.y());
}

// A coordinate that lies at the widget's edge is never written.
void FreeformViewer::moveViewTo(int x, int y)
{
    d->widget()->ensureViewable(rectMovedTo(getViewRect(), QPoint(x, y)), false, true);
    const QPoint position = roundedPoint(d->widget()->fromLogical(QPointF(x, y)));
    if (position.isNull())
        return;
    if (position.x() != 0)
        horizontalScrollBar()->setValue(position.x());
    if (position.y() != 0)
        verticalScrollBar()->setValue(position.y());
    updateHighlight();
}

// The highlight frames the visible part, so it has to be painted anew wherever that goes.
void FreeformViewer::updateHighlight()
{
    if (d->widget()->isHighlighted())
        d->widget()->update();
}

void FreeformViewer::resizeViewport(const QSize &size)
{
    resize(size);
    viewport()->resize(size);
}

void FreeformViewer::setXYMargins(int x, int y)
{
    d->widget()->setMargins(x, y);
}

// The widget is hidden while it moves, which saves a repaint in between. Along an axis where it is smaller than the
// view it cannot be scrolled and stands where the layout direction begins.
void FreeformViewer::updateScrollBars(int x, int y)
{
    QWidget *widget = d->widget();
    const QRect view = viewport()->rect();
    const QPoint scrolled(scrollTo(horizontalScrollBar(), widget->width(), view.width(), x),
                          scrollTo(verticalScrollBar(), widget->height(), view.height(), y));
    const QRect moved = QStyle::visualRect(layoutDirection(), view, QRect(-scrolled, widget->size()));
    widget->setVisible(false);
    widget->move(moved.topLeft());
    widget->setVisible(true);
}

void FreeformViewer::evaluateContentBounds()
{
    d->widget()->minimizeViewable(getViewRect());
}

bool FreeformViewer::extentHandlingEnabled() const
{
    return d->widget()->extentHandlingEnabled();
}

void FreeformViewer::enableExtentHandling(bool enabled)
{
    d->widget()->enableExtentHandling(enabled);
}

// Coordinate mapping: the viewport shows the widget shifted by the values of the scroll bars

QPoint FreeformViewer::scrollOffset() const
{
    return QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

QPointF FreeformViewer::toContent(const QPointF &point)
{
    return d->widget()->toLogical(point + scrollOffset());
}

QPoint FreeformViewer::toContent(const QPoint &point)
{
    return roundedPoint(toContent(QPointF(point)));
}

QRectF FreeformViewer::toContent(const QRectF &rect)
{
    return d->widget()->toLogical(rect.translated(scrollOffset()));
}

QRect FreeformViewer::toContent(const QRect &rect)
{
    return roundedRect(toContent(toRectF(rect)));
}

QPointF FreeformViewer::fromContent(const QPointF &point)
{
    return d->widget()->fromLogical(point) - scrollOffset();
}

QPoint FreeformViewer::fromContent(const QPoint &point)
{
    return roundedPoint(fromContent(QPointF(point)));
}

QRectF FreeformViewer::fromContent(const QRectF &rect)
{
    return d->widget()->fromLogical(rect).translated(-scrollOffset());
}

QRect FreeformViewer::fromContent(const QRect &rect)
{
    return roundedRect(fromContent(toRectF(rect)));
}

QPoint FreeformViewer::toGlobal(const QPoint &point)
{
    return d->widget()->mapToGlobal(point);
}

QPoint FreeformViewer::fromGlobal(const QPoint &point)
{
    return d->widget()->mapFromGlobal(point);
}

QPoint FreeformViewer::getLastClickLocation()
{
    if (!d->hasLastClickLocation)
        rememberClick(getViewRect().center());
    return d->lastClickLocation;
}

void FreeformViewer::resetLastClickLocation()
{
    d->hasLastClickLocation = false;
}

void FreeformViewer::rememberClick(const QPoint &location)
{
    d->lastClickLocation = location;
    d->hasLastClickLocation = true;
}

// Painting and highlight

void FreeformViewer::update()
{
    d->widget()->update();
}

void FreeformViewer::repaint()
{
    d->widget()->repaint();
}

bool FreeformViewer::isHighlighted() const
{
    return d->widget()->isHighlighted();
}

void FreeformViewer::setHighlighted(bool highlighted)
{
    d->widget()->setHighlighted(highlighted);
}

int FreeformViewer::getHighlightStyle() const
{
    return d->widget()->getHighlightStyle();
}

void FreeformViewer::setHighlightStyle(int style)
{
    d->widget()->setHighlightStyle(style);
}

// Printing and export

PageLayout *FreeformViewer::getPageLayout() const
{
    return d->pageLayout;
}

void FreeformViewer::setPageLayout(PageLayout *pageLayout)
{
    d->pageLayout = pageLayout;
}

void FreeformViewer::print(QPrinter *printer, const QString &layerName, const QRect &area)
{
    d->widget()->print(printer, layerName, area);
}

void FreeformViewer::copy(QMimeData *mimeData, const QString &layerName, const QRect &area)
{
    if (mimeData)
        mimeData->setImageData(d->widget()->printToPixmap(layerName, area));
}

// Events

void FreeformViewer::mousePressEvent(QMouseEvent *event)
{
    if (!event)
        return;
    rememberClick(toContent(event->position().toPoint()));
    QScrollArea::mousePressEvent(event);
}

void FreeformViewer::resizeEvent(QResizeEvent *event)
{
    if (!event)
        return;
    d->widget()->ensureViewable(getViewRect(), false, true);
    QScrollArea::resizeEvent(event);
    updateHighlight();
}

void FreeformViewer::scrollContentsBy(int dx, int dy)
{
    if (d->widget()->isResizing())
        return;
    QScrollArea::scrollContentsBy(dx, dy);
    updateHighlight();
}

bool FreeformViewer::eventFilter(QObject *object, QEvent *event)
{
    if (!event)
        return false;
    d->dirtyArea.clear();
    // The type comes first: a dying widget sends events too, when it is no FreeformWidget any more.
    if (event->type() == QEvent::Resize && object == d->widget() && d->widget()->isResizing())
        return false;
    return QScrollArea::eventFilter(object, event);
}

} // namespace Vantrel::Pictel
