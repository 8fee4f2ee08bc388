#pragma once

class QPainter;
class QRect;

namespace Bench {

struct Box;

/// Paints one chip, with more detail the larger it comes out on the device.
void paintChip(QPainter *painter, const QRect &rect, const Box &box);

} // namespace Bench
