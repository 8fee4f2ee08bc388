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
/// Behaviour, ownership and coordinates are those of PolylineConnection, except that the router is asked for
/// floating-point points and that these are kept as they come; getPoints() and getPoint() round them half away from
/// zero. Before its first layout the line has no bounds, about which that layout leaves a debug message.
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
