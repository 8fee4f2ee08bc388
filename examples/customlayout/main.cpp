// A layout manager of one's own: the first child in the middle, the others around it. Click to add one.

#include "support/AddShape.h"
#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/layout/Layout.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QPainterPath>

using namespace Vantrel::Pictel;

namespace {

class RadialLayout : public Layout
{
public:
    using Layout::Layout;

protected:
    // Both sizes are kept until a child or the container asks for a new layout.
    QSize calculatePreferredSize() override
    {
        QSize largest(0, 0);
        for (Figure *child : childFigures())
            largest = largest.expandedTo(child->getPreferredSize());
        return largest * 4;
    }

    QSize calculateMinimumSize() override { return calculatePreferredSize(); }

    // The area is in the children's coordinates. True: everything has its place until something changes.
    bool performLayout(const QRect &area) override
    {
        if (!area.isValid())
            return false;
        const QList<Figure *> children = childFigures();
        for (qsizetype i = 0; i < children.size(); ++i) {
            QRectF bounds(QPointF(), children[i]->getPreferredSize());
            bounds.moveCenter(QRectF(area).center());
            if (i > 0)
                bounds.moveCenter(pointOnOrbit(area, bounds.size(), double(i - 1) / double(children.size() - 1)));
            children[i]->setBounds(bounds.toRect());
        }
        return true;
    }

private:
    // Clockwise from the top.
    static QPointF pointOnOrbit(const QRectF &area, const QSizeF &size, double fraction)
    {
        const QMarginsF half(size.width() / 2, size.height() / 2, size.width() / 2, size.height() / 2);
        QPainterPath orbit;
        orbit.arcMoveTo(area - half, 90);
        orbit.arcTo(area - half, 90, -360);
        return orbit.pointAtPercent(fraction);
    }
};

class NetworkViewer : public FreeformViewer
{
public:
    NetworkViewer()
    {
        setContent(m_drawing);
        m_drawing->addLayer(m_figures, "figures");
        m_drawing->addLayer(m_lines, "lines"); // Laid out after the figures, because it lies above them.
        m_lines->setAntialias(true);
        m_network->setLayoutManager(new RadialLayout(m_network));
        m_figures->add(m_network, QRect(0, 0, 480, 360));
        m_hub = addDevice("Switch", "#f4a259");
    }

    Figure *addDevice(const QString &name, const QColor &color)
    {
        auto *device = addShape<Ellipse>(m_network, {}, color, name);
        device->setMinimumSize({90, 50});
        return device;
    }

    void addConnectedDevice(const QString &name)
    {
        auto *line = new PolylineConnection(m_lines);
        line->setEnabledFGColor("#7d8a97");
        line->setLineWidth(2);
        line->setSourceAnchor(new EllipseAnchor(m_hub, line));
        line->setTargetAnchor(new EllipseAnchor(addDevice(name, "#bcd8ec"), line));
        m_lines->add(line);
    }

protected:
    void mousePressEvent(QMouseEvent *) override { addConnectedDevice("New"); }

private:
    SmoothPane *const m_drawing = new SmoothPane(this);
    FreeformLayer *const m_figures = new FreeformLayer(m_drawing, true);
    ConnectionLayer *const m_lines = new ConnectionLayer(m_drawing, true);
    Figure *const m_network = new Figure(m_figures, Qt::transparent);
    Figure *m_hub = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv, "A custom layout manager: click to add a device");
    NetworkViewer viewer;
    for (const char *name : {"Laptop", "Printer", "Phone", "Server", "Camera", "Tablet", "Scanner"})
        viewer.addConnectedDevice(name);
    return application.run(viewer);
}
