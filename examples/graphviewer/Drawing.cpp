#include "Drawing.h"

#include <QFontMetricsF>
#include <QTransform>

namespace GraphViewer {

namespace {

double alignedLeft(const TextRun &run)
{
    if (run.alignment & Qt::AlignLeft)
        return run.baseline.x();
    return run.alignment & Qt::AlignRight ? run.baseline.x() - run.width : run.baseline.x() - run.width / 2;
}

struct RectOf
{
    QRectF operator()(const Outline &outline) const { return outline.path.boundingRect(); }
    QRectF operator()(const Picture &picture) const { return picture.rect; }
    QRectF operator()(const TextRun &run) const
    {
        const QFontMetricsF metrics(run.font);
        return {alignedLeft(run), run.baseline.y() - metrics.ascent(), run.width, metrics.height()};
    }
};

struct Transformed
{
    const QTransform &transform;

    QPointF offsetAt(const QPointF &center) const { return transform.map(center) - center; }
    DrawItem operator()(Outline outline) const
    {
        outline.path = transform.map(outline.path);
        outline.style.fill.setTransform(outline.style.fill.transform() * transform);
        return outline;
    }
    DrawItem operator()(Picture picture) const
    {
        picture.rect.translate(offsetAt(picture.rect.center()));
        return picture;
    }
    DrawItem operator()(TextRun run) const
    {
        run.baseline += offsetAt(RectOf()(run).center());
        return run;
    }
};

// Pens are drawn half outside their path, wide ones further at sharp corners, and smooth edges bleed into one more
// pixel.
double overhang(const DrawItem &item)
{
    const auto *outline = std::get_if<Outline>(&item);
    if (!outline)
        return 0;
    const double width = outline->style.lineWidth;
    return width < 2 ? width / 2 + 1 : width * 1.5 + 1;
}

} // namespace

OutlineStyle recolored(OutlineStyle style, const QColor &color)
{
    if (!color.isValid())
        return style;
    style.lineColor = color;
    if (style.fill.style() != Qt::NoBrush)
        style.fill = color;
    return style;
}

QRectF itemRect(const DrawItem &item)
{
    return std::visit(RectOf(), item);
}

QRectF drawingExtent(const Drawing &drawing)
{
    QRectF extent;
    for (const DrawItem &item : drawing) {
        const double margin = overhang(item);
        extent |= itemRect(item).adjusted(-margin, -margin, margin, margin);
    }
    return extent;
}

DrawItem transformed(const DrawItem &item, const QTransform &transform)
{
    return std::visit(Transformed {transform}, item);
}

} // namespace GraphViewer
