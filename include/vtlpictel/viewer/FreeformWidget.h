#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QStyleOptionViewItem>
#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QPrinter;
QT_END_NAMESPACE

namespace Vantrel::Pictel {

class Figure;
class FreeformViewer;
class UpdateManager;

/// The widget that a FreeformViewer scrolls: it paints the content at a scale and is as large as the content is.
///
/// Two coordinate systems meet here. Logical coordinates are the content's; widget coordinates are pixels from the
/// widget's top-left corner. They differ by the scale (pixels per logical unit) and by the logical point that is shown
/// at the widget's origin: pixel = (logical - origin) * scale.
///
/// Ownership: the viewer owns the widget. The widget owns neither content nor update manager; each may be deleted at
/// any time. Content that outlives the widget loses its update manager, but stays notified.
///
/// Bad input: content other than a FreeformLayeredPane is refused with a warning. A scale that is not finite, or is 0,
/// changes nothing. Null printers, unknown layers and missing content make an operation do nothing.
///
/// The dynamic property "backgroundColor" (a QColor) fills the background before the content is painted: set it, since
/// without a valid colour the painter fills in black. Call update() after changing it.
class VTLPICTEL_EXPORT FreeformWidget : public QWidget
{
    Q_OBJECT

public:
    explicit FreeformWidget(FreeformViewer *viewer, Qt::WindowFlags flags = Qt::WindowFlags());
    ~FreeformWidget() override;

    virtual UpdateManager *getUpdateManager();
    /// Stores the manager, which is not owned, and hands it to the content.
    virtual void setUpdateManager(UpdateManager *updateManager);
    /// The rectangle of the elastic band, in logical coordinates, to be read and changed in place; call update()
    /// afterwards. An invalid one, as at the start, is not painted.
    virtual QRect &elasticBand();
    /// Prints one page that shows \a area (logical) of the layer, or all of its freeform layers when that is invalid,
    /// with the margins around it and as large as the page allows.
    virtual void print(QPrinter *printer, const QString &layerName, const QRect &area) const;
    /// A picture of \a area (logical) of the layer, or all of its freeform layers when that is invalid, with the
    /// margins around it and at 100 %. Null when there is nothing to show, or more than a picture can hold.
    virtual QPixmap printToPixmap(const QString &layerName, const QRect &area) const;
    virtual QPointF toLogical(const QPointF &point);
    /// From widget to logical coordinates.
    virtual QRectF toLogical(const QRectF &rect);
    virtual QPointF fromLogical(const QPointF &point);
    /// From logical to widget coordinates.
    virtual QRectF fromLogical(const QRectF &rect);
    /// The style option that content is painted with, for this widget and its font.
    virtual QStyleOptionViewItem viewOptions();

    // Content

    /// The shown root, or null.
    Figure *getContent() const;
    /// Shows \a content, which must be a FreeformLayeredPane; otherwise a warning, false, and the old content stays.
    /// The content gets a transparent background, addNotify() and the update manager; its ownership does not move.
    bool setContent(Figure *content);
    /// Remembers the content's bounds for restoreBounds().
    void saveBounds();
    /// Gives the content the bounds that saveBounds() remembered.
    void restoreBounds();

    // Scale: widget pixels per logical unit, 1.0 at the start

    double getScale() const;
    /// Shows the content at \a scale (within the bounds), with \a topLeft (logical) at the top-left of the view if it
    /// is given, else around the centre of the view. A negative scale fits the content with its margins into the
    /// viewport and ignores \a topLeft. Returns the resulting scale; without content extent nothing changes.
    double setScale(double scale, const QPoint *topLeft = nullptr);
    /// Shows the content at \a scale (within the bounds) such that \a fixedPoint (logical) keeps its place on screen.
    /// Returns the resulting scale.
    double setScaleAt(double scale, const QPoint &fixedPoint);
    /// Keeps the scale between the smaller and the larger value, beginning now. They count while both are above 0.
    void setScaleBounds(double bound, double otherBound);
    /// Takes the bounds of the scale away; the scale stays.
    void resetScaleBounds();

    // Extent and margins

    /// The logical point shown at widget pixel (0, 0).
    QPointF getPointAtOrigin() const;
    void setPointAtOrigin(const QPoint &point);
    int getXMargin() const;
    int getYMargin() const;
    /// Stores the logical units kept free beside the content, 50 and 50 by default; negative values become 0. They
    /// count from the next zoom or extent check on.
    void setMargins(int x, int y);
    /// True while a zoom lays the widget out anew.
    bool isResizing() const;
    bool extentHandlingEnabled() const;
    /// Stores whether changes of the content's extent are examined, which they are by default.
    void enableExtentHandling(bool enabled);
    /// Tells whether the content must grow to cover \a rect (logical), with the margins around it if \a withMargins,
    /// and makes it and the widget grow if \a apply.
    bool ensureViewable(const QRect &rect, bool withMargins, bool apply);
    /// Shrinks content and widget to what the content's extent with margins and \a view (logical) need. Without any
    /// extent the widget is hidden until the next zoom.
    void minimizeViewable(const QRect &view);

    // Highlight: a frame around the visible part, off by default

    bool isHighlighted() const;
    void setHighlighted(bool highlighted);
    int getHighlightStyle() const;
    /// 1: rubber band, anything else (0 by default): focus frame.
    void setHighlightStyle(int style);

    /// The size of the content's extent with margins at the current scale, or the minimum size without extent.
    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void contentExtentChanged();

private:
    class Private;

    double adjustSizeToScale(double scale, const QPoint *topLeft);
    void printContent(QPainter *painter, Figure *figure, const QRect &area) const;
    /// The one bridge from const operations to the virtual ones that are not const but change nothing.
    FreeformWidget *mutableSelf() const { return const_cast<FreeformWidget *>(this); }

    const std::unique_ptr<Private> d;
};

} // namespace Vantrel::Pictel
