#pragma once

#include <QObject>

namespace Vantrel::Pictel {

/// A signal and a slot by which many pairs of objects are connected.
///
/// Both are given by their signatures, as the SIGNAL and SLOT macros take them but normalised, and are looked up once:
/// parsing the text anew for each of a hundred thousand figures costs more than everything else about adding them.
/// Connections are the same as those made by signature, and either way of disconnecting ends them.
class SignalConnection
{
public:
    SignalConnection(const QMetaObject &sender, const char *signal, const QMetaObject &receiver, const char *slot)
        : m_signal(sender.indexOfSignal(signal))
        , m_slot(receiver.indexOfSlot(slot))
    {
        Q_ASSERT(m_signal >= 0 && m_slot >= 0);
    }

    void connect(const QObject *sender, const QObject *receiver, Qt::ConnectionType type = Qt::AutoConnection) const
    {
        QMetaObject::connect(sender, m_signal, receiver, m_slot, type);
    }

    void disconnect(const QObject *sender, const QObject *receiver) const
    {
        QMetaObject::disconnect(sender, m_signal, receiver, m_slot);
    }

private:
    int m_signal;
    int m_slot;
};

} // namespace Vantrel::Pictel
