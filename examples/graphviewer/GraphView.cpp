#include "GraphView.h"

#include "EdgeConnection.h"
#include "Element.h"
#include "GraphScene.h"

#include <vtlpictel/layers/FreeformLayeredPane.h>

#include <QApplication>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

constexpr double zoomStep = 1.25;
constexpr double smallestScale = 0.0005;
constexpr double largestScale = 16.0;

} // namespace

GraphView::GraphView(QWidget *parent)
    : FreeformViewer(parent)
{
    setFrameShape(QFrame::NoFrame);
    setXYMargins(margin, margin);
    setScaleBounds(smallestScale, largestScale);
    setBackgroundRole(QPalette::Window);
    viewport()->grabGesture(Qt::PinchGesture);
    widget()->hide();
}

GraphView::~GraphView() = default;

// Content

void GraphView::showGraph(const GraphDocument &document)
{
    endDrag();
    setHovered(nullptr);
    auto scene = std::make_unique<GraphScene>();
    setContent(scene->content());
    scene->build(document);
    m_scene.swap(scene);
    adoptScene();
    zoomToFit();
    if (getScale() > 1.0)
        zoomToActualSize();
}

void GraphView::adoptScene()
{
    widget()->show();
    m_scene->setGridVisible(m_gridVisible);
    m_scene->setAntialiasing(m_antialiasing);
    m_scene->setRouter(m_router);
    updatePaper();
    relayout();
}

void GraphView::paintEvent(QPaintEvent *event)
{
    FreeformViewer::paintEvent(event);
    if (m_scene)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, tr("Open a Graphviz file, or drop one here."));
}

// The widget's base colour is what pictures are filled with; the property is what the screen is.
void GraphView::updatePaper()
{
    QPalette palette = widget()->palette();
    palette.setColor(QPalette::Base, m_scene->paper());
    widget()->setPalette(palette);
    widget()->setProperty("backgroundColor", m_scene->paper());
}

// Makes the scrolled area fit the graph and what is visible; the view stays where it is.
void GraphView::relayout()
{
    const QPoint location = getViewLocation();
    setScale(getScale(), &location);
}

void GraphView::setGridVisible(bool visible)
{
    m_gridVisible = visible;
    if (m_scene)
        m_scene->setGridVisible(visible);
}

void GraphView::setAntialiasing(bool on)
{
    m_antialiasing = on;
    if (m_scene)
        m_scene->setAntialiasing(on);
}

void GraphView::setRouter(RouterKind kind)
{
    m_router = kind;
    if (!m_scene)
        return;
    endDrag();
    m_scene->setRouter(kind);
    relayout();
}

// Zooming

void GraphView::zoomIn()
{
    zoomCentered(getScale() * zoomStep);
}

void GraphView::zoomOut()
{
    zoomCentered(getScale() / zoomStep);
}

void GraphView::zoomToActualSize()
{
    zoomCentered(1.0);
}

void GraphView::zoomToFit()
{
    scaleToFit();
}

void GraphView::zoomCentered(double scale)
{
    zoomAt(scale, QRectF(viewport()->rect()).center());
}

void GraphView::zoomAt(double scale, const QPointF &at)
{
    if (!m_scene)
        return;
    const QPointF contentPoint = anchorAt(at);
    setScaleAt(scale, contentPoint.toPoint());
    pin(contentPoint, at);
    const QPointF missing = fromContent(contentPoint) - at;
    if (missing.manhattanLength() <= 1.0)
        return;
    makeRoomAround(toContent(QPointF()) + missing / getScale());
    pin(contentPoint, at);
}

// Steps at one place all keep the same point; taking it anew each time would add up the rounding of the scroll bars.
QPointF GraphView::anchorAt(const QPointF &at)
{
    const bool undisturbed
        = m_anchorValid && at == m_anchorPosition && (fromContent(m_anchor) - at).manhattanLength() <= 2.0;
    if (!undisturbed)
        m_anchor = toContent(at);
    m_anchorPosition = at;
    m_anchorValid = true;
    return m_anchor;
}

