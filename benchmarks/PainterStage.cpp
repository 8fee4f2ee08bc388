#include "PainterStage.h"

#include "Chip.h"
#include "PaintWatch.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace Bench {

namespace {

class Canvas final : public QWidget
{
public:
    Scene scene;
    std::vector<Link> links;
    View view;

    /// Asks for that part of the content, with a line's width around it.
    void updateContent(const QRect &area)
    {
        update(toViewport().mapRect(QRectF(area)).toAlignedRect().adjusted(-2, -2, 2, 2));
    }
    QRect &rect(int index) { return scene.boxes[std::size_t(index)].rect; }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        painter.setTransform(toViewport());
        paintBoxes(painter, toViewport().inverted().mapRect(QRectF(event->rect())).toAlignedRect());
        paintLinks(painter);
    }

private:
    QTransform toViewport() const { return {view.scale, 0, 0, view.scale, view.offset.x(), view.offset.y()}; }

    // A figure never strays farther from its place in the grid than into the next cell.
    void paintBoxes(QPainter &painter, const QRect &area)
    {
        const int rows = (int(scene.boxes.size()) + scene.columns - 1) / scene.columns;
        const int top = std::max(0, area.top() / scene.pitch.height() - 1);
        const int bottom = std::min(rows - 1, area.bottom() / scene.pitch.height() + 1);
        const int left = std::max(0, area.left() / scene.pitch.width() - 1);
        const int right = std::min(scene.columns - 1, area.right() / scene.pitch.width() + 1);
        for (int row = top; row <= bottom; ++row) {
            const std::size_t start = std::size_t(row) * std::size_t(scene.columns);
            const std::size_t end = std::min(start + std::size_t(right) + 1, scene.boxes.size());
            for (std::size_t index = start + std::size_t(left); index < end; ++index)
                paintBox(painter, scene.boxes[index], area);
        }
    }

    void paintBox(QPainter &painter, const Box &box, const QRect &area)
    {
        if (!box.rect.intersects(area))
            return;
        if (scene.detail == Detail::Chips) {
            paintChip(&painter, box.rect, box);
            return;
        }
        painter.fillRect(box.rect, box.color);
        if (!box.label.isEmpty())
            painter.drawText(box.rect, Qt::AlignLeft, box.label);
    }

    void paintLinks(QPainter &painter)
    {
        if (links.empty())
            return;
        QPen pen(Qt::black, 1);
        pen.setCosmetic(true);
        painter.setPen(pen);
        for (const Link &link : links)
            painter.drawLine(chopped(rect(link.source), rect(link.target)));
    }
};

class PainterStage final : public Stage
{
public:
    PainterStage()
        : m_watch(&m_canvas)
    {
        m_canvas.setAttribute(Qt::WA_OpaquePaintEvent);
        m_canvas.resize(ViewportSize);
        m_canvas.show();
        m_watch.wait();
    }

    void build(const Scene &scene) override
    {
        m_canvas.scene = scene;
        m_canvas.update();
    }

    void addLinks(const std::vector<Link> &links, LinkStyle) override
    {
        m_canvas.links.insert(m_canvas.links.end(), links.begin(), links.end());
        m_canvas.update();
    }

    void routeAll() override { }
    void routePending() override { }
    std::vector<QPolygon> routes() override { return {}; }

    void moveFigure(int index, const QPoint &step) override
    {
        updateSurroundings(index);
        m_canvas.rect(index).translate(step);
        updateSurroundings(index);
    }

    void moveAll(const std::vector<QPoint> &steps) override
    {
        for (std::size_t index = 0; index < steps.size(); ++index)
            m_canvas.rect(int(index)).translate(steps[index]);
        m_canvas.update();
    }

    void removeFigures(const std::vector<int> &indices) override
    {
        for (const int index : indices)
            m_canvas.rect(index) = QRect();
        m_canvas.update();
    }

    View look(const View &view) override
    {
        m_canvas.view = view;
        m_canvas.update();
        return view;
    }

    void update(const QRect &area) override { m_canvas.update(area); }
    void paint() override { m_watch.wait(); }

    std::optional<int> figureAt(const QPoint &) override { return std::nullopt; }
    std::vector<int> figuresIn(const QRect &) override { return {}; }
    bool canSearch() const override { return false; }

    QRect bounds(int index) override { return m_canvas.rect(index); }
    QImage picture() override { return screenPicture(m_canvas); }

private:
    void updateSurroundings(int index)
    {
        m_canvas.updateContent(m_canvas.rect(index));
        for (const Link &link : m_canvas.links) {
            if (link.source == index || link.target == index)
                m_canvas.updateContent(m_canvas.rect(link.source) | m_canvas.rect(link.target));
        }
    }

    Canvas m_canvas;
    PaintWatch m_watch;
};

} // namespace

std::unique_ptr<Stage> makePainterStage()
{
    return std::make_unique<PainterStage>();
}

} // namespace Bench
