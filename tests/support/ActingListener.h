#pragma once

#include <vtlpictel/layout/ILayoutListener.h>

#include <functional>
#include <utility>

/// Acts when it hears the first time that the layout is no longer valid.
class ActingListener : public Vantrel::Pictel::ILayoutListener
{
public:
    explicit ActingListener(const std::function<void()> &act)
        : m_act(act)
    { }

    void invalidate(Vantrel::Pictel::Figure *) override
    {
        if (const auto act = std::exchange(m_act, nullptr))
            act();
    }
    bool layout(Vantrel::Pictel::Figure *) override { return false; }
    void postLayout(Vantrel::Pictel::Figure *) override { }
    void remove(Vantrel::Pictel::Figure *) override { }
    void setConstraint(Vantrel::Pictel::Figure *, const QVariant &) override { }

private:
    std::function<void()> m_act;
};
