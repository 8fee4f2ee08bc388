#pragma once

#include <vtlpictel/connections/IBendpoint.h>

#include <QObject>

namespace Vantrel::Pictel {

/// The common base of the bendpoints of this library; it leaves both operations to its subclasses.
class VTLPICTEL_EXPORT Bendpoint : public QObject, public IBendpoint
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IBendpoint)

public:
    explicit Bendpoint(QObject *parent = nullptr);
    ~Bendpoint() override;
};

} // namespace Vantrel::Pictel
