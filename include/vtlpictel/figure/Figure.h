#pragma once

#include <vtlpictel/figure/IFigure.h>

#include <QColor>
#include <QPointer>
#include <QRect>
#include <QVarLengthArray>
#include <QVariant>

#include <memory>

namespace Vantrel::Pictel {

class AncestorHelper;
struct ChildNote;
struct FigureListeners;
class PassOption;

/// The base of every visual element: a rectangle in a tree of figures, painted and hit-tested top-down.
///
/// What it holds: bounds, size hints, margin, border, background, flags and one layout manager. The children live in
/// the layout manager (see Layout); a figure without one cannot hold children.
///
/// Ownership: a figure owns neither its parent, children, border, tooltip nor layout manager. QObject parenthood
/// decides deletion and is independent of the figure tree. Figures, borders, layout managers, tooltips and update
/// managers may be deleted in any order: whoever still refers to them lets go. A figure that is deleted while shown
/// leaves its parent, is forgotten by the update manager, and its area is repainted.
///
/// Coordinates: the bounds are in the parent's coordinates. A figure uses local coordinates when it has no layout
/// manager or a relative one (useLocalCoordinates()); its children are then relative to its client origin, the
/// top-left of its bounds moved in by margin and border. Otherwise its children share its parent's system.
/// "Absolute" is the system of the root, that is a viewer's content coordinates. All units are logical pixels.
///
/// Bad input: null pointers are ignored; what is refused returns false and says why in a debug message.
///
/// After a change: setters of plain properties neither lay out nor repaint unless their line says so; call
/// revalidate() when sizes changed and repaint() when only the look did.
class VTLPICTEL_EXPORT Figure : public QObject, public virtual IFigure
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFigure)

public:
    /// The name under which propertyChanged() announces a new parent figure: "parent".
    static const QString PROPERTY_PARENT;

    /// Set while the figure and its whole subtree are laid out.
    static constexpr int FLAG_VALID = 0x1;
    static constexpr int FLAG_VISIBLE = 0x4;
    static constexpr int FLAG_ENABLED = 0x10;
    /// The preferred size follows calculateContentSize() even when a layout manager is set.
    static constexpr int FLAG_CONTENT_SIZED = 0x40;
    /// Set from addNotify() to removeNotify(): the figure belongs to a displayed tree.
    static constexpr int FLAG_NOTIFIED = -0x7fffffff - 1;

    /// Creates a visible, enabled, invalid figure without bounds, parent figure or layout manager.
    explicit Figure(QObject *parent = nullptr, const QColor &backgroundColor = QColor(Qt::white));
    ~Figure() override;

    /// Completes \a bounds (parent's coordinates): a missing width or height comes from the preferred size.
    /// What is still invalid then is returned all the same, with a debug message.
    virtual QRect resolveBounds(const QRect &bounds);
    /// The smallest size a user may resize the figure to: its minimum size, whatever the argument.
    virtual QSize getResizeMinimum(int handle);

protected:
    /// Lays the children out. Called by validate() only.
    virtual void layout();
    /// The preferred size without margin and border; invalid when nothing is known.
    virtual QSize calculateContentSize();
    /// Fills option.rect (absolute) with the background colour unless that is Qt::transparent.
    virtual void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// Draws the figure's own content; option.rect is its bounding rectangle in absolute coordinates.
    virtual void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// Lets \a border, if any, paint itself around option.rect (absolute).
    virtual void drawBorder(QPainter *painter, const QStyleOptionViewItem &option, const Border *border) const;
    /// Lets the layout manager paint the children; option.rect (absolute) is the part of the client area to paint.
    virtual void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// True stops the upward walk of revalidate() at this figure, which then is laid out on its own.
    virtual bool isValidateRoot() const;
    /// Moves the bounds by (\a dx, \a dy), and the children with them unless they are relative to this figure.
    virtual void primTranslate(int dx, int dy);

