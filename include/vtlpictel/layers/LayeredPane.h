#pragma once

#include <vtlpictel/layers/Layer.h>

#include <QMap>
#include <QPointer>
#include <QStringList>

namespace Vantrel::Pictel {

/// A layer that holds other layers on top of each other, each under a key that the application chooses.
///
/// The order of the children is the order of painting: the first layer added lies at the bottom. Panes may be nested;
/// getLayer() also searches the panes below this one.
///
/// Ownership: the pane owns its layout manager, but no layer. A layer that is deleted loses its key at once.
///
/// Bad input: a null layer, an empty key or a key in use leaves a warning, and nothing is added.
class VTLPICTEL_EXPORT LayeredPane : public Layer
{
    Q_OBJECT

public:
    explicit LayeredPane(QObject *parent = nullptr);
    ~LayeredPane() override;

    /// Adds \a layer on top of all others. Its ownership does not move; its object name becomes \a key.
    virtual void addLayer(Layer *layer, const QString &key);
    /// Adds \a layer directly above \a above, or on top of all when that is null or no layer of this pane.
    /// Beside a layer that is given, the key is registered even if the layout manager refuses the layer.
    virtual void addLayerAbove(Layer *layer, const QString &key, Layer *above);
    /// Adds \a layer directly beneath \a beneath, or on top of all when that is null or no layer of this pane.
    /// Beside a layer that is given, the key is registered even if the layout manager refuses the layer.
    virtual void addLayerBeneath(Layer *layer, const QString &key, Layer *beneath);
    /// The layer of that key in this pane, else in the nested panes in the order they were added; null if unknown.
    virtual Layer *getLayer(const QString &key);
    /// Takes the layer of that key out of this pane and returns it; it is not deleted. Nested panes are not searched:
    /// null for a key that this pane itself does not hold.
    virtual Layer *removeLayer(const QString &key);

private:
    void insertLayer(Layer *layer, const QString &key, Layer *neighbour, int offset, const char *operation);
    bool placeBeside(Layer *layer, Layer *neighbour, int offset, const char *operation);
    void registerLayer(Layer *layer, const QString &key);
    void forgetDeadLayers();
    Layer *findInNestedPanes(const QString &key);

    QMap<QString, QPointer<Layer>> m_layers;
    QStringList m_paneKeys;
    bool m_searching = false;
};

} // namespace Vantrel::Pictel
