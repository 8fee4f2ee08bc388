#pragma once

#include "Bends.h"
#include "GraphDocument.h"
#include "GraphPart.h"
#include "Track.h"

#include <vtlpictel/connections/PolylineConnection.h>

#include <functional>

namespace GraphViewer {

class ArrowDecoration;
class DrawnFigure;
class LabelLocator;

/// An edge of the graph: a connection between two nodes with Graphviz's arrows and labels.
///
/// Its line is drawn through the points of the route, smoothly or straight, with all the strands of the edge, and
/// leaves out what the arrows cover.
class EdgeConnection : public Vantrel::Pictel::PolylineConnection, public GraphPart
{
public:
    /// How the edge finds its way.
    struct Routing
    {
        Vantrel::Pictel::IConnectionRouter *router = nullptr;
        QVariantList bendpoints; ///< For the router; none for a router without bendpoints.
        bool curved = false;
        bool bendable = false; ///< Whether the bendpoints are bends(), which can be changed.
        QPainterPath labelCourse; ///< The course to which the labels have their places in the file; empty to place them
                                  ///< beside the longest segment.
    };

    EdgeConnection(const Edge &edge, QObject *parent);

    /// Joins the edge to its ends, which are not owned, and adds arrows and labels. It must be in a displayed tree.
    void connectEnds(Vantrel::Pictel::IConnectionAnchor *tail, Vantrel::Pictel::IConnectionAnchor *head);
    void setRouting(const Routing &routing);

    /// Where the line runs, arrows included.
    const Track &track() const { return m_track; }
    /// The place among the \a count edges between the same two nodes, from 0; \a spacing pixels apart.
    void setLane(int lane, int count, double spacing);
    /// Whether there are other edges between the same two nodes.
    bool hasLane() const { return m_hasLane; }
    /// How far to the right of the middle it runs then, seen from its tail.
    double laneOffset() const { return m_laneOffset; }

    /// Sets what says how much a label of the edge would cover, besides its own line, in that area.
    void setLabelHarm(const std::function<int(const QRectF &)> &harm) { m_labelHarm = harm; }
    int harmOfLabel(const QRectF &label) const { return m_labelHarm ? m_labelHarm(label) : 0; }
    /// Whether its line or a label lies in \a area.
    bool crosses(const QRectF &area) const;
    bool hasLabels() const { return !m_labels.isEmpty(); }
    /// Where Graphviz let it run.
    const QPainterPath &course() const { return m_edge.course; }

    // Bendpoints; changes show at once when a router with bendpoints is in use

    const Bends &bends() const { return m_bends; }
    /// Adds a bendpoint at \a point to the part of the line next to \a grip and returns its index.
    int addBend(const QPoint &grip, const QPoint &point);
    void moveBend(int index, const QPoint &point);
    void removeBend(int index);
    /// Replaces all bendpoints.
    void setBends(const Bends &bends);

    void setHighlighted(bool highlighted) override;
    QRect getBounds() override;

protected:
    void layout() override;
    void regeneratePath(const QRectF &bounds) override;
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    struct Label
    {
        DrawnFigure *figure;
        LabelLocator *locator;
    };

    ArrowDecoration *makeArrow(const Arrow &arrow);
    void addLabel(const Drawing &drawing);
    void applyBends();
    void aimArrows();
    double coveredBy(const ArrowDecoration *arrow, int end, int next) const;
    QPolygonF pieceOf(const Strand &strand) const;
    void drawStrand(QPainter *painter, const Strand &strand) const;
    void drawBends(QPainter *painter) const;
    bool showsBends() const;

    Edge m_edge;
    Track m_track;
    Bends m_bends;
    Routing m_routing;
    ArrowDecoration *m_tailArrow = nullptr;
    ArrowDecoration *m_headArrow = nullptr;
    QList<Label> m_labels;
    std::function<int(const QRectF &)> m_labelHarm;
    double m_begin = 0.0; // the part of the track that the line is drawn on
    double m_end = 0.0;
    bool m_hasLane = false;
    double m_laneOffset = 0.0;
    double m_laneFraction = 0.5;
    bool m_highlighted = false;
};

} // namespace GraphViewer
