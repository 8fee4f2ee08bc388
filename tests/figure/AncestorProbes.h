#pragma once

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IAncestorListener.h>

#include <QStringList>

#include <functional>
#include <utility>

/// A figure that tells who listens to it.
class ObservedFigure : public Vantrel::Pictel::Figure
{
public:
    explicit ObservedFigure(const QString &name, QObject *parent = nullptr)
        : Figure(parent)
    {
        setObjectName(name);
    }

    /// How many slots are connected to the moves, the end and the properties of this figure.
    QList<int> observers() const
    {
        return {receivers(SIGNAL(figureMoved(Figure *))), receivers(SIGNAL(destroyed(QObject *))),
                receivers(SIGNAL(propertyChanged(const QString &, const QVariant &, const QVariant &)))};
    }

    void move() { setBounds(getBounds().isValid() ? getBounds().translated(1, 1) : QRect(0, 0, 10, 10)); }
};

inline const QList<int> observed {1, 1, 1};
inline const QList<int> unobserved {0, 0, 0};

/// Figure, parent and grandparent, and a second tree of the same height.
struct Families
{
    Families()
    {
        figure.setParentFigure(&parent);
        parent.setParentFigure(&grandparent);
        newParent.setParentFigure(&newGrandparent);
    }

    ObservedFigure grandparent {QStringLiteral("grandparent")};
    ObservedFigure parent {QStringLiteral("parent")};
    ObservedFigure newGrandparent {QStringLiteral("new grandparent")};
    ObservedFigure newParent {QStringLiteral("new parent")};
    ObservedFigure figure {QStringLiteral("figure")};
};

/// Logs what it hears as "moved <figure>", and acts on it when told to.
class AncestorListener : public QObject, public Vantrel::Pictel::IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IAncestorListener)

public:
    using Figure = Vantrel::Pictel::Figure;

    QStringList take() { return std::exchange(m_calls, {}); }

    std::function<void()> actOnAddition;
    std::function<void()> actOnMove;
    std::function<void()> actOnRemoval;

public Q_SLOTS:
    void ancestorAdded(Figure *ancestor) override
    {
        note("added", ancestor);
        act(actOnAddition);
    }
    void ancestorMoved(Figure *ancestor) override
    {
        note("moved", ancestor);
        act(actOnMove);
    }
    void ancestorRemoved(Figure *ancestor) override
    {
        note("removed", ancestor);
        act(actOnRemoval);
    }

private:
    /// Once only: the action may lead to the same event.
    static void act(std::function<void()> &action)
    {
        if (action)
            std::exchange(action, nullptr)();
    }
    void note(const char *event, const Figure *ancestor)
    {
        m_calls << QStringLiteral("%1 %2").arg(QLatin1String(event), ancestor->objectName());
    }

    QStringList m_calls;
};
