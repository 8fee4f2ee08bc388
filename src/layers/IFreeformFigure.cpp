#include <vtlpictel/layers/IFreeformFigure.h>

namespace Vantrel::Pictel {

IFreeformFigure::~IFreeformFigure() = default;

} // namespace Vantrel::Pictel
