#include <vtlpictel/layers/Layer.h>

namespace Vantrel::Pictel {

Layer::Layer(QObject *parent)
    : Figure(parent, QColor(Qt::transparent))
{ }

Layer::~Layer() = default;

} // namespace Vantrel::Pictel
