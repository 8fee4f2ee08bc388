#include "Stage.h"

namespace Bench {

void Stage::moveAll(const std::vector<QPoint> &steps)
{
    for (std::size_t index = 0; index < steps.size(); ++index)
        moveFigure(int(index), steps[index]);
}

} // namespace Bench
