#include <vtlpictel/shapes/Rectangle.h>

namespace Vantrel::Pictel {

Rectangle::Rectangle(QObject *parent)
    : Shape(parent)
{ }

Rectangle::~Rectangle() = default;

void Rectangle::regeneratePath(const QRectF &bounds)
{
    QPainterPath path;
    path.addRect(bounds);
    painterPath() = path;
}

} // namespace Vantrel::Pictel