public:
    // Border and size hints

    Border *getBorder() const override;
    /// Stores the border, which stays the caller's and may be shared; call revalidate() afterwards.
    void setBorder(Border *border) override;
    QSize getMinimumSize() override;
    /// Stores \a size unless it exceeds the maximum (false and a debug message). Call revalidate() afterwards.
    bool setMinimumSize(const QSize &size) override;
    QSize getMaximumSize() override;
    /// Stores \a size unless it is below the stored minimum (false and a debug message). Call revalidate() afterwards.
    bool setMaximumSize(const QSize &size) override;
    /// The cached size while the figure is valid; otherwise computed anew from content or layout, margin and border.
    QSize getPreferredSize() override;
    /// Stores \a size if it lies between minimum and maximum, else leaves a debug message. Always returns false. With a
    /// layout manager it does not last, see getPreferredSize(): set the minimum size instead.
    bool setPreferredSize(const QSize &size) override;
    int getMargin() const override;
    /// Stores the space kept free inside the border, in logical pixels; negative values become 0.
    void setMargin(int margin) override;
    /// The area for children and content: the resolved bounds without border and margin, in the parent's coordinates.
    QRect getClientArea() override;
    /// \a rect without border and margin.
    QRect calculateContentRect(const QRect &rect) override;

    // Bounds

    QRect getBounds() override;
    /// Moves and resizes the figure; \a bounds are in the parent's coordinates and completed by resolveBounds().
    /// Repaints the old and the new area and emits figureMoved() once; nothing happens when nothing changes.
    void setBounds(const QRect &bounds) override;
    /// The area that painting may touch, in the parent's coordinates: the bounds, unless a subclass paints beyond them.
    QRect getBoundingRect() override;

    // Properties

    bool isEnabled() const override;
    /// Stores the state only: neither repaints nor signals.
    void setEnabled(bool enabled) override;
    bool isVisible() const override;
    /// Shows or hides the figure, repaints its area and revalidates.
    void setVisible(bool visible) override;
    QColor getBackgroundColor() override;
    /// Stores the colour and repaints; Qt::transparent paints no background.
    void setBackgroundColor(const QColor &color) override;
    Figure *getTooltip() const override;
    /// Stores a figure to show as tooltip; it stays the caller's.
    void setTooltip(Figure *tooltip) override;

    // Tree

    /// Marks the figure and all below it as displayed. Called when a tree is shown or a figure is added to one.
    void addNotify() override;
    /// Undoes addNotify(), bottom-up.
    void removeNotify() override;
    Figure *getParentFigure() const override;
    /// Stores the parent and announces it with propertyChanged(). Layouts call this; applications use add() and
    /// remove(). A parent that is this figure or stands below it is refused with a debug message.
    void setParentFigure(Figure *parent) override;
    Layout *getLayoutManager() const override;
    /// Installs \a layout and returns the one it replaces, which then is the caller's. The new layout's ownership does
    /// not change. Children are not handed over. Null is ignored and returns null.
    Layout *setLayoutManager(Layout *layout) override;
    /// The update manager of the displayed tree this figure belongs to, or null.
    UpdateManager *getUpdateManager() const override;
    /// Adds \a figure as a child at \a index (negative or too large: on top) with a constraint for the layout manager.
    /// Ownership does not move. False without a layout manager (and a debug message) or when the layout refuses.
    bool add(Figure *figure, const QVariant &constraint = QVariant(), int index = -1) override;
    /// Adds \a figure as a child with stretch factors for a box layout; otherwise as above.
    bool add(Figure *figure, unsigned int vStretch, unsigned int hStretch, int index) override;
    /// Takes \a figure out of the children; it is not deleted.
    bool remove(Figure *figure) override;
    /// The children from bottom to top; empty without a layout manager.
    QList<Figure *> childFigures() override;
    int childFigureCount() const override;

    // Hit test: all coordinates are the parent's, the system of getBounds()

    Figure *findFigureAt(const QPoint &point) const override;
    /// The topmost figure of this subtree at (\a x, \a y) that \a search accepts, or null. Children win over parents.
    Figure *findFigureAt(int x, int y, const ITreeSearch &search) const override;
    Figure *findFigureAt(int x, int y) const override;
    /// Appends the accepted figures of this subtree that touch \a area, or lie in it when \a contained, children first.
    void findFigures(QList<Figure *> &result, const QRect &area, const ITreeSearch &search,
                     bool contained) const override;
    QList<Figure *> findFigures(const QRect &area, bool contained = false) override;
    /// As findFigureAt(), skipping the figures of \a excluded and all below them.
    Figure *findFigureAtExcluding(int x, int y, const QList<Figure *> &excluded) const override;
    bool contains(const QPoint &point) const override;
    bool isContained(const QRect &area) const override;
    bool isIntersecting(const QRect &area) const override;

    // Expanding

    /// The layout manager's expanding directions, or the stored ones without a layout manager.
    Qt::Orientations expandingDirections() override;
    void setExpandingDirections(Qt::Orientations directions) override;

    // Painting and validation

    /// Paints the figure and its subtree where it meets option.rect (absolute coordinates): background, own drawing,
    /// border, children, highlight. Invalid bounds paint nothing and leave a debug message.
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
    /// Marks figure and layout as in need of layout; schedules nothing.
    void invalidate() override;
    /// Lays out this figure and then its children, unless it is valid already.
    void validate() override;
    /// Moves the figure when its layout manager is absolute, and emits figureMoved() in any case. A figure without a
    /// layout manager does not move; use setBounds().
    void translate(int dx, int dy) override;

    // Coordinate mapping: each changes its argument in place and returns it; rectangles are moved, never resized

    QPointF &translateFromParent(QPointF &point) override;
    QRectF &translateFromParent(QRectF &rect) override;
    QPoint &translateFromParent(QPoint &point) override;
    /// From the parent's coordinates to those of this figure's children.
    QRect &translateFromParent(QRect &rect) override;
    QPointF &translateToParent(QPointF &point) override;
    QRectF &translateToParent(QRectF &rect) override;
    QPoint &translateToParent(QPoint &point) override;
    /// From the coordinates of this figure's children to the parent's.
    QRect &translateToParent(QRect &rect) override;
    QPointF &translateToAbsolute(QPointF &point) override;
    QRectF &translateToAbsolute(QRectF &rect) override;
    QPoint &translateToAbsolute(QPoint &point) override;
    /// From the system of this figure's bounds to absolute coordinates.
    QRect &translateToAbsolute(QRect &rect) override;
    QPointF &translateToRelative(QPointF &point) override;
    QRectF &translateToRelative(QRectF &rect) override;
    QPoint &translateToRelative(QPoint &point) override;
    /// From absolute coordinates to the system of this figure's bounds.
    QRect &translateToRelative(QRect &rect) override;

    // Listeners: a listener must be a QObject with the slots its interface names; it is not owned

    void addAncestorListener(IAncestorListener *listener) override;
    void removeAncestorListener(IAncestorListener *listener) override;
    /// Connects propertyChanged() to the listener's slot of that name; twice when called twice.
    void addPropertyChangeListener(IPropertyChangeListener *listener) override;
    void removePropertyChangeListener(IPropertyChangeListener *listener) override;

