#pragma once

#include "support/ListenerConnections.h"

namespace Vantrel::Pictel {

/// Who listens to a figure; most figures have nobody and thus none of this.
struct FigureListeners
{
    ListenerConnections ancestors;
    /// How many additions of ancestor listeners were not taken back yet.
    int ancestorCount = 0;
    ListenerConnections propertyChanges;
};

} // namespace Vantrel::Pictel
