#include "support/RecordingPaintDevice.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr qreal millimetresPerInch = 25.4;
constexpr int bitsPerPixel = 32;

template <typename Geometry>
QPolygonF toPolygon(const Geometry *points, int count)
{
    QPolygonF polygon;
    std::copy_n(points, count, std::back_inserter(polygon));
    return polygon;
}

QRectF boundsOfLines(const QList<QLineF> &lines)
{
    QPolygonF ends;
    for (const QLineF &line : lines)
        ends << line.p1() << line.p2();
    return ends.boundingRect();
}

QRectF boundsOfRects(const QList<QRectF> &rects)
{
    QPolygonF corners;
    for (const QRectF &rect : rects)
        corners << rect.topLeft() << rect.bottomRight();
    return corners.boundingRect();
}

} // namespace

QRectF PaintCall::rect() const
{
    return rects.value(0);
}

QLineF PaintCall::line() const
{
    return lines.value(0);
}

QRectF PaintCall::bounds() const
{
    switch (kind) {
    case Lines:
        return boundsOfLines(lines);
    case Points:
    case Polygon:
        return points.boundingRect();
    case Path:
        return path.boundingRect();
    case Text:
        return QRectF(position, QSizeF(0, 0));
    default:
        return boundsOfRects(rects);
    }
}

QRectF PaintCall::deviceRect() const
{
    return transform.mapRect(rect());
}

QLineF PaintCall::deviceLine() const
{
    return transform.map(line());
}

QList<QRectF> PaintCall::deviceRects() const
{
    QList<QRectF> mapped;
    for (const QRectF &rect : rects)
        mapped << transform.mapRect(rect);
    return mapped;
}

QList<QLineF> PaintCall::deviceLines() const
{
    QList<QLineF> mapped;
    for (const QLineF &line : lines)
        mapped << transform.map(line);
    return mapped;
}

QPolygonF PaintCall::devicePoints() const
{
    return transform.map(points);
}

QPainterPath PaintCall::devicePath() const
{
    return transform.map(path);
}

QPointF PaintCall::devicePosition() const
{
    return transform.map(position);
}

QRectF PaintCall::deviceBounds() const
{
    return transform.mapRect(bounds());
}

QRectF PaintCall::deviceClipRect() const
{
    return deviceClip.boundingRect();
}

bool PaintCall::isFill() const
{
    return kind == Rects && pen.style() == Qt::NoPen && brush.style() != Qt::NoBrush;
}

/// Claims every feature, so that QPainter hands over each operation as it was asked for instead of emulating it.
class RecordingPaintEngine : public QPaintEngine
{
public:
    explicit RecordingPaintEngine(RecordingPaintDevice &device)
        : QPaintEngine(AllFeatures)
        , m_device(device)
    { }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override { }
    Type type() const override { return User; }

    void drawRects(const QRect *rects, int count) override { recordRects(rects, count, true); }
    void drawRects(const QRectF *rects, int count) override { recordRects(rects, count, false); }
    void drawLines(const QLine *lines, int count) override { recordLines(lines, count, true); }
    void drawLines(const QLineF *lines, int count) override { recordLines(lines, count, false); }
    void drawEllipse(const QRectF &rect) override { record(PaintCall::Ellipse).rects << rect; }
    void drawEllipse(const QRect &rect) override { record(PaintCall::Ellipse, true).rects << QRectF(rect); }
    void drawPath(const QPainterPath &path) override { record(PaintCall::Path).path = path; }
    void drawPoints(const QPointF *points, int count) override
    {
        record(PaintCall::Points).points = toPolygon(points, count);
    }
    void drawPoints(const QPoint *points, int count) override
    {
        record(PaintCall::Points, true).points = toPolygon(points, count);
    }
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
    {
        recordPolygon(toPolygon(points, count), mode, false);
    }
    void drawPolygon(const QPoint *points, int count, PolygonDrawMode mode) override
    {
        recordPolygon(toPolygon(points, count), mode, true);
    }
    void drawTextItem(const QPointF &position, const QTextItem &item) override;
    void drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source) override;
    void drawTiledPixmap(const QRectF &target, const QPixmap &pixmap, const QPointF &offset) override;
    void drawImage(const QRectF &target, const QImage &image, const QRectF &source, Qt::ImageConversionFlags) override;

private:
    PaintCall &record(PaintCall::Kind kind, bool isIntegral = false);
    void recordPolygon(const QPolygonF &points, PolygonDrawMode mode, bool isIntegral);
    template <typename Rect>
    void recordRects(const Rect *rects, int count, bool isIntegral);
    template <typename Line>
    void recordLines(const Line *lines, int count, bool isIntegral);

    RecordingPaintDevice &m_device;
};

