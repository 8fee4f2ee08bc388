#pragma once

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/viewer/FreeformViewer.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QPainter>
#include <QStyleOptionViewItem>

/// What a layer was asked to paint.
class ProbeLayer : public Vantrel::Pictel::FreeformLayer
{
public:
    ProbeLayer()
        : Vantrel::Pictel::FreeformLayer(nullptr, true)
    { }

    QList<QRect> areas;
    QList<QTransform> transforms;
    QFont font;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        areas << option.rect;
        transforms << painter->transform();
        font = option.font;
        Vantrel::Pictel::FreeformLayer::render(painter, option);
    }
};

/// A viewer over an outer pane "all" with the layer "probe": a red figure at (0, 0, 100, 100), in bounds that hold it.
struct PrintedDrawing
{
    PrintedDrawing()
    {
        viewer.resize(400, 300);
        figure.setBackgroundColor(Qt::red);
        layer.add(&figure, QRect(0, 0, 100, 100));
        pane.addLayer(&inner, "all");
        inner.addLayer(&layer, "probe");
        inner.addLayer(&plain, "plain");
        plain.setBounds(QRect(0, 0, 10, 10));
        pane.setFreeformBounds(QRect(-1000, -1000, 3000, 3000));
        viewer.setContent(&pane);
    }

    Vantrel::Pictel::FreeformViewer viewer;
    Vantrel::Pictel::FreeformWidget &widget = *qobject_cast<Vantrel::Pictel::FreeformWidget *>(viewer.widget());
    Vantrel::Pictel::FreeformLayeredPane pane;
    Vantrel::Pictel::FreeformLayeredPane inner;
    ProbeLayer layer;
    Vantrel::Pictel::Layer plain;
    Vantrel::Pictel::Figure figure;
};
