#include <vtlpictel/connections/IConnectionRouter.h>

namespace Vantrel::Pictel {

IConnectionRouter::~IConnectionRouter() = default;

} // namespace Vantrel::Pictel
