#include "support/TestMain.h"

#include "FigureNest.h"
#include "StubAnchor.h"
#include "StubConnection.h"

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/RelativeBendpoint.h>

#include <QMetaType>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

} // namespace

class tst_Bendpoints : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void typesAreRegisteredByName_data();
    void typesAreRegisteredByName();
    void bendpointIsFoundByItsInterface();
    void parentOwnsTheBendpoint();

    void absoluteBendpointIsWhereItIsPut();
    void absoluteBendpointAtTheOriginIsNull();
    void absoluteBendpointCopiesItsLocationOnly();
    void absoluteBendpointTravelsInAVariant();

    void relativeBendpointStartsHalfWay();
    void relativeBendpointKeepsWhatIsSet();
    void relativeBendpointWithoutConnectionIsNull();
    void relativeBendpointWithoutAnchorIsAtTheOrigin();
    void relativeBendpointIsMixedByWeight_data();
    void relativeBendpointIsMixedByWeight();
    void unsetOffsetsMoveUpAndLeft();
    void targetShareIsRoundedToSinglePrecision();
    void relativeBendpointIsInTheConnectionsCoordinates();
    void relativeBendpointCannotBeMoved();
    void relativeBendpointCopiesAllButTheParent();
    void relativeBendpointTravelsInAVariant();
    void relativeBendpointLetsGoOfADeadConnection();
    void limitsOfIntegersAreDefined();
};

void tst_Bendpoints::typesAreRegisteredByName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("absolute") << QByteArray("Vantrel::Pictel::AbsoluteBendpoint");
    QTest::newRow("relative") << QByteArray("Vantrel::Pictel::RelativeBendpoint");
    QTest::newRow("interface") << QByteArray("Vantrel::Pictel::IBendpoint*");
}

void tst_Bendpoints::typesAreRegisteredByName()
{
    QFETCH(QByteArray, name);
    const QMetaType type = QMetaType::fromName(name);
    QVERIFY(type.isValid());
    QCOMPARE(QByteArray(type.name()), name);
}

void tst_Bendpoints::bendpointIsFoundByItsInterface()
{
    AbsoluteBendpoint bendpoint;
    QObject *object = &bendpoint;
    QCOMPARE(qobject_cast<IBendpoint *>(object), static_cast<IBendpoint *>(&bendpoint));
    QCOMPARE(object->qt_metacast("IBendpoint.Pictel.Vantrel.vantrel.org"),
             static_cast<void *>(static_cast<IBendpoint *>(&bendpoint)));
}

void tst_Bendpoints::parentOwnsTheBendpoint()
{
    QObject parent;
    StubConnection connection;
    QCOMPARE((new AbsoluteBendpoint(&parent))->parent(), &parent);
    QCOMPARE((new AbsoluteBendpoint(QPoint(1, 2), &parent))->parent(), &parent);
    QCOMPARE((new AbsoluteBendpoint(1, 2, &parent))->parent(), &parent);
    QCOMPARE((new RelativeBendpoint(&parent))->parent(), &parent);
    QCOMPARE((new RelativeBendpoint(&connection, &parent))->parent(), &parent);
}

// Absolute bendpoints

void tst_Bendpoints::absoluteBendpointIsWhereItIsPut()
{
    AbsoluteBendpoint bendpoint(3, 4);
    QCOMPARE(bendpoint.getLocation(), QPoint(3, 4));
    QCOMPARE(AbsoluteBendpoint(QPoint(5, 6)).getLocation(), QPoint(5, 6));
    QCOMPARE(AbsoluteBendpoint().getLocation(), QPoint(0, 0));
    bendpoint.setLocation(QPoint(-7, 8));
    QCOMPARE(bendpoint.getLocation(), QPoint(-7, 8));
}

void tst_Bendpoints::absoluteBendpointAtTheOriginIsNull()
{
    QVERIFY(AbsoluteBendpoint().isNull());
    QVERIFY(AbsoluteBendpoint(0, 0).isNull());
    QVERIFY(!AbsoluteBendpoint(0, 1).isNull());
    QVERIFY(!AbsoluteBendpoint(1, 0).isNull());
}

