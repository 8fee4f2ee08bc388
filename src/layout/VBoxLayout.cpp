#include <vtlpictel/layout/VBoxLayout.h>

#include "layout/BoxLayout_p.h"

namespace Vantrel::Pictel {

VBoxLayout::VBoxLayout(QObject *parent)
    : Layout(parent)
{
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

VBoxLayout::~VBoxLayout() = default;

bool VBoxLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    return BoxLayout(*this, Qt::Vertical).setConstraint(child, constraint);
}

QSize VBoxLayout::calculatePreferredSize()
{
    return BoxLayout(*this, Qt::Vertical).preferredSize();
}

QSize VBoxLayout::calculateMinimumSize()
{
    return BoxLayout(*this, Qt::Vertical).minimumSize();
}

bool VBoxLayout::performLayout(const QRect &clientArea)
{
    return BoxLayout(*this, Qt::Vertical).place(clientArea);
}

bool VBoxLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    return BoxLayout(*this, Qt::Vertical).applyConstraint(child, constraint);
}

} // namespace Vantrel::Pictel
