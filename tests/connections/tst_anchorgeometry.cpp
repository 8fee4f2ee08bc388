#include "FigureNest.h"
#include "FixedBoxAnchor.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>

#include <QTest>

#include <cmath>

using namespace Vantrel::Pictel;

namespace {

// Restated from the definition of the anchors, apart from the library.

int roundedHalfAway(double value)
{
    return int(value < 0 ? std::ceil(value - 0.5) : std::floor(value + 0.5));
}

QPoint choppedBox(QRect box, const QPoint &offset, const QPoint &reference)
{
    box = QRect(box.x() - 1 + offset.x(), box.y() - 1 + offset.y(), box.width() + 1, box.height() + 1);
    const float centerX = float(box.x() + box.width() * 0.5);
    const float centerY = float(box.y() + box.height() * 0.5);
    const QPoint center {int(centerX), int(centerY)};
    if (box.width() <= 0 || box.height() <= 0 || reference == center)
        return center;
    const float dx = float(reference.x()) - centerX;
    const float dy = float(reference.y()) - centerY;
    float scale = std::fabs(dy) / float(box.height());
    if (std::fabs(dx) / float(box.width()) > scale)
        scale = std::fabs(dx) / float(box.width());
    if (scale == 0)
        return center;
    const float f = float(0.5 / double(scale));
    const float x = f * dx + centerX;
    const float y = f * dy + centerY;
    return {roundedHalfAway(double(x)), roundedHalfAway(double(y))};
}

QPoint cutEllipse(const QRect &bounds, const QPoint &offset, const QPoint &reference)
{
    const double left = bounds.x() + offset.x();
    const double top = bounds.y() + offset.y();
    const double width = bounds.width();
    const double height = bounds.height();
    const double dx = reference.x() - (left + width / 2);
    const double dy = reference.y() - (top + height / 2);
    if (dx == 0)
        return {reference.x(), roundedHalfAway(dy > 0 ? top + height : top)};
    if (dy == 0)
        return {roundedHalfAway(dx > 0 ? left + width : left), reference.y()};
    if (width == 0 && height == 0)
        return {roundedHalfAway(left), roundedHalfAway(top)};
    const double k = width * dy / (height * dx);
    const double x = width * (dx > 0 ? 0.5 : -0.5) / std::sqrt(k * k + 1);
    const double y = height * (dy > 0 ? 0.5 : -0.5) / std::sqrt(1 / (k * k) + 1);
    return {roundedHalfAway(x + left + width / 2), roundedHalfAway(y + top + height / 2)};
}

QString describe(const QRect &bounds, const QPoint &offset, const QPoint &reference, const QPoint &actual,
                 const QPoint &expected)
{
    QString text;
    QDebug(&text) << "bounds" << bounds << "offset" << offset << "reference" << reference << "gave" << actual
                  << "instead of" << expected;
    return text;
}

/// A figure whose bounds are stored as they are, also when they have no or a negative size.
class SizedFigure : public Figure
{
public:
    explicit SizedFigure(const QRect &rect)
        : bounds(rect)
    { }

    QRect getBounds() override { return bounds; }

    QRect bounds;
};

enum class Kind { Usual, OnAnAxis, Degenerate, Far };

/// A coordinate of more than 24 bits, which single precision does not hold exactly.
int farCoordinate(Dice &dice)
{
    const int distance = dice.between(1 << 25, 1 << 28);
    return dice.coin() ? distance : -distance;
}

QRect boundsOf(Dice &dice, Kind kind)
{
    const QPoint corner = kind == Kind::Far ? QPoint(farCoordinate(dice), farCoordinate(dice)) : dice.point(500);
    if (kind == Kind::Degenerate)
        return {corner, QSize(dice.between(-3, 3), dice.between(-3, 3))};
    const int largest = kind == Kind::Far ? 1 << 26 : 200;
    return {corner, QSize(dice.between(1, largest), dice.between(1, largest))};
}

QPoint referenceFor(Dice &dice, Kind kind, const QRectF &absolute)
{
    if (kind == Kind::Far && dice.coin())
        return {farCoordinate(dice), farCoordinate(dice)};
    const QPointF center = absolute.center();
    // On either side of a centre between two pixels.
    const QPoint near(int(std::floor(center.x())) + dice.between(0, 1),
                      int(std::floor(center.y())) + dice.between(0, 1));
    // Far out, a reference point may be so near that single precision does not tell it from the centre.
    const int farReach = dice.coin() ? 2 : 1 << 26;
    const int reach = kind == Kind::Far ? farReach : 100;
    if (kind == Kind::OnAnAxis)
        return near + (dice.coin() ? QPoint(dice.between(-reach, reach), 0) : QPoint(0, dice.between(-reach, reach)));
    return dice.coin() ? dice.point(2000) : near + dice.point(reach);
}

} // namespace

