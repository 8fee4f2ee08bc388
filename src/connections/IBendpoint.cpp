#include <vtlpictel/connections/IBendpoint.h>

namespace Vantrel::Pictel {

IBendpoint::~IBendpoint() = default;

} // namespace Vantrel::Pictel
