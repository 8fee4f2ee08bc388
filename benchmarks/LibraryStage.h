#pragma once

#include "Stage.h"

#include <memory>

namespace Bench {

/// The library with the figures in a freeform layer below a layer of connections.
/// \a monitored: the layer follows every move with its extent.
std::unique_ptr<Stage> makeLibraryStage(bool monitored = false);

} // namespace Bench
