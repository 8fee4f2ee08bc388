#include "Scene.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace Bench {

namespace {

constexpr quint32 Seed = 20260101;
constexpr QSize PlainPitch(100, 60);
constexpr QSize PlainBox(80, 40);
constexpr QSize ChipPitch(110, 70);
// From here on labels would not fit their boxes, and the library widens a figure that is narrower than its text.
constexpr int FirstWideNumber = 100000;
constexpr int FarthestNeighbour = 4;
constexpr double ViewportAspect = 1200.0 / 800.0;

constexpr std::array<QRgb, 6> Palette = {0xff8dd3c7, 0xffffffb3, 0xffbebada, 0xfffb8072, 0xff80b1d3, 0xfffdb462};

int columnsFor(int count, const QSize &pitch)
{
    return std::max(1, int(std::lround(std::sqrt(count * ViewportAspect * pitch.height() / pitch.width()))));
}

Scene emptyGrid(int count, const QSize &pitch, Detail detail)
{
    Scene scene;
    scene.columns = columnsFor(count, pitch);
    scene.pitch = pitch;
    scene.detail = detail;
    scene.boxes.reserve(static_cast<std::size_t>(count));
    return scene;
}

void fill(Scene &scene, int count, const QSize &boxSize)
{
    QRandomGenerator random(Seed);
    for (int i = 0; i < count; ++i) {
        const QPoint place(i % scene.columns * scene.pitch.width(), i / scene.columns * scene.pitch.height());
        const QString label = i % 4 == 0 ? QStringLiteral("Node %1").arg(i % FirstWideNumber) : QString();
        scene.boxes.push_back({QRect(place, boxSize), QColor::fromRgb(Palette[random.bounded(6U)]), label});
    }
}

// In single precision, as the anchors calculate.
QPoint crossing(const QRect &box, const QPoint &reference)
{
    const QRect grown = box.adjusted(-1, -1, 0, 0);
    const auto centerX = float(grown.x() + grown.width() * 0.5);
    const auto centerY = float(grown.y() + grown.height() * 0.5);
    const float dx = float(reference.x()) - centerX;
    const float dy = float(reference.y()) - centerY;
    const float scale = 0.5F / std::max(std::abs(dy) / float(grown.height()), std::abs(dx) / float(grown.width()));
    return {qRound(scale * dx + centerX), qRound(scale * dy + centerY)};
}

} // namespace

Scene gridScene(int count)
{
    Scene scene = emptyGrid(count, PlainPitch, Detail::Plain);
    fill(scene, count, PlainBox);
    return scene;
}

Scene chipScene(int count)
{
    Scene scene = emptyGrid(count, ChipPitch, Detail::Chips);
    fill(scene, count, ChipPitch);
    return scene;
}

int draggedBox(const Scene &scene)
{
    return 5 * scene.columns + 5;
}

std::vector<Link> linksOfDraggedBox(const Scene &scene)
{
    const int dragged = draggedBox(scene);
    std::vector<Link> links;
    for (const int step : {-1 - scene.columns, 1 - scene.columns, scene.columns - 1, scene.columns + 1})
        links.push_back({dragged, dragged + step});
    return links;
}

std::vector<Link> neighbourLinks(const Scene &scene, int count)
{
    QRandomGenerator random(Seed);
    const int boxes = int(scene.boxes.size());
    const auto stray = [&random] { return random.bounded(-FarthestNeighbour, FarthestNeighbour + 1); };
    std::vector<Link> links;
    while (int(links.size()) < count) {
        const int source = random.bounded(boxes);
        const int target = source + stray() + stray() * scene.columns;
        if (target >= 0 && target < boxes && target != source)
            links.push_back({source, target});
    }
    return links;
}

QRect extent(const Scene &scene)
{
    const int rows = (int(scene.boxes.size()) + scene.columns - 1) / scene.columns;
    return {0, 0, scene.columns * scene.pitch.width(), rows * scene.pitch.height()};
}

QLine chopped(const QRect &source, const QRect &target)
{
    return {crossing(source, target.center()), crossing(target, source.center())};
}

std::vector<int> shuffledIndices(int count)
{
    std::vector<int> indices(static_cast<std::size_t>(count));
    std::iota(indices.begin(), indices.end(), 0);
    QRandomGenerator random(Seed);
    std::shuffle(indices.begin(), indices.end(), random);
    return indices;
}

} // namespace Bench
