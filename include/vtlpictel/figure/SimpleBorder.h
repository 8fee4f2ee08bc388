#pragma once

#include <vtlpictel/figure/Border.h>

namespace Vantrel::Pictel {

/// A border of thin lines, however wide its insets are.
class VTLPICTEL_EXPORT SimpleBorder : public Border
{
    Q_OBJECT

public:
    /// Creates a border with insets of \a width logical pixels on all sides; below 1 it has none and paints nothing.
    explicit SimpleBorder(QObject *parent = nullptr, int width = 1);
    ~SimpleBorder() override;

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// Draws a line along each edge of \a rect (absolute) whose inset is above 0, all with the pen of createPen().
    void drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const;
};

} // namespace Vantrel::Pictel
