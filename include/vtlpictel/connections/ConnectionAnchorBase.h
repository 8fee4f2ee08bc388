#pragma once

#include <vtlpictel/connections/IConnectionAnchor.h>

#include <QObject>

#include <memory>

namespace Vantrel::Pictel {

class ListenerConnections;

/// The listener side of every anchor: whoever is registered hears anchorMoved().
///
/// Listeners are not owned. One that is deleted is simply no longer told; deleting the anchor leaves nothing behind
/// in its listeners. A subclass says where the anchor lies and emits anchorMoved() when that may have changed.
class VTLPICTEL_EXPORT ConnectionAnchorBase : public QObject, public IConnectionAnchor
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IConnectionAnchor)

public:
    explicit ConnectionAnchorBase(QObject *parent = nullptr);
    ~ConnectionAnchorBase() override;

    /// Connects anchorMoved() to the listener's slot of that name; twice when called twice.
    /// A listener that is null or no QObject leaves a warning and nothing else.
    void addAnchorListener(IAnchorListener *listener) override;
    /// Takes back every addAnchorListener() of \a listener, which is not deleted.
    /// A listener that is null or no QObject leaves a warning and nothing else.
    void removeAnchorListener(IAnchorListener *listener) override;

Q_SIGNALS:
    /// The place of \a anchor may have changed.
    void anchorMoved(IConnectionAnchor *anchor);

private:
    std::unique_ptr<ListenerConnections> m_listeners;
};

} // namespace Vantrel::Pictel
