#include <vtlpictel/connections/IAnchorListener.h>

namespace Vantrel::Pictel {

IAnchorListener::~IAnchorListener() = default;

} // namespace Vantrel::Pictel
