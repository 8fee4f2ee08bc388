#include "StageSet.h"

#include "GraphicsViewStage.h"
#include "LibraryStage.h"
#include "PainterStage.h"

#include <algorithm>

namespace Bench {

namespace {

void addLinksFor(Show show, const Scene &scene, Stage &stage)
{
    const int count = int(scene.boxes.size());
    if (show == Show::Dragged)
        stage.addLinks(linksOfDraggedBox(scene), LinkStyle::Straight);
    else if (show == Show::StraightLinks)
        stage.addLinks(neighbourLinks(scene, count), LinkStyle::Straight);
    else if (show == Show::ElbowLinks)
        stage.addLinks(neighbourLinks(scene, count), LinkStyle::Elbow);
}

} // namespace

const char *nameOf(Contestant contestant)
{
    constexpr std::array<const char *, AllContestants.size()> names
        = {"library", "graphicsview-bsp", "graphicsview-noindex", "painter"};
    return names[std::size_t(contestant)];
}

std::unique_ptr<Stage> emptyStage(Contestant contestant, bool monitored)
{
    switch (contestant) {
    case Contestant::Library:
        return makeLibraryStage(monitored);
    case Contestant::GraphicsViewBsp:
        return makeGraphicsViewStage(QGraphicsScene::BspTreeIndex);
    case Contestant::GraphicsViewNoIndex:
        return makeGraphicsViewStage(QGraphicsScene::NoIndex);
    case Contestant::Painter:
        break;
    }
    return makePainterStage();
}

std::unique_ptr<StageSet> StageSet::s_current;

StageSet &StageSet::of(Show show, int count)
{
    if (!s_current || s_current->m_show != show || s_current->m_count != count) {
        forget();
        s_current.reset(new StageSet(show, count));
    }
    return *s_current;
}

void StageSet::forget()
{
    s_current.reset();
}

StageSet::StageSet(Show show, int count)
    : m_show(show)
    , m_count(count)
    , m_scene(show == Show::Chips ? chipScene(count) : gridScene(count))
{ }

Stage &StageSet::stage(Contestant contestant)
{
    std::unique_ptr<Stage> &stage = m_stages[std::size_t(contestant)];
    if (!stage) {
        stage = emptyStage(contestant, m_show == Show::MonitoredGrid);
        stage->build(m_scene);
        addLinksFor(m_show, m_scene, *stage);
        stage->paint();
    }
    return *stage;
}

View StageSet::agreedView(const View &view)
{
    const View agreed = reference().look(view);
    reference().paint();
    return agreed;
}

double StageSet::overviewScale() const
{
    const QSizeF size = extent(m_scene).size();
    return std::min(ViewportSize.width() / size.width(), ViewportSize.height() / size.height());
}

View StageSet::centered(double scale) const
{
    const QPointF middle = QRectF(extent(m_scene)).center() * scale;
    return {scale, QPointF(ViewportSize.width(), ViewportSize.height()) / 2 - middle};
}

void show(Stage &stage, const View &view)
{
    stage.look(view);
    stage.update(QRect(QPoint(0, 0), ViewportSize));
    stage.paint();
}

} // namespace Bench
