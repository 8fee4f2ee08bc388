#pragma once

#include "StageSet.h"

#include <QString>

namespace Bench {

/// How far one colour component of a pixel may be off before the pixel counts as different.
constexpr int ColorTolerance = 48;
/// The share of the pixels that may be different: glyphs and the ends of lines fall on neighbouring pixels.
constexpr double PictureTolerance = 0.01;

/// What was found wrong; empty when nothing was. A workload is timed only after its proof came out empty.
using Objection = QString;

/// All contestants show the same picture at \a view.
Objection provePicture(StageSet &set, const View &view);
/// All contestants have what they were built with, but for \a removed figures, at the same places.
Objection provePositions(StageSet &set, const std::vector<int> &removed = {});

Objection comparePictures(const QImage &first, const QImage &second, Contestant contestant);

} // namespace Bench
