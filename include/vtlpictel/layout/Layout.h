#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QVariant>

#include <functional>
#include <memory>

class QPainter;
class QRect;
class QStyleOptionViewItem;

namespace Vantrel::Pictel {

class ChildList;
struct ChildNote;
class Figure;
class ILayoutListener;
class ITreeSearch;
class LayoutChildObserver;

/// The base of every layout manager: it holds the children of one container figure, with a constraint and two stretch
/// factors each, and places, measures, paints and finds them. Subclasses supply the three pure operations.
///
/// Ownership: the layout owns neither the container, the children nor the listeners. A constraint that is a QObject
/// without a QObject parent belongs to the layout, which releases it with deleteLater() when it is replaced or dropped.
/// Container, children and constraint objects may be deleted at any time; the layout lets go of them.
///
/// Coordinates: constraints and children's bounds are in the container's child coordinates, see Figure.
///
/// Bad input: adding without a container, null, a figure that is present already, the container itself or one of its
/// ancestors, removing or constraining an unknown figure: false, and nothing changes.
///
/// Spacing, alignment and expanding directions are plain stores; call the figure's revalidate() after changing them.
/// Adding at the top or the bottom, finding and removing a child take constant time on average, whatever the number of
/// children.
class VTLPICTEL_EXPORT Layout : public QObject
{
    Q_OBJECT

public:
    /// What a layout keeps about one child.
    class LayoutHelper
    {
    public:
        /// The child's constraint, invalid when there is none; its meaning belongs to the concrete layout.
        QVariant constraint;
        /// Vertical stretch factor.
        quint32 vStretch = 0;
        /// Horizontal stretch factor.
        quint32 hStretch = 0;
    };

    explicit Layout(QObject *parent = nullptr);
    ~Layout() override;

    // Children

    /// Adds \a child at \a index (negative or too large: on top), makes the container its parent and applies the
    /// constraint. Ownership of the child does not move.
    virtual bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1);
    /// Adds \a child with stretch factors; its bounds, unless null, become its constraint.
    virtual bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index);
    /// Takes \a child out; it is not deleted. False also when \a child is being taken out already.
    virtual bool remove(Figure *child);
    /// The children from bottom to top.
    virtual QList<Figure *> childFigures() const;
    virtual int childFigureCount() const;
    /// The constraint of \a child; invalid when it has none or is unknown.
    virtual QVariant getConstraint(Figure *child) const;
    /// Stores and applies another constraint. False when \a child is unknown or the value is the same; an object
    /// constraint that is set again is applied again.
    virtual bool setConstraint(Figure *child, const QVariant &constraint);

    // Measuring

    /// The preferred size of the content, cached until invalidate().
    virtual QSize getPreferredSize();
    /// The minimum size of the content, cached until invalidate().
    virtual QSize getMinimumSize();
    virtual Qt::Orientations expandingDirections() const;
    virtual void setExpandingDirections(Qt::Orientations directions);

    // Hit test: coordinates are those of the children's bounds

    /// Appends the visible children, and what lies below them, found by Figure::findFigures().
    virtual void findDescendantFigures(QList<Figure *> &result, const QRect &area, const ITreeSearch &search,
                                       bool contained) const;
    /// The topmost descendant at (\a x, \a y) that \a search accepts, or null.
    virtual Figure *findDescendantAtExcluding(int x, int y, const ITreeSearch &search) const;

    // Layout and painting

    /// True when the children's coordinates are relative to the container's client origin.
    virtual bool isRelativeLayout() const;
    /// Paints the visible children from bottom to top; option.rect (absolute) is the area to paint.
    virtual void render(QPainter *painter, const QStyleOptionViewItem &option);
    /// Lays the children of \a container out unless that is done already; true when they are.
    virtual bool layout(Figure *container);
    /// Forgets the cached sizes and that the children are laid out.
    virtual void invalidate();

    // Listeners

    /// Adds a listener once; it is not owned. Null leaves a warning.
    virtual void addListener(ILayoutListener *listener);
    virtual void removeListener(ILayoutListener *listener);

