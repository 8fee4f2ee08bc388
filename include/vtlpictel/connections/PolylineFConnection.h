#pragma once

#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/figure/IConnection.h>
#include <vtlpictel/shapes/PolylineF.h>

#include <memory>

namespace Vantrel::Pictel {

class ConnectionState;
class IRotatableDecoration;

/// A line with floating-point points between two anchors, along the course that its router computes.
///
/// The connection listens to its two anchors while it is in a displayed tree, so that a move of either end figure, or
/// of any of its ancestors, routes it anew at the next validation. Without two anchors it keeps the points it has, at
/// first (0, 0) and (100, 100). Its children, end decorations and labels, are placed by locators as their constraints.
///
/// Ownership: anchors and router are not owned and may be deleted at any time; a connection whose router died is
/// routed straight. A decoration is a child while it is set; the one it replaces is released with deleteLater().
///
/// Coordinates: points and bounds are in the parent's coordinates. The bounds are those of line and children as of the
/// last validation; setBounds() does not move the line.
class VTLPICTEL_EXPORT PolylineFConnection : public PolylineF, public IConnection, public IAnchorListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IConnection Vantrel::Pictel::IAnchorListener)

public:
    /// Creates a connection between (0, 0) and (100, 100), without anchors, routed straight.
    explicit PolylineFConnection(QObject *parent = nullptr);
    ~PolylineFConnection() override;

    /// Shows \a decoration at the source end; null takes the present one away. A decoration that is no Figure leaves a
    /// warning and is not shown.
    virtual void setSourceDecoration(IRotatableDecoration *decoration);
    /// As setSourceDecoration(), at the target end.
    virtual void setTargetDecoration(IRotatableDecoration *decoration);

protected:
    virtual IRotatableDecoration *getSourceDecoration() const;
    virtual IRotatableDecoration *getTargetDecoration() const;

public:
    IConnectionRouter *getConnectionRouter() const override;
    QList<QPoint> getPoints() const override;
    QPoint getPoint(int index) const override;
    int getPointCount() const override;
    QList<QPointF> getPointsF() const override;
    QPointF getPointF(int index) const override;
    QVariant getRoutingConstraint() const override;
    IConnectionAnchor *getSourceAnchor() const override;
    IConnectionAnchor *getTargetAnchor() const override;
    void setConnectionRouter(IConnectionRouter *router) override;
    void setPoints(const QList<QPoint> &points) override;
    void setPointsF(const QList<QPointF> &points) override;
    void setRoutingConstraint(const QVariant &constraint) override;
    void setSourceAnchor(IConnectionAnchor *anchor) override;
    void setTargetAnchor(IConnectionAnchor *anchor) override;

    QRect getBounds() override;
    void addNotify() override;
    void removeNotify() override;

public Q_SLOTS:
    /// Routes the connection anew at the next validation.
    void anchorMoved(IConnectionAnchor *pAnchor) override;
    /// Queues the old area for repaint, schedules validation and lets the router give up what it holds.
    void revalidate() override;

protected:
    void layout() override;

private:
    std::unique_ptr<ConnectionState> m_state;
};

} // namespace Vantrel::Pictel
