#pragma once

#include "Drawing.h"

class QJsonArray;

namespace GraphViewer {

/// Maps Graphviz points (72 to the inch, y upwards) to content pixels (96 to the inch, y downwards).
///
/// The content's origin is the top-left corner of the picture that Graphviz itself would make, which has a margin of
/// 4 points around the graph's box, so that both pictures fall on the same pixels.
class PointMapper
{
public:
    static constexpr double pixelsPerPoint = 96.0 / 72.0;

    PointMapper() = default;
    explicit PointMapper(const QRectF &graphBox)
        : m_left(graphBox.left() - margin)
        , m_top(graphBox.bottom() + margin)
    { }

    QPointF point(double x, double y) const { return {pixels(x - m_left), pixels(m_top - y)}; }
    /// Keeps broken files from reaching coordinates that no widget or picture has.
    static double pixels(double points);
    /// The size of Graphviz's own picture of a graph with the box \a graphBox (points).
    static QSizeF pageSize(const QRectF &graphBox);

private:
    static constexpr double margin = 4.0;
    static constexpr double limit = 500000.0;

    double m_left = 0.0;
    double m_top = 0.0;
};

/// Reads one list of draw operations ("_draw_", "_ldraw_", ...); what it does not know it leaves out.
Drawing readDrawing(const QJsonArray &operations, const PointMapper &mapper);

} // namespace GraphViewer
