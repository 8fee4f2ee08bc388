#pragma once

#include <vtlpictel/layers/ConnectionLayer.h>

namespace GraphViewer {

/// The layer of the edges. Connections have no rectangle as constraint, so it finds out itself how far they reach.
class EdgeLayer : public Vantrel::Pictel::ConnectionLayer
{
public:
    using ConnectionLayer::ConnectionLayer;

    /// Routes what is to be routed anew, rather than at the next paint, and takes note of how far the edges reach then.
    void layOut();

    /// The extent as of the last layOut().
    QRect getFreeformExtent() override { return m_extent; }

private:
    QRect m_extent;
};

} // namespace GraphViewer
