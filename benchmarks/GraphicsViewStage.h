#pragma once

#include "Stage.h"

#include <QGraphicsScene>

#include <memory>

namespace Bench {

/// Qt's Graphics View with one item per figure, one more for a label, and an application that keeps lines attached.
std::unique_ptr<Stage> makeGraphicsViewStage(QGraphicsScene::ItemIndexMethod method);

} // namespace Bench
