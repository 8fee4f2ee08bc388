#pragma once

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/viewer/FreeformViewer.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QPointer>
#include <QTransform>

namespace Vantrel::Pictel {

class FreeformWidget::Private
{
public:
    Private(FreeformWidget *widget, FreeformViewer *scrollingViewer)
        : q(widget)
        , viewer(scrollingViewer)
    { }

    // Content

    void releaseContent();
    QRect extent() const;
    QRect withMargins(const QRect &rect) const;

    // Zoom and layout; rectangles are logical

    double boundedScale(double requested) const;
    double scaleToFit(double requested);
    double zoom(double newScale, const QPoint *fixedPoint, const QPoint *topLeft);
    void layOut(const QRect &range, const QPoint &viewTopLeft);
    void setTransformation(double originX, double originY, double newScale);
    QRect contentBounds() const;
    void showNothing(const QRect &view);
    void setContentRange(const QRect &oldRange, const QRect &range);
    QSize sizeFor(const QRect &range) const;
    QSize viewportSize() const;
    QRect visiblePart() const;

    // Painting

    bool canPaint() const { return content && updateManager; }
    void spareDefaultBackground(bool isCovered, const QRect &dirtyPixels);
    QRect paintArea(const QRect &dirtyPixels) const;
    void paintLogical(QPainter &painter, const QRect &dirtyPixels);
    void paintElasticBand(QPainter &painter) const;
    void paintHighlight(QPainter &painter) const;
    void paintRubberBand(QPainter &painter, const QRect &rect) const;
    void paintFocusFrame(QPainter &painter, const QRect &rect) const;
    QRect printArea(Layer &layer, const QRect &area) const;
    Layer *layerToPrint(const QString &layerName) const;

    FreeformWidget *const q;
    const QPointer<FreeformViewer> viewer;
    QPointer<FreeformLayeredPane> content;
    QPointer<UpdateManager> updateManager;
    QRect elasticBand;
    QPointF pointAtOrigin;
    double scale = 1.0;
    int xMargin = 50;
    int yMargin = 50;
    bool resizing = false;
    double minimumScale = -1.0;
    double maximumScale = -1.0;
    bool extentHandling = true;
    bool highlighted = false;
    int highlightStyle = 0;
    QRect savedBounds;
    QTransform fromLogical;
    QTransform toLogical;
};

/// True for a scale that the transforms can work with: positive, and neither it nor its inverse infinite.
bool isUsableScale(double scale);

} // namespace Vantrel::Pictel
