#include <vtlpictel/figure/ILocator.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

ILocator::~ILocator()
{
    LifeGuard<ILocator>::release(this);
}

} // namespace Vantrel::Pictel
