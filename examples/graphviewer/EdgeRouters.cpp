#include "EdgeRouters.h"

#include "EdgeConnection.h"
#include "NodeAnchors.h"

#include <array>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

struct NamedRouter
{
    RouterKind kind;
    const char *name;
};

constexpr std::array<NamedRouter, 3> routers {
    {{RouterKind::Straight, "straight"}, {RouterKind::Bendpoint, "bendpoint"}, {RouterKind::Manhattan, "manhattan"}}};

// The router itself leaves two pixels between lines.
template <typename IsUsable>
bool hasRoom(const IConnection *connection, int line, IsUsable isUsable)
{
    constexpr int room = 8;
    const auto *edge = dynamic_cast<const EdgeConnection *>(connection);
    const int reach = edge && edge->hasLane() ? room - 2 : 0;
    for (int neighbor = line - reach; neighbor <= line + reach; ++neighbor) {
        if (!isUsable(neighbor))
            return false;
    }
    return true;
}

} // namespace

QString routerName(RouterKind kind)
{
    return QLatin1String(routers.at(std::size_t(kind)).name);
}

std::optional<RouterKind> routerOfName(const QString &name)
{
    for (const NamedRouter &router : routers) {
        if (name == QLatin1String(router.name))
            return router.kind;
    }
    return std::nullopt;
}

std::optional<QPoint> laneEnd(IConnection *connection, bool atHead)
{
    const auto *edge = dynamic_cast<const EdgeConnection *>(connection);
    if (!edge || !edge->hasLane() || !edge->getSourceAnchor() || !edge->getTargetAnchor())
        return std::nullopt;
    const QPointF tail = edge->getSourceAnchor()->getReferencePoint();
    const QPointF head = edge->getTargetAnchor()->getReferencePoint();
    const QPointF aside = rightOf(unitVector(head - tail)) * edge->laneOffset();
    const IConnectionAnchor &anchor = atHead ? *edge->getTargetAnchor() : *edge->getSourceAnchor();
    const QPointF from = (atHead ? head : tail) + aside;
    const QPointF towards = (atHead ? tail : head) + aside;
    return exitOf(outlineOf(anchor), from, towards).toPoint();
}

bool WideManhattanRouter::rowUsable(IConnection *connection, int row) const
{
    return hasRoom(connection, row, [&](int line) { return LaneRouter::rowUsable(connection, line); });
}

bool WideManhattanRouter::colUsable(IConnection *connection, int column) const
{
    return hasRoom(connection, column, [&](int line) { return LaneRouter::colUsable(connection, line); });
}

IConnectionRouter *EdgeRouters::router(RouterKind kind)
{
    switch (kind) {
    case RouterKind::Straight:
        return &m_straight;
    case RouterKind::Manhattan:
        return &m_manhattan;
    case RouterKind::Bendpoint:
        break;
    }
    return &m_bendpoint;
}

} // namespace GraphViewer
