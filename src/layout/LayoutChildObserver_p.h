#pragma once

namespace Vantrel::Pictel {

class Figure;

/// Hears what happens to the children of one Layout, so that a subclass can keep an index of them.
/// The layout calls it right after its own books are up to date. A child is named by its slot: a small number that no
/// other child has as long as it stays.
class LayoutChildObserver
{
public:
    virtual ~LayoutChildObserver() = default;

    /// \a child stands in the children list; its constraint may follow with childChanged().
    virtual void childAdded(Figure *child, int slot) = 0;
    /// The child left or is being destroyed.
    virtual void childRemoved(int slot) = 0;
    /// The constraint of the child was stored or its visibility changed.
    virtual void childChanged(int slot) = 0;
    /// A child that left did so because it was destroyed, not by Layout::remove().
    virtual void childDestroyed() = 0;
    /// The child is about to leave: asks the memory for what is kept about it.
    virtual void readSlot(int slot) const = 0;
};

} // namespace Vantrel::Pictel
