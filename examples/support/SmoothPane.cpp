#include "SmoothPane.h"

#include <QPainter>

SmoothPane::SmoothPane(QObject *parent)
    : FreeformLayeredPane(parent)
{ }

void SmoothPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    FreeformLayeredPane::render(painter, option);
    painter->restore();
}
