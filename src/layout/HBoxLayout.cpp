#include <vtlpictel/layout/HBoxLayout.h>

#include "layout/BoxLayout_p.h"

namespace Vantrel::Pictel {

HBoxLayout::HBoxLayout(QObject *parent)
    : Layout(parent)
{
    setAlignment(Qt::AlignCenter);
}

HBoxLayout::~HBoxLayout() = default;

bool HBoxLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    return BoxLayout(*this, Qt::Horizontal).setConstraint(child, constraint);
}

QSize HBoxLayout::calculatePreferredSize()
{
    return BoxLayout(*this, Qt::Horizontal).preferredSize();
}

QSize HBoxLayout::calculateMinimumSize()
{
    return BoxLayout(*this, Qt::Horizontal).minimumSize();
}

bool HBoxLayout::performLayout(const QRect &clientArea)
{
    return BoxLayout(*this, Qt::Horizontal).place(clientArea);
}

bool HBoxLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    return BoxLayout(*this, Qt::Horizontal).applyConstraint(child, constraint);
}

} // namespace Vantrel::Pictel
