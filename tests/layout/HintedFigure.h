#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QMetaMethod>

/// A figure whose size hints are what the test says, and nothing else.
class HintedFigure : public Vantrel::Pictel::Figure
{
public:
    explicit HintedFigure(const QSize &preferredSize = QSize(0, 0), const QSize &minimumSize = QSize(0, 0))
        : preferred(preferredSize)
        , minimum(minimumSize)
    { }

    QSize preferred; ///< getPreferredSize()
    QSize minimum; ///< getMinimumSize()

    QSize getPreferredSize() override { return preferred; }
    QSize getMinimumSize() override { return minimum; }
    /// How many slots hear figureMoved().
    int moveReceivers() const { return receivers(SIGNAL(figureMoved(Figure *))); }
};
