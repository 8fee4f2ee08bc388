#include <vtlpictel/viewer/IFigureViewer.h>

namespace Vantrel::Pictel {

IFigureViewer::~IFigureViewer() = default;

} // namespace Vantrel::Pictel
