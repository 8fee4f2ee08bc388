#pragma once

#include <vtlpictel/connections/AbstractConnectionAnchor.h>

namespace Vantrel::Pictel {

/// An anchor on the ellipse inscribed in a figure's bounds, where the line from its centre to the reference point
/// crosses it.
///
/// Without an owner the location is (0, 0) and a warning says so. See AbstractConnectionAnchor for owner, listeners
/// and coordinates.
class VTLPICTEL_EXPORT EllipseAnchor : public AbstractConnectionAnchor
{
    Q_OBJECT

public:
    explicit EllipseAnchor(QObject *parent = nullptr);
    explicit EllipseAnchor(Figure *owner, QObject *parent = nullptr);
    ~EllipseAnchor() override;

    /// The point on the ellipse towards \a reference.
    QPoint getLocation(const QPoint &reference) const override;
};

} // namespace Vantrel::Pictel
