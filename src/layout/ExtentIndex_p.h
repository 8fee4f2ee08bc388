#pragma once

#include "layout/LayoutChildObserver_p.h"
#include "layout/UnionTree_p.h"

#include <vector>

namespace Vantrel::Pictel {

class FreeformLayout;

/// Answers how far the children of a FreeformLayout reach, without asking all of them each time.
///
/// Terms: the contribution of a child is its constraint rectangle, resolved by the child, when the child is visible
/// and has such a constraint; otherwise it has none. The extent is the union of the contributions in the order of the
/// children, the result of a plain loop over them.
///
/// 1. Every child's slot is also one of a UnionTree, which holds the contribution last seen.
/// 2. A child that was added, got another constraint or was shown or hidden is due: the next extent() asks it anew.
/// 3. A child whose contribution may change without any of these stays due: its constraint is not a valid rectangle,
///    so that its preferred size enters, or it resolves valid rectangles to others.
///
/// What it does not see is a resolveBounds() that first leaves a valid rectangle alone and later, with the same
/// constraint, does not.
class ExtentIndex final : public LayoutChildObserver
{
public:
    explicit ExtentIndex(FreeformLayout &layout);

    /// The extent in the children's coordinates, without the container's border.
    QRect extent();

    void childAdded(Figure *child, int slot) override;
    void childRemoved(int slot) override;
    void childChanged(int slot) override;
    /// Has the layout examine its extent, as removing the child would.
    void childDestroyed() override;
    void readSlot(int slot) const override;

private:
    struct Child
    {
        Figure *figure = nullptr;
        bool isDue = false;
        bool isUnsteady = false;
        bool isBeingAsked = false;
    };
    struct Question
    {
        Figure *figure;
        int slot;
    };

    using Store = void (UnionTree::*)(int slot, const QRect &rect);

    Child &childAt(int slot) { return m_children[static_cast<std::size_t>(slot)]; }
    bool askAll();
    void ask(const Question &question, Store store);
    std::vector<Question> takeQuestions();
    QRect lastNullContribution() const;

    FreeformLayout &m_layout;
    UnionTree m_contributions;
    // By slot; without a figure while nobody has it.
    std::vector<Child> m_children;
    // Slots to ask; some may have changed hands.
    std::vector<Question> m_due;
    std::vector<Question> m_unsteady;
};

} // namespace Vantrel::Pictel
