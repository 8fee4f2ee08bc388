// A map made of layers, which zooms and hides what it is told to.

#include "support/AddShape.h"
#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/Polyline.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/RoundedRectangle.h>
#include <vtlpictel/shapes/TextFigure.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QKeyEvent>
#include <QWheelEvent>

#include <cmath>

using namespace Vantrel::Pictel;

namespace {

const QStringList keys {"land", "streets", "houses", "names"};

class MapViewer : public FreeformViewer
{
protected:
    // Zooms such that what is under the pointer stays there.
    void wheelEvent(QWheelEvent *event) override
    {
        if (!(event->modifiers() & Qt::ControlModifier))
            return FreeformViewer::wheelEvent(event);
        setScaleAt(getScale() * std::pow(1.25, event->angleDelta().y() / 120.0),
                   toContent(event->position().toPoint()));
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        auto *pane = static_cast<FreeformLayeredPane *>(getContent());
        if (event->key() == Qt::Key_0)
            scaleToFit();
        else if (Layer *layer = pane->getLayer(keys.value(event->key() - Qt::Key_1)))
            layer->setVisible(!layer->isVisible());
        else
            FreeformViewer::keyPressEvent(event);
    }
};

void addLine(Layer *layer, const QList<QPoint> &points, int width, const QColor &color)
{
    auto *line = new Polyline(layer);
    line->setEnabledFGColor(color);
    line->setLineWidth(width);
    layer->add(line);
    line->setLinePoints(points); // A line needs no constraint: its points say where it is.
}

void addName(Layer *layer, const QPoint &position, const QString &name)
{
    // A negative size stands for the preferred one, that of the text.
    layer->add(new TextFigure(name, layer, Qt::transparent), QRect(position, QSize(-1, -1)));
}

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv,
                                   "Layers and zoom: Ctrl + wheel zooms, 0 fits, 1 to 4 hide and show layers");
    MapViewer viewer;
    viewer.setScaleBounds(0.1, 10);
    auto *map = new SmoothPane(&viewer);
    viewer.setContent(map);
    map->setSnapSize(20);
    map->setDrawGrid(true);

    for (const QString &key : keys) // The first one lies at the bottom.
        map->addLayer(new FreeformLayer(map, true), key);

    Layer *land = map->getLayer("land");
    addLine(land, {{-40, 250}, {120, 232}, {260, 265}, {420, 246}, {640, 290}}, 30, "#a9d3ee");
    addShape<Ellipse>(land, QRect(390, 30, 180, 116), "#a9d3ee");
    addShape<RoundedRectangle>(land, QRect(30, 290, 270, 56), "#bfe0a8");

    Layer *streets = map->getLayer("streets");
    addLine(streets, {{110, -40}, {110, 180}}, 10, "#cfcfcf");
    addLine(streets, {{-40, 180}, {640, 180}}, 16, "#f5c35c");
    addLine(streets, {{340, -40}, {340, 400}}, 16, "#f5c35c");

    Layer *houses = map->getLayer("houses");
    for (const QRect &house : {QRect(10, 20, 80, 60), QRect(10, 100, 80, 60), QRect(130, 20, 80, 60),
                               QRect(230, 20, 80, 60), QRect(130, 100, 180, 60), QRect(370, 296, 80, 50)})
        addShape<Rectangle>(houses, house, "#eaa99b");

    Layer *names = map->getLayer("names");
    addName(names, {450, 80}, "The lake");
    addName(names, {190, 122}, "Town hall");
    addName(names, {410, 172}, "High Street");
    addName(names, {40, 232}, "River");
    addName(names, {150, 310}, "Park");
    addName(names, {386, 312}, "Station");

    return application.run(viewer);
}
