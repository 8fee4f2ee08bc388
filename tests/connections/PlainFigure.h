#pragma once

#include <vtlpictel/figure/Figure.h>

/// Implements an interface of figures without being a Figure: it has all the operations of one, which do nothing.
template <typename Interface>
class PlainFigure : public Interface
{
public:
    Vantrel::Pictel::Border *getBorder() const override { return nullptr; }
    void setBorder(Vantrel::Pictel::Border *) override { }
    QSize getMinimumSize() override { return {}; }
    bool setMinimumSize(const QSize &) override { return false; }
    QSize getMaximumSize() override { return {}; }
    bool setMaximumSize(const QSize &) override { return false; }
    QSize getPreferredSize() override { return {}; }
    bool setPreferredSize(const QSize &) override { return false; }
    int getMargin() const override { return 0; }
    void setMargin(int) override { }
    QRect getClientArea() override { return {}; }
    QRect calculateContentRect(const QRect &) override { return {}; }
    QRect getBounds() override { return {}; }
    void setBounds(const QRect &) override { }
    QRect getBoundingRect() override { return {}; }
    bool isEnabled() const override { return false; }
    void setEnabled(bool) override { }
    bool isVisible() const override { return false; }
    void setVisible(bool) override { }
    QColor getBackgroundColor() override { return {}; }
    void setBackgroundColor(const QColor &) override { }
    Vantrel::Pictel::Figure *getTooltip() const override { return nullptr; }
    void setTooltip(Vantrel::Pictel::Figure *) override { }
    void addNotify() override { }
    void removeNotify() override { }
    Vantrel::Pictel::Figure *getParentFigure() const override { return nullptr; }
    void setParentFigure(Vantrel::Pictel::Figure *) override { }
    Vantrel::Pictel::Layout *getLayoutManager() const override { return nullptr; }
    Vantrel::Pictel::Layout *setLayoutManager(Vantrel::Pictel::Layout *) override { return nullptr; }
    Vantrel::Pictel::UpdateManager *getUpdateManager() const override { return nullptr; }
    bool add(Vantrel::Pictel::Figure *, const QVariant &, int) override { return false; }
    bool add(Vantrel::Pictel::Figure *, unsigned int, unsigned int, int) override { return false; }
    bool remove(Vantrel::Pictel::Figure *) override { return false; }
    QList<Vantrel::Pictel::Figure *> childFigures() override { return {}; }
    int childFigureCount() const override { return 0; }
    Vantrel::Pictel::Figure *findFigureAt(const QPoint &) const override { return nullptr; }
    Vantrel::Pictel::Figure *findFigureAt(int, int, const Vantrel::Pictel::ITreeSearch &) const override
    {
        return nullptr;
    }
    Vantrel::Pictel::Figure *findFigureAt(int, int) const override { return nullptr; }
    void findFigures(QList<Vantrel::Pictel::Figure *> &, const QRect &, const Vantrel::Pictel::ITreeSearch &,
                     bool) const override
    { }
    QList<Vantrel::Pictel::Figure *> findFigures(const QRect &, bool) override { return {}; }
    Vantrel::Pictel::Figure *findFigureAtExcluding(int, int, const QList<Vantrel::Pictel::Figure *> &) const override
    {
        return nullptr;
    }
    bool contains(const QPoint &) const override { return false; }
    bool isContained(const QRect &) const override { return false; }
    bool isIntersecting(const QRect &) const override { return false; }
    Qt::Orientations expandingDirections() override { return {}; }
    void setExpandingDirections(Qt::Orientations) override { }
    void render(QPainter *, const QStyleOptionViewItem &) override { }
    void invalidate() override { }
    void validate() override { }
    void translate(int, int) override { }
    QPointF &translateFromParent(QPointF &point) override { return point; }
    QRectF &translateFromParent(QRectF &rect) override { return rect; }
    QPoint &translateFromParent(QPoint &point) override { return point; }
    QRect &translateFromParent(QRect &rect) override { return rect; }
    QPointF &translateToParent(QPointF &point) override { return point; }
    QRectF &translateToParent(QRectF &rect) override { return rect; }
    QPoint &translateToParent(QPoint &point) override { return point; }
    QRect &translateToParent(QRect &rect) override { return rect; }
    QPointF &translateToAbsolute(QPointF &point) override { return point; }
    QRectF &translateToAbsolute(QRectF &rect) override { return rect; }
    QPoint &translateToAbsolute(QPoint &point) override { return point; }
    QRect &translateToAbsolute(QRect &rect) override { return rect; }
    QPointF &translateToRelative(QPointF &point) override { return point; }
    QRectF &translateToRelative(QRectF &rect) override { return rect; }
    QPoint &translateToRelative(QPoint &point) override { return point; }
    QRect &translateToRelative(QRect &rect) override { return rect; }
    void addAncestorListener(Vantrel::Pictel::IAncestorListener *) override { }
    void removeAncestorListener(Vantrel::Pictel::IAncestorListener *) override { }
    void addPropertyChangeListener(Vantrel::Pictel::IPropertyChangeListener *) override { }
    void removePropertyChangeListener(Vantrel::Pictel::IPropertyChangeListener *) override { }
    void erase() override { }
    void revalidate() override { }
    void repaint(const QRect &) override { }
    void repaint(int, int, int, int) override { }
    void repaint() override { }
};
