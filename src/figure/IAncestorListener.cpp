#include <vtlpictel/figure/IAncestorListener.h>

namespace Vantrel::Pictel {

IAncestorListener::~IAncestorListener() = default;

} // namespace Vantrel::Pictel
