#pragma once

namespace Vantrel::Pictel {

/// Tells whether an object outlives a call out of it: a guard on the stack goes dead when its object is destroyed.
///
/// Unlike QPointer it costs the object nothing. Guards of one class form a stack, which is what scopes on the one GUI
/// thread do anyway; the destructor of the guarded class calls release(). Use one where a slot, a virtual operation or
/// a listener may delete the object that is calling it.
template <typename Object>
class LifeGuard
{
public:
    explicit LifeGuard(const Object *object)
        : m_object(object)
        , m_below(s_top)
    {
        s_top = this;
    }
    ~LifeGuard() { s_top = m_below; }
    LifeGuard(const LifeGuard &) = delete;
    LifeGuard &operator=(const LifeGuard &) = delete;

    bool isAlive() const { return m_object != nullptr; }

    /// Called by the destructor of \a object.
    static void release(const Object *object)
    {
        for (LifeGuard *guard = s_top; guard; guard = guard->m_below) {
            if (guard->m_object == object)
                guard->m_object = nullptr;
        }
    }

private:
    inline static LifeGuard *s_top = nullptr;

    const Object *m_object;
    LifeGuard *const m_below;
};

} // namespace Vantrel::Pictel
