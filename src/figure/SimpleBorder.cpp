#include <vtlpictel/figure/SimpleBorder.h>

#include "figure/BorderPainting_p.h"

#include <QPen>
#include <QStyleOptionViewItem>

namespace Vantrel::Pictel {

SimpleBorder::SimpleBorder(QObject *parent, int width)
    : Border(parent)
{
    Border::setInsets(uniformInsets(width));
}

SimpleBorder::~SimpleBorder() = default;

void SimpleBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (canPaintBorder(painter, option.rect) && !getInsets().isNull())
        drawBorderRect(painter, borderRect(option.rect), getInsets());
}

// The insets decide which sides are drawn, not how wide: a simple border stays thin at every width and scale.
void SimpleBorder::drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const
{
    if (!canPaintBorder(painter, rect))
        return;
    painter->save();
    painter->setPen(pen());
    if (insets.top() > 0)
        painter->drawLine(rect.topLeft(), rect.topRight());
    if (insets.right() > 0)
        painter->drawLine(rect.topRight(), rect.bottomRight());
    if (insets.bottom() > 0)
        painter->drawLine(rect.bottomRight(), rect.bottomLeft());
    if (insets.left() > 0)
        painter->drawLine(rect.bottomLeft(), rect.topLeft());
    painter->restore();
}

} // namespace Vantrel::Pictel