public Q_SLOTS:
    /// Queues the area of the visible figure for repaint in its parent, so that it is repainted even when the figure
    /// moves or goes.
    void erase() override;
    /// Invalidates this figure and its ancestors up to the nearest validate root, and schedules that for validation.
    void revalidate() override;
    /// Queues \a rect (parent's coordinates) for repaint; nothing while hidden or outside a displayed tree.
    void repaint(const QRect &rect) override;
    void repaint(int x, int y, int w, int h) override;
    void repaint() override;

public:
    // Flags and highlight

    /// True when any bit of \a mask is set.
    bool getFlag(int mask) const { return (m_flags & static_cast<unsigned int>(mask)) != 0; }
    /// The inverse of calculateContentRect(): \a rect with margin and border added.
    QRect calculateRectForContent(const QRect &rect) const;
    /// True when the children's coordinates are relative to this figure's client origin.
    bool useLocalCoordinates() const;
    /// Draws a highlight over the client area, or takes it away; repaints always.
    void highlightClientArea(bool highlighted);
    bool isClientAreaHighlighted() const { return m_clientAreaHighlighted; }
    /// 0: focus frame, anything else: rubber band (the default is 1).
    void setHighlightStyle(int style);
    int getHighlightStyle() const { return m_highlightStyle; }

