#pragma once

#include "layout/HintedFigure.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>

#include <QMetaType>

#include <memory>
#include <vector>

template <typename Box>
class OpenBox : public Box
{
public:
    using Box::applyConstraint;
    using Box::Box;
    using Box::isClipping;
    using Box::performLayout;
};

struct Guest
{
    QSize preferred;
    unsigned int stretch = 0;
    QVariant constraint = QVariant();
};
using Guests = std::vector<Guest>;
using Rects = QList<QRect>;

Q_DECLARE_METATYPE(Guests)

/// A container with a horizontal and a vertical box layout, in turn.
///
/// The tests are written for a row; what they expect of a column is the same, transposed.
class BoxLayoutTest : public PictelTest
{
protected:
    /// The global data: a row and a column.
    static void addOrientations();

    void setUp();
    void tearDown();
    bool isVertical() const;
    QSize along(const QSize &size) const { return isVertical() ? size.transposed() : size; }
    QRect along(const QRect &rect) const;
    QVariant along(const QVariant &constraint) const;
    HintedFigure *addChild(const Guest &guest);
    void addChildren(const Guests &guests);
    Rects boundsInRow() const;
    bool performLayout(const QRect &area);
    bool applyConstraint(Vantrel::Pictel::Figure *child, const QVariant &constraint);

    std::unique_ptr<Vantrel::Pictel::Figure> m_container;
    Vantrel::Pictel::Layout *m_layout = nullptr;
    std::vector<std::unique_ptr<HintedFigure>> m_children;
};
