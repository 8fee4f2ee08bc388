#pragma once

#include "support/BoundedRect.h"

#include <QRect>
#include <QRectF>
#include <QVariant>

namespace Vantrel::Pictel {

inline bool isRectConstraint(const QVariant &constraint)
{
    const int type = constraint.typeId();
    return type == QMetaType::QRect || type == QMetaType::QRectF;
}

/// The rectangle that \a constraint holds, rounded to integers; null when it holds none.
inline QRect toRect(const QVariant &constraint)
{
    return constraint.typeId() == QMetaType::QRectF ? roundedRect(constraint.toRectF()) : constraint.toRect();
}

} // namespace Vantrel::Pictel
