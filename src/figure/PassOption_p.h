#pragma once

#include <QStyleOptionViewItem>

#include <memory>

namespace Vantrel::Pictel {

/// The style option of one figure while it paints, which differs from its parent's only in the rectangle.
///
/// Copying a style option costs as much as painting a small figure, so one copy serves a whole painting pass: the
/// first figure makes it, and a figure that is handed that very copy borrows it, puts its own rectangle in and gives
/// the old one back when it is done. A caller's own option is never written to.
class PassOption
{
public:
    explicit PassOption(const QStyleOptionViewItem &option);
    ~PassOption();
    PassOption(const PassOption &) = delete;
    PassOption &operator=(const PassOption &) = delete;

    const QStyleOptionViewItem &option() const { return *s_current; }
    void setRect(const QRect &rect) { s_current->rect = rect; }

private:
    inline static QStyleOptionViewItem *s_current = nullptr;

    std::unique_ptr<QStyleOptionViewItem> m_own;
    QStyleOptionViewItem *const m_outer;
    const QRect m_rect;
};

inline PassOption::PassOption(const QStyleOptionViewItem &option)
    : m_own(&option == s_current ? nullptr : std::make_unique<QStyleOptionViewItem>(option))
    , m_outer(s_current)
    , m_rect(option.rect)
{
    if (m_own)
        s_current = m_own.get();
}

inline PassOption::~PassOption()
{
    s_current = m_outer;
    if (!m_own)
        s_current->rect = m_rect;
}

} // namespace Vantrel::Pictel
