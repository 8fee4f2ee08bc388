#pragma once

#include <vtlpictel/figure/ConnectionLocator.h>

namespace Vantrel::Pictel {

/// Places a figure at one point of a connection.
///
/// An index past the connection's points leaves a warning and (0, 0) as the reference point.
class VTLPICTEL_EXPORT BendpointLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    BendpointLocator(IConnection *connection, int index, QObject *parent = nullptr);
    ~BendpointLocator() override;

    /// The index of the point.
    int getIndex() const { return m_index; }

protected:
    QPoint getReferencePoint() override;

private:
    int m_index;
};

} // namespace Vantrel::Pictel
