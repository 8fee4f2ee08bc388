#pragma once

#include <vtlpictel/figure/ILocator.h>

#include <QObject>
#include <QVariant>

namespace Vantrel::Pictel {

inline bool holdsObject(const QVariant &constraint)
{
    return constraint.metaType().flags().testFlag(QMetaType::PointerToQObject);
}

/// The object that \a constraint points to, or null.
inline QObject *objectOf(const QVariant &constraint)
{
    return holdsObject(constraint) ? constraint.value<QObject *>() : nullptr;
}

/// The locator that \a constraint points to, or null.
inline ILocator *locatorOf(const QVariant &constraint)
{
    return qobject_cast<ILocator *>(objectOf(constraint));
}

} // namespace Vantrel::Pictel
