#pragma once

#include "Screen.h"

#include "connections/AnyConnection.h"

#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/Rectangle.h>

#include <memory>

/// Puts \a figure into \a parent. A shape draws what it was last given as bounds while displayed, so it gets them after
/// it was added.
void place(Vantrel::Pictel::Figure &parent, Vantrel::Pictel::Figure &figure, const QRect &rect);

/// Moves the figure under the mouse pointer while a button is held, as an application's tool does.
class Mover : public QObject
{
    Q_OBJECT

public:
    Mover(Vantrel::Pictel::FreeformViewer &viewer, Vantrel::Pictel::Figure &ignoredLayer);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void grab(const QPoint &place);

    Vantrel::Pictel::FreeformViewer &m_viewer;
    Vantrel::Pictel::Figure &m_ignoredLayer;
    QPointer<Vantrel::Pictel::Figure> m_figure;
    QPoint m_last;
};

/// A shown viewer of 600 x 440 pixels: a rectangle, an ellipse in a panel, and a connection between the two.
class ConnectedDiagram
{
public:
    enum RouterKind { Straight, Bent, Rectilinear };

    explicit ConnectedDiagram(bool isReal);

    /// Gives the connection that router; the bent one leads it through (250, 50).
    void route(RouterKind kind);
    /// Drags the mouse from one content point to another in three steps; empty, or what was wrong after one of them.
    QString drag(const QPoint &from, const QPoint &to);
    /// Waits for all repaints; empty, or how the screen differs from a full repaint or the tree is broken.
    QString breach();
    /// True when the connection's ends are where its anchors put them.
    bool isAttached() const;
    /// True when every segment is horizontal or vertical.
    bool isRectilinear() const;

    Vantrel::Pictel::FreeformLayeredPane pane;
    Vantrel::Pictel::FreeformLayer nodes {nullptr, true};
    Vantrel::Pictel::ConnectionLayer connections {nullptr, true};
    Vantrel::Pictel::Rectangle source;
    Vantrel::Pictel::Figure panel {nullptr, QColor(200, 220, 255)};
    Vantrel::Pictel::Ellipse target;
    Vantrel::Pictel::ChopboxAnchor sourceAnchor {&source, nullptr};
    Vantrel::Pictel::EllipseAnchor targetAnchor {&target, nullptr};
    Vantrel::Pictel::BendpointConnectionRouter bentRouter {nullptr};
    Vantrel::Pictel::ManhattanConnectionRouter rectilinearRouter {nullptr};
    AnyConnection connection;
    Vantrel::Pictel::FreeformViewer viewer;
    std::unique_ptr<Screen> screen;

private:
    QPoint aimOf(bool isSource) const;

    std::unique_ptr<Mover> m_mover;
};