protected:
    virtual QSize calculatePreferredSize() = 0;
    virtual QSize calculateMinimumSize() = 0;
    /// Places the children; \a clientArea is in the children's coordinates. False when it cannot.
    virtual bool performLayout(const QRect &clientArea) = 0;
    /// True when render() clips the children to the painted rectangle.
    virtual bool isClipping() const;
    /// Acts on a constraint: a locator relocates the child. False for a null child or an invalid constraint.
    virtual bool applyConstraint(Figure *child, const QVariant &constraint);

public:
    /// The container whose children this layout holds, or null.
    Figure *getFigure() const;
    /// Stores the container; Figure::setLayoutManager() calls it.
    void setFigure(Figure *figure);
    /// The gap between consecutive children in logical pixels.
    int getSpacing() const { return m_spacing; }
    void setSpacing(int spacing) { m_spacing = spacing; }
    Qt::Alignment getAligment() const { return m_alignment; }
    void setAlignment(Qt::Alignment alignment) { m_alignment = alignment; }

protected:
    bool isLaidOut() const { return m_laidOut; }
    void setLaidOut(bool laidOut) { m_laidOut = laidOut; }
    /// What is kept about \a child; null for a null or unknown figure. Valid until the child is removed.
    LayoutHelper *getHelper(Figure *child) const;
    /// The sum of the visible children's horizontal stretch factors.
    unsigned int getHTotalStretch() const;
    /// The sum of the visible children's vertical stretch factors.
    unsigned int getVTotalStretch() const;
    /// Lets a subclass hear of every change to a child; null ends it. Not owned.
    void setChildObserver(LayoutChildObserver *observer) { m_childObserver = observer; }
    /// Announces look-ups of \a child, which must be alive: they need no search then.
    void recall(const Figure *child) const;
    /// As recall(), for a child that is about to be removed: reads ahead what that takes.
    void recallLeaving(const Figure *child) const;
    /// True when anything is connected with the figureMoved() signal of \a child, which must be alive.
    static bool isMoveHeard(const Figure &child);
    /// True when \a child is one of the children: a test in constant time that does not touch the figure.
    bool holds(const Figure *child) const;
    /// Calls \a visit for every child, bottom to top, each recalled. Children that leave or die meanwhile are skipped,
    /// and the walk ends when the layout itself dies.
    void forEachChild(const std::function<void(Figure *)> &visit) const;
    /// As forEachChild(), but may leave out children that are known to be valid and where their constraint wants them.
    void forEachRestlessChild(const std::function<void(Figure *)> &visit) const;

private:
    friend class Figure;

    template <typename Glance, typename Visit>
    void visitChildren(Glance glance, const Visit &visit) const;
    qsizetype firstRestless(const QList<Figure *> &children, qsizetype place) const;
    void renote(Figure *child, int slot);
    void noteMove(Figure *child, int slot);
    void dropNote(Figure *child, int slot);
    void dropRest(Figure *child, int slot);
    void noteRest(const QList<Figure *> &children, qsizetype place) const;
    static bool isFulfilled(const QVariant &constraint, const Figure &child);
    ChildNote noteOn(Figure *child) const;
    bool insertChild(Figure *child, int index);
    void provideHelper(Figure *child, const LayoutHelper &helper);
    void enterTree(Figure *child);
    bool storeConstraint(Figure *child, const QVariant &constraint);
    void tellListenersOfConstraint(const QVariant &constraint);
    void watchConstraint(Figure *child, const QVariant &constraint);
    void dropConstraint(Figure *child);
    void constraintObjectDestroyed(QObject *object);
    void childChanged(Figure *child);
    void takeOut(Figure *child);
    void forget(Figure *child);
    void releaseAll();
    quint64 departures() const;
    void notifyListeners(const std::function<void(ILayoutListener *)> &notify);
    QSize cachedSize(QSize Layout::*cache, QSize (Layout::*calculate)());
    unsigned int totalStretch(quint32 LayoutHelper::*stretch) const;

    QPointer<Figure> m_figure;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int m_spacing = 2;
    Qt::Orientations m_expandingDirections = Qt::Horizontal | Qt::Vertical;
    QSize m_preferredSizeCache;
    QSize m_minimumSizeCache;
    bool m_laidOut = false;
    std::unique_ptr<ChildList> m_children;
    QList<ILayoutListener *> m_listeners;
    LayoutChildObserver *m_childObserver = nullptr;
};

} // namespace Vantrel::Pictel
