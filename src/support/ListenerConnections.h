#pragma once

#include <QMultiHash>
#include <QObject>

namespace Vantrel::Pictel {

/// The signal connections made for each listener of an object.
///
/// QObject::disconnect() by receiver looks through all connections of the signal, so that thousands of listeners on
/// one object cannot leave it in reasonable time. With the handles at hand, a listener leaves in constant time.
class ListenerConnections
{
public:
    void add(const QObject *listener, const QMetaObject::Connection &connection)
    {
        if (m_connections.size() >= m_sizeToPurge)
            purge();
        m_connections.insert(listener, connection);
    }

    /// Ends all connections of \a listener and returns how many there were.
    int disconnect(const QObject *listener)
    {
        const QList<QMetaObject::Connection> connections = m_connections.values(listener);
        m_connections.remove(listener);
        int ended = 0;
        for (const QMetaObject::Connection &connection : connections)
            ended += QObject::disconnect(connection) ? 1 : 0;
        return ended;
    }

private:
    // Listeners that were deleted leave dead handles behind. Purging at twice the living ones costs each of them
    // little.
    void purge()
    {
        m_connections.removeIf([](auto it) { return !*it; });
        m_sizeToPurge = 2 * m_connections.size() + 16;
    }

    QMultiHash<const QObject *, QMetaObject::Connection> m_connections;
    qsizetype m_sizeToPurge = 16;
};

} // namespace Vantrel::Pictel
