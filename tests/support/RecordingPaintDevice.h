#pragma once

#include <QBrush>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QRectF>
#include <QStringList>
#include <QTransform>

#include <memory>

/// One drawing operation as it reached the paint engine, with the painter's state at that moment.
///
/// Geometry is kept as it was drawn (logical coordinates); the device...() functions give it mapped by \c transform.
/// A member that does not belong to the kind stays empty.
struct PaintCall
{
    enum Kind { Rects, Lines, Points, Ellipse, Path, Polygon, Text, Pixmap, Image };

    Kind kind = Rects;
    /// Drawn through an overload for integer coordinates.
    bool isIntegral = false;

    QList<QRectF> rects; ///< Rects; the one rectangle of Ellipse; the target of Pixmap and Image
    QList<QLineF> lines;
    QPolygonF points; ///< Points and Polygon
    QPaintEngine::PolygonDrawMode polygonMode = QPaintEngine::OddEvenMode;
    QPainterPath path;
    QString text;
    QPointF position; ///< baseline start of Text
    QPixmap pixmap;
    QImage image;
    QRectF sourceRect; ///< of Pixmap and Image

    QTransform transform; ///< logical to device
    QPen pen;
    QBrush brush;
    QPointF brushOrigin;
    QFont font;
    bool isClipped = false;
    QPainterPath deviceClip; ///< empty when not clipped
    QPainter::RenderHints renderHints;
    QPainter::CompositionMode compositionMode = QPainter::CompositionMode_SourceOver;
    qreal opacity = 1.0;
    Qt::BGMode backgroundMode = Qt::TransparentMode;
    QBrush background;

    /// First rectangle, as drawn; null when there is none.
    QRectF rect() const;
    /// First line, as drawn; null when there is none.
    QLineF line() const;
    /// Bounds of the geometry as drawn, without pen width; for text the empty rectangle at its position.
    QRectF bounds() const;

    QRectF deviceRect() const;
    QLineF deviceLine() const;
    QList<QRectF> deviceRects() const;
    QList<QLineF> deviceLines() const;
    QPolygonF devicePoints() const;
    QPainterPath devicePath() const;
    QPointF devicePosition() const;
    QRectF deviceBounds() const;
    /// Bounds of the clip in device coordinates; null when not clipped.
    QRectF deviceClipRect() const;

    /// A rectangle without outline, as QPainter::fillRect() draws it.
    bool isFill() const;
};

/// A paint device that draws nothing and remembers everything: tests check what reached the painter.
///
/// \code
/// RecordingPaintDevice device;
/// QPainter painter(&device);
/// figure.render(&painter, option);
/// painter.end();
/// QCOMPARE(device.fills(), QList<QRectF>({QRectF(0, 0, 10, 10)}));
/// \endcode
class RecordingPaintDevice : public QPaintDevice
{
public:
    explicit RecordingPaintDevice(const QSize &size = QSize(1000, 1000), int dotsPerInch = 96);
    ~RecordingPaintDevice() override;

    void setSize(const QSize &size) { m_size = size; }
    void setDotsPerInch(int dotsPerInch) { m_dotsPerInch = dotsPerInch; }

    const QList<PaintCall> &calls() const { return m_calls; }
    QList<PaintCall> calls(PaintCall::Kind kind) const;
    QList<PaintCall::Kind> kinds() const;
    int count() const { return static_cast<int>(m_calls.size()); }
    int count(PaintCall::Kind kind) const;
    bool isEmpty() const { return m_calls.isEmpty(); }
    void clear() { m_calls.clear(); }

    /// The call at \a index; a default-made one, which draws nothing, when there is none.
    PaintCall at(int index) const;
    PaintCall first(PaintCall::Kind kind) const;
    PaintCall last(PaintCall::Kind kind) const;

    /// All rectangles of Rects calls in device coordinates, filled or outlined.
    QList<QRectF> rects() const;
    /// All rectangles filled without outline, in device coordinates.
    QList<QRectF> fills() const;
    /// Brush colours of the fills, in their order.
    QList<QColor> fillColors() const;
    /// All lines of Lines calls in device coordinates.
    QList<QLineF> lines() const;
    QStringList texts() const;

    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    friend class RecordingPaintEngine;

    QSize m_size;
    int m_dotsPerInch;
    QList<PaintCall> m_calls;
    std::unique_ptr<QPaintEngine> m_engine;
};
