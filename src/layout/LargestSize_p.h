#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QSize>

namespace Vantrel::Pictel {

/// Collects the largest width and the largest height that \a size, a getter of Figure, gives for the figures it is
/// called with; invalid before the first.
class LargestSize
{
public:
    explicit LargestSize(QSize (Figure::*size)())
        : m_getter(size)
    { }
    void operator()(Figure *figure) { m_largest = m_largest.expandedTo((figure->*m_getter)()); }
    QSize value() const { return m_largest; }

private:
    QSize (Figure::*m_getter)();
    QSize m_largest;
};

} // namespace Vantrel::Pictel
