// Painting, printing and export of FreeformWidget.

#include <vtlpictel/viewer/FreeformWidget.h>

#include "support/BoundedRect.h"
#include "viewer/FreeformWidget_p.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/PageLayout.h>

#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace Vantrel::Pictel {

namespace {

// How far the elastic band is painted beyond the widget, in pixels.
constexpr int BandOverlap = 16;

// Painters address pixels with 16 bits; and a picture of more than a gibibyte is a mistake, not a picture.
constexpr int MaximumPictureSide = 32767;
constexpr qint64 MaximumPicturePixels = 1 << 28;

bool fitsPicture(const QSize &size)
{
    return size.width() <= MaximumPictureSide && size.height() <= MaximumPictureSide
        && qint64(size.width()) * size.height() <= MaximumPicturePixels;
}

QRectF pageRect(const PageLayout *pageLayout, QPainter &painter)
{
    const QPaintDevice *device = painter.device();
    return pageLayout ? pageLayout->getContentRect(&painter) : QRectF(0, 0, device->width(), device->height());
}

double fittingScale(const QRect &area, const QRectF &page)
{
    return std::min(page.width() / area.width(), page.height() / area.height());
}

// Maps the top-left of the area to that of the page.
QTransform pageTransform(const QRect &area, const QRectF &page, double scale)
{
    return QTransform::fromTranslate(page.x(), page.y()).scale(scale, scale).translate(-area.x(), -area.y());
}

bool canPrintOn(const QPrinter &printer)
{
    const QPrinter::PrinterState state = printer.printerState();
    return state != QPrinter::Aborted && state != QPrinter::Error;
}

} // namespace

QStyleOptionViewItem FreeformWidget::viewOptions()
{
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.font = font();
    return option;
}

void FreeformWidget::paintEvent(QPaintEvent *event)
{
    if (!event)
        return;
    const auto background = property("backgroundColor").value<QColor>();
    d->spareDefaultBackground(d->canPaint() && background.alpha() == 255, event->rect());
    if (!d->canPaint())
        return;
    d->updateManager->performUpdate();
    QPainter painter(this);
    painter.save();
    painter.fillRect(event->rect(), background);
    d->paintLogical(painter, event->rect());
    painter.restore();
    if (d->highlighted && d->viewer)
        d->paintHighlight(painter);
}

// Qt fills the widget with the palette's colour first. Where the background colour covers that it is wasted time, as
// much as painting a hundred figures. When it turns out to be needed all the same, it is made up for.
void FreeformWidget::Private::spareDefaultBackground(bool isCovered, const QRect &dirtyPixels)
{
    const bool wasSpared = q->testAttribute(Qt::WA_OpaquePaintEvent);
    if (wasSpared == isCovered)
        return;
    q->setAttribute(Qt::WA_OpaquePaintEvent, isCovered);
    if (wasSpared)
        QPainter(q).fillRect(dirtyPixels, q->palette().brush(q->backgroundRole()));
}

// The validation before may have taken the content away.
void FreeformWidget::Private::paintLogical(QPainter &painter, const QRect &dirtyPixels)
{
    painter.setTransform(fromLogical);
    QStyleOptionViewItem option = q->viewOptions();
    option.rect = paintArea(dirtyPixels);
    if (content)
        content->render(&painter, option);
    if (elasticBand.isValid())
        paintElasticBand(painter);
}

// The dirty area in logical coordinates. Rounding can cut a part of a pixel off, and lines of figures beside the area
// can reach into it by half their width: unless logical units are pixels, the area grows by a unit and a pixel within
// what the widget shows. Only the dirty pixels are painted in any case.
QRect FreeformWidget::Private::paintArea(const QRect &dirtyPixels) const
{
    const QRect area = roundedRect(q->toLogical(QRectF(dirtyPixels)));
    if (scale == 1.0)
        return area;
    const QRectF reached = q->toLogical(QRectF(dirtyPixels.adjusted(-1, -1, 1, 1)));
    const QRect shown = roundedRect(q->toLogical(QRectF(q->rect())));
    return area | (grownRect(boundedRect(reached).toAlignedRect(), 1, 1) & shown);
}

