#include <vtlpictel/figure/IPropertyChangeListener.h>

namespace Vantrel::Pictel {

IPropertyChangeListener::~IPropertyChangeListener() = default;

} // namespace Vantrel::Pictel
