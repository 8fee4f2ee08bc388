#pragma once

#include <QObject>
#include <QPointer>

#include <typeinfo>

namespace Vantrel::Pictel {

/// A pointer to an interface that becomes null when the QObject behind it is destroyed; it owns nothing.
///
/// It is null already while the destructors of base classes run that do not have the interface: what they announce may
/// reach somebody who asks for it.
///
/// It serves classes that refer to an interface without owning the implementer. An implementer that is no QObject
/// cannot be watched and is trusted to live long enough. Constructing one needs the complete type of the interface.
template <typename Interface>
class InterfacePointer
{
public:
    InterfacePointer(Interface *target = nullptr)
        : m_target(target)
        , m_object(dynamic_cast<QObject *>(target))
        , m_type(typeOf(m_object.data()))
    { }

    /// The interface, or null when there is none or it is gone.
    Interface *get() const
    {
        if (!m_type)
            return m_target;
        QObject *object = m_object.data();
        // Another type than before is that of an object which is being constructed or destroyed.
        return typeOf(object) == m_type ? m_target : dynamic_cast<Interface *>(object);
    }
    Interface *operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    static const std::type_info *typeOf(const QObject *object) { return object ? &typeid(*object) : nullptr; }

    Interface *m_target;
    QPointer<QObject> m_object;
    /// Null when there is nothing to watch.
    const std::type_info *m_type;
};

} // namespace Vantrel::Pictel
