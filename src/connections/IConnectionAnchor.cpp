#include <vtlpictel/connections/IConnectionAnchor.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

IConnectionAnchor::~IConnectionAnchor()
{
    LifeGuard<IConnectionAnchor>::release(this);
}

} // namespace Vantrel::Pictel
