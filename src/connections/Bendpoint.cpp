#include <vtlpictel/connections/Bendpoint.h>

namespace Vantrel::Pictel {

namespace {

// Known by name from the start, so that pointers to bendpoints can travel in a QVariant.
[[maybe_unused]] const int pointerType = qRegisterMetaType<IBendpoint *>();

} // namespace

Bendpoint::Bendpoint(QObject *parent)
    : QObject(parent)
{ }

Bendpoint::~Bendpoint() = default;

} // namespace Vantrel::Pictel