void tst_Bendpoints::absoluteBendpointCopiesItsLocationOnly()
{
    QObject parent;
    auto *original = new AbsoluteBendpoint(3, 4, &parent);
    AbsoluteBendpoint copy(*original);
    QCOMPARE(copy.getLocation(), QPoint(3, 4));
    QCOMPARE(copy.parent(), nullptr);

    original->setLocation(QPoint(5, 6));
    AbsoluteBendpoint &assigned = (copy = *original);
    QCOMPARE(&assigned, &copy);
    QCOMPARE(copy.getLocation(), QPoint(5, 6));
    QCOMPARE(copy.parent(), nullptr);
}

void tst_Bendpoints::absoluteBendpointTravelsInAVariant()
{
    const auto variant = QVariant::fromValue(AbsoluteBendpoint(3, 4));
    QCOMPARE(QByteArray(variant.typeName()), QByteArray("Vantrel::Pictel::AbsoluteBendpoint"));
    QCOMPARE(variant.value<AbsoluteBendpoint>().getLocation(), QPoint(3, 4));
}

// Relative bendpoints

void tst_Bendpoints::relativeBendpointStartsHalfWay()
{
    StubConnection connection;
    const RelativeBendpoint bendpoint(&connection);
    QCOMPARE(bendpoint.getConnection(), static_cast<IConnection *>(&connection));
    QCOMPARE(bendpoint.getWeight(), 0.5F);
    QCOMPARE(bendpoint.getRelativeDim1(), QSize(-1, -1));
    QCOMPARE(bendpoint.getRelativeDim2(), QSize(-1, -1));
}

void tst_Bendpoints::relativeBendpointKeepsWhatIsSet()
{
    StubConnection connection;
    RelativeBendpoint bendpoint;
    bendpoint.setConnection(&connection);
    bendpoint.setWeight(0.25F);
    bendpoint.setRelativeDimensions(QSize(1, 2), QSize(3, 4));
    QCOMPARE(bendpoint.getConnection(), static_cast<IConnection *>(&connection));
    QCOMPARE(bendpoint.getWeight(), 0.25F);
    QCOMPARE(bendpoint.getRelativeDim1(), QSize(1, 2));
    QCOMPARE(bendpoint.getRelativeDim2(), QSize(3, 4));
    bendpoint.setConnection(nullptr);
    QCOMPARE(bendpoint.getConnection(), nullptr);
}

void tst_Bendpoints::relativeBendpointWithoutConnectionIsNull()
{
    RelativeBendpoint bendpoint;
    QVERIFY(bendpoint.isNull());
    QCOMPARE(bendpoint.getConnection(), nullptr);
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));
}

void tst_Bendpoints::relativeBendpointWithoutAnchorIsAtTheOrigin()
{
    FigureNest nest;
    StubAnchor anchor(QPoint(10, 20), QPoint());
    StubConnection connection(&anchor, nullptr);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    const RelativeBendpoint bendpoint(&connection);
    QVERIFY(!bendpoint.isNull());
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));
    connection.sourceAnchor = nullptr;
    connection.targetAnchor = &anchor;
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));
}

// Source reference (10, 20) with the offset (1, 2), target reference (110, 220) with the offset (3, 4).
void tst_Bendpoints::relativeBendpointIsMixedByWeight_data()
{
    QTest::addColumn<float>("weight");
    QTest::addColumn<QPoint>("location");
    QTest::newRow("source") << 0.0F << QPoint(11, 22);
    QTest::newRow("target") << 1.0F << QPoint(113, 224);
    QTest::newRow("half-way") << 0.5F << QPoint(62, 123);
    QTest::newRow("quarter, fraction dropped") << 0.25F << QPoint(36, 72);
    QTest::newRow("beyond the target") << 1.5F << QPoint(164, 325);
    QTest::newRow("beyond the source, truncated toward zero") << -0.25F << QPoint(-14, -28);
    QTest::newRow("no number") << std::nanf("") << QPoint(0, 0);
}

void tst_Bendpoints::relativeBendpointIsMixedByWeight()
{
    QFETCH(float, weight);
    StubAnchor source(QPoint(10, 20), QPoint(-1000, -1000));
    StubAnchor target(QPoint(110, 220), QPoint(-1000, -1000));
    StubConnection connection(&source, &target);
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setRelativeDimensions(QSize(1, 2), QSize(3, 4));
    bendpoint.setWeight(weight);
    QTEST(bendpoint.getLocation(), "location");
}

