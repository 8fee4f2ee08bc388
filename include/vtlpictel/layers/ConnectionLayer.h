#pragma once

#include <vtlpictel/figure/InterfacePointer.h>
#include <vtlpictel/layers/FreeformLayer.h>

namespace Vantrel::Pictel {

class IConnectionRouter;

/// The freeform layer for the connections of a diagram: it hands its router to each connection added to it and takes
/// it back on removal, and it can paint antialiased.
///
/// The router is not owned and may be deleted at any time; the layer has none until one is set. Other figures are
/// added and removed as in any layer.
///
/// Layers are laid out from bottom to top. Where layouts place the connected figures, put this layer above them: a line
/// that was laid out before its figures moved waits for the next change.
class VTLPICTEL_EXPORT ConnectionLayer : public FreeformLayer
{
    Q_OBJECT

public:
    /// \a contentMonitored: follow moves of the children, see FreeformLayer.
    ConnectionLayer(QObject *parent, bool contentMonitored);
    ~ConnectionLayer() override;

    IConnectionRouter *getConnectionRouter() const;
    /// Stores the router for connections that are added from now on; those present keep theirs.
    void setConnectionRouter(IConnectionRouter *router);
    bool isAntialias() const { return m_antialias; }
    /// Paints with QPainter::Antialiasing or without it, the default; call repaint() afterwards.
    void setAntialias(bool antialias) { m_antialias = antialias; }

    /// As Figure::add(); a connection then gets the layer's router, if there is one.
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    /// Takes the router away from a connection, then as Figure::remove().
    bool remove(Figure *child) override;
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

private:
    template <typename Addition>
    bool addConnection(Figure *child, Addition addition);

    InterfacePointer<IConnectionRouter> m_connectionRouter;
    bool m_antialias = false;
};

} // namespace Vantrel::Pictel
