#include "DragViewer.h"

#include <vtlpictel/figure/Figure.h>

#include <QMouseEvent>

using namespace Vantrel::Pictel;

// What lies under the pointer may be a text within a box: it is the box that is dragged.
Figure *DragViewer::draggableAt(const QPoint &contentPoint) const
{
    Figure *figure = m_layer ? m_layer->findFigureAt(contentPoint) : nullptr;
    while (figure && figure->getParentFigure() != m_layer)
        figure = figure->getParentFigure();
    return figure;
}

void DragViewer::mousePressEvent(QMouseEvent *event)
{
    FreeformViewer::mousePressEvent(event);
    const QPoint position = toContent(event->position().toPoint());
    m_dragged = event->button() == Qt::LeftButton ? draggableAt(position) : nullptr;
    if (m_dragged)
        m_grip = position - m_dragged->getBounds().topLeft();
    event->accept();
}

void DragViewer::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragged)
        return;
    // The layer's layout takes the new bounds for the figure's constraint; connections hear of the move by themselves.
    const QPoint position = toContent(event->position().toPoint());
    m_dragged->setBounds(QRect(position - m_grip, m_dragged->getBounds().size()));
    event->accept();
}

void DragViewer::mouseReleaseEvent(QMouseEvent *event)
{
    // The scroll range follows a drawing that has grown at the next zoom, and be it to the scale that there is.
    const QPoint location = getViewLocation();
    if (m_dragged)
        setScale(getScale(), &location);
    m_dragged = nullptr;
    event->accept();
}