Q_SIGNALS:
    /// An ancestor of this figure got a new parent. Emitted only while there are ancestor listeners; so are the next
    /// two.
    void ancestorAdded(Figure *pAncestor);
    void ancestorMoved(Figure *pAncsetor);
    void ancestorRemoved(Figure *pAncestor);
    /// The figure moved or changed its size.
    void figureMoved(Figure *pFigure);
    void propertyChanged(const QString &propertyName, const QVariant &oldValue, const QVariant &newValue);

protected:
    void setFlag(int mask, bool on);
    void setValid(bool valid) { setFlag(FLAG_VALID, valid); }
    bool isValid() const { return getFlag(FLAG_VALID); }
    void setChildrenEnabled(bool enabled);
    /// \a size plus twice the margin.
    QSize applyMargin(const QSize &size) const;
    /// Takes the margin off \a size in place, once per dimension and not twice; returns it.
    QSize removeMargin(QSize &size) const;
    /// The one bridge from const operations (hit test, drawing) to the non-const virtual getters: the interface
    /// declares getters such as getBounds() non-const so that subclasses may compute and cache in them.
    Figure *mutableSelf() const { return const_cast<Figure *>(this); }

private:
    friend class FreeformWidget;
    friend class Layout;
    friend class PaintGlance;

    /// A layout that lists this figure as a child, and the number by which it keeps it.
    struct Holder
    {
        Layout *layout;
        int slot;
    };

    /// Restless passes by children that are known to have nothing to validate.
    enum class Walk { Full, Restless };

    void setUpdateManager(UpdateManager *manager);
    int slotIn(const Layout *layout) const;
    int leave(const Layout *layout);
    bool isSelfOrAncestorOf(const Figure *other) const;
    template <typename Figures>
    void appendContainers(Figures &containers) const;
    void tellHolders();
    void tellLayouts(void (Layout::*note)(Figure *, int));
    bool hasPlainArea() const;
    bool staysAt(const QRect &bounds) const;
    ChildNote noteUnder(const Figure *container) const;
    unsigned int plainTopics() const;
    QRect childAreaFor(const QRect &area);
    void leaveHolders();
    void releaseChildren();
    QPoint clientOffset();
    bool offsetsChildren();
    template <typename Value>
    Value &shiftFromParent(Value &value);
    template <typename Value>
    Value &shiftToParent(Value &value);
    template <typename Value>
    Value &shiftToAbsolute(Value &value);
    template <typename Value>
    Value &shiftToRelative(Value &value);
    FigureListeners &listeners();
    void forEachChild(void (*visit)(Figure *child), Walk walk = Walk::Full);
    bool onlyFills() const;
    void paintOwn(QPainter *painter, const QStyleOptionViewItem &option) const;
    void paintClientArea(QPainter *painter, PassOption &pass, const QRect &clientArea, const QRect &area);
    void paintHighlight(QPainter *painter, const QStyleOptionViewItem &option, const QRect &clientArea) const;

    // First what painting looks at, so that it lies together: painting looks at many figures.
    QRect m_bounds;
    unsigned int m_flags = FLAG_VISIBLE | FLAG_ENABLED;
    int m_margin = 0;
    QPointer<Figure> m_parentFigure;
    QPointer<Layout> m_layout;
    QPointer<Border> m_border;
    QColor m_backgroundColor;
    int m_highlightStyle = 1;
    bool m_clientAreaHighlighted = false;
    // The layouts that list this figure as a child: one, unless it was added to several parents.
    QVarLengthArray<Holder, 1> m_holders;
    QSize m_minimumSize {-1, -1};
    QSize m_maximumSize {0x7ffffff, 0x7ffffff};
    QSize m_preferredSize;
    QPointer<Figure> m_tooltip;
    QPointer<UpdateManager> m_updateManager;
    QPointer<AncestorHelper> m_ancestorHelper;
    std::unique_ptr<FigureListeners> m_listeners;
    Qt::Orientations m_expandingDirections;
};

} // namespace Vantrel::Pictel
