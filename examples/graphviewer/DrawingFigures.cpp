#include "DrawingFigures.h"

#include "Track.h"

#include <vtlpictel/layout/Layout.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/PixmapFigure.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/RoundedRectangle.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionViewItem>
#include <QTransform>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

int wholeLineWidth(const OutlineStyle &style)
{
    return qMax(1, qRound(style.lineWidth));
}

// A shape draws its outline half a line width inside its bounds, the odd pixel at the right and bottom.
QRect boundsAround(const QRectF &outline, int lineWidth)
{
    const int before = lineWidth / 2;
    const int after = lineWidth - before;
    const QPoint topLeft = QPointF(outline.topLeft()).toPoint();
    const QPoint bottomRight = QPointF(outline.bottomRight()).toPoint();
    return {topLeft.x() - before, topLeft.y() - before, bottomRight.x() - topLeft.x() + before + after,
            bottomRight.y() - topLeft.y() + before + after};
}

bool isGradient(const QBrush &brush)
{
    return brush.gradient() != nullptr;
}

} // namespace

void applyStyle(Shape &shape, const OutlineStyle &style)
{
    shape.setLineWidth(wholeLineWidth(style));
    shape.setLineStyle(style.lineStyle);
    shape.setEnabledFGColor(style.lineColor);
    shape.setEnabledBGColor(style.fill.color());
    shape.setFill(style.fill.style() != Qt::NoBrush);
}

QPen exactPen(const OutlineStyle &style, double scale)
{
    constexpr double dash = 8.0;
    constexpr double dot = dash / 3;
    const double deviceWidth = qMax(1.0, style.lineWidth * scale);
    const double unit = scale / deviceWidth;
    QPen pen(style.lineColor, style.lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(5);
    const bool dashesShow = dot * scale >= 1.0;
    if (style.lineStyle == Qt::DashLine && dashesShow)
        pen.setDashPattern({dash * unit, dash * unit});
    else if (style.lineStyle == Qt::DotLine && dashesShow)
        pen.setDashPattern({dot * unit, dash * unit});
    if (style.lineWidth * scale < 1.0) {
        pen.setWidth(1);
        pen.setCosmetic(true);
    }
    return pen;
}

OutlineFigure::OutlineFigure(const Outline &outline, QObject *parent)
    : Shape(parent)
    , m_outlineBounds(boundsAround(outline.path.boundingRect(), wholeLineWidth(outline.style)).adjusted(-1, -1, 1, 1))
{
    const int half = wholeLineWidth(outline.style) / 2;
    const QPointF origin = m_outlineBounds.topLeft() + QPoint(half, half);
    m_outline = outline.path.translated(-origin);
    if (isGradient(outline.style.fill)) {
        m_gradient = outline.style.fill;
        m_gradient.setTransform(m_gradient.transform() * QTransform::fromTranslate(-origin.x(), -origin.y()));
    }
}

void OutlineFigure::regeneratePath(const QRectF &bounds)
{
    painterPath() = m_outline.translated(bounds.topLeft());
}

void OutlineFigure::drawShape(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (isGradient(m_gradient)) {
        QBrush brush = m_gradient;
        brush.setTransform(brush.transform() * QTransform::fromTranslate(option.rect.x(), option.rect.y()));
        painter->setBrush(brush);
    }
    Shape::drawShape(painter, option);
}

CurveFigure::CurveFigure(QObject *parent)
    : PolylineF(parent)
{ }

QRect CurveFigure::getBounds()
{
    if (getPainterPath().isEmpty())
        return {};
    const int margin = getLineWidth() / 2 + 1;
    return getPainterPath().boundingRect().toAlignedRect().adjusted(-margin, -margin, margin, margin);
}

TextLine::TextLine(const TextRun &run, QObject *parent)
    : TextFigure(parent)
{
    const QRectF rect = itemRect(run);
    m_textBounds = rect.toAlignedRect();
    m_textBounds.setSize(m_textBounds.size().expandedTo({1, 1}));
    m_verticalScale = run.size / run.font.pixelSize();
    const double natural = QFontMetricsF(run.font).horizontalAdvance(run.text) * m_verticalScale;
    m_horizontalScale = natural > run.width && run.width > 0 ? m_verticalScale * run.width / natural : m_verticalScale;
    const double slack = qMax(0.0, run.width - natural);
    const double indent = run.alignment & Qt::AlignLeft ? 0 : run.alignment & Qt::AlignRight ? slack : slack / 2;
    m_start = QPointF(rect.x() + indent, run.baseline.y()) - m_textBounds.topLeft();

    setBackgroundColor(Qt::transparent);
    setTextColor(run.color);
    setFont(run.font);
    setText(run.text);
}

QSize TextLine::calculateContentSize()
{
    return m_textBounds.size();
}

void TextLine::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->save();
    painter->setPen(getTextColor());
    painter->setFont(getFont());
    painter->translate(option.rect.topLeft() + m_start);
    painter->scale(m_horizontalScale, m_verticalScale);
    painter->drawText(QPointF(), getText());
    painter->restore();
}

