#pragma once

#include "Drawing.h"

#include <vtlpictel/shapes/PolylineF.h>
#include <vtlpictel/shapes/Shape.h>
#include <vtlpictel/shapes/TextFigure.h>

#include <QPainter>

namespace GraphViewer {

/// The pen for a line of that style under a painter that draws \a scale device pixels for a content pixel: of exact
/// width, but not thinner than a device pixel, and with Graphviz's dashes.
QPen exactPen(const OutlineStyle &style, double scale);

/// Any shape of the library, with lines as wide as Graphviz means them rather than a whole number of pixels.
template <typename ShapeType>
class WithExactLine : public ShapeType
{
public:
    template <typename... Arguments>
    explicit WithExactLine(const OutlineStyle &style, Arguments &&...arguments)
        : ShapeType(std::forward<Arguments>(arguments)...)
        , m_style(style)
    {
        applyStyle(*this, style);
    }

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        painter->setPen(exactPen(m_style, painter->transform().m11()));
        ShapeType::drawShape(painter, option);
    }

private:
    OutlineStyle m_style;
};

/// Gives \a shape the colours, the line and the fill of \a style.
void applyStyle(Vantrel::Pictel::Shape &shape, const OutlineStyle &style);

/// A shape with any outline; gradients fill it as they fill the outline. It can be moved but not resized.
class OutlineFigure : public Vantrel::Pictel::Shape
{
public:
    /// \a outline is in the coordinates of the figure's parent.
    OutlineFigure(const Outline &outline, QObject *parent);

    /// The bounds that put the outline where it was given.
    QRect outlineBounds() const { return m_outlineBounds; }
    /// The outline as a polygon, in the coordinates of the bounds.
    QPolygonF outlinePolygon() const { return getPainterPath().toFillPolygon(); }

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void regeneratePath(const QRectF &bounds) override;

private:
    QPainterPath m_outline; // relative to the bounds without half the line width
    QBrush m_gradient;
    QRect m_outlineBounds;
};

/// A line through sampled points, whose bounds have room for its width also when it is straight.
class CurveFigure : public Vantrel::Pictel::PolylineF
{
public:
    explicit CurveFigure(QObject *parent);

    QRect getBounds() override;
};

/// One line of text on an exact baseline, no wider than Graphviz measured it.
class TextLine : public Vantrel::Pictel::TextFigure
{
public:
    /// \a run is in the coordinates of the figure's parent.
    TextLine(const TextRun &run, QObject *parent);

    QRect textBounds() const { return m_textBounds; }

protected:
    QSize calculateContentSize() override;
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QRect m_textBounds;
    QPointF m_start; // left end of the baseline, relative to the bounds
    double m_horizontalScale = 1.0;
    double m_verticalScale = 1.0;
};

/// Whether frames as large as the whole drawing get rounded corners.
enum class Frames { AsDrawn, Rounded };

/// Fills \a container with one figure for each item of \a drawing, which is in the coordinates of the container's
/// parent. The container owns them. It must be in a displayed tree and have its final bounds.
void addFigures(Vantrel::Pictel::Figure &container, const Drawing &drawing, Frames frames = Frames::AsDrawn);

} // namespace GraphViewer
