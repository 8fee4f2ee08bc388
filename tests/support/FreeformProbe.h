#pragma once

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layers/IFreeformFigure.h>

#include <QList>

/// A freeform figure with an extent of the test's choosing; it takes and remembers the bounds it is given.
class FreeformProbe : public Vantrel::Pictel::Figure, public Vantrel::Pictel::IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFreeformFigure)

public:
    explicit FreeformProbe(const QRect &initialExtent = QRect(), QObject *parent = nullptr);

    QRect extent; ///< getFreeformExtent()
    QList<QRect> given; ///< the arguments of setFreeformBounds()

    QRect getFreeformExtent() override;
    void setFreeformBounds(const QRect &bounds) override;

Q_SIGNALS:
    void extentChanged() override;
};
