// Every anchor, router and decoration. Drag the figures to see how the lines follow.

#include "support/AddShape.h"
#include "support/DragViewer.h"
#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/connections/RelativeBendpoint.h>
#include <vtlpictel/connections/XYAnchor.h>
#include <vtlpictel/figure/ConnectionEndpointLocator.h>
#include <vtlpictel/figure/ConnectionLocator.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/PolygonDecoration.h>
#include <vtlpictel/shapes/PolylineDecoration.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/TextFigure.h>

using namespace Vantrel::Pictel;

namespace {

constexpr QColor ink(0x3d, 0x4f, 0x60);

// Neither figures nor layers own anchors: here each belongs to the connection that it serves.
template <typename ConnectionType>
ConnectionType *addConnection(Figure *layer, ConnectionAnchorBase *source, ConnectionAnchorBase *target)
{
    auto *connection = new ConnectionType(layer);
    connection->setEnabledFGColor(ink);
    connection->setLineWidth(2);
    source->setParent(connection);
    target->setParent(connection);
    connection->setSourceAnchor(source);
    connection->setTargetAnchor(target);
    layer->add(connection);
    return connection;
}

template <typename DecorationType>
DecorationType *decorate(PolylineConnection *connection)
{
    auto *decoration = new DecorationType(connection);
    decoration->setEnabledFGColor(ink);
    decoration->setEnabledBGColor(ink);
    decoration->setLineWidth(2);
    decoration->setScale(10, 5); // The template is of unit size.
    connection->setTargetDecoration(decoration);
    return decoration;
}

// The children of a connection are placed by locators, which then belong to its layout.
void addLabel(Figure *connection, const QString &text, const QColor &color, QObject *locator)
{
    auto *label = new TextFigure(text, connection);
    label->setTextColor(color);
    connection->add(label, QVariant::fromValue(locator));
}

template <typename ConnectionType>
void addLabels(ConnectionType *connection, const QString &middle, const QString &end)
{
    addLabel(connection, middle, Qt::black, new ConnectionLocator(connection, ConnectionLocator::MIDDLE));
    addLabel(connection, end, "#1d6fa5", new ConnectionEndpointLocator(connection, true));
}

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv, "Connections: drag the figures");
    DragViewer viewer;
    auto *drawing = new SmoothPane(&viewer);
    auto *figures = new FreeformLayer(drawing, true);
    auto *lines = new ConnectionLayer(drawing, true);
    lines->setAntialias(true);
    drawing->addLayer(figures, "figures");
    drawing->addLayer(lines, "lines");
    viewer.setContent(drawing);
    viewer.setDragLayer(figures);

    const QColor blue("#cfe6f5"), yellow("#ffe9ad");
    Figure *box = addShape<Rectangle>(figures, QRect(0, 0, 130, 50), blue, "ChopboxAnchor");
    Figure *ellipse = addShape<Ellipse>(figures, QRect(540, 0, 130, 50), yellow, "EllipseAnchor");
    auto *straight = addConnection<PolylineConnection>(lines, new ChopboxAnchor(box), new EllipseAnchor(ellipse));
    decorate<PolygonDecoration>(straight);
    addLabels(straight, " NullRouter ", "PolygonDecoration");

    box = addShape<Rectangle>(figures, QRect(0, 90, 130, 50), blue, "ChopboxAnchor");
    ellipse = addShape<Ellipse>(figures, QRect(540, 150, 130, 50), yellow, "EllipseAnchor");
    auto *bent = addConnection<PolylineConnection>(lines, new ChopboxAnchor(box), new EllipseAnchor(ellipse));
    bent->setConnectionRouter(new BendpointConnectionRouter(bent));
    RelativeBendpoint atSource(bent), atTarget(bent); // They travel by value.
    atSource.setWeight(0);
    atSource.setRelativeDimensions(QSize(200, 0), QSize());
    atTarget.setWeight(1);
    atTarget.setRelativeDimensions(QSize(), QSize(-200, 0));
    bent->setRoutingConstraint(QVariantList {QVariant::fromValue(atSource), QVariant::fromValue(atTarget)});
    decorate<PolylineDecoration>(bent);
    addLabels(bent, " BendpointConnectionRouter ", "PolylineDecoration");

    // One router for several connections keeps them apart.
    auto *manhattan = new ManhattanConnectionRouter(lines);
    box = addShape<Rectangle>(figures, QRect(0, 290, 130, 70), blue, "ChopboxAnchor");
    for (int y : {240, 360}) {
        ellipse = addShape<Ellipse>(figures, QRect(540, y, 130, 50), yellow, "EllipseAnchor");
        auto *angular = addConnection<PolylineConnection>(lines, new ChopboxAnchor(box), new EllipseAnchor(ellipse));
        angular->setConnectionRouter(manhattan);
        auto *diamond = decorate<PolygonDecoration>(angular);
        // The tip is at (0, 0), the line comes from the left.
        diamond->setTemplate({{0, 0}, {-1, 1}, {-2, 0}, {-1, -1}});
        diamond->setEnabledBGColor(Qt::white);
        addLabels(angular, " ManhattanConnectionRouter ", "setTemplate()");
    }

    box = addShape<Rectangle>(figures, QRect(0, 450, 130, 50), blue, "ChopboxAnchor");
    auto *loose = addConnection<PolylineFConnection>(lines, new ChopboxAnchor(box), new XYAnchor(QPoint(540, 475)));
    addLabels(loose, " PolylineFConnection ", "XYAnchor");

    return application.run(viewer);
}
