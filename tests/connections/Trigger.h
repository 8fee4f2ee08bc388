#pragma once

#include <vtlpictel/shapes/Shape.h>

#include <QObject>
#include <QString>

#include <functional>
#include <utility>

inline const QString parentProperty = QStringLiteral("parent");
inline const QString routerProperty = QStringLiteral("connectionRouter");

/// Runs an action when a signal arrives, once: the action may cause the signal again.
class Trigger : public QObject
{
public:
    using Action = std::function<void()>;

    /// Lets \a skipped signals pass first.
    void onPathChange(Vantrel::Pictel::Shape *shape, const Action &action, int skipped = 0)
    {
        connect(shape, &Vantrel::Pictel::Shape::pathChanged, this, [this, action, skipped]() mutable {
            if (skipped-- == 0)
                fire(action);
        });
    }
    void onMove(Vantrel::Pictel::Figure *figure, const Action &action)
    {
        connect(figure, &Vantrel::Pictel::Figure::figureMoved, this, [this, action] { fire(action); });
    }
    void onChange(Vantrel::Pictel::Figure *figure, const QString &property, const Action &action)
    {
        connect(figure, &Vantrel::Pictel::Figure::propertyChanged, this, [this, property, action](const QString &name) {
            if (name == property)
                fire(action);
        });
    }

    bool hasFired() const { return m_hasFired; }

private:
    // The copy outlives the connection of the signal, which ends with the sender.
    void fire(Action action)
    {
        if (!std::exchange(m_hasFired, true))
            action();
    }

    bool m_hasFired = false;
};
