// What follows from the class of a Figure: what layouts may note about it, so that they need not ask.

#include <vtlpictel/figure/Figure.h>

#include "figure/ChildNote_p.h"
#include "support/BoundedRect.h"

#include <vtlpictel/figure/Border.h>

namespace Vantrel::Pictel {

// GCC tells which function a virtual call would reach. Other compilers do not: next to nothing is noted then, and every
// figure is asked each time.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wpmf-conversions"
#define CAN_TELL_OVERRIDES
#endif

namespace {

/// True when the class of \a figure leaves \a operation, a virtual member function of Figure, as it is there.
template <auto operation>
bool leaves(const Figure &figure)
{
#ifdef CAN_TELL_OVERRIDES
    using Address = void (*)();
    return (Address)(figure.*operation) == (Address)(operation);
#else
    Q_UNUSED(figure)
    return false;
#endif
}

using RectMapping = QRect &(Figure::*)(QRect &);
constexpr RectMapping toParent = &Figure::translateToParent;
constexpr RectMapping toAbsolute = &Figure::translateToAbsolute;
constexpr Figure *(Figure::*findAt)(int, int, const ITreeSearch &) const = &Figure::findFigureAt;
constexpr void (Figure::*findIn)(QList<Figure *> &, const QRect &, const ITreeSearch &,
                                 bool) const = &Figure::findFigures;

bool mapsPlainly(const Figure &figure)
{
    return leaves<toParent>(figure) && leaves<toAbsolute>(figure) && leaves<&Figure::getParentFigure>(figure);
}

bool isBounded(const QRect &rect)
{
    return boundedRect(rect) == rect;
}

} // namespace

// The topics in which the class leaves everything to Figure.
unsigned int Figure::plainTopics() const
{
    if (!leaves<&Figure::isVisible>(*this))
        return 0;
    unsigned int topics = leaves<&Figure::validate>(*this) ? ChildNote::Rest : 0;
    if (!leaves<&Figure::getBounds>(*this))
        return topics;
    if (leaves<&Figure::render>(*this) && leaves<&Figure::getBoundingRect>(*this) && leaves<toAbsolute>(*this)
        && leaves<&Figure::getParentFigure>(*this))
        topics |= ChildNote::Painting;
    if (leaves<findIn>(*this) && leaves<&Figure::isIntersecting>(*this))
        topics |= ChildNote::Search;
    if (leaves<findAt>(*this) && leaves<&Figure::contains>(*this))
        topics |= ChildNote::HitTest;
    return topics;
}

// True when filling the background is all that the figure draws, so that the painter's state stays as it is.
bool Figure::onlyFills() const
{
    return !m_border && leaves<&Figure::getBorder>(*this) && leaves<&Figure::drawBackground>(*this)
        && leaves<&Figure::drawFigure>(*this) && leaves<&Figure::drawBorder>(*this);
}

// Invalid bounds are left to the operations themselves: they complain, or turn them over.
bool Figure::hasPlainArea() const
{
    return getFlag(FLAG_VISIBLE) && m_bounds.isValid() && isBounded(m_bounds);
}

// True when setBounds() with these would do nothing.
bool Figure::staysAt(const QRect &bounds) const
{
    return bounds == m_bounds && bounds.isValid() && leaves<&Figure::setBounds>(*this)
        && leaves<&Figure::resolveBounds>(*this);
}

// What follows from the state as it is now for a child of container.
ChildNote Figure::noteUnder(const Figure *container) const
{
    unsigned int excluded = isValid() ? 0 : ChildNote::Rest;
    const bool isShown = getFlag(FLAG_VISIBLE);
    if (isShown && m_parentFigure != container)
        excluded |= ChildNote::Painting;
    if (isShown && !hasPlainArea())
        excluded |= ChildNote::Painting | ChildNote::Search | ChildNote::HitTest;
    ChildNote note;
    note.area = isShown ? m_bounds : nowhere();
    note.topics = static_cast<unsigned char>(ChildNote::Known | (plainTopics() & ~excluded));
    return note;
}

// The part of the children's system that is in area, which is absolute; invalid when that is for them to say.
QRect Figure::childAreaFor(const QRect &area)
{
    bool isPlain = area.isValid();
    for (const Figure *figure = this; figure && isPlain; figure = figure->m_parentFigure)
        isPlain = mapsPlainly(*figure);
    QRect origin(0, 0, 1, 1);
    if (!isPlain || !isBounded(translateToAbsolute(translateToParent(origin))))
        return QRect();
    const double dx = origin.x();
    const double dy = origin.y();
    return boundedRect(area.left() - dx, area.top() - dy, area.right() - dx, area.bottom() - dy);
}

} // namespace Vantrel::Pictel
