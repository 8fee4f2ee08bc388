#pragma once

#include <vtlpictel/viewer/FreeformViewer.h>

#include <QPointer>

/// A viewer in which the figures that lie directly on one layer can be dragged.
class DragViewer : public Vantrel::Pictel::FreeformViewer
{
    Q_OBJECT

public:
    /// The figures on \a layer, which may be null and is not owned, are those to drag.
    void setDragLayer(Vantrel::Pictel::Figure *layer) { m_layer = layer; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Vantrel::Pictel::Figure *draggableAt(const QPoint &contentPoint) const;

    QPointer<Vantrel::Pictel::Figure> m_layer;
    QPointer<Vantrel::Pictel::Figure> m_dragged;
    QPoint m_grip;
};
