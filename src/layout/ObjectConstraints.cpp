#include "layout/ObjectConstraints_p.h"

namespace Vantrel::Pictel {

bool ObjectConstraints::insert(QObject *object, Figure *child)
{
    const bool isFirst = !contains(object);
    m_pairs.emplace(object, child);
    return isFirst;
}

bool ObjectConstraints::remove(QObject *object, Figure *child)
{
    return m_pairs.erase({object, child}) > 0 && !contains(object);
}

QList<Figure *> ObjectConstraints::take(QObject *object)
{
    QList<Figure *> children;
    const auto begin = first(object);
    auto end = begin;
    for (; end != m_pairs.cend() && end->first == object; ++end)
        children.append(end->second);
    m_pairs.erase(begin, end);
    return children;
}

bool ObjectConstraints::contains(QObject *object) const
{
    const auto found = first(object);
    return found != m_pairs.cend() && found->first == object;
}

} // namespace Vantrel::Pictel
