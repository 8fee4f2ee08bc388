#pragma once

#include <vtlpictel/figure/Insets.h>

#include <QColor>
#include <QObject>

class QPainter;
class QPen;
class QRect;
class QStyleOptionViewItem;

namespace Vantrel::Pictel {

/// Reserves space along the edges of a figure and paints lines in it.
///
/// Give it to a figure with Figure::setBorder(). The figure does not own it; one border may serve many figures and may
/// be deleted at any time.
///
/// Coordinates: insets are widths in logical pixels, rectangles are absolute.
///
/// The setters only store: call the figure's revalidate() after changing the insets and its repaint() after changing
/// the look.
class VTLPICTEL_EXPORT Border : public QObject
{
    Q_OBJECT

public:
    /// Creates a border without insets and with a solid black pen.
    explicit Border(QObject *parent = nullptr);
    ~Border() override;

    /// The space that the border takes from the figure's client area.
    virtual const Insets &getInsets() const;
    virtual void setInsets(const Insets &insets);
    /// Paints the border; option.rect is the figure's bounding rectangle in absolute coordinates.
    virtual void render(QPainter *painter, const QStyleOptionViewItem &option) const = 0;

protected:
    /// A pen of width 1 with the stored colour and styles.
    virtual QPen createPen();
    /// The rectangle whose edges run in the middle of the insets of \a rect; null when \a rect is invalid.
    virtual QRect toBorderRect(const QRect &rect);

public:
    // Pen

    /// Qt::black at first.
    QColor getColor() const { return m_color; }
    void setColor(const QColor &color) { m_color = color; }
    /// Qt::SolidLine at first.
    Qt::PenStyle getPenStyle() const { return m_penStyle; }
    void setPenStyle(Qt::PenStyle style) { m_penStyle = style; }
    /// Qt::SquareCap at first.
    Qt::PenCapStyle getPenCapStyle() const { return m_penCapStyle; }
    void setPenCapStyle(Qt::PenCapStyle style) { m_penCapStyle = style; }
    /// Qt::BevelJoin at first.
    Qt::PenJoinStyle getPenJoinStyle() const { return m_penJoinStyle; }
    void setPenJoinStyle(Qt::PenJoinStyle style) { m_penJoinStyle = style; }

protected:
    /// What createPen() answers, for painting.
    QPen pen() const;
    /// What toBorderRect() answers, for painting.
    QRect borderRect(const QRect &rect) const;

private:
    /// The one bridge from const painting to createPen() and toBorderRect(), which are non-const so that subclasses may
    /// compute and cache in them.
    Border *mutableSelf() const { return const_cast<Border *>(this); }

    Insets m_insets;
    Qt::PenStyle m_penStyle = Qt::SolidLine;
    Qt::PenCapStyle m_penCapStyle = Qt::SquareCap;
    Qt::PenJoinStyle m_penJoinStyle = Qt::BevelJoin;
    QColor m_color = Qt::black;
};

} // namespace Vantrel::Pictel
