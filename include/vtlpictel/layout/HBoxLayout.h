#pragma once

#include <vtlpictel/layout/Layout.h>

namespace Vantrel::Pictel {

/// Places the visible children side by side, from left to right, with getSpacing() logical pixels between them.
///
/// Each child gets its preferred width, or that of its constraint, a QSize or QSizeF (rounded), and the whole height of
/// the client area. Width that is left over goes to the children in proportion to their horizontal stretch factors,
/// fractions of a pixel to nobody; too little width is not shared, the children run past the right edge. A child that
/// expands in any direction fills its slot, any other keeps its size and is aligned in its slot; the alignment is
/// Qt::AlignCenter at first. Hidden children take no room and no spacing.
///
/// The row starts at (0, 0) of the container's child coordinates. Ownership and bad input: see Layout. An invalid
/// client area lays nothing out. After changing spacing, alignment or stretch call revalidate() of the container.
class VTLPICTEL_EXPORT HBoxLayout : public Layout
{
    Q_OBJECT

public:
    explicit HBoxLayout(QObject *parent = nullptr);
    ~HBoxLayout() override;

    /// Raises the dimensions of a size constraint to the child's minimum, negative ones excepted; see Layout.
    bool setConstraint(Figure *child, const QVariant &constraint) override;

protected:
    /// The children's sizes in a row with spacing between them; (0, 0) without a container.
    QSize calculatePreferredSize() override;
    /// The children's minimum sizes in a row with spacing between them; (0, 0) without a container.
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
    /// Gives \a child the size that \a constraint holds, and lays it out.
    bool applyConstraint(Figure *child, const QVariant &constraint) override;

private:
    template <typename Box>
    friend class BoxLayout;
};

} // namespace Vantrel::Pictel
