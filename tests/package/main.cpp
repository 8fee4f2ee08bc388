// Draws a box and a circle joined by a line, and checks the picture: exit status 0 when it is right.
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/layout/Layout.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QApplication>
#include <QImage>
#include <QMimeData>
#include <QPixmap>

#include <cstdio>

using namespace Vantrel::Pictel;

namespace {

const QColor yellow(255, 215, 0);
const QColor blue(70, 130, 180);

// A shape takes its form when its bounds change while it is shown: so it is added first, and then placed.
void place(Figure *figure, FreeformLayer *layer, const QRect &bounds)
{
    layer->add(figure);
    layer->getLayoutManager()->setConstraint(figure, bounds);
}

void draw(FreeformViewer *viewer)
{
    auto *drawing = new FreeformLayeredPane(viewer);
    auto *figures = new FreeformLayer(drawing, true);
    auto *lines = new ConnectionLayer(drawing, true);
    drawing->addLayer(figures, QStringLiteral("figures"));
    drawing->addLayer(lines, QStringLiteral("lines"));
    viewer->setContent(drawing);

    auto *box = new Rectangle(figures);
    box->setEnabledBGColor(yellow);
    place(box, figures, QRect(0, 0, 80, 60));
    auto *circle = new Ellipse(figures);
    circle->setEnabledBGColor(blue);
    place(circle, figures, QRect(200, 0, 60, 60));

    auto *line = new PolylineConnection(lines);
    line->setSourceAnchor(new ChopboxAnchor(box, line));
    line->setTargetAnchor(new EllipseAnchor(circle, line));
    lines->add(line);
}

QImage picture(FreeformViewer &viewer)
{
    QImage image(viewer.size(), QImage::Format_RGB32);
    viewer.render(&image);
    return image;
}

bool expectColor(const QImage &image, const QPoint &position, const QColor &color)
{
    if (image.rect().contains(position) && image.pixelColor(position) == color)
        return true;
    std::printf("the pixel at (%d, %d) is not %s\n", position.x(), position.y(), qPrintable(color.name()));
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);

    FreeformViewer viewer;
    viewer.resize(600, 400);
    draw(&viewer);
    viewer.scaleToFit();
    const QImage image = picture(viewer);
    const auto seenAt = [&viewer](int x, int y) { return viewer.viewport()->pos() + viewer.fromContent(QPoint(x, y)); };
    const bool right = expectColor(image, seenAt(40, 30), yellow) && expectColor(image, seenAt(230, 30), blue);
    return right ? 0 : 1;
}
