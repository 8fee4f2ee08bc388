// Coordinate mapping and hit test of Figure.

#include <vtlpictel/figure/Figure.h>

#include "figure/IdentitySearch_p.h"
#include "support/RectOverlap.h"

#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/ExclusionSearch.h>
#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/layout/Layout.h>

namespace Vantrel::Pictel {

namespace {

void shift(QPoint &point, const QPoint &offset)
{
    point += offset;
}

void shift(QPointF &point, const QPoint &offset)
{
    point += offset;
}

void shift(QRect &rect, const QPoint &offset)
{
    rect.translate(offset);
}

void shift(QRectF &rect, const QPoint &offset)
{
    rect.translate(offset);
}

const IdentitySearch everyFigure;

} // namespace

bool Figure::offsetsChildren()
{
    return useLocalCoordinates() && getBounds().isValid();
}

QPoint Figure::clientOffset()
{
    const QPoint inner = getBounds().topLeft() + QPoint(m_margin, m_margin);
    return m_border ? inner + QPoint(m_border->getInsets().left(), m_border->getInsets().top()) : inner;
}

bool Figure::useLocalCoordinates() const
{
    return !m_layout || m_layout->isRelativeLayout();
}

template <typename Value>
Value &Figure::shiftFromParent(Value &value)
{
    if (offsetsChildren())
        shift(value, -clientOffset());
    return value;
}

template <typename Value>
Value &Figure::shiftToParent(Value &value)
{
    if (offsetsChildren())
        shift(value, clientOffset());
    return value;
}

template <typename Value>
Value &Figure::shiftToAbsolute(Value &value)
{
    if (Figure *parent = getParentFigure()) {
        parent->translateToParent(value);
        parent->translateToAbsolute(value);
    }
    return value;
}

template <typename Value>
Value &Figure::shiftToRelative(Value &value)
{
    if (Figure *parent = getParentFigure()) {
        parent->translateToRelative(value);
        parent->translateFromParent(value);
    }
    return value;
}

QPointF &Figure::translateFromParent(QPointF &point)
{
    return shiftFromParent(point);
}

QRectF &Figure::translateFromParent(QRectF &rect)
{
    return shiftFromParent(rect);
}

QPoint &Figure::translateFromParent(QPoint &point)
{
    return shiftFromParent(point);
}

QRect &Figure::translateFromParent(QRect &rect)
{
    return shiftFromParent(rect);
}

QPointF &Figure::translateToParent(QPointF &point)
{
    return shiftToParent(point);
}

QRectF &Figure::translateToParent(QRectF &rect)
{
    return shiftToParent(rect);
}

QPoint &Figure::translateToParent(QPoint &point)
{
    return shiftToParent(point);
}

QRect &Figure::translateToParent(QRect &rect)
{
    return shiftToParent(rect);
}

QPointF &Figure::translateToAbsolute(QPointF &point)
{
    return shiftToAbsolute(point);
}

QRectF &Figure::translateToAbsolute(QRectF &rect)
{
    return shiftToAbsolute(rect);
}

QPoint &Figure::translateToAbsolute(QPoint &point)
{
    return shiftToAbsolute(point);
}

QRect &Figure::translateToAbsolute(QRect &rect)
{
    return shiftToAbsolute(rect);
}

QPointF &Figure::translateToRelative(QPointF &point)
{
    return shiftToRelative(point);
}

QRectF &Figure::translateToRelative(QRectF &rect)
{
    return shiftToRelative(rect);
}

QPoint &Figure::translateToRelative(QPoint &point)
{
    return shiftToRelative(point);
}

QRect &Figure::translateToRelative(QRect &rect)
{
    return shiftToRelative(rect);
}

bool Figure::contains(const QPoint &point) const
{
    return mutableSelf()->getBounds().contains(point);
}

bool Figure::isContained(const QRect &area) const
{
    return area.contains(mutableSelf()->getBounds());
}

bool Figure::isIntersecting(const QRect &area) const
{
    return overlap(area, mutableSelf()->getBounds());
}

Figure *Figure::findFigureAt(const QPoint &point) const
{
    return findFigureAt(point.x(), point.y());
}

Figure *Figure::findFigureAt(int x, int y) const
{
    return findFigureAt(x, y, everyFigure);
}

Figure *Figure::findFigureAt(int x, int y, const ITreeSearch &search) const
{
    QPoint point(x, y);
    if (!contains(point) || search.prune(this))
        return nullptr;
    mutableSelf()->translateFromParent(point);
    Figure *descendant = m_layout ? m_layout->findDescendantAtExcluding(point.x(), point.y(), search) : nullptr;
    if (descendant)
        return descendant;
    return search.accept(this) ? mutableSelf() : nullptr;
}

Figure *Figure::findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const
{
    const ExclusionSearch search(excluded);
    return findFigureAt(x, y, search);
}

void Figure::findFigures(QList<Figure *> &result, const QRect &area, const ITreeSearch &search, bool contained) const
{
    if (!isIntersecting(area) || search.prune(this))
        return;
    QRect inner = area;
    mutableSelf()->translateFromParent(inner);
    if (m_layout)
        m_layout->findDescendantFigures(result, inner, search, contained);
    if (contained && !isContained(area))
        return;
    if (search.accept(this))
        result.append(mutableSelf());
}

QList<Figure *> Figure::findFigures(const QRect &area, bool contained)
{
    QList<Figure *> result;
    findFigures(result, area, everyFigure, contained);
    return result;
}

} // namespace Vantrel::Pictel
