#pragma once

#include <vtlpictel/figure/InterfacePointer.h>
#include <vtlpictel/figure/Locator.h>

#include <QList>

namespace Vantrel::Pictel {

class IConnection;

/// Places a figure at the middle, the source end or the target end of a connection.
///
/// The connection is not owned; once it is deleted the locator has none. Without a connection the reference point is
/// (0, 0).
class VTLPICTEL_EXPORT ConnectionLocator : public Locator
{
    Q_OBJECT

public:
    /// Where on the connection the figure goes.
    enum Alignment { MIDDLE = 0, SOURCE = 1, TARGET = 2 };

    explicit ConnectionLocator(IConnection *connection, QObject *parent = nullptr);
    ConnectionLocator(IConnection *connection, Alignment alignment, QObject *parent = nullptr);
    ~ConnectionLocator() override;

protected:
    virtual IConnection *getConnection() const;
    /// The point among \a points (connection's coordinates) that the alignment asks for; (0, 0) when there is none.
    virtual QPoint getLocation(QList<QPoint> points);

public:
    Alignment getAlignment() const { return m_alignment; }
    void setAlignment(Alignment alignment) { m_alignment = alignment; }
    /// The index of the point among \a count that the alignment asks for; -1 when there is none.
    int getLocationIndex(int count) const;

protected:
    void setConnection(IConnection *connection);
    QPoint getReferencePoint() override;

private:
    InterfacePointer<IConnection> m_connection;
    Alignment m_alignment;
};

} // namespace Vantrel::Pictel
