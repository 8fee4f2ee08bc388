#include <vtlpictel/layers/FreeformLayeredPane.h>

#include "support/BoundedRect.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/FreeformStackLayout.h>

#include <QLine>
#include <QLineF>
#include <QPainter>
#include <QPen>
#include <QStyleOptionViewItem>

#include <limits>

namespace Vantrel::Pictel {

namespace {

// Up to this many lines a grid is painted as a whole; of a larger one only the lines that can be seen apart.
constexpr qint64 MaximumWholeGrid = 20000;
// More lines than the pixels of any device call for would only take time.
constexpr qint64 MaximumGridLines = 1000000;

bool isFreeformLayer(Layer *layer)
{
    return qobject_cast<FreeformLayeredPane *>(layer) || qobject_cast<FreeformLayer *>(layer);
}

FreeformStackLayout *stackLayoutOf(const Figure &figure)
{
    return qobject_cast<FreeformStackLayout *>(figure.getLayoutManager());
}

QPen gridPen(const QColor &color, Qt::PenStyle style)
{
    return QPen(color, 1, style);
}

// The positions of the grid lines along one axis: first, first + step, ... while below end.
struct GridAxis
{
    qint64 first;
    qint64 end;
    qint64 step;

    GridAxis(int start, int last, int gridStep)
        : first(start - start % gridStep)
        , end(last)
        , step(gridStep)
    { }

    qint64 count() const { return end > first ? (end - first + step - 1) / step : 0; }

    // Drops the lines outside [low, high]; what remains keeps its place.
    void limitTo(double low, double high)
    {
        if (count() == 0)
            return;
        const qint64 skipped = linesUpTo(low);
        end = qMin(end, first + (linesUpTo(high) + 1) * step);
        first += skipped * step;
    }

    // Drops the lines between those that lie about a pixel apart. Spacing is that of the lines on the device.
    void thinOut(double spacing)
    {
        if (spacing < 1.0)
            step *= qMax<qint64>(1, static_cast<qint64>(qMin(1.0 / spacing, double(count()))));
    }

