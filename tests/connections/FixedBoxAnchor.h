#pragma once

#include <vtlpictel/connections/ChopboxAnchor.h>

/// A chop-box anchor with a box of its own instead of its owner's bounds.
class FixedBoxAnchor : public Vantrel::Pictel::ChopboxAnchor
{
public:
    FixedBoxAnchor(Vantrel::Pictel::Figure *owner, const QRect &box)
        : ChopboxAnchor(owner)
        , m_box(box)
    { }

protected:
    QRect getBox() override { return m_box; }

private:
    QRect m_box;
};
