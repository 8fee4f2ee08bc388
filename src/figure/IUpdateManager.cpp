#include <vtlpictel/figure/IUpdateManager.h>

namespace Vantrel::Pictel {

IUpdateManager::~IUpdateManager() = default;

} // namespace Vantrel::Pictel
