#include <vtlpictel/shapes/Shape.h>

#include "support/LifeGuard.h"
#include "support/Rounding.h"
#include "support/SignalConnection.h"

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QStyleOptionViewItem>
#include <QtMath>

#include <algorithm>

namespace Vantrel::Pictel {

namespace {

/// Devices from this resolution on count as printers.
constexpr int printerDotsPerInch = 150;
/// Added before a line width in device pixels is truncated: rounds, but a half down.
constexpr double penWidthRounding = 0.4999;
/// The widest pen that QPen takes.
constexpr int maximumPenWidth = 0x7fff;

const SignalConnection &pathUpdates()
{
    static const SignalConnection connection(Shape::staticMetaObject, "pathChanged(QRectF)", Shape::staticMetaObject,
                                             "regeneratePath(QRectF)");
    return connection;
}

/// \a rect without half a line on each side; the odd pixel goes to the right and the bottom.
QRect withoutHalfLine(const QRect &rect, int lineWidth)
{
    const int before = qFloor(lineWidth / 2.0);
    const int after = qCeil(lineWidth / 2.0);
    return rect.adjusted(before, before, -after, -after);
}

int boundedPenWidth(int width)
{
    return std::clamp(width, 0, maximumPenWidth);
}

bool isScreen(const QPaintDevice *device)
{
    return device && device->physicalDpiX() < printerDotsPerInch;
}

} // namespace

Shape::Shape(QObject *parent)
    : Figure(parent, Qt::transparent)
{ }

Shape::~Shape() = default;

template <typename Value>
void Shape::change(Value &field, Value value)
{
    if (field == value)
        return;
    field = value;
    repaint();
}

void Shape::setLineWidth(int width)
{
    change(m_lineWidth, width);
}

void Shape::setLineStyle(Qt::PenStyle style)
{
    change(m_lineStyle, style);
}

void Shape::setCapStyle(Qt::PenCapStyle style)
{
    change(m_capStyle, style);
}

void Shape::setJoinStyle(Qt::PenJoinStyle style)
{
    change(m_joinStyle, style);
}

void Shape::setFill(bool fill)
{
    m_fill = fill;
    repaint();
}

void Shape::storeColor(QColor &field, const QColor &color)
{
    field = color;
    repaint();
}

void Shape::setEnabledFGColor(const QColor &color)
{
    storeColor(m_enabledForeground, color);
}

void Shape::setEnabledBGColor(const QColor &color)
{
    storeColor(m_enabledBackground, color);
}

void Shape::setDisabledFGColor(const QColor &color)
{
    storeColor(m_disabledForeground, color);
}

void Shape::setDisabledBGColor(const QColor &color)
{
    storeColor(m_disabledBackground, color);
}

void Shape::addNotify()
{
    Figure::addNotify();
    // One connection is enough, also when a tree is announced twice.
    pathUpdates().connect(this, this, Qt::UniqueConnection);
}

void Shape::removeNotify()
{
    pathUpdates().disconnect(this, this);
    Figure::removeNotify();
}

void Shape::setBounds(const QRect &bounds)
{
    const LifeGuard<Figure> self(this);
    if (bounds != getBounds())
        Q_EMIT pathChanged(QRectF(withoutHalfLine(bounds, m_lineWidth)));
    if (self.isAlive())
        Figure::setBounds(bounds);
}

bool Shape::contains(const QPoint &point) const
{
    return m_path.contains(QPointF(point));
}

QPainterPath Shape::absolutePath(const QPainterPath &path) const
{
    if (!getFlag(FLAG_NOTIFIED))
        return path;
    QPointF origin(0, 0);
    return path.translated(mutableSelf()->translateToAbsolute(origin));
}

void Shape::clipToPath(QPainter *painter) const
{
    if (painter && !m_path.isEmpty())
        painter->setClipPath(absolutePath(m_path), Qt::IntersectClip);
}

void Shape::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->save();
    static_cast<Shape *>(mutableSelf())->completeColors(option.palette);
    painter->setBrush(fillBrush());
    painter->setPen(outlinePen(*painter));
    QStyleOptionViewItem shapeOption(option);
    shapeOption.rect = withoutHalfLine(option.rect, m_lineWidth);
    drawShape(painter, shapeOption);
    painter->restore();
}

void Shape::drawShape(QPainter *painter, const QStyleOptionViewItem &) const
{
    if (painter && !m_path.isEmpty())
        painter->drawPath(absolutePath(m_path));
}

// A colour that the palette does not have either is asked for again at the next paint, without a repaint of its own:
// that would never end.
void Shape::completeColor(QColor &field, const QColor &paletteColor)
{
    if (!field.isValid() && paletteColor.isValid())
        storeColor(field, paletteColor);
}

void Shape::completeColors(const QPalette &palette)
{
    if (isEnabled()) {
        completeColor(m_enabledForeground, palette.color(QPalette::Active, QPalette::ButtonText));
        completeColor(m_enabledBackground, palette.color(QPalette::Active, QPalette::Button));
        return;
    }
    completeColor(m_disabledForeground, palette.color(QPalette::Disabled, QPalette::Button));
    // Disabled shapes are drawn in one colour. The other one is kept for its getter, when there is none to draw with.
    const QColor text = palette.color(QPalette::Disabled, QPalette::ButtonText);
    if (!m_disabledForeground.isValid() && m_disabledBackground != text)
        storeColor(m_disabledBackground, text);
}

QBrush Shape::fillBrush() const
{
    const QColor &color = isEnabled() ? m_enabledBackground : m_disabledForeground;
    return m_fill ? QBrush(color, Qt::SolidPattern) : QBrush(Qt::NoBrush);
}

QPen Shape::outlinePen(const QPainter &painter) const
{
    QPen pen(isEnabled() ? m_enabledForeground : m_disabledForeground);
    pen.setStyle(m_lineStyle);
    const double deviceWidth = m_lineWidth * painter.transform().m11();
    if (isScreen(painter.device()) && m_lineStyle == Qt::SolidLine) {
        pen.setWidth(boundedPenWidth(truncateToInt(deviceWidth + penWidthRounding)));
        pen.setCosmetic(true);
    } else {
        pen.setWidth(deviceWidth <= 1.0 ? 0 : boundedPenWidth(m_lineWidth));
    }
    return pen;
}

} // namespace Vantrel::Pictel
