#include <vtlpictel/shapes/Ellipse.h>

namespace Vantrel::Pictel {

Ellipse::Ellipse(QObject *parent)
    : Shape(parent)
{ }

Ellipse::~Ellipse() = default;

void Ellipse::regeneratePath(const QRectF &bounds)
{
    QPainterPath path;
    path.addEllipse(bounds);
    painterPath() = path;
}

} // namespace Vantrel::Pictel
