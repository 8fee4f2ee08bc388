#pragma once

#include "Stage.h"

#include <memory>

namespace Bench {

/// The limit: a widget that paints the content from a plain list, and knows which part of the list can be seen.
std::unique_ptr<Stage> makePainterStage();

} // namespace Bench
