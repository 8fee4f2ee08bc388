#include <vtlpictel/figure/ILocator.h>

namespace Vantrel::Pictel {

ILocator::~ILocator() = default;

} // namespace Vantrel::Pictel
