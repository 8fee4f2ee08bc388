#include <vtlpictel/figure/ExclusionSearch.h>

#include <algorithm>

namespace Vantrel::Pictel {

ExclusionSearch::ExclusionSearch(const QList<Figure *> &excluded, QObject *parent)
    : QObject(parent)
    , m_excluded(excluded)
{ }

ExclusionSearch::~ExclusionSearch() = default;

bool ExclusionSearch::accept(const Figure *) const
{
    return true;
}

bool ExclusionSearch::prune(const Figure *figure) const
{
    return !figure || std::find(m_excluded.cbegin(), m_excluded.cend(), figure) != m_excluded.cend();
}

} // namespace Vantrel::Pictel
