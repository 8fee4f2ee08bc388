#pragma once

#include <vtlpictel/connections/Bendpoint.h>
#include <vtlpictel/figure/InterfacePointer.h>

#include <QMetaType>
#include <QSize>

#include <type_traits>

namespace Vantrel::Pictel {

class IConnection;

/// A bendpoint that keeps its place between the two ends of its connection, and so moves with the connected figures.
///
/// Each anchor's reference point moved by an offset gives a point; the weight says where between the two the
/// bendpoint lies: 0 is the source's, 1 the target's, 0.5 (the default) half-way. The offsets are in pixels and
/// start as default QSize objects, that is (-1, -1).
///
/// The connection is not owned and must be a QObject, as every figure is. A bendpoint without a connection, with one
/// that was deleted or that lacks an anchor, is at (0, 0). The bendpoint can be copied, and so travels by value in
/// the list that is a connection's routing constraint. After a change give that list to the connection again.
class VTLPICTEL_EXPORT RelativeBendpoint : public Bendpoint
{
    Q_OBJECT

public:
    /// Creates a bendpoint without a connection.
    explicit RelativeBendpoint(QObject *parent = nullptr);
    explicit RelativeBendpoint(IConnection *connection, QObject *parent = nullptr);
    /// The same for a connection figure, which is a QObject too and would otherwise pass for either argument.
    template <typename Connection, typename = std::enable_if_t<std::is_convertible_v<Connection *, IConnection *>>>
    explicit RelativeBendpoint(Connection *connection, QObject *parent = nullptr)
        : RelativeBendpoint(static_cast<IConnection *>(connection), parent)
    { }
    /// Copies connection, weight and offsets; the copy has no parent.
    RelativeBendpoint(const RelativeBendpoint &other);
    ~RelativeBendpoint() override;

    /// The place between the anchors, in the coordinates of the connection; its fraction is dropped.
    QPoint getLocation() const override;
    /// Does nothing: the anchors, offsets and weight decide the location.
    void setLocation(const QPoint &location) override;

    /// The connection, or null when there is none or it was deleted.
    IConnection *getConnection() const;
    void setConnection(IConnection *connection);
    float getWeight() const;
    /// Stores the weight, normally from 0 (source) to 1 (target); a larger or smaller one lies beyond the ends.
    void setWeight(float weight);
    /// The offset from the source anchor's reference point.
    QSize getRelativeDim1() const;
    /// The offset from the target anchor's reference point.
    QSize getRelativeDim2() const;
    /// Stores the offsets from the source (\a dim1) and the target anchor's (\a dim2) reference point.
    void setRelativeDimensions(const QSize &dim1, const QSize &dim2);

    /// True when there is no connection.
    bool isNull() const;

private:
    QPoint mixedLocation(const QPoint &sourceReference, const QPoint &targetReference) const;

    InterfacePointer<IConnection> m_connection;
    float m_weight = 0.5F;
    QSize m_relativeDim1;
    QSize m_relativeDim2;
};

} // namespace Vantrel::Pictel

Q_DECLARE_METATYPE(Vantrel::Pictel::RelativeBendpoint)
