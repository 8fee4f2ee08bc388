#include <vtlpictel/connections/IConnectionRouter.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

IConnectionRouter::~IConnectionRouter()
{
    LifeGuard<IConnectionRouter>::release(this);
}

} // namespace Vantrel::Pictel
