#include <vtlpictel/figure/ITreeSearch.h>

namespace Vantrel::Pictel {

ITreeSearch::~ITreeSearch() = default;

} // namespace Vantrel::Pictel
