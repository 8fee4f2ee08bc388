#pragma once

#include <QObject>
#include <QPointer>

namespace Vantrel::Pictel {

/// A pointer to an interface that becomes null when the QObject behind it is destroyed; it owns nothing.
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
        , m_watched(m_object != nullptr)
    { }

    /// The interface, or null when there is none or it is gone.
    Interface *get() const { return m_watched && !m_object ? nullptr : m_target; }
    Interface *operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    Interface *m_target;
    QPointer<QObject> m_object;
    bool m_watched;
};

} // namespace Vantrel::Pictel
