#include "EdgeReader.h"

#include "DrawingReader.h"
#include "GraphDocument.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLineF>
#include <QStringList>
#include <QTransform>

#include <optional>

namespace GraphViewer {

namespace {

QString attribute(const QJsonObject &object, const char *key)
{
    return object[QLatin1String(key)].toString();
}

// One spline of the attribute "pos": control points, and the tips of the arrows where there are any.
struct Spline
{
    QPolygonF controls;
    std::optional<QPointF> tailTip;
    std::optional<QPointF> headTip;
};

std::optional<QPointF> pointOf(const QString &pair, const PointMapper &mapper)
{
    const QStringList coordinates = pair.split(u',');
    bool validX = false;
    bool validY = false;
    const double x = coordinates.value(0).toDouble(&validX);
    const double y = coordinates.value(1).toDouble(&validY);
    return validX && validY ? std::optional<QPointF>(mapper.point(x, y)) : std::nullopt;
}

Spline readSpline(const QString &text, const PointMapper &mapper)
{
    Spline spline;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (word.startsWith(QLatin1String("s,")))
            spline.tailTip = pointOf(word.mid(2), mapper);
        else if (word.startsWith(QLatin1String("e,")))
            spline.headTip = pointOf(word.mid(2), mapper);
        else if (const auto point = pointOf(word, mapper))
            spline.controls << *point;
    }
    return spline;
}

void appendSpline(QPainterPath &course, const Spline &spline)
{
    if (course.isEmpty())
        course.moveTo(spline.tailTip.value_or(spline.controls.first()));
    course.lineTo(spline.controls.first());
    for (qsizetype i = 1; i + 2 < spline.controls.size(); i += 3)
        course.cubicTo(spline.controls[i], spline.controls[i + 1], spline.controls[i + 2]);
    if (spline.headTip)
        course.lineTo(*spline.headTip);
}

// An arrow as Graphviz drew it, turned so that it points to the right and has its tip at the origin.
Arrow arrowOf(const Drawing &drawing, const QPointF &tip, const QPointF &base)
{
    const QLineF axis(base, tip);
    QTransform toTip;
    toTip.rotate(axis.angle());
    toTip.translate(-tip.x(), -tip.y());
    Arrow arrow;
    arrow.length = axis.length();
    for (const DrawItem &item : drawing)
        arrow.drawing.push_back(transformed(item, toTip));
    return arrow;
}

void readCourse(const QJsonObject &object, const PointMapper &mapper, Edge &edge)
{
    for (const QString &text : attribute(object, "pos").split(u';', Qt::SkipEmptyParts)) {
        const Spline spline = readSpline(text, mapper);
        if (spline.controls.isEmpty())
            continue;
        const bool isFirst = edge.course.isEmpty();
        appendSpline(edge.course, spline);
        if (isFirst && spline.tailTip)
            edge.tailArrow = arrowOf(readDrawing(object[QLatin1String("_tdraw_")].toArray(), mapper), *spline.tailTip,
                                     spline.controls.first());
        if (spline.headTip)
            edge.headArrow = arrowOf(readDrawing(object[QLatin1String("_hdraw_")].toArray(), mapper), *spline.headTip,
                                     spline.controls.last());
    }
}

// A tapered edge is thick where it comes from.
Strand taperedStrand(const QJsonObject &object, OutlineStyle style)
{
    bool valid = false;
    const double width = attribute(object, "penwidth").toDouble(&valid);
    const double thick = PointMapper::pixels(valid ? qMax(0.0, width) : 1.0);
    const bool backwards = attribute(object, "dir") == QLatin1String("back");
    Strand strand;
    style.lineColor = style.fill.color();
    style.lineWidth = backwards ? 0 : thick;
    strand.style = style;
    strand.headWidth = backwards ? thick : 0;
    strand.tapered = true;
    return strand;
}

// Colours with fractions follow one another along the edge.
void spreadAlong(std::vector<Strand> &strands, const std::vector<double> &lengths)
{
    double whole = 0;
    for (const double length : lengths)
        whole += length;
    double done = 0;
    for (std::size_t i = 0; i < strands.size() && whole > 0; ++i) {
        strands[i].from = done / whole;
        done += lengths[i];
        strands[i].to = done / whole;
    }
}

// Colours without fractions run side by side, the first on the right.
void spreadSideways(std::vector<Strand> &strands)
{
    constexpr double spacing = 2 * PointMapper::pixelsPerPoint;
    const double middle = (double(strands.size()) - 1) / 2;
    for (std::size_t i = 0; i < strands.size(); ++i)
        strands[i].offset = (middle - double(i)) * spacing;
}

void readStrands(const QJsonObject &object, const PointMapper &mapper, Edge &edge)
{
    std::vector<double> lengths;
    for (const DrawItem &item : readDrawing(object[QLatin1String("_draw_")].toArray(), mapper)) {
        const auto *outline = std::get_if<Outline>(&item);
        if (!outline)
            continue;
        lengths.push_back(outline->path.length());
        const bool isArea = outline->form != Outline::Form::Line;
        edge.strands.push_back(isArea ? taperedStrand(object, outline->style) : Strand {outline->style});
    }
    if (attribute(object, "color").contains(u';'))
        spreadAlong(edge.strands, lengths);
    else if (attribute(object, "color").contains(u':'))
        spreadSideways(edge.strands);
    else if (edge.strands.size() > 1) // the pieces of one course
        edge.strands.resize(1);
}

bool isAngular(const QString &splines)
{
    static const QStringList kinds {QStringLiteral("line"), QStringLiteral("false"), QStringLiteral("no"),
                                    QStringLiteral("polyline"), QStringLiteral("ortho")};
    return kinds.contains(splines.toLower());
}

} // namespace

void readEdgeLook(const QJsonObject &graph, const QJsonObject &object, const PointMapper &mapper, Edge &edge)
{
    readCourse(object, mapper, edge);
    readStrands(object, mapper, edge);
    edge.angular = isAngular(attribute(graph, "splines"));
    edge.tailPort = !attribute(object, "tailport").isEmpty();
    edge.headPort = !attribute(object, "headport").isEmpty();
}

} // namespace GraphViewer
