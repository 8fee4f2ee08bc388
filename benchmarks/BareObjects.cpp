#include "BareObjects.h"

#include <vtlpictel/figure/Figure.h>

#include <algorithm>

namespace Bench {

namespace {

// By signature, as the layouts connect their figures; the signal is never emitted.
constexpr const char *signal = SIGNAL(objectNameChanged(QString));
constexpr const char *slot = SLOT(deleteLater());

struct BareObject final : QObject
{
    bool isConnected() const { return receivers(signal) == 1; }

    char rest[sizeof(Vantrel::Pictel::Figure) - sizeof(QObject)] = {};
};

} // namespace

BareObjects::BareObjects(int count)
{
    m_objects.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) {
        m_objects.push_back(std::make_unique<BareObject>());
        QObject::connect(m_objects.back().get(), signal, &m_receiver, slot);
    }
}

void BareObjects::remove(const std::vector<int> &indices)
{
    for (const int index : indices) {
        std::unique_ptr<QObject> &object = m_objects[std::size_t(index)];
        QObject::disconnect(object.get(), signal, &m_receiver, slot);
        object.reset();
    }
}

int BareObjects::connectedCount() const
{
    return int(std::count_if(m_objects.cbegin(), m_objects.cend(), [](const std::unique_ptr<QObject> &object) {
        return object && static_cast<const BareObject &>(*object).isConnected();
    }));
}

} // namespace Bench
