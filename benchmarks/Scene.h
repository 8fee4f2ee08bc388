#pragma once

#include <QColor>
#include <QLine>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <vector>

namespace Bench {

/// One figure: a filled rectangle in content coordinates, with a text in its top-left corner unless that is empty.
struct Box
{
    QRect rect;
    QColor color;
    QString label;
};

/// A line from the edge of one box to the edge of another.
struct Link
{
    int source;
    int target;
};

enum class Detail { Plain, Chips };

/// What all contestants show: boxes in a grid from (0, 0) on, the same for the same number.
struct Scene
{
    std::vector<Box> boxes;
    int columns = 1;
    QSize pitch;
    Detail detail = Detail::Plain;
};

/// \a count rectangles, every fourth with a label.
Scene gridScene(int count);
/// \a count chips that touch each other.
Scene chipScene(int count);

/// The four links of the box in the middle of the part that is first visible, to its neighbours.
std::vector<Link> linksOfDraggedBox(const Scene &scene);
int draggedBox(const Scene &scene);

/// \a count links between boxes that lie at most a few cells apart.
std::vector<Link> neighbourLinks(const Scene &scene, int count);

/// Where a line between the centres of two boxes crosses their edges, as the library's chopbox anchors have it.
QLine chopped(const QRect &source, const QRect &target);

/// What the grid covers.
QRect extent(const Scene &scene);

/// All indices from 0 on in a random order that is the same every time.
std::vector<int> shuffledIndices(int count);

} // namespace Bench
