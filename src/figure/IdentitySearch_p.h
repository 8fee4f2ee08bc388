#pragma once

#include <vtlpictel/figure/ITreeSearch.h>

/// The search that accepts every figure and skips none.
class IdentitySearch : public Vantrel::Pictel::ITreeSearch
{
public:
    bool accept(const Vantrel::Pictel::Figure *) const override { return true; }
    bool prune(const Vantrel::Pictel::Figure *) const override { return false; }
};
