// A router of one's own: curves that leave to the right and arrive from the left. Drag the boxes.

#include "support/AddShape.h"
#include "support/DragViewer.h"
#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/connections/AbstractRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/figure/ConnectionLocator.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/shapes/PolygonDecoration.h>
#include <vtlpictel/shapes/RoundedRectangle.h>
#include <vtlpictel/shapes/TextFigure.h>

#include <QPainterPath>

using namespace Vantrel::Pictel;

namespace {

constexpr QColor ink(0x4f, 0x64, 0x78);

class CurveRouter : public AbstractRouter
{
public:
    using AbstractRouter::AbstractRouter;

    QList<QPointF> doRouteF(IConnection *connection) override
    {
        if (!connection || !connection->getSourceAnchor() || !connection->getTargetAnchor())
            return {};
        // An anchor answers where a line from some point ends: one from far to the right ends at the right side.
        const IConnectionAnchor &source = *connection->getSourceAnchor();
        const IConnectionAnchor &target = *connection->getTargetAnchor();
        const QPoint distant(100000, 0);
        const QPointF start = source.getLocation(source.getReferencePoint() + distant);
        const QPointF end = target.getLocation(target.getReferencePoint() - distant);

        const QPointF pull(qMax(40.0, qAbs(end.x() - start.x()) / 2), 0);
        QPainterPath curve(start);
        curve.cubicTo(start + pull, end - pull, end);

        constexpr int steps = 32;
        QList<QPointF> points;
        for (int i = 0; i <= steps; ++i) {
            QPointF point = curve.pointAtPercent(double(i) / steps);
            points << connection->translateToRelative(point); // Anchors are absolute, a route is the connection's.
        }
        return points;
    }

    // For connections with integer points.
    QList<QPoint> doRoute(IConnection *connection) override
    {
        QList<QPoint> points;
        for (const QPointF &point : doRouteF(connection))
            points << point.toPoint();
        return points;
    }
};

void connectBoxes(ConnectionLayer *lines, Figure *from, Figure *to, const QString &text)
{
    auto *line = new PolylineFConnection(lines);
    line->setSourceAnchor(new ChopboxAnchor(from, line));
    line->setTargetAnchor(new ChopboxAnchor(to, line));
    auto *middle = new ConnectionLocator(line, ConnectionLocator::MIDDLE);
    line->add(new TextFigure(text, line), QVariant::fromValue<QObject *>(middle));
    auto *tip = new PolygonDecoration(line);
    tip->setScale(10, 5);
    tip->setEnabledBGColor(ink);
    line->setTargetDecoration(tip);
    for (Shape *shape : QList<Shape *> {line, tip}) {
        shape->setEnabledFGColor(ink);
        shape->setLineWidth(2);
    }
    lines->add(line); // The layer gives it the router.
}

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv, "A custom router: drag the boxes");
    DragViewer viewer;
    auto *drawing = new SmoothPane(&viewer);
    auto *boxes = new FreeformLayer(drawing, true);
    auto *lines = new ConnectionLayer(drawing, true);
    drawing->addLayer(boxes, "boxes");
    drawing->addLayer(lines, "lines");
    viewer.setContent(drawing);
    viewer.setDragLayer(boxes);
    lines->setAntialias(true);
    lines->setConnectionRouter(new CurveRouter(lines));

    Figure *camera = addShape<RoundedRectangle>(boxes, QRect(0, 0, 110, 56), "#a8dadc", "Camera");
    Figure *microphone = addShape<RoundedRectangle>(boxes, QRect(0, 110, 110, 56), "#ffd6a5", "Microphone");
    Figure *slides = addShape<RoundedRectangle>(boxes, QRect(0, 220, 110, 56), "#cdb4db", "Slides");
    Figure *mixer = addShape<RoundedRectangle>(boxes, QRect(260, 100, 110, 76), "#e9ecef", "Mixer");
    Figure *screen = addShape<RoundedRectangle>(boxes, QRect(520, 30, 110, 56), "#c9e8bd", "Screen");
    Figure *stream = addShape<RoundedRectangle>(boxes, QRect(520, 190, 110, 56), "#c9e8bd", "Stream");
    connectBoxes(lines, camera, mixer, " video ");
    connectBoxes(lines, microphone, mixer, " sound ");
    connectBoxes(lines, slides, mixer, " pages ");
    connectBoxes(lines, mixer, screen, " HDMI ");
    connectBoxes(lines, mixer, stream, " RTMP ");

    return application.run(viewer);
}
