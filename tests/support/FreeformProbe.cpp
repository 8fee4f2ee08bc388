#include "support/FreeformProbe.h"

FreeformProbe::FreeformProbe(const QRect &initialExtent, QObject *parent)
    : Figure(parent)
    , extent(initialExtent)
{ }

QRect FreeformProbe::getFreeformExtent()
{
    return extent;
}

void FreeformProbe::setFreeformBounds(const QRect &bounds)
{
    given << bounds;
    setBounds(bounds);
}