    qint64 linesUpTo(double position) const
    {
        const double offset = qBound(double(first), boundedCoordinate(position), double(end)) - double(first);
        return static_cast<qint64>(offset) / step;
    }
};

// The part of the painter's coordinates that can show up on its device.
QRectF visibleArea(const QPainter &painter)
{
    const QPaintDevice *device = painter.device();
    const QRectF deviceArea = QRectF(0, 0, device->width(), device->height()).adjusted(-1, -1, 1, 1);
    const QRectF area = painter.combinedTransform().inverted().mapRect(deviceArea);
    return painter.hasClipping() ? area & painter.clipBoundingRect() : area;
}

void limitToVisible(GridAxis &rows, GridAxis &columns, const QPainter &painter)
{
    const QRectF area = visibleArea(painter).adjusted(-1, -1, 1, 1);
    rows.limitTo(area.top(), area.bottom());
    columns.limitTo(area.left(), area.right());
}

double lengthOnDevice(const QLineF &line, const QPainter &painter)
{
    return painter.combinedTransform().map(line).length();
}

void limitToDistinct(GridAxis &rows, GridAxis &columns, const QPainter &painter)
{
    rows.thinOut(lengthOnDevice(QLineF(0, 0, 0, double(rows.step)), painter));
    columns.thinOut(lengthOnDevice(QLineF(0, 0, double(columns.step), 0), painter));
}

void appendLines(QList<QLine> &lines, const GridAxis &axis, const QLine &firstLine, const QPoint &direction)
{
    for (qint64 position = axis.first; position < axis.end; position += axis.step)
        lines.append(firstLine.translated(direction * static_cast<int>(position)));
}

QList<QLine> gridLines(const QRect &rect, const GridAxis &rows, const GridAxis &columns)
{
    QList<QLine> lines;
    lines.reserve(rows.count() + columns.count());
    appendLines(lines, rows, QLine(rect.left(), 0, rect.right(), 0), QPoint(0, 1));
    appendLines(lines, columns, QLine(0, rect.top(), 0, rect.bottom()), QPoint(1, 0));
    return lines;
}

} // namespace

FreeformLayeredPane::FreeformLayeredPane(QObject *parent)
    : LayeredPane(parent)
    , m_stackLayout(new FreeformStackLayout(this))
{
    delete setLayoutManager(m_stackLayout);
    connect(m_stackLayout, SIGNAL(extentChanged()), this, SIGNAL(extentChanged()));
}

FreeformLayeredPane::~FreeformLayeredPane() = default;

void FreeformLayeredPane::addLayerAbove(Layer *layer, const QString &key, Layer *above)
{
    addWatched(layer, key, [&] { LayeredPane::addLayerAbove(layer, key, above); });
}

void FreeformLayeredPane::addLayerBeneath(Layer *layer, const QString &key, Layer *beneath)
{
    addWatched(layer, key, [&] { LayeredPane::addLayerBeneath(layer, key, beneath); });
}

// Connects once more with every call, whatever became of the layer, unless adding it was the end of it or of the pane.
template <typename Adding>
void FreeformLayeredPane::addWatched(Layer *layer, const QString &key, Adding add)
{
    const QPointer<FreeformLayeredPane> self(this);
    const QPointer<Layer> guest(layer);
    const bool hasKey = !key.isEmpty();
    add();
    if (self && m_stackLayout && hasKey && isFreeformLayer(guest))
        connect(guest, SIGNAL(extentChanged()), m_stackLayout, SLOT(examineExtent()));
}

Layer *FreeformLayeredPane::removeLayer(const QString &key)
{
    const QPointer<FreeformLayeredPane> self(this);
    Layer *layer = LayeredPane::removeLayer(key);
    if (self && m_stackLayout && isFreeformLayer(layer))
        disconnect(layer, SIGNAL(extentChanged()), m_stackLayout, SLOT(examineExtent()));
    return layer;
}

void FreeformLayeredPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    Figure::render(painter, option);
}

QRect FreeformLayeredPane::getFreeformExtent()
{
    FreeformStackLayout *layout = stackLayoutOf(*this);
    return layout ? layout->getFreeformExtent() : QRect();
}

void FreeformLayeredPane::setFreeformBounds(const QRect &bounds)
{
    const QPointer<FreeformStackLayout> layout = stackLayoutOf(*this);
    if (!layout || getBounds() == bounds)
        return;
    setBounds(bounds);
    if (layout)
        layout->setFreeformBounds(bounds);
}

void FreeformLayeredPane::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter || !m_drawGrid || m_snapSize < 2 || !option.rect.isValid())
        return;
    painter->save();
    drawMainGrid(painter, option);
    drawSubGrid(painter, option);
    painter->restore();
}

void FreeformLayeredPane::drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setPen(gridPen(Qt::gray, Qt::SolidLine));
    const qint64 step = qint64(m_snapSize) * 5;
    drawGrid(painter, option.rect, static_cast<int>(qMin<qint64>(step, std::numeric_limits<int>::max())));
}

void FreeformLayeredPane::drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setPen(gridPen(QColor(QStringLiteral("#e0e0e0")), Qt::DotLine));
    drawGrid(painter, option.rect, m_snapSize);
}

// Lines start at the multiples of the step, with the remainder truncated toward zero: a rectangle at positive
// coordinates gets its first line at or before its edge, one at negative coordinates at or behind it.
void FreeformLayeredPane::drawGrid(QPainter *painter, const QRect &rect, int step) const
{
    if (step < 1)
        return;
    GridAxis rows(rect.top(), rect.bottom(), step);
    GridAxis columns(rect.left(), rect.right(), step);
    if (rows.count() + columns.count() > MaximumWholeGrid) {
        limitToVisible(rows, columns, *painter);
        limitToDistinct(rows, columns, *painter);
    }
    if (rows.count() + columns.count() <= MaximumGridLines)
        painter->drawLines(gridLines(rect, rows, columns));
}

} // namespace Vantrel::Pictel
