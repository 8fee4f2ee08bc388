#pragma once

namespace Vantrel::Pictel {

class Figure;

/// Hears what happens to the children of one Layout, so that a subclass can keep an index of them.
/// The layout calls it right after its own books are up to date.
class LayoutChildObserver
{
public:
    virtual ~LayoutChildObserver() = default;

    /// \a child stands in the children list; its constraint may follow with childChanged().
    virtual void childAdded(Figure *child) = 0;
    /// \a child left or is being destroyed: only a key, not to be called.
    virtual void childRemoved(Figure *child) = 0;
    /// The constraint of \a child was stored or its visibility changed.
    virtual void childChanged(Figure *child) = 0;
    /// A child that left did so because it was destroyed, not by Layout::remove().
    virtual void childDestroyed() = 0;
};

} // namespace Vantrel::Pictel
