#include <vtlpictel/connections/IBendpoint.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

IBendpoint::~IBendpoint()
{
    LifeGuard<IBendpoint>::release(this);
}

} // namespace Vantrel::Pictel
