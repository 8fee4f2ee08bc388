#pragma once

#include <vtlpictel/vtlpictel_export.h>

class QVariant;

namespace Vantrel::Pictel {

class Figure;

/// Observes a Layout and may take over laying out. The layout does not own its listeners: remove one before it dies.
///
/// Every call passes the layout's container figure, also those that are about a child.
class VTLPICTEL_EXPORT ILayoutListener
{
public:
    virtual ~ILayoutListener();

    /// The layout is no longer laid out.
    virtual void invalidate(Figure *container) = 0;
    /// True says that the listener has laid the children out itself.
    virtual bool layout(Figure *container) = 0;
    /// Laying out has ended, whoever did it.
    virtual void postLayout(Figure *container) = 0;
    /// A child is about to be removed.
    virtual void remove(Figure *container) = 0;
    /// A child is about to get another constraint.
    virtual void setConstraint(Figure *container, const QVariant &constraint) = 0;
};

} // namespace Vantrel::Pictel
