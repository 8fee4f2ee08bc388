#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

namespace Vantrel::Pictel {

class Figure;

/// Policy of a hit test: decides which figures may be found and which subtrees are skipped.
///
/// The search operations of figures and layouts consult it from the root downwards. A pruned figure is neither
/// returned nor descended into. The search is borrowed for the duration of one call; it owns no figure.
class VTLPICTEL_EXPORT ITreeSearch
{
public:
    virtual ~ITreeSearch();

    /// True when \a figure may be a result.
    virtual bool accept(const Figure *figure) const = 0;
    /// True when \a figure and its whole subtree are to be skipped.
    virtual bool prune(const Figure *figure) const = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::ITreeSearch, "ITreeSearch.Mox.Vantrel.vantrel.org")
