#pragma once

#include <vtlpictel/figure/ILocator.h>
#include <vtlpictel/figure/InterfacePointer.h>
#include <vtlpictel/figure/Transposer.h>

#include <QObject>

class QPoint;
class QSize;

namespace Vantrel::Pictel {

class IConnection;

/// Places a label near one end of a connection, beside the line and clear of the figure that the end sits on.
///
/// The connection is not owned; without one, or with fewer than two points, nothing is placed. Distances are in logical
/// pixels and plain stores; relocate afterwards.
class VTLPICTEL_EXPORT ConnectionEndpointLocator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::ILocator)

public:
    /// \a isEnd: true for the target end, false for the source end.
    ConnectionEndpointLocator(IConnection *connection, bool isEnd, QObject *parent = nullptr);
    ~ConnectionEndpointLocator() override;

    void relocate(Figure *target) override;

    /// The distance from the end figure's side; 14 by default.
    int getUDistance() const { return m_uDistance; }
    void setUDistance(int distance) { m_uDistance = distance; }
    /// The distance from the line: positive on one side, negative on the other, 0 on the line; 4 by default.
    int getVDistance() const { return m_vDistance; }
    void setVDistance(int distance) { m_vDistance = distance; }
    bool isEnd() const { return m_isEnd; }
    IConnection *getConnection() const;

private:
    enum class Side { None, Below, Right, Above, Left };

    Figure *getConnectionOwner() const;
    Side calculateConnectionLocation(const QPoint &start, const QPoint &reference) const;
    Side calculateConnectionLocation(const QPoint &start, Figure *owner) const;
    static double calculateTan(const QPoint &start, const QPoint &reference);
    int calculateYShift(int height) const;
    QPoint calculateTopLeft(const QPoint &start, const QPoint &reference, const QSize &size, bool negative) const;

    Transposer m_transposer;
    InterfacePointer<IConnection> m_connection;
    bool m_isEnd;
    int m_uDistance = 14;
    int m_vDistance = 4;
};

} // namespace Vantrel::Pictel
