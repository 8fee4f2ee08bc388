#pragma once

#include <vtlpictel/figure/ILocator.h>

#include <QObject>
#include <QPointer>
#include <QRect>

namespace Vantrel::Pictel {
class Figure;
}

/// A locator that counts its calls, remembers the last target, and places it at a rectangle it was given.
class ProbeLocator : public QObject, public Vantrel::Pictel::ILocator
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::ILocator)

public:
    explicit ProbeLocator(const QRect &initialPlace = QRect(), QObject *parent = nullptr);

    QRect place; ///< where targets go; they stay while it is not valid
    QPoint step; ///< added to the place after each call: a locator that never comes to rest
    int calls = 0;
    QPointer<Vantrel::Pictel::Figure> lastTarget;

    void relocate(Vantrel::Pictel::Figure *target) override;
};
