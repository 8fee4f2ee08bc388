#pragma once

#include <vtlpictel/figure/ILocator.h>

#include <QObject>
#include <QVariant>

namespace Vantrel::Pictel {

/// True when \a constraint converts to a QObject pointer, as a plain or a guarded pointer does. A shared pointer does
/// not count: it owns its object, as a layout owns an object without a parent.
inline bool holdsObject(const QVariant &constraint)
{
    const QMetaType type = constraint.metaType();
    if (type.flags().testFlag(QMetaType::PointerToQObject))
        return true;
    return type.id() >= QMetaType::User && !type.flags().testFlag(QMetaType::SharedPointerToQObject)
        && constraint.canConvert<QObject *>();
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
