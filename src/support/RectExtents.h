#pragma once

#include "support/Rounding.h"

#include <QRect>
#include <QRectF>
#include <QSize>

namespace Vantrel::Pictel {

// QRect::width() and height() overflow for rectangles that span more than an int can hold; these do not.

constexpr double exactWidth(const QRect &rect)
{
    return static_cast<double>(rect.right()) - rect.left() + 1.0;
}

constexpr double exactHeight(const QRect &rect)
{
    return static_cast<double>(rect.bottom()) - rect.top() + 1.0;
}

/// The size of \a rect, in each dimension as far as an int can hold it.
constexpr QSize boundedSize(const QRect &rect)
{
    return QSize(truncateToInt(exactWidth(rect)), truncateToInt(exactHeight(rect)));
}

/// QRectF(rect), also for rectangles of any extent.
constexpr QRectF toRectF(const QRect &rect)
{
    return QRectF(rect.left(), rect.top(), exactWidth(rect), exactHeight(rect));
}

} // namespace Vantrel::Pictel
