#pragma once

#include <QRect>
#include <QVarLengthArray>

class QWidget;

namespace Vantrel::Pictel {

/// Hands the areas of one widget that have to be painted anew to QWidget::update(), however many there are.
///
/// Qt keeps them as a region of exact rectangles, and adding to one of thousands costs more than painting them; nor is
/// clipping to a jagged region cheap. So what cannot be seen is left out, since Qt paints it when it comes into view.
/// Areas that touch, as those of a figure before and after a move, become the rectangle around them, as long as that
/// has no more than twice their pixels. And only the first areas since the last painting stay apart: then the rectangle
/// around all of them is painted.
///
/// What lies within an area that is queued already is handed on as well, which costs Qt next to nothing: it is not
/// certain that the area is still queued there, since whoever filters the widget's events may have swallowed a
/// painting.
class DirtyArea
{
public:
    /// Queues \a rect, in the widget's coordinates.
    void add(QWidget &widget, const QRect &rect);
    /// Forgets what is queued. To be called before the widget is painted, shown, hidden, moved or resized; calling it
    /// too often does no harm.
    void clear();

private:
    /// A queued rectangle, and about how many of its pixels are those that it was made of.
    struct Patch
    {
        QRect rect;
        qint64 pixels;
    };

    static constexpr int MostPatches = 32;

    static bool absorb(Patch &patch, const Patch &other);
    bool isQueued(const QRect &rect) const;
    QRect join(const QRect &rect);

    QRect m_around;
    bool m_hasTooMany = false;
    QVarLengthArray<Patch, MostPatches> m_patches;
};

} // namespace Vantrel::Pictel
