#pragma once

#include <vtlpictel/figure/ConnectionLocator.h>

namespace Vantrel::Pictel {

/// Places a figure at the middle of one segment of a connection: the one that starts at a given point.
///
/// An index past the connection's points leaves a warning and (0, 0) as the reference point.
class VTLPICTEL_EXPORT MidpointLocator : public ConnectionLocator
{
    Q_OBJECT

public:
    MidpointLocator(IConnection *connection, int index, QObject *parent = nullptr);
    ~MidpointLocator() override;

    /// The index of the point at which the segment starts.
    int getIndex() const { return m_index; }

protected:
    QPoint getReferencePoint() override;

private:
    int m_index;
};

} // namespace Vantrel::Pictel
