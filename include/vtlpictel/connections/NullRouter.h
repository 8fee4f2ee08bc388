#pragma once

#include <vtlpictel/connections/AbstractRouter.h>

namespace Vantrel::Pictel {

/// Routes a connection as a straight line from its start to its end point.
///
/// Every connection starts with the shared instance(). A connection that lacks an anchor gets a line between two
/// points that both are the absolute (0, 0).
class VTLPICTEL_EXPORT NullRouter : public AbstractRouter
{
    Q_OBJECT

public:
    /// The router that all connections share until they get another one. Created at the first call, also when several
    /// threads call at once, and never deleted.
    static NullRouter *instance();

    explicit NullRouter(QObject *parent = nullptr);
    ~NullRouter() override;

    /// Start and end point in the coordinates of \a connection; empty for null.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute().
    QList<QPointF> doRouteF(IConnection *connection) override;
};

} // namespace Vantrel::Pictel
