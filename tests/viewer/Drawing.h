#pragma once

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/layout/FreeformLayout.h>
#include <vtlpictel/viewer/FreeformViewer.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QScrollBar>
#include <QTest>

/// A viewer of 400 x 300 pixels, all of them viewport, that shows a pane with one layer.
///
/// Once it is on screen the content's bounds are (0, 0, 400, 300) and the widget has that size.
template <typename Pane>
struct BasicDrawing
{
    using Figure = Vantrel::Pictel::Figure;

    BasicDrawing()
    {
        viewer.setFrameShape(QFrame::NoFrame);
        viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.resize(400, 300);
        widget.setProperty("backgroundColor", QColor(Qt::white));
        pane.addLayer(&layer, QStringLiteral("drawing"));
        viewer.setContent(&pane);
    }

    bool show()
    {
        viewer.show();
        const bool exposed = QTest::qWaitForWindowExposed(&viewer);
        QCoreApplication::processEvents();
        return exposed;
    }

    /// Adds \a figure and has the extent cover it.
    void add(Figure &figure, const QRect &rect)
    {
        layer.add(&figure, rect);
        qobject_cast<Vantrel::Pictel::FreeformLayout *>(layer.getLayoutManager())->examineExtent();
    }

    /// The values of both scroll bars.
    QPoint scrolled() const { return {viewer.horizontalScrollBar()->value(), viewer.verticalScrollBar()->value()}; }
    /// The ends of the scroll bars' ranges.
    QPoint scrollRange() const
    {
        return {viewer.horizontalScrollBar()->maximum(), viewer.verticalScrollBar()->maximum()};
    }

    Vantrel::Pictel::FreeformViewer viewer;
    Vantrel::Pictel::FreeformWidget &widget = *qobject_cast<Vantrel::Pictel::FreeformWidget *>(viewer.widget());
    Pane pane;
    Vantrel::Pictel::FreeformLayer layer {nullptr, true};
};

using Drawing = BasicDrawing<Vantrel::Pictel::FreeformLayeredPane>;

/// A drawing with an extent of (0, 0, 100, 100).
struct Square : Drawing
{
    Square() { add(figure, QRect(0, 0, 100, 100)); }

    Vantrel::Pictel::Figure figure;
};

/// A drawing whose content is larger than the view, shown at its top-left corner: bounds (-50, -50, 1100, 1100).
struct Large : Drawing
{
    Large() { add(figure, QRect(0, 0, 1000, 1000)); }

    bool showAtScale(double scale, const QPoint &topLeft)
    {
        const bool shown = show();
        viewer.setScale(scale, &topLeft);
        QCoreApplication::processEvents();
        return shown;
    }

    Vantrel::Pictel::Figure figure;
};
