#pragma once

#include <vtlpictel/layers/IFreeformFigure.h>
#include <vtlpictel/layers/LayeredPane.h>

namespace Vantrel::Pictel {

class FreeformStackLayout;

/// A layered pane for unbounded content: the root that a FreeformViewer shows.
///
/// Its extent is the union of the extents of its freeform layers; extentChanged() tells when that changed. It hands the
/// bounds it is given to all its freeform layers, and can paint a snap grid behind them.
///
/// The pane owns its layout manager. Layers other than freeform ones are stacked and painted, but have no extent and
/// keep their bounds. Under another kind of layout manager the freeform operations do nothing and return null
/// rectangles.
class VTLPICTEL_EXPORT FreeformLayeredPane : public LayeredPane, public IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFreeformFigure)

public:
    explicit FreeformLayeredPane(QObject *parent = nullptr);
    ~FreeformLayeredPane() override;

protected:
    /// Paints the main grid, solid grey lines at every fifth grid step, over option.rect (absolute).
    virtual void drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// Paints the fine grid, dotted lines at every grid step, over option.rect (absolute).
    virtual void drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const;

public:
    /// See LayeredPane. The extent of a freeform layer is watched from then on, even when the pane refused it.
    void addLayerAbove(Layer *layer, const QString &key, Layer *above) override;
    /// See LayeredPane. The extent of a freeform layer is watched from then on, even when the pane refused it.
    void addLayerBeneath(Layer *layer, const QString &key, Layer *beneath) override;
    Layer *removeLayer(const QString &key) override;
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

    /// Paints the snap grid behind the layers, or not (the default). Call repaint() afterwards.
    void setDrawGrid(bool drawGrid) { m_drawGrid = drawGrid; }
    /// Stores the grid step in logical pixels, 5 by default; below 2 no grid is painted. Call repaint() afterwards.
    void setSnapSize(int snapSize) { m_snapSize = snapSize; }

    /// The union of the freeform layers' extents, hidden layers included, in content coordinates.
    QRect getFreeformExtent() override;
    /// Makes \a bounds (parent's coordinates) the bounds of the pane and of its visible freeform layers.
    void setFreeformBounds(const QRect &bounds) override;

Q_SIGNALS:
    void extentChanged() override;

protected:
    /// Paints the grid, if it is on, and no background colour.
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    template <typename Adding>
    void addWatched(Layer *layer, const QString &key, Adding add);
    void drawGrid(QPainter *painter, const QRect &rect, int step) const;

    QPointer<FreeformStackLayout> m_stackLayout;
    bool m_drawGrid = false;
    int m_snapSize = 5;
};

} // namespace Vantrel::Pictel
