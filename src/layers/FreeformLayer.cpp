#include <vtlpictel/layers/FreeformLayer.h>

#include "support/BoundedRect.h"

#include <vtlpictel/layout/FreeformLayout.h>

namespace Vantrel::Pictel {

namespace {

FreeformLayout *freeformLayoutOf(const Figure &figure)
{
    return qobject_cast<FreeformLayout *>(figure.getLayoutManager());
}

} // namespace

FreeformLayer::FreeformLayer(QObject *parent, bool contentMonitored)
    : Layer(parent)
{
    auto *layout = new FreeformLayout(this, contentMonitored);
    setLayoutManager(layout);
    connect(layout, SIGNAL(extentChanged()), this, SIGNAL(extentChanged()));
}

FreeformLayer::~FreeformLayer() = default;

bool FreeformLayer::isContentMonitored() const
{
    const FreeformLayout *layout = freeformLayoutOf(*this);
    return layout && layout->isContentMonitored();
}

void FreeformLayer::setContentMonitored(bool monitored)
{
    if (FreeformLayout *layout = freeformLayoutOf(*this))
        layout->setContentMonitored(monitored);
}

QRect FreeformLayer::getFreeformExtent()
{
    FreeformLayout *layout = freeformLayoutOf(*this);
    if (!layout)
        return QRect();
    const QRect extent = layout->getFreeformExtent();
    return m_extentPadding < 1 ? extent : grownRect(extent, m_extentPadding, m_extentPadding);
}

void FreeformLayer::setFreeformBounds(const QRect &bounds)
{
    if (freeformLayoutOf(*this) && getBounds() != bounds)
        setBounds(bounds);
}

} // namespace Vantrel::Pictel
