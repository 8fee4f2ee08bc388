#include <vtlpictel/figure/IFigure.h>

namespace Vantrel::Pictel {

IFigure::~IFigure() = default;

} // namespace Vantrel::Pictel
