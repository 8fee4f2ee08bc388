#pragma once

#include <vtlpictel/layout/Layout.h>

namespace Vantrel::Pictel {

/// Absolute placement: each child lies at the rectangle that is its constraint.
///
/// A constraint is a QRect or a QRectF (rounded when it is applied) in the container's child coordinates; the client
/// area has no influence. A negative width or height stands for the child's preferred one, a width or height below
/// the child's minimum is raised to it, both at the moment when the constraint is set. A locator object is honoured as
/// by every layout; children with any other constraint, or none, keep the place they have.
///
/// Setting a constraint moves the child at once. Conversely, once the children have been laid out, a child that moves
/// on its own has its new bounds stored as its constraint, so that a drag survives the next layout.
///
/// Ownership and bad input: see Layout. After removing or hiding a child nothing needs to be called.
class VTLPICTEL_EXPORT XYLayout : public Layout
{
    Q_OBJECT

public:
    explicit XYLayout(QObject *parent = nullptr);
    ~XYLayout() override;

    /// The origin of the children's coordinates for \a figure: the top-left of its client area, (0, 0) for null or
    /// while that area is not valid.
    virtual QPoint getOrigin(Figure *figure) const;

public Q_SLOTS:
    /// Makes the bounds of a child that has moved its constraint, or has its locator place it again, and emits
    /// constraintChanged(). Ignored for null and while the layout is not laid out.
    virtual void childMoved(Figure *pFigure);

public:
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;
    /// Completes a rectangle by the child's preferred and minimum size before it is stored; see Layout.
    bool setConstraint(Figure *child, const QVariant &constraint) override;

Q_SIGNALS:
    /// A move of the child changed its constraint, or its locator placed it again.
    void constraintChanged(Figure *pFigure);

protected:
    /// The minimum size and a margin of 10 logical pixels in each dimension.
    QSize calculatePreferredSize() override;
    /// The size of the rectangle that holds the origin and every visible child at its preferred size or larger;
    /// invalid without a container.
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
    /// Moves \a child to the rectangle that \a constraint holds.
    bool applyConstraint(Figure *child, const QVariant &constraint) override;

private:
    struct Move
    {
        const Figure *child;
        int number;
        const Move *outer;
    };

    template <typename... Arguments>
    bool addWatched(Figure *child, const Arguments &...arguments);
    bool followMove(Figure *child);
    int nestedMoves(const Figure *child) const;

    // The moves being followed, one inside the other, the innermost first; numbered per child.
    const Move *m_move = nullptr;
};

} // namespace Vantrel::Pictel
