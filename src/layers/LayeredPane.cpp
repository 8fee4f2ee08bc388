#include <vtlpictel/layers/LayeredPane.h>

#include <vtlpictel/layout/StackLayout.h>

#include <QMessageLogger>
#include <QScopedValueRollback>

namespace Vantrel::Pictel {

LayeredPane::LayeredPane(QObject *parent)
    : Layer(parent)
{
    setLayoutManager(new StackLayout(this));
}

LayeredPane::~LayeredPane() = default;

void LayeredPane::addLayer(Layer *layer, const QString &key)
{
    addLayerAbove(layer, key, nullptr);
}

void LayeredPane::addLayerAbove(Layer *layer, const QString &key, Layer *above)
{
    insertLayer(layer, key, above, 1, "addLayerAbove");
}

void LayeredPane::addLayerBeneath(Layer *layer, const QString &key, Layer *beneath)
{
    insertLayer(layer, key, beneath, 0, "addLayerBeneath");
}

// Naming and adding the layer call out: layer and pane may be gone afterwards.
void LayeredPane::insertLayer(Layer *layer, const QString &key, Layer *neighbour, int offset, const char *operation)
{
    if (!layer || key.isEmpty()) {
        QMessageLogger().warning("LayeredPane::%s(): cannot add null layer or add with empty key", operation);
        return;
    }
    const QPointer<LayeredPane> self(this);
    const QPointer<Layer> guest(layer);
    const QString ownKey = key;
    layer->setObjectName(ownKey);
    if (!self || !guest)
        return;
    forgetDeadLayers();
    if (m_layers.contains(ownKey)) {
        QMessageLogger().warning("LayeredPane::%s(): layer '%s' already exists", operation, qUtf8Printable(ownKey));
        return;
    }
    const bool added = neighbour ? placeBeside(layer, neighbour, offset, operation) : add(layer, 0u, 0u, -1);
    if (added && self && guest)
        registerLayer(layer, ownKey);
}

// True also when the layout refuses the layer: its key counts all the same.
bool LayeredPane::placeBeside(Layer *layer, Layer *neighbour, int offset, const char *operation)
{
    Layout *layout = getLayoutManager();
    if (!layout) {
        QMessageLogger().warning("LayeredPane::%s(): no layout manager", operation);
        return false;
    }
    const int position = static_cast<int>(layout->childFigures().indexOf(neighbour));
    layout->add(layer, 0u, 0u, position < 0 ? -1 : position + offset);
    return true;
}

void LayeredPane::registerLayer(Layer *layer, const QString &key)
{
    m_layers.insert(key, layer);
    if (qobject_cast<LayeredPane *>(layer) && !m_paneKeys.contains(key))
        m_paneKeys.append(key);
}

// Done before a key is looked for, not when a layer dies: the layers then need not know the pane, which may die first.
void LayeredPane::forgetDeadLayers()
{
    m_layers.removeIf([this](auto entry) {
        const bool isDead = !entry.value();
        if (isDead)
            m_paneKeys.removeOne(entry.key());
        return isDead;
    });
}

Layer *LayeredPane::getLayer(const QString &key)
{
    if (Layer *layer = m_layers.value(key))
        return layer;
    // Keys can make panes contain each other; a pane that is being searched already has nothing to add.
    if (m_searching)
        return nullptr;
    const QScopedValueRollback<bool> searching(m_searching, true);
    return findInNestedPanes(key);
}

Layer *LayeredPane::findInNestedPanes(const QString &key)
{
    for (const QString &paneKey : std::as_const(m_paneKeys)) {
        LayeredPane *pane = qobject_cast<LayeredPane *>(m_layers.value(paneKey));
        if (Layer *layer = pane ? pane->getLayer(key) : nullptr)
            return layer;
    }
    return nullptr;
}

Layer *LayeredPane::removeLayer(const QString &key)
{
    const QPointer<LayeredPane> self(this);
    const QPointer<Layer> layer = m_layers.take(key);
    if (!layer)
        return nullptr;
    const QString ownKey = key;
    remove(layer);
    if (self)
        m_paneKeys.removeOne(ownKey);
    return layer;
}

} // namespace Vantrel::Pictel
