#include "DrawingReader.h"

#include "FontNames.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLinearGradient>
#include <QRadialGradient>

#include <cmath>

namespace GraphViewer {

namespace {

// The font characteristics of an operation "t", as bits.
enum FontCharacteristic {
    Bold = 1,
    Italic = 2,
    Underline = 4,
    Superscript = 8,
    Subscript = 16,
    StrikeOut = 32,
    Overline = 64
};

bool isAxisAligned(const QPolygonF &corners)
{
    if (corners.size() != 4)
        return false;
    const auto straight
        = [](const QPointF &a, const QPointF &b) { return qAbs(a.x() - b.x()) < 0.01 || qAbs(a.y() - b.y()) < 0.01; };
    return straight(corners[0], corners[1]) && straight(corners[1], corners[2]) && straight(corners[2], corners[3])
        && straight(corners[3], corners[0]) && corners[0] != corners[2];
}

QPainterPath bezierPath(const QPolygonF &points)
{
    QPainterPath path;
    if (points.isEmpty())
        return path;
    path.moveTo(points.first());
    for (qsizetype i = 1; i + 2 < points.size(); i += 3)
        path.cubicTo(points[i], points[i + 1], points[i + 2]);
    return path;
}

QPainterPath polygonPath(const QPolygonF &points, bool closed)
{
    QPainterPath path;
    path.addPolygon(points);
    if (closed)
        path.closeSubpath();
    return path;
}

// Walks through the operations; pen, brush and font stay in force until the next operation changes them.
class DrawingReader
{
public:
    explicit DrawingReader(const PointMapper &mapper)
        : m_mapper(mapper)
    { }

    void read(const QJsonObject &operation);
    Drawing takeDrawing() { return std::move(m_drawing); }

private:
    void readShape(char code, const QJsonObject &operation);
    void readPen(const QJsonObject &operation);
    void readStyle(const QString &style);
    void readText(const QJsonObject &operation);
    void addCurve(const QPolygonF &controls);
    void addEllipse(const QJsonArray &rect, bool filled);
    void addOutline(Outline::Form form, const QPainterPath &path, bool filled);
    void addPolygon(const QPolygonF &corners, bool filled);
    QFont currentFont(double size) const;
    QBrush brush(const QJsonObject &operation) const;
    QPointF point(const QJsonArray &pair) const { return m_mapper.point(pair.at(0).toDouble(), pair.at(1).toDouble()); }
    QPolygonF points(const QJsonObject &operation) const;

