#pragma once

#include <vtlpictel/connections/IConnectionAnchor.h>

#include <QList>

/// An anchor with a fixed reference point and location, on a figure or none, that notes what it is asked.
class StubAnchor : public Vantrel::Pictel::IConnectionAnchor
{
public:
    StubAnchor(const QPoint &reference, const QPoint &place, Vantrel::Pictel::Figure *figure = nullptr)
        : referencePoint(reference)
        , location(place)
        , owner(figure)
    { }

    void addAnchorListener(Vantrel::Pictel::IAnchorListener *) override { }
    QPoint getLocation(const QPoint &reference) const override
    {
        aims.append(reference);
        return location;
    }
    Vantrel::Pictel::Figure *getOwner() const override { return owner; }
    QPoint getReferencePoint() const override { return referencePoint; }
    void removeAnchorListener(Vantrel::Pictel::IAnchorListener *) override { }

    QPoint referencePoint;
    QPoint location;
    Vantrel::Pictel::Figure *owner = nullptr;
    /// The reference points that getLocation() was given, in order.
    mutable QList<QPoint> aims;
};
