#pragma once

#include <vtlpictel/figure/Border.h>

namespace Vantrel::Pictel {

/// A border whose lines are as thick as its insets, drawn once or, with an inner margin, twice.
class VTLPICTEL_EXPORT ScaledBorder : public Border
{
    Q_OBJECT

public:
    /// Creates a border with insets of \a width logical pixels on all sides; below 1 it has none and paints nothing.
    explicit ScaledBorder(QObject *parent = nullptr, int width = 1);
    ~ScaledBorder() override;

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// Draws a line along each edge of \a rect (absolute) whose inset is above 0, as wide as that inset. The right and
    /// the bottom line lie half a width beyond \a rect.
    void drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const;

    /// How many logical pixels inside the first frame a second one is drawn; 0, the default, or less draws no second.
    int getInnerMarginBorder() const { return m_innerMarginBorder; }
    void setInnerMarginBorder(int margin) { m_innerMarginBorder = margin; }

private:
    int m_innerMarginBorder = 0;
};

} // namespace Vantrel::Pictel
