#pragma once

#include <vtlpictel/viewer/IFigureViewer.h>
#include <vtlpictel/viewer/IViewport.h>

#include <QScrollArea>

#include <memory>

QT_BEGIN_NAMESPACE
class QMimeData;
class QPrinter;
QT_END_NAMESPACE

namespace Vantrel::Pictel {

class FreeformWidget;
class PageLayout;

/// The widget that an application puts on screen to show, scroll, zoom, print and export a tree of figures.
///
/// \code
///     auto *viewer = new FreeformViewer(window);
///     auto *pane = new FreeformLayeredPane(viewer);
///     auto *layer = new FreeformLayer(pane, true);
///     pane->addLayer(layer, "drawing");
///     viewer->setContent(pane);
///     viewer->widget()->setProperty("backgroundColor", QColor(Qt::white));
///     auto *ellipse = new Ellipse(layer);
///     layer->add(ellipse);
///     layer->getLayoutManager()->setConstraint(ellipse, QRect(20, 20, 80, 50));
/// \endcode
///
/// Coordinates: content coordinates are the logical ones of the figures, viewport coordinates the pixels of the visible
/// area. Between them stand the scroll bars and the FreeformWidget, which owns scale and origin.
///
/// Ownership: the viewer owns its widget and its update manager (a replaced one is deleted later). It owns neither
/// content nor page layout. All of them may be deleted in any order.
///
/// Bad input: null events, printers and mime data are ignored, and content other than a FreeformLayeredPane is refused
/// with a warning. A scale that is not finite, or is 0, changes nothing.
///
/// After a change: figures ask for repaint and layout themselves. When the drawing has outgrown the scroll range, the
/// next zoom or resize adapts it.
class VTLPICTEL_EXPORT FreeformViewer : public QScrollArea, public IFigureViewer, public IViewport
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFigureViewer Vantrel::Pictel::IViewport)

public:
    explicit FreeformViewer(QWidget *parent = nullptr);
    ~FreeformViewer() override;

    // Content

    UpdateManager *getUpdateManager() override;
    /// Binds the viewer and its content to \a updateManager, which becomes the viewer's; the previous one is deleted
    /// later. With null, figures cannot ask for anything and nothing is painted.
    void setUpdateManager(UpdateManager *updateManager) override;
    IViewport *getViewport() override;
    Figure *getContent() override;
    /// See FreeformWidget::setContent().
    bool setContent(Figure *content) override;
    void updateContentRect(const QRect &rect) override;
    /// See FreeformWidget::elasticBand().
    QRect &elasticBand() override;

    // Scale: pixels per content unit

    double getScale() const;
    /// Zooms such that the content point \a fixedPoint keeps its place; returns the resulting scale. Emits
    /// scaleChanged() when that differs.
    double setScaleAt(double scale, const QPoint &fixedPoint);
    void resetScaleBounds();

    // Scrolling

    int getPageStep(Qt::Orientation orientation) override;
    QPoint getViewLocation() override;
    QRect getViewRect() override;
    /// Scrolls the content point \a location to the top-left corner, growing the content if need be. A coordinate that
    /// lies at the very edge of the content leaves the scroll bar of its axis alone.
    void setViewLocation(const QPoint &location, bool deferred) override;
    void resizeViewport(const QSize &size) override;
    void setXYMargins(int x, int y) override;
    /// Adapts the scroll bars to the widget's size, sets them to (\a x, \a y) in widget pixels, and moves the widget
    /// there. The widget calls it after every zoom.
    void updateScrollBars(int x, int y);
    bool extentHandlingEnabled() const;
    void enableExtentHandling(bool enabled);

    // Coordinate mapping

    QPointF toContent(const QPointF &point) override;
    QPoint toContent(const QPoint &point) override;
    QRectF toContent(const QRectF &rect) override;
    QRect toContent(const QRect &rect) override;
    QPointF fromContent(const QPointF &point) override;
    QPoint fromContent(const QPoint &point) override;
    QRectF fromContent(const QRectF &rect) override;
    QRect fromContent(const QRect &rect) override;
    QPoint toGlobal(const QPoint &point) override;
    QPoint fromGlobal(const QPoint &point) override;
    /// The content point of the last mouse press; without one the centre of the visible part, from then on.
    QPoint getLastClickLocation();
    void resetLastClickLocation();

    // Painting and highlight

    void update() override;
    void repaint() override;
    bool isHighlighted() const;
    void setHighlighted(bool highlighted);
    int getHighlightStyle() const;
    /// See FreeformWidget::setHighlightStyle().
    void setHighlightStyle(int style);

    // Printing and export

    PageLayout *getPageLayout() const;
    /// Stores where on the page to print; not owned. Null, the default, prints on the whole page.
    void setPageLayout(PageLayout *pageLayout);
    /// See FreeformWidget::print().
    void print(QPrinter *printer, const QString &layerName, const QRect &area);
    /// Puts the picture that FreeformWidget::printToPixmap() makes into \a mimeData as image data.
    void copy(QMimeData *mimeData, const QString &layerName, const QRect &area);

public Q_SLOTS:
    /// See FreeformWidget::setScale(); emits scaleChanged() in any case.
    void setScale(double scale, const QPoint *pTopLeft = nullptr);
    /// Shows all of the content, as large as possible. Fits twice, since the first time can change the viewport.
    void scaleToFit();
    void scaleToNormal();
    /// See FreeformWidget::setScaleBounds().
    void setScaleBounds(double bound, double otherBound);

Q_SIGNALS:
    void scaleChanged(double newScale);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private Q_SLOTS:
    void evaluateContentBounds();
    void moveViewTo(int x, int y);

private:
    class Private;

    QPoint scrollOffset() const;
    void updateHighlight();
    void rememberClick(const QPoint &location);

    const std::unique_ptr<Private> d;
};

} // namespace Vantrel::Pictel
