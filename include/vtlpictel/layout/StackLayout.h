#pragma once

#include <vtlpictel/layout/Layout.h>

namespace Vantrel::Pictel {

/// Gives every visible child the whole client area, so that the children lie on top of each other: layers of a pane.
///
/// Not relative: the children share the coordinates of the container's parent. Constraints have no effect on the
/// placement. Hidden children count in the sizes, so that showing one does not change them. When the container moves
/// without a new size, children without a layout manager stay behind until the next layout, see Figure::translate():
/// for a text in a box that moves take a box layout.
///
/// Ownership and bad input: see Layout. An invalid client area lays nothing out.
class VTLPICTEL_EXPORT StackLayout : public Layout
{
    Q_OBJECT

public:
    explicit StackLayout(QObject *parent = nullptr);
    ~StackLayout() override;

    /// False: the children share the coordinates of the container's parent.
    bool isRelativeLayout() const override;

protected:
    /// The largest preferred width and height of all children; invalid without children.
    QSize calculatePreferredSize() override;
    /// The largest minimum width and height of all children; invalid without children.
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
};

} // namespace Vantrel::Pictel
