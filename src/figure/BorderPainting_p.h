#pragma once

#include <vtlpictel/figure/Insets.h>

#include <QPainter>
#include <QRect>

namespace Vantrel::Pictel {

/// True when a border can paint around \a rect at all.
inline bool canPaintBorder(const QPainter *painter, const QRect &rect)
{
    return painter && rect.isValid();
}

/// The same width on all sides; no insets for a width below 1.
inline Insets uniformInsets(int width)
{
    return width >= 1 ? Insets(width, width, width, width) : Insets();
}

} // namespace Vantrel::Pictel