namespace {

// Makes the figure for each kind of item. A figure gets its place after it was added: shapes make their paths then.
class FigureMaker
{
public:
    FigureMaker(Figure &container, const QRectF &frame, Frames frames)
        : m_container(container)
        , m_frame(frame)
        , m_frames(frames)
    { }

    void operator()(const Outline &outline) const;
    void operator()(const TextRun &run) const
    {
        auto *line = new TextLine(run, &m_container);
        place(*line, line->textBounds());
    }
    void operator()(const Picture &picture) const;

private:
    template <typename ShapeType>
    void addShape(const Outline &outline) const;
    void addCurve(const Outline &outline) const;
    void addFrame(const Outline &outline) const;
    void addOutline(const Outline &outline) const;
    void place(Figure &figure, const QRect &bounds) const;
    bool isFrame(const Outline &outline) const;

    Figure &m_container;
    QRectF m_frame;
    Frames m_frames;
};

void FigureMaker::place(Figure &figure, const QRect &bounds) const
{
    m_container.add(&figure);
    m_container.getLayoutManager()->setConstraint(&figure, bounds);
}

template <typename ShapeType>
void FigureMaker::addShape(const Outline &outline) const
{
    auto *shape = new WithExactLine<ShapeType>(outline.style, &m_container);
    place(*shape, boundsAround(outline.path.boundingRect(), shape->getLineWidth()));
}

void FigureMaker::addCurve(const Outline &outline) const
{
    auto *curve = new WithExactLine<CurveFigure>(outline.style, &m_container);
    m_container.add(curve);
    curve->setLinePoints(sampled(outline.path));
}

void FigureMaker::addFrame(const Outline &outline) const
{
    const double diameter = outline.form == Outline::Form::Area ? 32 : 12;
    const QRectF rect = outline.path.boundingRect();
    auto *frame = new WithExactLine<RoundedRectangle>(outline.style, &m_container);
    frame->setXRnd(qMax(1, qRound(100 * diameter / rect.width())));
    frame->setYRnd(qMax(1, qRound(100 * diameter / rect.height())));
    place(*frame, boundsAround(rect, frame->getLineWidth()));
}

void FigureMaker::addOutline(const Outline &outline) const
{
    auto *figure = new WithExactLine<OutlineFigure>(outline.style, outline, &m_container);
    place(*figure, figure->outlineBounds());
}

bool FigureMaker::isFrame(const Outline &outline) const
{
    const QRectF rect = outline.path.boundingRect();
    return m_frames == Frames::Rounded && rect.contains(m_frame) && !rect.isEmpty();
}

void FigureMaker::operator()(const Outline &outline) const
{
    if (outline.form == Outline::Form::Line)
        return addCurve(outline);
    if (isGradient(outline.style.fill))
        return addOutline(outline);
    if (isFrame(outline))
        return addFrame(outline);
    if (outline.form == Outline::Form::Box)
        return addShape<Rectangle>(outline);
    if (outline.form == Outline::Form::Ellipse)
        return addShape<Ellipse>(outline);
    addOutline(outline);
}

void FigureMaker::operator()(const Picture &picture) const
{
    const QRect rect = picture.rect.toRect();
    const QPixmap pixmap(picture.file);
    if (pixmap.isNull() || rect.isEmpty())
        return;
    const QPixmap fitting = pixmap.scaled(rect.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    place(*new PixmapFigure(fitting, &m_container, Qt::transparent), rect);
}

QRectF frameOf(const Drawing &drawing)
{
    QRectF frame;
    for (const DrawItem &item : drawing) {
        if (std::holds_alternative<Outline>(item))
            frame |= itemRect(item);
    }
    return frame;
}

} // namespace

void addFigures(Figure &container, const Drawing &drawing, Frames frames)
{
    const QPoint origin = container.getBounds().topLeft();
    const QTransform toContainer = QTransform::fromTranslate(-origin.x(), -origin.y());
    const FigureMaker maker(container, toContainer.mapRect(frameOf(drawing)), frames);
    for (const DrawItem &item : drawing)
        std::visit(maker, transformed(item, toContainer));
}

} // namespace GraphViewer
