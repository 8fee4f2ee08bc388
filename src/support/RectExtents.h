#pragma once

#include <QRect>
#include <QRectF>

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

/// QRectF(rect), also for rectangles of any extent.
constexpr QRectF toRectF(const QRect &rect)
{
    return QRectF(rect.left(), rect.top(), exactWidth(rect), exactHeight(rect));
}

} // namespace Vantrel::Pictel
