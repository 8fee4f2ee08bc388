#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QPainterPath>

class QBrush;
class QPalette;
class QPen;

namespace Vantrel::Pictel {

/// The abstract base of figures that draw an outline and, optionally, fill it.
///
/// A subclass says in regeneratePath() how its painter path follows from a rectangle. The path is in the system of the
/// figure's bounds (the parent's coordinates) and is rebuilt only through pathChanged(), and only while the shape is in
/// a displayed tree: when its bounds change, not when its line width or its corners do. So give a shape its bounds, or
/// a polyline its points, after adding it, or let a layout do so.
///
/// Ownership: as with Figure. The background is transparent; the fill is part of the shape.
///
/// Colours start invalid. The first paint takes what it misses from the palette of the style option and keeps it.
///
/// Units: line widths are logical pixels. On a screen a solid line keeps a whole number of device pixels at any scale.
/// Values outside a type's sensible range are stored and drawn as well as possible; nothing is refused.
class VTLPICTEL_EXPORT Shape : public Figure
{
    Q_OBJECT

public:
    explicit Shape(QObject *parent = nullptr);
    ~Shape() override;

    /// Stores the width of the outline in logical pixels (default 1) and repaints, when it differs.
    virtual void setLineWidth(int width);

protected:
    /// Draws the path. option.rect is the absolute bounding rectangle without half the line width; pen and brush are
    /// set.
    virtual void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const;

protected Q_SLOTS:
    /// Rebuilds painterPath() for the outline \a bounds, in the parent's coordinates.
    virtual void regeneratePath(const QRectF &bounds) = 0;

public:
    // Line and fill: setters repaint and leave the path alone

    int getLineWidth() const { return m_lineWidth; }
    Qt::PenStyle getLineStyle() const { return m_lineStyle; }
    /// Default Qt::SolidLine.
    void setLineStyle(Qt::PenStyle style);
    Qt::PenCapStyle getCapStyle() const { return m_capStyle; }
    /// Default Qt::SquareCap. Kept, but without effect on painting.
    void setCapStyle(Qt::PenCapStyle style);
    Qt::PenJoinStyle getJoinStyle() const { return m_joinStyle; }
    /// Default Qt::MiterJoin. Kept, but without effect on painting.
    void setJoinStyle(Qt::PenJoinStyle style);
    bool getFill() const { return m_fill; }
    /// Default true.
    void setFill(bool fill);

    // Colours: foreground is the outline, background the fill; invalid until set or first painted

    QColor getEnabledFGColor() const { return m_enabledForeground; }
    void setEnabledFGColor(const QColor &color);
    QColor getEnabledBGColor() const { return m_enabledBackground; }
    void setEnabledBGColor(const QColor &color);
    QColor getDisabledFGColor() const { return m_disabledForeground; }
    /// The colour of outline and fill of a disabled shape.
    void setDisabledFGColor(const QColor &color);
    QColor getDisabledBGColor() const { return m_disabledBackground; }
    /// Kept, but without effect on painting: a disabled shape is filled with its foreground colour.
    void setDisabledBGColor(const QColor &color);

    // Figure

    /// As Figure::addNotify(); from now on the path follows pathChanged().
    void addNotify() override;
    /// From now on the path stays as it is; then as Figure::removeNotify().
    void removeNotify() override;
    /// Announces the new outline with pathChanged() when \a bounds differ, then sets the bounds.
    void setBounds(const QRect &bounds) override;
    /// True when \a point (parent's coordinates) lies in the area of the path, filled or not.
    bool contains(const QPoint &point) const override;

Q_SIGNALS:
    /// The path has to be rebuilt; \a bounds are the figure's bounds without half the line width, in the parent's
    /// coordinates. Shapes made of points pass an empty rectangle.
    void pathChanged(const QRectF &bounds);

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// The path in the parent's coordinates.
    const QPainterPath &getPainterPath() const { return m_path; }
    /// The path, for a subclass to rebuild; it repaints nothing.
    QPainterPath &painterPath() { return m_path; }
    /// \a path moved from the parent's coordinates to absolute ones; unchanged outside a displayed tree.
    QPainterPath absolutePath(const QPainterPath &path) const;
    /// Narrows the painter's clip to the path; does nothing while the path is empty.
    void clipToPath(QPainter *painter) const;

private:
    template <typename Value>
    void change(Value &field, Value value);
    void storeColor(QColor &field, const QColor &color);
    void completeColor(QColor &field, const QColor &paletteColor);
    void completeColors(const QPalette &palette);
    QPen outlinePen(const QPainter &painter) const;
    QBrush fillBrush() const;

    QPainterPath m_path;
    Qt::PenStyle m_lineStyle = Qt::SolidLine;
    Qt::PenCapStyle m_capStyle = Qt::SquareCap;
    Qt::PenJoinStyle m_joinStyle = Qt::MiterJoin;
    int m_lineWidth = 1;
    QColor m_enabledForeground;
    QColor m_enabledBackground;
    QColor m_disabledForeground;
    QColor m_disabledBackground;
    bool m_fill = true;
};

} // namespace Vantrel::Pictel
