#include "BareObjects.h"

#include <vtlpictel/figure/Figure.h>

namespace Bench {

namespace {

struct BareObject final : QObject
{
    char rest[sizeof(Vantrel::Pictel::Figure) - sizeof(QObject)] = {};
};

// By signature, as the layouts connect their figures; the signal is never emitted.
constexpr const char *signal = SIGNAL(objectNameChanged(QString));
constexpr const char *slot = SLOT(deleteLater());

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

} // namespace Bench
