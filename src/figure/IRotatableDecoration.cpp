#include <vtlpictel/figure/IRotatableDecoration.h>

namespace Vantrel::Pictel {

IRotatableDecoration::~IRotatableDecoration() = default;

} // namespace Vantrel::Pictel
