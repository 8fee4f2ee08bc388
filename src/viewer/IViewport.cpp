#include <vtlpictel/viewer/IViewport.h>

namespace Vantrel::Pictel {

IViewport::~IViewport() = default;

} // namespace Vantrel::Pictel
