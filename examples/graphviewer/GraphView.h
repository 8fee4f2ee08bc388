#pragma once

#include "EdgeRouters.h"

#include <vtlpictel/viewer/FreeformViewer.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QGestureEvent;
class QHoverEvent;
class QNativeGestureEvent;
QT_END_NAMESPACE

namespace GraphViewer {

class EdgeConnection;
class Element;
class GraphPart;
class GraphScene;
struct GraphDocument;

/// Shows one graph and lets the user look around in it.
///
/// Left button: drags a node or a cluster, bends an edge, and drags the view where there is none of them; middle
/// button: drags the view. With bendpoints, dragging the line of an edge adds one, dragging a bendpoint moves it and a
/// double click on it removes it.
///
/// Ctrl + wheel, a pinch and the zoom operations keep the content point under the pointer (or in the middle) where it
/// is. What is under the pointer is highlighted.
///
/// The paper has the graph's own colour in every palette, because the graph's colours were chosen for it.
class GraphView : public Vantrel::Pictel::FreeformViewer
{
    Q_OBJECT

public:
    /// The space around the graph, in content pixels.
    static constexpr int margin = 24;

    explicit GraphView(QWidget *parent = nullptr);
    ~GraphView() override;

    /// Shows \a document instead of the graph before, as large as fits but not enlarged.
    void showGraph(const GraphDocument &document);
    /// Null until a graph was shown.
    GraphScene *scene() const { return m_scene.get(); }
    bool isGridVisible() const { return m_gridVisible; }
    bool isAntialiasing() const { return m_antialiasing; }
    RouterKind router() const { return m_router; }
    /// Lays the edges of this graph and of those to come with that router. Bendpoints are kept for its return.
    void setRouter(RouterKind kind);

    /// Takes the highlight away, for pictures, until the pointer moves again.
    void clearHover() { setHovered(nullptr); }

    /// Sets the scale so that the content under \a at (viewport pixels) stays there.
    void zoomAt(double scale, const QPointF &at);

public Q_SLOTS:
    void zoomIn();
    void zoomOut();
    void zoomToActualSize();
    void zoomToFit();
    void setGridVisible(bool visible);
    void setAntialiasing(bool on);

Q_SIGNALS:
    /// The pointer came to another part of the graph; \a name is empty where there is none.
    void partHovered(const QString &name);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    enum class Drag { None, View, Element, Line, Bend };

    GraphPart *partAt(const QPoint &viewportPoint);
    EdgeConnection *bendableAt(const QPoint &viewportPoint);
    int bendAt(const EdgeConnection &edge, const QPoint &viewportPoint);
    void hoverAt(const QPoint &viewportPoint);
    void setHovered(GraphPart *part);
    void scrollBy(const QPoint &pixels);
    bool startElementDrag(const QPoint &viewportPoint);
    bool startEdgeDrag(const QPoint &viewportPoint);
    void startViewDrag(const QPoint &viewportPoint);
    void dragElement(const QPoint &viewportPoint);
    void dragLine(const QPoint &viewportPoint);
    void dragBend(const QPoint &viewportPoint);
    void followDragged(const QRect &bounds, const QPointF &contentPoint, const QPoint &viewportPoint);
    void endDrag();
    void updatePaper();
    void adoptScene();
    void relayout();
    void pin(const QPointF &contentPoint, const QPointF &at);
    void makeRoomAround(const QPointF &topLeft);
    QPointF anchorAt(const QPointF &at);
    void zoomCentered(double scale);
    bool pinch(QGestureEvent *event);
    bool nativeGesture(QNativeGestureEvent *event);

    std::unique_ptr<GraphScene> m_scene;
    // Parts live as long as the scene.
    GraphPart *m_hovered = nullptr;
    Element *m_draggedElement = nullptr;
    EdgeConnection *m_draggedEdge = nullptr;
    int m_draggedBend = -1;
    Drag m_drag = Drag::None;
    Qt::MouseButton m_dragButton = Qt::NoButton;
    QPoint m_dragPosition; ///< Viewport pixels while the view is dragged, otherwise content coordinates.
    QPointF m_anchor; ///< The content point kept by the zoom steps at m_anchorPosition.
    QPointF m_anchorPosition;
    bool m_anchorValid = false;
    bool m_gridVisible = false;
    bool m_antialiasing = true;
    RouterKind m_router = RouterKind::Bendpoint;
};

} // namespace GraphViewer
