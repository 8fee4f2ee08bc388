#include <vtlpictel/figure/FocusBorder.h>

#include "figure/BorderPainting_p.h"
#include "figure/FocusFrame_p.h"

#include <QStyleOptionViewItem>

namespace Vantrel::Pictel {

FocusBorder::FocusBorder(QObject *parent)
    : SimpleBorder(parent)
{ }

FocusBorder::~FocusBorder() = default;

void FocusBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!canPaintBorder(painter, option.rect))
        return;
    const QRect frame = borderRect(option.rect);
    if (frame.isValid())
        drawFocusFrame(painter, option, frame, Qt::transparent);
}

} // namespace Vantrel::Pictel