Q_DECLARE_METATYPE(Kind)

/// The places that anchors work out, compared with a restatement of their definition.
class tst_AnchorGeometry : public PictelTest
{
    Q_OBJECT

private:
    static void addKindsAndSeeds();

private Q_SLOTS:
    void chopboxFollowsItsDefinition_data() { addKindsAndSeeds(); }
    void chopboxFollowsItsDefinition();
    void chopboxWithABoxOfItsOwnFollowsItsDefinition_data() { addKindsAndSeeds(); }
    void chopboxWithABoxOfItsOwnFollowsItsDefinition();
    void ellipseFollowsItsDefinition_data() { addKindsAndSeeds(); }
    void ellipseFollowsItsDefinition();
};

void tst_AnchorGeometry::addKindsAndSeeds()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 8; ++seed) {
        QTest::addRow("usual, seed %u", seed) << Kind::Usual << seed;
        QTest::addRow("on an axis, seed %u", seed) << Kind::OnAnAxis << seed;
        QTest::addRow("without or with negative size, seed %u", seed) << Kind::Degenerate << seed;
        QTest::addRow("far out, seed %u", seed) << Kind::Far << seed;
    }
}

void tst_AnchorGeometry::chopboxFollowsItsDefinition()
{
    QFETCH(Kind, kind);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    for (int round = 0; round < 300; ++round) {
        FigureNest nest;
        SizedFigure owner(boundsOf(dice, kind));
        nest.put(&owner, dice.containers(nest));
        const QPoint offset = nest.offsetOf(&owner);
        const QPoint reference = referenceFor(dice, kind, QRectF(owner.bounds.translated(offset)));
        const QPoint expected = choppedBox(owner.bounds, offset, reference);
        const QPoint actual = ChopboxAnchor(&owner).getLocation(reference);
        QVERIFY2(actual == expected, qPrintable(describe(owner.bounds, offset, reference, actual, expected)));
    }
}

void tst_AnchorGeometry::chopboxWithABoxOfItsOwnFollowsItsDefinition()
{
    QFETCH(Kind, kind);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    for (int round = 0; round < 300; ++round) {
        FigureNest nest;
        Figure *owner = nest.addFigure(dice.containers(nest), dice.rect(500, 200));
        const QPoint offset = nest.offsetOf(owner);
        const QRect box = boundsOf(dice, kind);
        const QPoint reference = referenceFor(dice, kind, QRectF(box.translated(offset)));
        const QPoint expected = choppedBox(box, offset, reference);
        const QPoint actual = FixedBoxAnchor(owner, box).getLocation(reference);
        QVERIFY2(actual == expected, qPrintable(describe(box, offset, reference, actual, expected)));
    }
}

void tst_AnchorGeometry::ellipseFollowsItsDefinition()
{
    QFETCH(Kind, kind);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    for (int round = 0; round < 300; ++round) {
        FigureNest nest;
        SizedFigure owner(boundsOf(dice, kind));
        nest.put(&owner, dice.containers(nest));
        const QPoint offset = nest.offsetOf(&owner);
        const QPoint reference = referenceFor(dice, kind, QRectF(owner.bounds.translated(offset)));
        const QPoint expected = cutEllipse(owner.bounds, offset, reference);
        const QPoint actual = EllipseAnchor(&owner).getLocation(reference);
        QVERIFY2(actual == expected, qPrintable(describe(owner.bounds, offset, reference, actual, expected)));
    }
}

PICTEL_TEST_MAIN(tst_AnchorGeometry)
#include "tst_anchorgeometry.moc"