// The viewer zooms in whole content units, which are many pixels at a large scale; scrolling makes up for the rest.
void GraphView::pin(const QPointF &contentPoint, const QPointF &at)
{
    scrollBy((fromContent(contentPoint) - at).toPoint());
}

// At the rim of the scrolled area the rest cannot be scrolled until there is one more content unit on each side.
void GraphView::makeRoomAround(const QPointF &topLeft)
{
    const QPoint before(static_cast<int>(std::floor(topLeft.x())) - 1, static_cast<int>(std::floor(topLeft.y())) - 1);
    setViewLocation(before, false);
    setViewLocation(before + QPoint(3, 3), false);
}

void GraphView::scrollBy(const QPoint &pixels)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + pixels.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + pixels.y());
}

void GraphView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return FreeformViewer::wheelEvent(event);
    zoomAt(getScale() * std::pow(zoomStep, event->angleDelta().y() / 120.0), event->position());
    event->accept();
}

bool GraphView::pinch(QGestureEvent *event)
{
    const auto *gesture = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture));
    if (!gesture)
        return false;
    if (gesture->changeFlags() & QPinchGesture::ScaleFactorChanged)
        zoomAt(getScale() * gesture->scaleFactor(), viewport()->mapFromGlobal(gesture->centerPoint()));
    event->accept();
    return true;
}

bool GraphView::nativeGesture(QNativeGestureEvent *event)
{
    if (event->gestureType() != Qt::ZoomNativeGesture)
        return false;
    zoomAt(getScale() * (1.0 + event->value()), viewport()->mapFromGlobal(event->globalPosition()));
    return true;
}

bool GraphView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Gesture && pinch(static_cast<QGestureEvent *>(event)))
        return true;
    if (event->type() == QEvent::NativeGesture && nativeGesture(static_cast<QNativeGestureEvent *>(event)))
        return true;
    if (event->type() == QEvent::Leave)
        setHovered(nullptr);
    return FreeformViewer::viewportEvent(event);
}

// Pointing

GraphPart *GraphView::partAt(const QPoint &viewportPoint)
{
    return m_scene ? m_scene->partAt(toContent(viewportPoint)) : nullptr;
}

EdgeConnection *GraphView::bendableAt(const QPoint &viewportPoint)
{
    auto *edge = dynamic_cast<EdgeConnection *>(partAt(viewportPoint));
    return m_scene && m_scene->isBendable(edge) ? edge : nullptr;
}

int GraphView::bendAt(const EdgeConnection &edge, const QPoint &viewportPoint)
{
    constexpr double radius = 6;
    return edge.bends().indexNear(toContent(viewportPoint), qMax(radius, radius / getScale()));
}

// The scrolled widget sends its hover events here, in its own coordinates.
bool GraphView::event(QEvent *event)
{
    if (event->type() == QEvent::HoverMove)
        hoverAt(widget()->mapTo(viewport(), static_cast<QHoverEvent *>(event)->position().toPoint()));
    return FreeformViewer::event(event);
}

void GraphView::hoverAt(const QPoint &viewportPoint)
{
    if (m_drag == Drag::None && viewport()->rect().contains(viewportPoint))
        setHovered(partAt(viewportPoint));
}

void GraphView::setHovered(GraphPart *part)
{
    if (m_hovered == part)
        return;
    if (m_hovered)
        m_hovered->setHighlighted(false);
    m_hovered = part;
    if (m_hovered)
        m_hovered->setHighlighted(true);
    Q_EMIT partHovered(part ? part->name() : QString());
}

// Dragging

void GraphView::mousePressEvent(QMouseEvent *event)
{
    FreeformViewer::mousePressEvent(event);
    const QPoint position = event->position().toPoint();
    if (m_drag != Drag::None || (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton))
        return;
    event->accept();
    m_dragButton = event->button();
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft || (!startElementDrag(position) && !startEdgeDrag(position)))
        startViewDrag(position);
}

