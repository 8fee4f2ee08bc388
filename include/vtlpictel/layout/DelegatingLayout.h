#pragma once

#include <vtlpictel/layout/Layout.h>

namespace Vantrel::Pictel {

/// Leaves the placement of each child to a locator: the child's constraint is a QObject that implements ILocator.
///
/// Children with any other constraint, or none, keep the place they have. Children may be painted beyond the
/// container, and share the coordinates of its parent. A locator without a QObject parent becomes the layout's, see
/// Layout; so does bad input.
class VTLPICTEL_EXPORT DelegatingLayout : public Layout
{
    Q_OBJECT

public:
    explicit DelegatingLayout(QObject *parent = nullptr);
    ~DelegatingLayout() override;

    /// False: the children share the coordinates of the container's parent.
    bool isRelativeLayout() const override;

protected:
    /// The minimum size.
    QSize calculatePreferredSize() override;
    /// The largest preferred width and height of all children, hidden ones included: locators give children their
    /// preferred sizes, so there is no smaller one. Invalid without a container or without children.
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
    /// False: the place that a locator finds may lie anywhere.
    bool isClipping() const override;
};

} // namespace Vantrel::Pictel
