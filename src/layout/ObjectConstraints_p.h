#pragma once

#include <QList>

#include <set>
#include <utility>

class QObject;

namespace Vantrel::Pictel {

class Figure;

/// Which children of a layout have which QObject as their constraint.
///
/// One object may serve thousands of children, or each child have its own: entering and leaving take logarithmic time
/// in either case.
class ObjectConstraints
{
public:
    /// True when \a child is the first one of \a object.
    bool insert(QObject *object, Figure *child);
    /// True when \a child was the last one of \a object.
    bool remove(QObject *object, Figure *child);
    /// Removes the children of \a object and returns them.
    QList<Figure *> take(QObject *object);

private:
    using Pairs = std::set<std::pair<QObject *, Figure *>>;

    Pairs::const_iterator first(QObject *object) const { return m_pairs.lower_bound({object, nullptr}); }
    bool contains(QObject *object) const;

    Pairs m_pairs;
};

} // namespace Vantrel::Pictel
