#include <vtlpictel/layout/ILayoutListener.h>

namespace Vantrel::Pictel {

ILayoutListener::~ILayoutListener() = default;

} // namespace Vantrel::Pictel
