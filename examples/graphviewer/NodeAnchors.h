#pragma once

#include <vtlpictel/connections/AbstractConnectionAnchor.h>
#include <vtlpictel/connections/ChopboxAnchor.h>

#include <QPolygonF>

namespace GraphViewer {

class Element;

/// An anchor at a fixed place of its owner, such as a field of a record.
class PortAnchor : public Vantrel::Pictel::ChopboxAnchor
{
public:
    /// \a place is in absolute coordinates and goes with \a owner from now on.
    PortAnchor(Vantrel::Pictel::Figure *owner, const QPoint &place, QObject *parent);

protected:
    QRect getBox() override;

private:
    QPoint m_offset; // from the top-left of the owner
};

/// An anchor on the outline of any shape, where the ray from its place to the reference point leaves it.
class OutlineAnchor : public PortAnchor
{
public:
    using PortAnchor::PortAnchor;

    QPoint getLocation(const QPoint &reference) const override;
};

/// The anchor that suits the outline of \a element; \a parent owns it.
Vantrel::Pictel::AbstractConnectionAnchor *makeAnchor(Element &element, QObject *parent);

/// The outline of what \a anchor sits on, in absolute coordinates; a single point for an anchor without owner.
QPolygonF outlineOf(const Vantrel::Pictel::IConnectionAnchor &anchor);
/// Where the ray from \a from through \a towards leaves \a outline for good; \a from when it misses it.
QPointF exitOf(const QPolygonF &outline, const QPointF &from, const QPointF &towards);

} // namespace GraphViewer
