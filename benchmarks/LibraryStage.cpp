#include "LibraryStage.h"

#include "Chip.h"
#include "FigureIndex.h"
#include "PaintWatch.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/shapes/TextFigure.h>
#include <vtlpictel/viewer/FreeformViewer.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QStyleOptionViewItem>

namespace Bench {

namespace {

using namespace Vantrel::Pictel;

class ChipFigure final : public Figure
{
public:
    explicit ChipFigure(const Box &box)
        : Figure(nullptr, Qt::transparent)
        , m_box(box)
    { }

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        paintChip(painter, option.rect, m_box);
    }

private:
    const Box m_box;
};

std::unique_ptr<Figure> makeFigure(const Box &box, Detail detail)
{
    if (detail == Detail::Chips)
        return std::make_unique<ChipFigure>(box);
    if (box.label.isEmpty())
        return std::make_unique<Figure>(nullptr, box.color);
    return std::make_unique<TextFigure>(box.label, nullptr, box.color);
}

class LibraryStage final : public Stage
{
public:
    explicit LibraryStage(bool monitored)
        : m_layer(nullptr, monitored)
        , m_lines(nullptr, true)
        , m_watch(m_viewer.widget())
    {
        m_pane.addLayer(&m_layer, QStringLiteral("figures"));
        m_pane.addLayer(&m_lines, QStringLiteral("lines"));
        m_viewer.setFrameShape(QFrame::NoFrame);
        m_viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_viewer.setXYMargins(0, 0);
        m_viewer.widget()->setProperty("backgroundColor", QColor(Qt::white));
        m_viewer.setContent(&m_pane);
        m_viewer.resize(ViewportSize);
        m_viewer.show();
        m_watch.wait();
    }

    void build(const Scene &scene) override
    {
        m_figures.reserve(scene.boxes.size());
        for (const Box &box : scene.boxes) {
            m_figures.push_back(makeFigure(box, scene.detail));
            m_layer.add(m_figures.back().get(), box.rect);
        }
    }

    void addLinks(const std::vector<Link> &links, LinkStyle style) override
    {
        m_lines.setConnectionRouter(style == LinkStyle::Elbow ? &m_router : nullptr);
        for (const Link &link : links) {
            auto *line = new PolylineConnection(&m_lines);
            line->setEnabledFGColor(Qt::black);
            line->setSourceAnchor(new ChopboxAnchor(figure(link.source), line));
            line->setTargetAnchor(new ChopboxAnchor(figure(link.target), line));
            m_lines.add(line);
            m_connections.push_back(line);
        }
    }

    void routeAll() override
    {
        for (PolylineConnection *connection : m_connections)
            connection->revalidate();
        routePending();
    }

    void routePending() override { m_viewer.getUpdateManager()->performUpdate(); }

    std::vector<QPolygon> routes() override
    {
        std::vector<QPolygon> all;
        for (const PolylineConnection *connection : m_connections)
            all.emplace_back(connection->getPoints());
        return all;
    }

    void moveFigure(int index, const QPoint &step) override
    {
        Figure *moved = figure(index);
        moved->setBounds(moved->getBounds().translated(step));
    }

    void removeFigures(const std::vector<int> &indices) override
    {
        for (const int index : indices) {
            m_layer.remove(figure(index));
            m_figures[std::size_t(index)].reset();
        }
    }

    View look(const View &view) override
    {
        const QPoint topLeft = (-view.offset / view.scale).toPoint();
        m_viewer.setScale(view.scale, &topLeft);
        return {m_viewer.getScale(), m_viewer.fromContent(QPointF(0, 0))};
    }

    void update(const QRect &area) override
    {
        QWidget *widget = m_viewer.widget();
        widget->update(area.translated(widget->mapFrom(m_viewer.viewport(), QPoint(0, 0))));
    }

    // Validating before painting, not during it, lets what that moves be painted in the same go.
    void paint() override
    {
        routePending();
        m_watch.wait();
    }

    std::optional<int> figureAt(const QPoint &point) override
    {
        return m_index.of(m_layer.findFigureAt(point), m_figures);
    }

    std::vector<int> figuresIn(const QRect &area) override
    {
        return m_index.ofAll(m_layer.findFigures(area), m_figures);
    }

    QRect bounds(int index) override { return figure(index)->getBounds(); }
    QImage picture() override { return screenPicture(m_viewer); }

private:
    Figure *figure(int index) const { return m_figures[std::size_t(index)].get(); }

    FreeformLayeredPane m_pane;
    FreeformLayer m_layer;
    ConnectionLayer m_lines;
    ManhattanConnectionRouter m_router;
    std::vector<PolylineConnection *> m_connections;
    std::vector<std::unique_ptr<Figure>> m_figures;
    FigureIndex m_index;
    FreeformViewer m_viewer;
    PaintWatch m_watch;
};

} // namespace

std::unique_ptr<Stage> makeLibraryStage(bool monitored)
{
    return std::make_unique<LibraryStage>(monitored);
}

} // namespace Bench
