#pragma once

#include <vtlpictel/connections/ConnectionAnchorBase.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IAncestorListener.h>

#include <QPointer>

namespace Vantrel::Pictel {

/// An anchor that sits on a figure and moves with it.
///
/// The owner figure is not owned and may be null; when it is deleted the anchor is left without an owner. While the
/// anchor listens to its owner, every move of the owner or of one of its ancestors emits anchorMoved(). Listening
/// begins with the first listener, or at once with setOwner(), and ends when any one listener is removed, even while
/// others remain: the connection that stays must be hooked again to follow its figure.
///
/// All points are in absolute coordinates.
class VTLPICTEL_EXPORT AbstractConnectionAnchor : public ConnectionAnchorBase, public IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IAncestorListener)

public:
    /// Creates an anchor without an owner.
    explicit AbstractConnectionAnchor(QObject *parent = nullptr);
    /// Creates an anchor on \a owner, to which it does not listen yet.
    explicit AbstractConnectionAnchor(Figure *owner, QObject *parent = nullptr);
    ~AbstractConnectionAnchor() override;

    /// Registers \a listener and begins to listen to the owner, if there is one. Null is ignored.
    void addAnchorListener(IAnchorListener *listener) override;
    Figure *getOwner() const override;
    /// The rounded centre of the owner's bounds; (0, 0) without an owner.
    QPoint getReferencePoint() const override;
    /// Takes \a listener away and stops listening to the owner, also for the listeners that remain. Null is ignored.
    void removeAnchorListener(IAnchorListener *listener) override;

    /// Moves the anchor to \a owner, which may be null, and listens to it at once. Emits nothing: have the
    /// connections of this anchor revalidated afterwards.
    void setOwner(Figure *owner);

public Q_SLOTS:
    /// Does nothing: what matters to an anchor is that its owner moves.
    void ancestorAdded(Figure *ancestor) override;
    /// Emits anchorMoved().
    void ancestorMoved(Figure *ancestor) override;
    /// Does nothing.
    void ancestorRemoved(Figure *ancestor) override;

private:
    void startListening();
    void stopListening();

    QPointer<Figure> m_owner;
    bool m_listening = false;
};

} // namespace Vantrel::Pictel
