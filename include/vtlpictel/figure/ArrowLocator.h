#pragma once

#include <vtlpictel/figure/ConnectionLocator.h>

namespace Vantrel::Pictel {

/// Puts a rotatable decoration at the source or target end of a connection and turns it along the end segment.
///
/// A target that is no IRotatableDecoration, and a connection with fewer than two points, leave a warning.
class VTLPICTEL_EXPORT ArrowLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    /// An alignment of MIDDLE becomes SOURCE.
    ArrowLocator(IConnection *connection, ConnectionLocator::Alignment alignment, QObject *parent = nullptr);
    ~ArrowLocator() override;

    void relocate(Figure *target) override;
};

} // namespace Vantrel::Pictel
