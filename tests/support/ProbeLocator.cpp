#include "support/ProbeLocator.h"

#include <vtlpictel/figure/Figure.h>

ProbeLocator::ProbeLocator(const QRect &initialPlace, QObject *parent)
    : QObject(parent)
    , place(initialPlace)
{ }

void ProbeLocator::relocate(Vantrel::Pictel::Figure *target)
{
    ++calls;
    lastTarget = target;
    const QRect here = place;
    place.translate(step);
    if (target && here.isValid())
        target->setBounds(here);
}