bool GraphView::startElementDrag(const QPoint &viewportPoint)
{
    m_draggedElement = dynamic_cast<Element *>(partAt(viewportPoint));
    if (!m_draggedElement)
        return false;
    m_drag = Drag::Element;
    m_dragPosition = toContent(viewportPoint);
    viewport()->setCursor(Qt::SizeAllCursor);
    return true;
}

bool GraphView::startEdgeDrag(const QPoint &viewportPoint)
{
    m_draggedEdge = bendableAt(viewportPoint);
    if (!m_draggedEdge)
        return false;
    m_draggedBend = bendAt(*m_draggedEdge, viewportPoint);
    m_drag = m_draggedBend < 0 ? Drag::Line : Drag::Bend;
    m_dragPosition = toContent(viewportPoint);
    viewport()->setCursor(Qt::SizeAllCursor);
    return true;
}

void GraphView::startViewDrag(const QPoint &viewportPoint)
{
    m_drag = Drag::View;
    m_dragPosition = viewportPoint;
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void GraphView::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    switch (m_drag) {
    case Drag::None:
        break;
    case Drag::View:
        scrollBy(m_dragPosition - position);
        m_dragPosition = position;
        break;
    case Drag::Element:
        dragElement(position);
        break;
    case Drag::Line:
        dragLine(position);
        break;
    case Drag::Bend:
        dragBend(position);
        break;
    }
    event->accept();
}

void GraphView::dragElement(const QPoint &viewportPoint)
{
    const QPointF contentPoint = toContent(QPointF(viewportPoint));
    m_scene->move(m_draggedElement, contentPoint.toPoint() - m_dragPosition);
    m_dragPosition = contentPoint.toPoint();
    followDragged(m_draggedElement->getBounds(), contentPoint, viewportPoint);
}

// A click that trembles adds no bendpoint.
void GraphView::dragLine(const QPoint &viewportPoint)
{
    if ((viewportPoint - fromContent(m_dragPosition)).manhattanLength() < QApplication::startDragDistance())
        return;
    m_draggedBend = m_draggedEdge->addBend(m_dragPosition, toContent(viewportPoint));
    m_drag = Drag::Bend;
    dragBend(viewportPoint);
}

void GraphView::dragBend(const QPoint &viewportPoint)
{
    const QPointF contentPoint = toContent(QPointF(viewportPoint));
    m_draggedEdge->moveBend(m_draggedBend, contentPoint.toPoint());
    m_scene->setChanged();
    followDragged(QRect(contentPoint.toPoint(), QSize(1, 1)), contentPoint, viewportPoint);
}

// What is dragged out of the content takes the content's extent along, and stays under the pointer.
void GraphView::followDragged(const QRect &bounds, const QPointF &contentPoint, const QPoint &viewportPoint)
{
    if (m_scene->content()->getBounds().contains(bounds))
        return;
    m_scene->updateExtent();
    relayout();
    pin(contentPoint, viewportPoint);
}

void GraphView::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (m_drag != Drag::None && event->button() != m_dragButton)
        return;
    endDrag();
    hoverAt(event->position().toPoint());
}

void GraphView::endDrag()
{
    if (m_drag != Drag::None && m_drag != Drag::View)
        m_scene->updateExtent();
    m_drag = Drag::None;
    viewport()->unsetCursor();
}

void GraphView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    EdgeConnection *edge = event->button() == Qt::LeftButton ? bendableAt(position) : nullptr;
    const int bend = edge ? bendAt(*edge, position) : -1;
    if (bend < 0)
        return mousePressEvent(event);
    edge->removeBend(bend);
    m_scene->setChanged();
    m_scene->updateExtent();
    event->accept();
}

} // namespace GraphViewer
