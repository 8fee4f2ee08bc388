#pragma once

#include <QRect>

namespace Vantrel::Pictel {

/// QRect::intersects(), without a call for rectangles that are as they should be.
inline bool overlap(const QRect &first, const QRect &second)
{
    if (!first.isValid() || !second.isValid())
        return first.intersects(second);
    return first.left() <= second.right() && second.left() <= first.right() && first.top() <= second.bottom()
        && second.top() <= first.bottom();
}

} // namespace Vantrel::Pictel