void FreeformWidget::Private::paintElasticBand(QPainter &painter) const
{
    const QRect reach = q->rect().adjusted(-BandOverlap, -BandOverlap, BandOverlap, BandOverlap);
    paintRubberBand(painter, elasticBand & roundedRect(q->toLogical(QRectF(reach))));
}

void FreeformWidget::Private::paintHighlight(QPainter &painter) const
{
    const QPoint scrolled(viewer->horizontalScrollBar()->value(), viewer->verticalScrollBar()->value());
    const QRect visiblePixels = viewer->viewport()->rect().translated(scrolled);
    if (highlightStyle == 1)
        paintRubberBand(painter, visiblePixels);
    else
        paintFocusFrame(painter, visiblePixels);
}

void FreeformWidget::Private::paintRubberBand(QPainter &painter, const QRect &rect) const
{
    QStyleOptionRubberBand band;
    band.initFrom(q);
    band.shape = QRubberBand::Rectangle;
    band.rect = rect;
    q->style()->drawControl(QStyle::CE_RubberBand, &band, &painter, q);
}

void FreeformWidget::Private::paintFocusFrame(QPainter &painter, const QRect &rect) const
{
    QStyleOptionFocusRect frame;
    frame.initFrom(q);
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.rect = rect;
    q->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, q);
}

Layer *FreeformWidget::Private::layerToPrint(const QString &layerName) const
{
    return content ? content->getLayer(layerName) : nullptr;
}

// The area with margins, or that of all freeform layers below; null when there is none.
QRect FreeformWidget::Private::printArea(Layer &layer, const QRect &area) const
{
    QRect printed = area;
    if (!area.isValid()) {
        printed = QRect();
        const QList<Figure *> children = layer.childFigures();
        for (Figure *child : children) {
            if (auto *freeformLayer = qobject_cast<FreeformLayer *>(child))
                printed |= boundedRect(freeformLayer->getFreeformExtent());
        }
    }
    return printed.isValid() ? withMargins(printed) : QRect();
}

void FreeformWidget::printContent(QPainter *painter, Figure *figure, const QRect &area) const
{
    if (!painter || !figure)
        return;
    painter->save();
    QStyleOptionViewItem option = mutableSelf()->viewOptions();
    option.rect = area;
    figure->render(painter, option);
    painter->restore();
}

void FreeformWidget::print(QPrinter *printer, const QString &layerName, const QRect &area) const
{
    if (!printer)
        return;
    QPainter painter(printer);
    if (!painter.isActive() || !d->canPaint())
        return;
    d->updateManager->performUpdate();
    const QPointer<Layer> layer = d->layerToPrint(layerName);
    const QRect printed = layer ? d->printArea(*layer, area) : QRect();
    if (!printed.isValid())
        return;
    PageLayout *pageLayout = d->viewer ? d->viewer->getPageLayout() : nullptr;
    const QRectF page = pageRect(pageLayout, painter);
    const double scale = fittingScale(printed, page);
    if (!isUsableScale(scale) || !canPrintOn(*printer))
        return;
    painter.save();
    painter.setTransform(pageTransform(printed, page, scale));
    printContent(&painter, layer, printed);
    painter.restore();
    if (pageLayout)
        pageLayout->paintPageDecoration(&painter, QVariant());
}

QPixmap FreeformWidget::printToPixmap(const QString &layerName, const QRect &area) const
{
    Layer *layer = d->canPaint() ? d->layerToPrint(layerName) : nullptr;
    const QRect printed = layer ? d->printArea(*layer, area) : QRect();
    if (!printed.isValid() || !fitsPicture(printed.size()))
        return QPixmap();
    QPixmap picture(printed.size());
    if (picture.isNull())
        return picture;
    picture.fill(palette().color(QPalette::Base));
    QPainter painter(&picture);
    painter.setTransform(QTransform::fromTranslate(-printed.x(), -printed.y()));
    printContent(&painter, layer, printed);
    return picture;
}

} // namespace Vantrel::Pictel
