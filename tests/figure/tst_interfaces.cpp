#include "support/TestMain.h"

#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/connections/IBendpoint.h>
#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/IConnection.h>
#include <vtlpictel/figure/IFigure.h>
#include <vtlpictel/figure/ILocator.h>
#include <vtlpictel/figure/IPropertyChangeListener.h>
#include <vtlpictel/figure/IRotatableDecoration.h>
#include <vtlpictel/figure/ITreeSearch.h>
#include <vtlpictel/figure/IUpdateManager.h>
#include <vtlpictel/layers/IFreeformFigure.h>
#include <vtlpictel/viewer/IFigureViewer.h>
#include <vtlpictel/viewer/IViewport.h>

#include <type_traits>

using namespace Vantrel::Pictel;

static_assert(std::is_base_of_v<IFigure, IConnection>);
static_assert(std::is_base_of_v<IFigure, IRotatableDecoration>);

/// What applications find the library's interfaces by.
class tst_Interfaces : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void haveTheirIdentifiers_data();
    void haveTheirIdentifiers();
    void bendpointsTravelInVariants();
    void connectionsNameTheirProperties();
};

namespace {

template <typename Interface>
void addRow(const char *identifier)
{
    QTest::newRow(identifier) << QByteArray(qobject_interface_iid<Interface *>());
}

} // namespace

void tst_Interfaces::haveTheirIdentifiers_data()
{
    QTest::addColumn<QByteArray>("identifier");
    addRow<ITreeSearch>("ITreeSearch.Mox.Vantrel.vantrel.org");
    addRow<IAncestorListener>("IAncestorListener.Pictel.Vantrel.vantrel.org");
    addRow<IAnchorListener>("IAnchorListener.Pictel.Vantrel.vantrel.org");
    addRow<IBendpoint>("IBendpoint.Pictel.Vantrel.vantrel.org");
    addRow<IConnection>("IConnection.Pictel.Vantrel.vantrel.org");
    addRow<IConnectionAnchor>("IConnectionAnchor.Pictel.Vantrel.vantrel.org");
    addRow<IConnectionRouter>("IConnectionRouter.Pictel.Vantrel.vantrel.org");
    addRow<IFigure>("IFigure.Pictel.Vantrel.vantrel.org");
    addRow<IFigureViewer>("IFigureViewer.Pictel.Vantrel.vantrel.org");
    addRow<IFreeformFigure>("IFreeformFigure.Pictel.Vantrel.vantrel.org");
    addRow<ILocator>("ILocator.Pictel.Vantrel.vantrel.org");
    addRow<IPropertyChangeListener>("IPropertyChangeListener.Pictel.Vantrel.vantrel.org");
    addRow<IRotatableDecoration>("IRotatableDecoration.Pictel.Vantrel.vantrel.org");
    addRow<IUpdateManager>("IUpdateManager.Pictel.Vantrel.vantrel.org");
    addRow<IViewport>("IViewport.Pictel.Vantrel.vantrel.org");
}

void tst_Interfaces::haveTheirIdentifiers()
{
    QFETCH(const QByteArray, identifier);
    QCOMPARE(identifier, QByteArray(QTest::currentDataTag()));
}

void tst_Interfaces::bendpointsTravelInVariants()
{
    class Bend : public IBendpoint
    {
    public:
        QPoint getLocation() const override { return QPoint(1, 2); }
        void setLocation(const QPoint &) override { }
    };
    Bend bend;
    const QList<IBendpoint *> bendpoints {&bend};
    const QVariant constraint = QVariant::fromValue(bendpoints);
    QCOMPARE(constraint.value<QList<IBendpoint *>>(), bendpoints);
    QVERIFY(QMetaType::fromName("Vantrel::Pictel::IBendpoint*").isValid());
}

void tst_Interfaces::connectionsNameTheirProperties()
{
    QCOMPARE(IConnection::PROPERTY_CONNECTION_ROUTER, QStringLiteral("connectionRouter"));
    QCOMPARE(IConnection::PROPERTY_POINTS, QStringLiteral("points"));
    QCOMPARE(IConnection::PROPERTY_POINTSF, QStringLiteral("pointsf"));
}

PICTEL_TEST_MAIN(tst_Interfaces)
#include "tst_interfaces.moc"
