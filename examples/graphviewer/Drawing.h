#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QString>

#include <variant>
#include <vector>

class QTransform;

namespace GraphViewer {

/// What Graphviz drew, as plain values.
///
/// All coordinates and lengths are content pixels, 96 to the inch, y growing downwards.

/// How an outline is drawn.
struct OutlineStyle
{
    QColor lineColor = Qt::black;
    double lineWidth = 4.0 / 3.0;
    Qt::PenStyle lineStyle = Qt::SolidLine;
    QBrush fill; ///< Qt::NoBrush leaves the inside empty; gradients are in content coordinates.
};

/// \a style with all that is drawn in \a color; unchanged for an invalid colour.
OutlineStyle recolored(OutlineStyle style, const QColor &color);

/// One outline of a node, a cluster or an arrow head, or one line of an edge.
struct Outline
{
    enum class Form { Box, Ellipse, Area, Line };

    Form form = Form::Area;
    QPainterPath path;
    OutlineStyle style;
};

/// One line of text. Graphviz gives its baseline and the width it measured.
struct TextRun
{
    QPointF baseline; ///< The left end, middle or right end of the baseline, as \a alignment says.
    Qt::Alignment alignment = Qt::AlignHCenter;
    double width = 0.0;
    double size = 14.0 * 4.0 / 3.0; ///< The exact size; the pixel size of \a font is this one rounded up.
    QFont font;
    QColor color = Qt::black;
    QString text;
};

/// A picture in a node.
struct Picture
{
    QRectF rect;
    QString file;
};

using DrawItem = std::variant<Outline, TextRun, Picture>;
using Drawing = std::vector<DrawItem>;

/// The area that \a drawing covers, lines and letters with their full extent; null when it is empty.
QRectF drawingExtent(const Drawing &drawing);
/// The area of one item, without the width of its lines.
QRectF itemRect(const DrawItem &item);
/// \a item moved by \a transform: outlines follow it in full, text and pictures keep their size and go with their
/// centre.
DrawItem transformed(const DrawItem &item, const QTransform &transform);

} // namespace GraphViewer
