#pragma once

#include <QVariant>

QT_BEGIN_NAMESPACE
class QPoint;
QT_END_NAMESPACE

namespace Vantrel::Pictel {
class IConnection;
} // namespace Vantrel::Pictel

namespace GraphViewer {

/// The bendpoints of one connection, each kept between its two ends. Points are in the connection's coordinates.
class Bends
{
public:
    /// \a connection must outlive the bends and have both anchors when they are used.
    explicit Bends(Vantrel::Pictel::IConnection *connection)
        : m_connection(connection)
    { }

    int count() const { return static_cast<int>(m_bends.size()); }
    QPoint at(int index) const;
    /// The nearest bendpoint less than \a radius away from \a point, or -1.
    int indexNear(const QPoint &point, double radius) const;

    /// \a weight says how much the bendpoint goes with the target rather than the source: 0 to 1.
    void insert(int index, const QPoint &point, double weight);
    void move(int index, const QPoint &point);
    void remove(int index);
    /// The list as a bendpoint router takes it.
    const QVariantList &constraint() const { return m_bends; }

private:
    QVariant bendpoint(const QPoint &point, float weight) const;

    Vantrel::Pictel::IConnection *m_connection;
    QVariantList m_bends;
};

} // namespace GraphViewer
