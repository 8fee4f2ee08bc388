#pragma once

#include <vtlpictel/connections/AbstractConnectionAnchor.h>

#include <QRect>

namespace Vantrel::Pictel {

/// An anchor on the edge of a figure's box, where the line from the box's centre to the reference point crosses it.
///
/// The box is the owner's bounds unless a subclass says otherwise with getBox(). Without an owner every point is
/// (0, 0) and a warning says so. See AbstractConnectionAnchor for owner, listeners and coordinates.
class VTLPICTEL_EXPORT ChopboxAnchor : public AbstractConnectionAnchor
{
    Q_OBJECT

public:
    explicit ChopboxAnchor(QObject *parent = nullptr);
    explicit ChopboxAnchor(Figure *owner, QObject *parent = nullptr);
    ~ChopboxAnchor() override;

protected:
    /// The box to chop, in the coordinates of the owner's bounds; a null rectangle without an owner.
    virtual QRect getBox();

public:
    /// The point on the edge of the box, grown by one pixel at the top and left, towards \a reference.
    /// The centre for an empty box and for a reference in the centre.
    QPoint getLocation(const QPoint &reference) const override;
    /// The centre of the box itself, which is not grown here.
    QPoint getReferencePoint() const override;

    /// True when both anchors sit on the same owner and have equal boxes.
    bool operator==(const ChopboxAnchor &other) const;

private:
    QRect box() const;
    QRect absoluteChopBox() const;
};

} // namespace Vantrel::Pictel
