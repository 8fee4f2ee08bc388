#pragma once

#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/NullRouter.h>

#include <optional>

namespace GraphViewer {

/// How edges find their way.
enum class RouterKind { Straight, Bendpoint, Manhattan };

/// "straight", "bendpoint" or "manhattan".
QString routerName(RouterKind kind);
/// Nothing for any other name.
std::optional<RouterKind> routerOfName(const QString &name);

/// Where an edge that runs beside others between the same two nodes starts, or ends when \a atHead; nothing for an
/// edge that has them for itself.
std::optional<QPoint> laneEnd(Vantrel::Pictel::IConnection *connection, bool atHead);

/// A router that keeps edges between the same two nodes apart: each has its lane.
template <typename Router>
class LaneRouter : public Router
{
public:
    using Router::Router;

protected:
    QPoint getEndPoint(Vantrel::Pictel::IConnection *connection) override
    {
        const auto point = laneEnd(connection, true);
        return point ? *point : Router::getEndPoint(connection);
    }
    QPoint getStartPoint(Vantrel::Pictel::IConnection *connection) override
    {
        const auto point = laneEnd(connection, false);
        return point ? *point : Router::getStartPoint(connection);
    }
};

/// Keeps the inner segments of edges between the same two nodes so far apart that they are seen as two.
class WideManhattanRouter : public LaneRouter<Vantrel::Pictel::ManhattanConnectionRouter>
{
protected:
    bool rowUsable(Vantrel::Pictel::IConnection *connection, int row) const override;
    bool colUsable(Vantrel::Pictel::IConnection *connection, int column) const override;
};

/// One router of each kind.
class EdgeRouters
{
public:
    Vantrel::Pictel::IConnectionRouter *router(RouterKind kind);

private:
    LaneRouter<Vantrel::Pictel::NullRouter> m_straight;
    Vantrel::Pictel::BendpointConnectionRouter m_bendpoint;
    WideManhattanRouter m_manhattan;
};

} // namespace GraphViewer
