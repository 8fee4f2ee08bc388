#pragma once

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IRotatableDecoration.h>
#include <vtlpictel/figure/InterfacePointer.h>

#include <QRect>
#include <QVariant>

#include <array>

namespace Vantrel::Pictel {

class Figure;
class IAnchorListener;
class IConnection;

/// What the integer and the floating-point connection have in common: two ends with anchor and decoration, the router
/// and the cached bounds. Source and target go through one path.
class ConnectionState
{
public:
    enum End { Source, Target };

    /// \a figure, \a connection and \a listener are the same object; \a className names it in warnings.
    ConnectionState(Figure *figure, IConnection *connection, IAnchorListener *listener, const char *className);

    QRect bounds;

    IConnectionAnchor *anchor(End end) const { return m_ends[end].anchor.get(); }
    bool hasBothAnchors() const { return anchor(Source) && anchor(Target); }
    void setAnchor(End end, IConnectionAnchor *anchor);
    /// Registers with both anchors as far as that is not done.
    void hook();
    /// Registers off both anchors and has the router forget the connection.
    void leave();

    /// The router; the shared straight-line router when none is set or the one that was has died.
    IConnectionRouter *router() const;
    void setRouter(IConnectionRouter *router);

    IRotatableDecoration *decoration(End end) const { return m_ends[end].decoration.get(); }
    void setDecoration(End end, IRotatableDecoration *decoration);

    /// Caches the bounds of the line and of the children, repaints them and announces the move.
    void updateBounds(const QRect &line);
    /// Queues the cached bounds for repaint, or the whole view when there are none.
    void markDirty();

private:
    struct EndState
    {
        InterfacePointer<IConnectionAnchor> anchor;
        InterfacePointer<IRotatableDecoration> decoration;
        bool hooked = false;
    };

    void hook(EndState &end);
    void unhook(EndState &end);
    QRect childBounds() const;
    void removeDecoration(IRotatableDecoration *decoration);
    void addDecoration(End end, Figure *decoration);

    Figure *const m_figure;
    IConnection *const m_connection;
    IAnchorListener *const m_listener;
    const char *const m_className;
    std::array<EndState, 2> m_ends;
    InterfacePointer<IConnectionRouter> m_router;
};

} // namespace Vantrel::Pictel
