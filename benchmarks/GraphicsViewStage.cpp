#include "GraphicsViewStage.h"

#include "Chip.h"
#include "FigureIndex.h"
#include "PaintWatch.h"

#include <QGraphicsPathItem>
#include <QGraphicsRectItem>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QMultiHash>
#include <QPainter>
#include <QScrollBar>

#include <cmath>

namespace Bench {

namespace {

/// Enough that every view that a workload asks for lies within the scroll range.
constexpr double RoomAround = 1e5;

class ChipItem final : public QGraphicsItem
{
public:
    explicit ChipItem(const Box &box)
        : m_box(box)
    { }

    QRectF boundingRect() const override { return QRectF(QPointF(0, 0), m_box.rect.size()); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        paintChip(painter, QRect(QPoint(0, 0), m_box.rect.size()), m_box);
    }

private:
    const Box m_box;
};

std::unique_ptr<QGraphicsItem> makeBoxItem(const Box &box)
{
    auto item = std::make_unique<QGraphicsRectItem>(QRectF(QPointF(0, 0), box.rect.size()));
    item->setPen(Qt::NoPen);
    item->setBrush(box.color);
    if (!box.label.isEmpty())
        new QGraphicsSimpleTextItem(box.label, item.get());
    return item;
}

std::unique_ptr<QGraphicsItem> makeItem(const Box &box, Detail detail)
{
    std::unique_ptr<QGraphicsItem> item = detail == Detail::Chips ? std::make_unique<ChipItem>(box) : makeBoxItem(box);
    item->setPos(box.rect.topLeft());
    return item;
}

class GraphicsViewStage final : public Stage
{
public:
    explicit GraphicsViewStage(QGraphicsScene::ItemIndexMethod method)
        : m_view(&m_scene)
        , m_watch(m_view.viewport())
    {
        m_scene.setItemIndexMethod(method);
        m_view.setFrameShape(QFrame::NoFrame);
        m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setBackgroundBrush(Qt::white);
        m_view.setSceneRect(-RoomAround, -RoomAround, 3 * RoomAround, 3 * RoomAround);
        m_view.resize(ViewportSize);
        m_view.show();
        look(View());
        m_watch.wait();
    }

    void build(const Scene &scene) override
    {
        m_items.reserve(scene.boxes.size());
        for (const Box &box : scene.boxes) {
            std::unique_ptr<QGraphicsItem> item = makeItem(box, scene.detail);
            m_scene.addItem(item.get());
            m_items.push_back(item.release());
        }
    }

    void addLinks(const std::vector<Link> &links, LinkStyle style) override
    {
        QPen pen(Qt::black, 1);
        pen.setCosmetic(true);
        for (const Link &link : links) {
            auto item = std::make_unique<QGraphicsPathItem>();
            item->setPen(pen);
            item->setZValue(1);
            m_scene.addItem(item.get());
            m_lines.push_back({item.release(), link, style});
            for (const int end : {link.source, link.target})
                m_linesOf.insert(end, m_lines.size() - 1);
            attach(m_lines.back());
        }
    }

    void routeAll() override
    {
        for (const Line &line : m_lines)
            attach(line);
    }

    void routePending() override { }

    std::vector<QPolygon> routes() override
    {
        std::vector<QPolygon> all;
        for (const Line &line : m_lines)
            all.push_back(line.item->path().toSubpathPolygons().value(0).toPolygon());
        return all;
    }

    void moveFigure(int index, const QPoint &step) override
    {
        m_items[std::size_t(index)]->moveBy(step.x(), step.y());
        if (m_linesOf.isEmpty())
            return;
        const auto [first, last] = m_linesOf.equal_range(index);
        for (auto line = first; line != last; ++line)
            attach(m_lines[*line]);
    }

    void removeFigures(const std::vector<int> &indices) override
    {
        for (const int index : indices) {
            QGraphicsItem *&item = m_items[std::size_t(index)];
            m_scene.removeItem(item);
            delete std::exchange(item, nullptr);
        }
    }

    View look(const View &view) override
    {
        const QPointF scrolled(std::floor(-view.offset.x()), std::floor(-view.offset.y()));
        const QPointF rest = view.offset + scrolled;
        m_view.setTransform(QTransform(view.scale, 0, 0, view.scale, rest.x(), rest.y()));
        m_view.horizontalScrollBar()->setValue(int(scrolled.x()));
        m_view.verticalScrollBar()->setValue(int(scrolled.y()));
        return view;
    }

    void update(const QRect &area) override { m_view.viewport()->update(area); }
    void paint() override { m_watch.wait(); }

    std::optional<int> figureAt(const QPoint &point) override
    {
        return m_index.of(figureOf(m_scene.itemAt(point, m_view.viewportTransform())), m_items);
    }

    std::vector<int> figuresIn(const QRect &area) override
    {
        return m_index.ofAll(m_scene.items(area, Qt::IntersectsItemBoundingRect), m_items);
    }

    QRect bounds(int index) override { return m_items[std::size_t(index)]->sceneBoundingRect().toRect(); }
    QImage picture() override { return screenPicture(m_view); }

private:
    struct Line
    {
        QGraphicsPathItem *item;
        Link link;
        LinkStyle style;
    };

    static QGraphicsItem *figureOf(QGraphicsItem *item)
    {
        return item && item->parentItem() ? item->parentItem() : item;
    }

    void attach(const Line &line)
    {
        const QRect source = bounds(line.link.source);
        const QRect target = bounds(line.link.target);
        const QLine way = chopped(source, target);
        QPainterPath path(way.p1());
        if (line.style == LinkStyle::Elbow) {
            path.lineTo(way.center().x(), way.y1());
            path.lineTo(way.center().x(), way.y2());
        }
        path.lineTo(way.p2());
        line.item->setPath(path);
    }

    QGraphicsScene m_scene;
    std::vector<QGraphicsItem *> m_items;
    std::vector<Line> m_lines;
    QMultiHash<int, std::size_t> m_linesOf;
    FigureIndex m_index;
    QGraphicsView m_view;
    PaintWatch m_watch;
};

} // namespace

std::unique_ptr<Stage> makeGraphicsViewStage(QGraphicsScene::ItemIndexMethod method)
{
    return std::make_unique<GraphicsViewStage>(method);
}

} // namespace Bench
