#include <vtlpictel/connections/IConnectionAnchor.h>

namespace Vantrel::Pictel {

IConnectionAnchor::~IConnectionAnchor() = default;

} // namespace Vantrel::Pictel
