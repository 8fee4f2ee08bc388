#include "EdgeLayer.h"

namespace GraphViewer {

using namespace Vantrel::Pictel;

void EdgeLayer::layOut()
{
    QRect extent;
    const QList<Figure *> edges = childFigures();
    for (Figure *edge : edges) {
        edge->validate();
        extent |= edge->getBounds();
    }
    if (extent == m_extent)
        return;
    m_extent = extent;
    Q_EMIT extentChanged();
}

} // namespace GraphViewer