void tst_Bendpoints::unsetOffsetsMoveUpAndLeft()
{
    StubAnchor source(QPoint(10, 20), QPoint());
    StubAnchor target(QPoint(110, 220), QPoint());
    StubConnection connection(&source, &target);
    QCOMPARE(RelativeBendpoint(&connection).getLocation(), QPoint(59, 119));
}

// The single-precision 0.1 is 0.100000001490116, which leaves the source 8.999999985 of its 10. The target's share of
// 20 is 2.00000002980 in double precision but exactly 2 in single; a sum in single precision would be 11 again.
void tst_Bendpoints::targetShareIsRoundedToSinglePrecision()
{
    StubAnchor source(QPoint(10, 10), QPoint());
    StubAnchor target(QPoint(10, 20), QPoint());
    StubConnection connection(&source, &target);
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));
    bendpoint.setWeight(0.1F);
    QCOMPARE(bendpoint.getLocation(), QPoint(9, 10));
}

void tst_Bendpoints::relativeBendpointIsInTheConnectionsCoordinates()
{
    FigureNest nest;
    StubAnchor source(QPoint(10, 20), QPoint());
    StubAnchor target(QPoint(110, 220), QPoint());
    StubConnection connection(&source, &target);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    QCOMPARE(RelativeBendpoint(&connection).getLocation(), QPoint(-41, -81));
}

void tst_Bendpoints::relativeBendpointCannotBeMoved()
{
    StubAnchor source(QPoint(10, 20), QPoint());
    StubAnchor target(QPoint(110, 220), QPoint());
    StubConnection connection(&source, &target);
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setLocation(QPoint(1, 1));
    QCOMPARE(bendpoint.getLocation(), QPoint(59, 119));
}

void tst_Bendpoints::relativeBendpointCopiesAllButTheParent()
{
    QObject parent;
    StubConnection connection;
    auto *original = new RelativeBendpoint(&connection, &parent);
    original->setWeight(0.75F);
    original->setRelativeDimensions(QSize(1, 2), QSize(3, 4));
    const RelativeBendpoint copy(*original);
    QCOMPARE(copy.parent(), nullptr);
    QCOMPARE(copy.getConnection(), static_cast<IConnection *>(&connection));
    QCOMPARE(copy.getWeight(), 0.75F);
    QCOMPARE(copy.getRelativeDim1(), QSize(1, 2));
    QCOMPARE(copy.getRelativeDim2(), QSize(3, 4));
}

void tst_Bendpoints::relativeBendpointTravelsInAVariant()
{
    StubConnection connection;
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setWeight(0.75F);
    const auto variant = QVariant::fromValue(bendpoint);
    QCOMPARE(QByteArray(variant.typeName()), QByteArray("Vantrel::Pictel::RelativeBendpoint"));
    QCOMPARE(variant.value<RelativeBendpoint>().getWeight(), 0.75F);
    QCOMPARE(variant.value<RelativeBendpoint>().getConnection(), static_cast<IConnection *>(&connection));
}

void tst_Bendpoints::relativeBendpointLetsGoOfADeadConnection()
{
    StubAnchor anchor(QPoint(10, 20), QPoint());
    auto connection = std::make_unique<StubConnection>(&anchor, &anchor);
    RelativeBendpoint bendpoint(connection.get());
    const RelativeBendpoint copy(bendpoint);
    connection.reset();
    QVERIFY(bendpoint.isNull());
    QCOMPARE(bendpoint.getConnection(), nullptr);
    QCOMPARE(bendpoint.getLocation(), QPoint(0, 0));
    QVERIFY(copy.isNull());
}

void tst_Bendpoints::limitsOfIntegersAreDefined()
{
    StubAnchor source(QPoint(lowest, highest), QPoint());
    StubAnchor target(QPoint(lowest, highest), QPoint());
    StubConnection connection(&source, &target);
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));
    QCOMPARE(bendpoint.getLocation(), QPoint(lowest, highest));
    bendpoint.setWeight(std::numeric_limits<float>::max());
    QCOMPARE(bendpoint.getLocation(), QPoint(lowest, highest));
    bendpoint.setRelativeDimensions(QSize(-1, 1), QSize(-1, 1)); // wraps around
    bendpoint.setWeight(0.0F);
    QCOMPARE(bendpoint.getLocation(), QPoint(highest, lowest));
}

PICTEL_TEST_MAIN(tst_Bendpoints)
#include "tst_bendpoints.moc"
