#pragma once

#include <vtlpictel/figure/ILocator.h>

#include <QObject>

class QPoint;
class QRect;
class QSize;

namespace Vantrel::Pictel {

/// Places a figure at its preferred size beside or around a reference point that the subclass supplies.
///
/// The figure is centred on the point unless the relative position holds POSITION_ bits: these move it off the point
/// to the named side, at a distance of gap pixels. Setters are plain stores; call relocate(), or revalidate the layout
/// whose constraint the locator is, afterwards. A null or hidden figure is left alone. The figure is never owned.
class VTLPICTEL_EXPORT Locator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::ILocator)

public:
    explicit Locator(QObject *parent = nullptr);
    ~Locator() override;

    /// The distance from the reference point in logical pixels; 0 by default.
    virtual int getGap() const;
    /// An OR of POSITION_ codes; 2 by default, which centres. West wins over east and north over south.
    virtual int getRelativePosition() const;
    virtual void setGap(int gap);
    virtual void setRelativePosition(int position);

protected:
    /// The bounds of a figure of \a size beside \a center, both in the system of the figure's bounds.
    virtual QRect getNewBounds(const QSize &size, const QPoint &center);
    /// The reference point in absolute coordinates.
    virtual QPoint getReferencePoint() = 0;

public:
    /// Sets the bounds of \a target; nothing for null or a hidden figure.
    void relocate(Figure *target) override;

private:
    int m_gap = 0;
    int m_relativePosition = 2;
};

} // namespace Vantrel::Pictel
