#pragma once

#include <vtlpictel/connections/Bendpoint.h>

#include <QMetaType>
#include <QPoint>

namespace Vantrel::Pictel {

/// A bendpoint at a fixed location, in the coordinates of its connection.
///
/// It can be copied, and so travels by value in the list that is a connection's routing constraint:
/// \code
/// connection->setRoutingConstraint(QVariantList {QVariant::fromValue(AbsoluteBendpoint(40, 80))});
/// \endcode
class VTLPICTEL_EXPORT AbsoluteBendpoint : public Bendpoint
{
    Q_OBJECT

public:
    /// Creates a bendpoint at (0, 0).
    explicit AbsoluteBendpoint(QObject *parent = nullptr);
    explicit AbsoluteBendpoint(const QPoint &location, QObject *parent = nullptr);
    AbsoluteBendpoint(int x, int y, QObject *parent = nullptr);
    /// Copies the location; the copy has no parent.
    AbsoluteBendpoint(const AbsoluteBendpoint &other);
    ~AbsoluteBendpoint() override;

    /// Copies the location only.
    AbsoluteBendpoint &operator=(const AbsoluteBendpoint &other);

    QPoint getLocation() const override;
    void setLocation(const QPoint &location) override;

    /// True when the location is (0, 0).
    bool isNull() const;

private:
    QPoint m_location;
};

} // namespace Vantrel::Pictel

Q_DECLARE_METATYPE(Vantrel::Pictel::AbsoluteBendpoint)
