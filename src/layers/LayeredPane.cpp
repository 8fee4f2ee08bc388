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

void LayeredPane::insertLayer(Layer *layer, const QString &key, Layer *neighbour, int offset, const char *operation)
{
    if (!layer || key.isEmpty()) {
        QMessageLogger().warning("LayeredPane::%s(): cannot add null layer or add with empty key", operation);
        return;
    }
    layer->setObjectName(key);
    if (m_layers.contains(key)) {
        QMessageLogger().warning("LayeredPane::%s(): layer '%s' already exists", operation, qUtf8Printable(key));
        return;
    }
    if (neighbour ? placeBeside(layer, neighbour, offset, operation) : add(layer, 0u, 0u, -1))
        registerLayer(layer, key);
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
    connect(layer, &QObject::destroyed, this, &LayeredPane::forgetDeadLayers, Qt::UniqueConnection);
}

// A layer can stand under several keys; all of them point to nothing once it is dead.
void LayeredPane::forgetDeadLayers()
{
    const QStringList keys = m_layers.keys();
    for (const QString &key : keys) {
        if (m_layers.value(key))
            continue;
        m_layers.remove(key);
        m_paneKeys.removeOne(key);
    }
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
    const QPointer<Layer> layer = m_layers.take(key);
    if (!layer)
        return nullptr;
    remove(layer);
    m_paneKeys.removeOne(key);
    return layer;
}

} // namespace Vantrel::Pictel
