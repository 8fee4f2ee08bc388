#include "Chip.h"

#include "Scene.h"

#include <QPainter>

namespace Bench {

namespace {

constexpr double OutlineScale = 0.25;
constexpr double PinScale = 0.4;
constexpr double TextScale = 2.0;
constexpr int Pins = 10;

void paintPins(QPainter *painter, const QRect &rect)
{
    QList<QLine> pins;
    const QRect body = rect.adjusted(10, 10, -11, -11);
    for (int pin = 0; pin < Pins; ++pin) {
        const int x = body.left() + pin * body.width() / Pins + 4;
        const int y = body.top() + pin * body.height() / Pins + 2;
        pins << QLine(x, body.top() - 5, x, body.top()) << QLine(x, body.bottom(), x, body.bottom() + 5)
             << QLine(body.left() - 5, y, body.left(), y) << QLine(body.right(), y, body.right() + 5, y);
    }
    painter->drawLines(pins);
}

void paintText(QPainter *painter, const QRect &rect)
{
    QFont font = painter->font();
    font.setPixelSize(8);
    painter->setFont(font);
    painter->drawText(rect.topLeft() + QPoint(20, 30), QStringLiteral("Model VSC-2000 at 9600 baud"));
    painter->drawText(rect.topLeft() + QPoint(20, 42), QStringLiteral("Manufacturer: X"));
}

} // namespace

void paintChip(QPainter *painter, const QRect &rect, const Box &box)
{
    const double scale = painter->worldTransform().m11();
    if (scale < OutlineScale) {
        painter->fillRect(rect, box.color);
        return;
    }
    QPen pen(Qt::darkGray, 1);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->setBrush(box.color);
    painter->drawRect(rect.adjusted(10, 10, -11, -11));
    if (scale >= PinScale)
        paintPins(painter, rect);
    if (scale >= TextScale)
        paintText(painter, rect);
}

} // namespace Bench
