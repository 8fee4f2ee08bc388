// The figures that come with the library, placed by its layouts.

#include "support/AddShape.h"
#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/figure/GeometryUtils.h>
#include <vtlpictel/figure/RelativeLocator.h>
#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/DelegatingLayout.h>
#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/StackLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/LabelFigure.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/RoundedRectangle.h>
#include <vtlpictel/shapes/TextFigure.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QPixmap>

using namespace Vantrel::Pictel;

namespace {

// The container's layout holds the new figure; its QObject parent, here the container as well, deletes it.
template <typename LayoutType>
Figure *addBox(Figure *container, unsigned int stretch, int spacing, const QColor &background = Qt::transparent)
{
    auto *box = new Figure(container, background);
    auto *layout = new LayoutType(box);
    layout->setSpacing(spacing);
    box->setLayoutManager(layout);
    container->add(box, stretch, stretch, -1);
    return box;
}

// Returns the area below the title, in which the layout places what is added.
template <typename LayoutType>
Figure *addPanel(Figure *row, const QString &title)
{
    Figure *panel = addBox<VBoxLayout>(row, 1, 8);
    panel->add(new TextFigure(title, panel, Qt::transparent));
    Figure *area = addBox<LayoutType>(panel, 1, 10, QColor(0xf1, 0xf4, 0xf8));
    area->setMargin(14);
    area->setMinimumSize(QSize(230, 124)); // A preferred size would not last: with a layout it comes from there.
    return area;
}

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv, "Figures and layouts");
    FreeformViewer viewer;
    auto *drawing = new SmoothPane(&viewer);
    auto *layer = new FreeformLayer(drawing, true);
    drawing->addLayer(layer, "figures");
    viewer.setContent(drawing);

    Figure *rows = addBox<VBoxLayout>(layer, 0, 20);
    Figure *upper = addBox<HBoxLayout>(rows, 1, 20);
    Figure *lower = addBox<HBoxLayout>(rows, 1, 20);

    Figure *row = addPanel<HBoxLayout>(upper, "HBoxLayout: side by side");
    addShape<Rectangle>(row, QSize(50, 40), "#8ecae6", "one"); // Box layouts take a preferred size as constraint,
    addShape<Rectangle>(row, QSize(80, 40), "#8ecae6", "two"); // and figures that expand fill the height.
    addShape<Rectangle>(row, QSize(50, 40), "#8ecae6", "three");

    Figure *column = addPanel<VBoxLayout>(upper, "VBoxLayout: one below the other");
    for (const char *color : {"crimson", "darkorange", "seagreen"}) {
        QPixmap picture(14, 14);
        picture.fill(color);
        auto *label = new LabelFigure(color, picture, Qt::Horizontal, column, Qt::transparent);
        label->getLayoutManager()->setSpacing(8);
        column->add(label, 1, 0, -1); // Its share of the height that is left over: one part of three.
    }

    Figure *stack = addPanel<StackLayout>(upper, "StackLayout: on top of each other");
    addShape<Rectangle>(stack, {}, "#ffe8a3");
    addShape<Ellipse>(stack, {}, "#ffc94d", "as large as the area");

    Figure *sheet = addPanel<XYLayout>(lower, "XYLayout: each at its rectangle");
    addShape<Rectangle>(sheet, QRect(24, 8, 116, 76), "#d5ecc2", "Rectangle");
    addShape<Ellipse>(sheet, QRect(118, 30, 124, 70), "#a7d98f", "Ellipse");
    addShape<RoundedRectangle>(sheet, QRect(222, 4, 150, 60), "#7cc767", "RoundedRectangle");

    Figure *area = addPanel<DelegatingLayout>(lower, "DelegatingLayout: where a locator says");
    // Constraints hold locators as plain objects.
    const auto at = [](RelativeLocator *locator) { return QVariant::fromValue<QObject *>(locator); };
    Figure *box = addShape<Rectangle>(area, at(new RelativeLocator(area, 0.5, 0.5)), "#dccbef", "RelativeLocator");
    box->setMinimumSize(QSize(180, 80));
    for (int side : {POSITION_NORTH, POSITION_SOUTH, POSITION_EAST, POSITION_WEST, POSITION_NORTH | POSITION_WEST,
                     POSITION_NORTH | POSITION_EAST, POSITION_SOUTH | POSITION_WEST, POSITION_SOUTH | POSITION_EAST})
        addShape<Ellipse>(area, at(new RelativeLocator(box, side)), "#8f5cc2");

    // A negative size stands for the preferred one at this moment, when everything is there.
    layer->getLayoutManager()->setConstraint(rows, QRect(0, 0, -1, -1));
    return application.run(viewer);
}
