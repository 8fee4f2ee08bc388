#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

#include <utility>

/// The calls that reached several probes, in their order, each as "<probe>.<operation>" or "<probe>.<operation>(x)".
class CallLog
{
public:
    void add(const QString &probe, const QString &call) { m_calls << probe + QLatin1Char('.') + call; }
    const QStringList &calls() const { return m_calls; }
    /// The calls since the last take.
    QStringList take() { return std::exchange(m_calls, {}); }
    void clear() { m_calls.clear(); }

    /// The calls of these operations only, whatever their arguments.
    QStringList only(const QStringList &operations) const
    {
        QStringList found;
        for (const QString &call : m_calls) {
            const QString operation = call.section(QLatin1Char('.'), 1).section(QLatin1Char('('), 0, 0);
            if (operations.contains(operation))
                found << call;
        }
        return found;
    }

    /// "x,y wxh"
    static QString text(const QRect &rect)
    {
        return QStringLiteral("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }

private:
    QStringList m_calls;
};
