#pragma once

#include <QRect>

class QWidget;

namespace Vantrel::Pictel {

/// Hands the areas of one widget that have to be painted anew to QWidget::update(), however many there are.
///
/// Qt keeps them as a region of exact rectangles, and adding to one of thousands costs more than painting them. So what
/// cannot be seen is left out, since Qt paints it when it comes into view, and of the rest only the first areas since
/// the last painting stay exact: then the rectangle around all of them is painted.
class DirtyArea
{
public:
    /// Queues \a rect, in the widget's coordinates.
    void add(QWidget &widget, const QRect &rect);
    /// Forgets what is queued. To be called before the widget is painted, shown, hidden, moved or resized; calling it
    /// too often does no harm.
    void clear() { *this = DirtyArea(); }

private:
    QRect m_around;
    int m_count = 0;
};

} // namespace Vantrel::Pictel
