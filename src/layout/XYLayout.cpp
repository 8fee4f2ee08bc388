#include <vtlpictel/layout/XYLayout.h>

#include "layout/LocatorConstraint_p.h"
#include "layout/RectConstraint_p.h"
#include "support/LifeGuard.h"
#include "support/RectExtents.h"
#include "support/SignalConnection.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/FreeformLayout.h>

#include <typeinfo>

namespace Vantrel::Pictel {

namespace {

constexpr int PreferredMargin = 10;

const SignalConnection &followedMoves()
{
    static const SignalConnection connection(Figure::staticMetaObject, "figureMoved(Figure*)",
                                             XYLayout::staticMetaObject, "childMoved(Figure*)");
    return connection;
}

// A child whose locator (or own setBounds()) moves it anew each time it has moved would never come to rest.
constexpr int MostNestedMoves = 64;

constexpr QSize withMargin(const QSize &size)
{
    return QSize(boundedSum(size.width(), PreferredMargin), boundedSum(size.height(), PreferredMargin));
}

template <typename Length>
Length completedLength(Length asked, int minimum, int preferred)
{
    return asked >= 0 ? qMax(Length(minimum), asked) : Length(preferred);
}

template <typename Size>
Size completedSize(const Size &asked, Figure *child)
{
    using Length = decltype(asked.width());
    const bool isComplete = asked.width() >= 0 && asked.height() >= 0;
    const LifeGuard<Figure> guest(child);
    const QSize minimum = child->getMinimumSize();
    const QSize preferred = isComplete || !guest.isAlive() ? QSize() : child->getPreferredSize();
    return Size(completedLength<Length>(asked.width(), minimum.width(), preferred.width()),
                completedLength<Length>(asked.height(), minimum.height(), preferred.height()));
}

QVariant completed(const QVariant &constraint, Figure *child)
{
    if (constraint.typeId() == QMetaType::QRect) {
        const QRect asked = constraint.toRect();
        return QRect(asked.topLeft(), completedSize(asked.size(), child));
    }
    const QRectF asked = constraint.toRectF();
    return QRectF(asked.topLeft(), completedSize(asked.size(), child));
}

QSizeF askedSize(const QVariant &constraint)
{
    return constraint.typeId() == QMetaType::QRect ? QSizeF(constraint.toRect().size()) : constraint.toRectF().size();
}

// A negative length in the old constraint stands for the preferred one, and does so after a move as well.
QRect boundsAsConstraint(QRect bounds, const QSizeF &askedBefore)
{
    if (askedBefore.width() < 0)
        bounds.setWidth(-1);
    if (askedBefore.height() < 0)
        bounds.setHeight(-1);
    return bounds;
}

// Other classes may change what is done about a child without a constraint, or change constraints unnoticed.
bool isOfThisLibrary(const XYLayout &layout)
{
    return typeid(layout) == typeid(XYLayout) || typeid(layout) == typeid(FreeformLayout);
}

} // namespace

XYLayout::XYLayout(QObject *parent)
    : Layout(parent)
{ }

XYLayout::~XYLayout() = default;

QPoint XYLayout::getOrigin(Figure *figure) const
{
    const QRect area = figure ? figure->getClientArea() : QRect();
    return area.isValid() ? area.topLeft() : QPoint(0, 0);
}

void XYLayout::childMoved(Figure *pFigure)
{
    if (!pFigure || !isLaidOut() || nestedMoves(pFigure) >= MostNestedMoves)
        return;
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> child(pFigure);
    recall(pFigure);
    const Move move {pFigure, nestedMoves(pFigure) + 1, m_move};
    m_move = &move;
    const bool changed = followMove(pFigure);
    if (!self.isAlive())
        return;
    m_move = move.outer;
    if (changed && child.isAlive())
        Q_EMIT constraintChanged(pFigure);
}

int XYLayout::nestedMoves(const Figure *child) const
{
    const Move *move = m_move;
    while (move && move->child != child)
        move = move->outer;
    return move ? move->number : 0;
}

bool XYLayout::followMove(Figure *child)
{
    const QVariant constraint = getConstraint(child);
    if (isRectConstraint(constraint))
        return setConstraint(child, boundsAsConstraint(child->getBounds(), askedSize(constraint)));
    ILocator *locator = locatorOf(constraint);
    if (locator)
        locator->relocate(child);
    return locator != nullptr;
}

bool XYLayout::add(Figure *child, const QVariant &constraint, int index)
{
    return addWatched(child, constraint, index);
}

bool XYLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    return addWatched(child, vStretch, hStretch, index);
}

// Adding calls out to figures and listeners, which may take the child away again or delete the layout.
template <typename... Arguments>
bool XYLayout::addWatched(Figure *child, const Arguments &...arguments)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    const bool added = Layout::add(child, arguments...);
    if (added && self.isAlive() && guest.isAlive() && holds(child))
        followedMoves().connect(child, this);
    return added;
}

bool XYLayout::remove(Figure *child)
{
    if (child) {
        recallLeaving(child);
        followedMoves().disconnect(child, this);
    }
    return Layout::remove(child);
}

// A child that is asked for its size may delete itself or the layout.
bool XYLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    if (!child || !isRectConstraint(constraint))
        return Layout::setConstraint(child, constraint);
    const LifeGuard<Layout> self(this);
    const QVariant complete = completed(constraint, child);
    return self.isAlive() && Layout::setConstraint(child, complete);
}

QSize XYLayout::calculatePreferredSize()
{
    return withMargin(getMinimumSize());
}

QSize XYLayout::calculateMinimumSize()
{
    if (!getFigure())
        return QSize();
    QRect occupied(0, 0, 1, 1);
    forEachChild([this, &occupied](Figure *child) {
        if (!child->isVisible())
            return;
        const QRect asked = toRect(getConstraint(child));
        occupied |= QRect(asked.topLeft(), child->getPreferredSize().expandedTo(asked.size()));
    });
    return boundedSize(occupied);
}

bool XYLayout::performLayout(const QRect &)
{
    const auto place = [this](Figure *child) {
        if (child->isVisible())
            applyConstraint(child, getConstraint(child));
    };
    if (isOfThisLibrary(*this))
        forEachRestlessChild(place);
    else
        forEachChild(place);
    return true;
}

bool XYLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!Layout::applyConstraint(child, constraint))
        return false;
    if (isRectConstraint(constraint))
        child->setBounds(toRect(constraint));
    return true;
}

} // namespace Vantrel::Pictel