    PointMapper m_mapper;
    Drawing m_drawing;
    OutlineStyle m_style;
    QBrush m_fill = Qt::black;
    QFont m_font = fontFromFace(QString());
    double m_fontSize = PointMapper::pixels(14);
    int m_fontCharacteristics = 0;
};

QColor colorOf(const QJsonValue &value)
{
    QString name = value.toString();
    // Graphviz writes the opacity last, Qt reads it first.
    if (name.size() == 9 && name.startsWith(u'#'))
        name = u'#' + name.right(2) + name.mid(1, 6);
    const QColor color(name);
    return color.isValid() ? color : QColor(Qt::black);
}

QGradientStops stopsOf(const QJsonArray &list)
{
    QGradientStops stops;
    double previous = 0.0;
    for (const QJsonValue &stop : list) {
        // Two stops at one place are a sharp edge; Qt would let the second replace the first.
        const double fraction = qBound(previous, stop[QLatin1String("frac")].toDouble(), 1.0);
        const bool sharp = !stops.isEmpty() && qFuzzyCompare(1.0 + fraction, 1.0 + previous);
        stops.append({qMin(1.0, sharp ? fraction + 1e-6 : fraction), colorOf(stop[QLatin1String("color")])});
        previous = fraction;
    }
    return stops;
}

QBrush DrawingReader::brush(const QJsonObject &operation) const
{
    const QString kind = operation[QLatin1String("grad")].toString();
    const QJsonArray from = operation[QLatin1String("p0")].toArray();
    const QJsonArray to = operation[QLatin1String("p1")].toArray();
    const QGradientStops stops = stopsOf(operation[QLatin1String("stops")].toArray());
    if (kind == QLatin1String("linear")) {
        QLinearGradient gradient(point(from), point(to));
        gradient.setStops(stops);
        return gradient;
    }
    if (kind == QLatin1String("radial")) {
        QRadialGradient gradient(point(to), PointMapper::pixels(to.at(2).toDouble()), point(from),
                                 PointMapper::pixels(from.at(2).toDouble()));
        gradient.setStops(stops);
        return gradient;
    }
    return colorOf(operation[QLatin1String("color")]);
}

QPolygonF DrawingReader::points(const QJsonObject &operation) const
{
    QPolygonF polygon;
    for (const QJsonValue &pair : operation[QLatin1String("points")].toArray())
        polygon << point(pair.toArray());
    return polygon;
}

void DrawingReader::addOutline(Outline::Form form, const QPainterPath &path, bool filled)
{
    if (path.isEmpty())
        return;
    Outline outline {form, path, m_style};
    if (filled)
        outline.style.fill = m_fill;
    m_drawing.push_back(std::move(outline));
}

void DrawingReader::addPolygon(const QPolygonF &corners, bool filled)
{
    const auto form = isAxisAligned(corners) ? Outline::Form::Box : Outline::Form::Area;
    addOutline(form, polygonPath(corners, true), filled);
}

// The outline of an unfilled rounded box is a curve, too.
void DrawingReader::addCurve(const QPolygonF &controls)
{
    const bool isClosed = controls.size() > 2 && controls.isClosed();
    addOutline(isClosed ? Outline::Form::Area : Outline::Form::Line, bezierPath(controls), false);
}

void DrawingReader::addEllipse(const QJsonArray &rect, bool filled)
{
    QPainterPath path;
    path.addEllipse(point(rect), qMax(0.0, PointMapper::pixels(rect.at(2).toDouble())),
                    qMax(0.0, PointMapper::pixels(rect.at(3).toDouble())));
    addOutline(Outline::Form::Ellipse, path, filled);
}

void DrawingReader::readStyle(const QString &style)
{
    if (style == QLatin1String("dashed"))
        m_style.lineStyle = Qt::DashLine;
    else if (style == QLatin1String("dotted"))
        m_style.lineStyle = Qt::DotLine;
    else if (style == QLatin1String("solid"))
        m_style.lineStyle = Qt::SolidLine;
    else if (style == QLatin1String("bold"))
        m_style.lineWidth = PointMapper::pixels(2);
    else if (style.startsWith(QLatin1String("setlinewidth(")))
        m_style.lineWidth = qMax(0.0, PointMapper::pixels(style.mid(13).remove(u')').toDouble()));
}

QFont DrawingReader::currentFont(double size) const
{
    QFont font = m_font;
    font.setPixelSize(qBound(1, static_cast<int>(std::ceil(size)), 2000));
    font.setBold(font.bold() || (m_fontCharacteristics & Bold));
    font.setItalic(font.italic() || (m_fontCharacteristics & Italic));
    font.setUnderline(m_fontCharacteristics & Underline);
    font.setStrikeOut(m_fontCharacteristics & StrikeOut);
    font.setOverline(m_fontCharacteristics & Overline);
    return font;
}

void DrawingReader::readText(const QJsonObject &operation)
{
    TextRun run;
    run.text = operation[QLatin1String("text")].toString();
    if (run.text.isEmpty() || m_fontSize <= 0)
        return;
    const QString align = operation[QLatin1String("align")].toString();
    run.alignment = align == QLatin1String("l") ? Qt::AlignLeft
        : align == QLatin1String("r")           ? Qt::AlignRight
                                                : Qt::AlignHCenter;
    const bool raised = m_fontCharacteristics & Superscript;
    const bool lowered = m_fontCharacteristics & Subscript;
    run.size = raised || lowered ? m_fontSize * 0.83 : m_fontSize;
    run.baseline = point(operation[QLatin1String("pt")].toArray());
    run.baseline.ry() += raised ? -m_fontSize / 3 : lowered ? m_fontSize / 6 : 0;
    run.width = qMax(0.0, PointMapper::pixels(operation[QLatin1String("width")].toDouble()));
    run.font = currentFont(run.size);
    run.color = m_style.lineColor;
    m_drawing.push_back(std::move(run));
}

void DrawingReader::readPen(const QJsonObject &operation)
{
    const QBrush paint = brush(operation);
    m_style.lineColor = paint.gradient() && !paint.gradient()->stops().isEmpty()
        ? paint.gradient()->stops().constFirst().second
        : paint.color();
}

void DrawingReader::readShape(char code, const QJsonObject &operation)
{
    const bool filled = code >= 'A' && code <= 'Z';
    switch (code) {
    case 'E':
    case 'e':
        return addEllipse(operation[QLatin1String("rect")].toArray(), filled);
    case 'P':
    case 'p':
        return addPolygon(points(operation), filled);
    case 'B':
        return addOutline(Outline::Form::Area, bezierPath(points(operation)), true);
    case 'b':
        return addCurve(points(operation));
    case 'L':
        return addOutline(Outline::Form::Line, polygonPath(points(operation), false), false);
    default:
        return;
    }
}

void DrawingReader::read(const QJsonObject &operation)
{
    const QString name = operation[QLatin1String("op")].toString();
    const char code = name.size() == 1 ? name.front().toLatin1() : '\0';
    switch (code) {
    case 'c':
        return readPen(operation);
    case 'C':
        m_fill = brush(operation);
        return;
    case 'S':
        return readStyle(operation[QLatin1String("style")].toString());
    case 'F':
        m_font = fontFromFace(operation[QLatin1String("face")].toString());
        m_fontSize = PointMapper::pixels(operation[QLatin1String("size")].toDouble());
        return;
    case 't':
        m_fontCharacteristics = operation[QLatin1String("fontchar")].toInt();
        return;
    case 'T':
        return readText(operation);
    default:
        return readShape(code, operation);
    }
}

} // namespace

double PointMapper::pixels(double points)
{
    return std::isfinite(points) ? qBound(-limit, points * pixelsPerPoint, limit) : 0.0;
}

QSizeF PointMapper::pageSize(const QRectF &graphBox)
{
    return {pixels(graphBox.width() + 2 * margin), pixels(graphBox.height() + 2 * margin)};
}

Drawing readDrawing(const QJsonArray &operations, const PointMapper &mapper)
{
    DrawingReader reader(mapper);
    for (const QJsonValue &operation : operations)
        reader.read(operation.toObject());
    return reader.takeDrawing();
}

} // namespace GraphViewer
