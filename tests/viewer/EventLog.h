#pragma once

#include <QEvent>
#include <QList>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>

/// Remembers which of the chosen events reached an object, in their order.
class EventLog : public QObject
{
public:
    EventLog(QObject &object, const QList<QEvent::Type> &types)
        : m_types(types)
    {
        object.installEventFilter(this);
    }

    const QList<QEvent::Type> &seen() const { return m_seen; }
    int count() const { return static_cast<int>(m_seen.size()); }
    int count(QEvent::Type type) const { return static_cast<int>(m_seen.count(type)); }
    /// What all paint events together covered.
    const QRegion &painted() const { return m_painted; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (m_types.contains(event->type()))
            m_seen << event->type();
        if (event->type() == QEvent::Paint)
            m_painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

private:
    QList<QEvent::Type> m_types;
    QList<QEvent::Type> m_seen;
    QRegion m_painted;
};
