#include "ConnectedDiagram.h"

#include "support/TreeInvariants.h"

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QMouseEvent>
#include <QTest>
#include <QWindow>

using namespace Vantrel::Pictel;

namespace {

const QPoint bend(250, 50);

QVariant bendConstraint()
{
    return QVariantList {QVariant::fromValue(AbsoluteBendpoint(bend))};
}

} // namespace

void place(Figure &parent, Figure &figure, const QRect &rect)
{
    parent.add(&figure, QRect(rect.topLeft(), QSize(1, 1)));
    parent.getLayoutManager()->setConstraint(&figure, rect);
}

Mover::Mover(FreeformViewer &viewer, Figure &ignoredLayer)
    : m_viewer(viewer)
    , m_ignoredLayer(ignoredLayer)
{
    viewer.widget()->installEventFilter(this);
}

bool Mover::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease)
        m_figure = nullptr;
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseMove)
        return false;
    const QPoint onWidget = static_cast<QMouseEvent *>(event)->position().toPoint();
    const QPoint here = m_viewer.toContent(m_viewer.widget()->mapTo(m_viewer.viewport(), onWidget));
    if (event->type() == QEvent::MouseButtonPress)
        grab(here);
    else if (m_figure)
        m_figure->setBounds(m_figure->getBounds().translated(here - m_last));
    m_last = here;
    return false;
}

void Mover::grab(const QPoint &place)
{
    m_figure = m_viewer.getContent()->findFigureAtExcluding(place.x(), place.y(), {&m_ignoredLayer});
}

ConnectedDiagram::ConnectedDiagram(bool isReal)
    : connection(isReal)
{
    panel.setLayoutManager(new XYLayout(&panel));
    panel.setMargin(6);
    pane.addLayer(&nodes, QStringLiteral("nodes"));
    pane.addLayer(&connections, QStringLiteral("connections"));
    viewer.setFrameShape(QFrame::NoFrame);
    viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.resize(600, 440);
    viewer.widget()->setProperty("backgroundColor", QColor(Qt::white));
    viewer.setContent(&pane);
    viewer.show();
    place(nodes, source, QRect(40, 60, 80, 50));
    place(nodes, panel, QRect(300, 200, 200, 160));
    place(panel, target, QRect(30, 40, 60, 40));
    connections.add(connection.figure());
    connection->setSourceAnchor(&sourceAnchor);
    connection->setTargetAnchor(&targetAnchor);
    screen = std::make_unique<Screen>(viewer);
    m_mover = std::make_unique<Mover>(viewer, connections);
}

void ConnectedDiagram::route(RouterKind kind)
{
    IConnectionRouter *const routers[] = {NullRouter::instance(), &bentRouter, &rectilinearRouter};
    connection->setConnectionRouter(routers[kind]);
    if (kind == Bent)
        connection->setRoutingConstraint(bendConstraint());
}

QString ConnectedDiagram::drag(const QPoint &from, const QPoint &to)
{
    QWindow *window = viewer.windowHandle();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, viewer.fromContent(from));
    QString found;
    for (int step = 1; step <= 3 && found.isEmpty(); ++step) {
        QTest::mouseMove(window, viewer.fromContent(from + (to - from) * step / 3));
        found = breach();
    }
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, viewer.fromContent(to));
    return found;
}

QString ConnectedDiagram::breach()
{
    screen->settle();
    const QString found = difference(screen->accumulated(), screen->repainted());
    return found.isEmpty() ? brokenInvariant(&pane) : found;
}

// What an end aims at: the bend, or the other figure.
QPoint ConnectedDiagram::aimOf(bool isSource) const
{
    if (connection->getRoutingConstraint().isValid())
        return bend;
    const IConnectionAnchor *other = isSource ? connection->getTargetAnchor() : connection->getSourceAnchor();
    return other->getReferencePoint();
}

bool ConnectedDiagram::isAttached() const
{
    const QList<QPoint> points = connection->getPoints();
    return points.first() == connection->getSourceAnchor()->getLocation(aimOf(true))
        && points.last() == connection->getTargetAnchor()->getLocation(aimOf(false));
}

bool ConnectedDiagram::isRectilinear() const
{
    const QList<QPoint> points = connection->getPoints();
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPoint way = points.at(i) - points.at(i - 1);
        if (way.x() != 0 && way.y() != 0)
            return false;
    }
    return true;
}