PaintCall &RecordingPaintEngine::record(PaintCall::Kind kind, bool isIntegral)
{
    const QPainter &source = *painter();
    PaintCall call;
    call.kind = kind;
    call.isIntegral = isIntegral;
    call.transform = source.deviceTransform();
    call.pen = source.pen();
    call.brush = source.brush();
    call.brushOrigin = source.brushOrigin();
    call.font = source.font();
    call.isClipped = source.hasClipping();
    if (call.isClipped)
        call.deviceClip = call.transform.map(source.clipPath());
    call.renderHints = source.renderHints();
    call.compositionMode = source.compositionMode();
    call.opacity = source.opacity();
    call.backgroundMode = source.backgroundMode();
    call.background = source.background();
    m_device.m_calls.append(call);
    return m_device.m_calls.last();
}

void RecordingPaintEngine::recordPolygon(const QPolygonF &points, PolygonDrawMode mode, bool isIntegral)
{
    PaintCall &call = record(PaintCall::Polygon, isIntegral);
    call.points = points;
    call.polygonMode = mode;
}

template <typename Rect>
void RecordingPaintEngine::recordRects(const Rect *rects, int count, bool isIntegral)
{
    std::copy_n(rects, count, std::back_inserter(record(PaintCall::Rects, isIntegral).rects));
}

template <typename Line>
void RecordingPaintEngine::recordLines(const Line *lines, int count, bool isIntegral)
{
    std::copy_n(lines, count, std::back_inserter(record(PaintCall::Lines, isIntegral).lines));
}

void RecordingPaintEngine::drawTextItem(const QPointF &position, const QTextItem &item)
{
    PaintCall &call = record(PaintCall::Text);
    call.position = position;
    call.text = item.text();
}

void RecordingPaintEngine::drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source)
{
    PaintCall &call = record(PaintCall::Pixmap);
    call.rects << target;
    call.pixmap = pixmap;
    call.sourceRect = source;
}

void RecordingPaintEngine::drawTiledPixmap(const QRectF &target, const QPixmap &pixmap, const QPointF &offset)
{
    drawPixmap(target, pixmap, QRectF(offset, target.size()));
}

void RecordingPaintEngine::drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                                     Qt::ImageConversionFlags)
{
    PaintCall &call = record(PaintCall::Image);
    call.rects << target;
    call.image = image;
    call.sourceRect = source;
}

RecordingPaintDevice::RecordingPaintDevice(const QSize &size, int dotsPerInch)
    : m_size(size)
    , m_dotsPerInch(dotsPerInch)
    , m_engine(std::make_unique<RecordingPaintEngine>(*this))
{ }

RecordingPaintDevice::~RecordingPaintDevice() = default;

QList<PaintCall> RecordingPaintDevice::calls(PaintCall::Kind kind) const
{
    QList<PaintCall> found;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(found),
                 [kind](const PaintCall &call) { return call.kind == kind; });
    return found;
}

QList<PaintCall::Kind> RecordingPaintDevice::kinds() const
{
    QList<PaintCall::Kind> kinds;
    for (const PaintCall &call : m_calls)
        kinds << call.kind;
    return kinds;
}

int RecordingPaintDevice::count(PaintCall::Kind kind) const
{
    return static_cast<int>(calls(kind).size());
}

PaintCall RecordingPaintDevice::at(int index) const
{
    return m_calls.value(index);
}

PaintCall RecordingPaintDevice::first(PaintCall::Kind kind) const
{
    return calls(kind).value(0);
}

PaintCall RecordingPaintDevice::last(PaintCall::Kind kind) const
{
    const QList<PaintCall> found = calls(kind);
    return found.value(found.size() - 1);
}

QList<QRectF> RecordingPaintDevice::rects() const
{
    QList<QRectF> rects;
    for (const PaintCall &call : calls(PaintCall::Rects))
        rects << call.deviceRects();
    return rects;
}

QList<QRectF> RecordingPaintDevice::fills() const
{
    QList<QRectF> fills;
    for (const PaintCall &call : m_calls) {
        if (call.isFill())
            fills << call.deviceRects();
    }
    return fills;
}

QList<QColor> RecordingPaintDevice::fillColors() const
{
    QList<QColor> colors;
    for (const PaintCall &call : m_calls) {
        if (call.isFill())
            colors << call.brush.color();
    }
    return colors;
}

QList<QLineF> RecordingPaintDevice::lines() const
{
    QList<QLineF> lines;
    for (const PaintCall &call : calls(PaintCall::Lines))
        lines << call.deviceLines();
    return lines;
}

QStringList RecordingPaintDevice::texts() const
{
    QStringList texts;
    for (const PaintCall &call : calls(PaintCall::Text))
        texts << call.text;
    return texts;
}

QPaintEngine *RecordingPaintDevice::paintEngine() const
{
    return m_engine.get();
}

int RecordingPaintDevice::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return qRound(m_size.width() * millimetresPerInch / m_dotsPerInch);
    case PdmHeightMM:
        return qRound(m_size.height() * millimetresPerInch / m_dotsPerInch);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return m_dotsPerInch;
    case PdmDepth:
        return bitsPerPixel;
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(metric);
    }
}
