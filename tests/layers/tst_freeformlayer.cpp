#include "support/DisplayedRoot.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/FreeformLayout.h>
#include <vtlpictel/layout/StackLayout.h>

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Vantrel::Pictel;

class tst_FreeformLayer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void freeformLayoutBelongsToTheLayer();
    void isFoundAsAFreeformFigure();
    void backgroundIsTransparent();

    void monitoringIsTheLayouts_data();
    void monitoringIsTheLayouts();
    void monitoringUnderAnotherLayoutIsOff();

    void paddingDefaultsToNone();
    void negativePaddingIsStoredAsNone();
    void paddingGrowsTheExtentOnAllSides_data();
    void paddingGrowsTheExtentOnAllSides();
    void hugePaddingStaysARectangle();
    void settingThePaddingTellsNobody();
    void extentUnderAnotherLayoutIsNull();
    void extentCoversNegativeCoordinates();

    void freeformBoundsBecomeTheBounds();
    void sameFreeformBoundsMoveNothing();
    void freeformBoundsUnderAnotherLayoutAreIgnored();

    void movedFigureOfAMonitoredLayerChangesTheExtent();
    void moveInsideTheExtentIsNoChange();
    void movedFigureOfAnUnmonitoredLayerChangesNothing();
    void layoutSignalIsRelayed();
    void replacedLayoutStillRelays();
    void deletedLayoutLeavesAnEmptyLayer();
    void figuresOutliveTheLayer();
};

namespace {

QRect extentOf(FreeformLayer &layer, const QRect &figureRect)
{
    Figure figure;
    layer.add(&figure, figureRect);
    return layer.getFreeformExtent();
}

} // namespace

void tst_FreeformLayer::freeformLayoutBelongsToTheLayer()
{
    QObject owner;
    FreeformLayer layer(&owner, false);
    auto *layout = qobject_cast<FreeformLayout *>(layer.getLayoutManager());
    QVERIFY(layout);
    QCOMPARE(layout->parent(), &layer);
    QCOMPARE(layout->getFigure(), &layer);
    QCOMPARE(layer.parent(), &owner);
}

void tst_FreeformLayer::isFoundAsAFreeformFigure()
{
    FreeformLayer layer(nullptr, false);
    QObject *object = &layer;
    QCOMPARE(qobject_cast<IFreeformFigure *>(object), &layer);
    QCOMPARE(object->qt_metacast("IFreeformFigure.Pictel.Vantrel.vantrel.org"), static_cast<IFreeformFigure *>(&layer));
}

void tst_FreeformLayer::backgroundIsTransparent()
{
    FreeformLayer layer(nullptr, true);
    QCOMPARE(layer.getBackgroundColor(), QColor(Qt::transparent));
}

void tst_FreeformLayer::monitoringIsTheLayouts_data()
{
    QTest::addColumn<bool>("monitored");
    QTest::newRow("monitored") << true;
    QTest::newRow("not monitored") << false;
}

void tst_FreeformLayer::monitoringIsTheLayouts()
{
    QFETCH(bool, monitored);
    FreeformLayer layer(nullptr, monitored);
    auto *layout = qobject_cast<FreeformLayout *>(layer.getLayoutManager());
    QCOMPARE(layer.isContentMonitored(), monitored);
    QCOMPARE(layout->isContentMonitored(), monitored);
    layer.setContentMonitored(!monitored);
    QCOMPARE(layer.isContentMonitored(), !monitored);
    QCOMPARE(layout->isContentMonitored(), !monitored);
}

void tst_FreeformLayer::monitoringUnderAnotherLayoutIsOff()
{
    FreeformLayer layer(nullptr, true);
    StackLayout other;
    layer.setLayoutManager(&other);
    QCOMPARE(layer.isContentMonitored(), false);
    layer.setContentMonitored(true);
    QCOMPARE(layer.isContentMonitored(), false);
}

void tst_FreeformLayer::paddingDefaultsToNone()
{
    FreeformLayer layer(nullptr, false);
    QCOMPARE(layer.getExtentPadding(), 0);
}

void tst_FreeformLayer::negativePaddingIsStoredAsNone()
{
    FreeformLayer layer(nullptr, false);
    layer.setExtentPadding(7);
    QCOMPARE(layer.getExtentPadding(), 7);
    layer.setExtentPadding(-7);
    QCOMPARE(layer.getExtentPadding(), 0);
}

void tst_FreeformLayer::paddingGrowsTheExtentOnAllSides_data()
{
    QTest::addColumn<int>("padding");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("ten") << 10 << QRect(-10, -10, 120, 70);
    QTest::newRow("one") << 1 << QRect(-1, -1, 102, 52);
    QTest::newRow("none") << 0 << QRect(0, 0, 100, 50);
    QTest::newRow("negative") << -10 << QRect(0, 0, 100, 50);
}

void tst_FreeformLayer::paddingGrowsTheExtentOnAllSides()
{
    QFETCH(int, padding);
    FreeformLayer layer(nullptr, false);
    layer.setExtentPadding(padding);
    QTEST(extentOf(layer, QRect(0, 0, 100, 50)), "expected");
}

void tst_FreeformLayer::hugePaddingStaysARectangle()
{
    FreeformLayer layer(nullptr, false);
    layer.setExtentPadding(std::numeric_limits<int>::max());
    const QRect extent = extentOf(layer, QRect(0, 0, 100, 50));
    QVERIFY(extent.isValid());
    QVERIFY(extent.contains(QRect(-1000000, -1000000, 2000000, 2000000)));
    QVERIFY(extent.width() > 0 && extent.height() > 0);
}

void tst_FreeformLayer::settingThePaddingTellsNobody()
{
    CallLog log;
    DisplayedRoot tree(&log);
    FreeformLayer layer(nullptr, true);
    layer.setBounds(QRect(0, 0, 100, 100));
    tree.root.add(&layer);
    layer.validate();
    tree.takeDirtyRects();
    log.clear();
    QSignalSpy changes(&layer, &FreeformLayer::extentChanged);
    layer.setExtentPadding(7);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
    QCOMPARE(log.calls(), QStringList());
    QCOMPARE(changes.size(), 0);
    QVERIFY(layer.getFlag(Figure::FLAG_VALID));
}

void tst_FreeformLayer::extentUnderAnotherLayoutIsNull()
{
    FreeformLayer layer(nullptr, false);
    StackLayout other;
    layer.setLayoutManager(&other);
    layer.setExtentPadding(10);
    QCOMPARE(extentOf(layer, QRect(0, 0, 100, 50)), QRect());
}

void tst_FreeformLayer::extentCoversNegativeCoordinates()
{
    FreeformLayer layer(nullptr, false);
    Figure left;
    Figure right;
    layer.add(&left, QRect(-200, -100, 20, 10));
    layer.add(&right, QRect(30, 40, 20, 10));
    QCOMPARE(layer.getFreeformExtent(), QRect(QPoint(-200, -100), QPoint(49, 49)));
}

void tst_FreeformLayer::freeformBoundsBecomeTheBounds()
{
    FreeformLayer layer(nullptr, false);
    layer.setFreeformBounds(QRect(-5, -6, 70, 80));
    QCOMPARE(layer.getBounds(), QRect(-5, -6, 70, 80));
}

void tst_FreeformLayer::sameFreeformBoundsMoveNothing()
{
    FreeformLayer layer(nullptr, false);
    layer.setFreeformBounds(QRect(-5, -6, 70, 80));
    const QSignalSpy moved(&layer, SIGNAL(figureMoved(Figure *)));
    layer.setFreeformBounds(QRect(-5, -6, 70, 80));
    QCOMPARE(moved.count(), 0);
    layer.setFreeformBounds(QRect(-5, -6, 70, 81));
    QCOMPARE(moved.count(), 1);
}

void tst_FreeformLayer::freeformBoundsUnderAnotherLayoutAreIgnored()
{
    FreeformLayer layer(nullptr, false);
    StackLayout other;
    layer.setLayoutManager(&other);
    layer.setFreeformBounds(QRect(-5, -6, 70, 80));
    QCOMPARE(layer.getBounds(), QRect());
}

void tst_FreeformLayer::movedFigureOfAMonitoredLayerChangesTheExtent()
{
    FreeformLayer layer(nullptr, true);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 100, 50));
    layer.setFreeformBounds(QRect(0, 0, 500, 500));
    layer.validate();
    QCOMPARE(layer.getFreeformExtent(), QRect(0, 0, 100, 50));
    const QSignalSpy changed(&layer, SIGNAL(extentChanged()));
    figure.setBounds(QRect(-30, 0, 100, 50));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(layer.getFreeformExtent(), QRect(-30, 0, 100, 50));
}

void tst_FreeformLayer::moveInsideTheExtentIsNoChange()
{
    FreeformLayer layer(nullptr, true);
    Figure frame;
    Figure figure;
    layer.add(&frame, QRect(0, 0, 100, 100));
    layer.add(&figure, QRect(10, 10, 20, 20));
    layer.setFreeformBounds(QRect(0, 0, 500, 500));
    layer.validate();
    QCOMPARE(layer.getFreeformExtent(), QRect(0, 0, 100, 100));
    const QSignalSpy changed(&layer, SIGNAL(extentChanged()));
    figure.setBounds(QRect(50, 50, 20, 20));
    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayer::movedFigureOfAnUnmonitoredLayerChangesNothing()
{
    FreeformLayer layer(nullptr, false);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 100, 50));
    layer.setFreeformBounds(QRect(0, 0, 500, 500));
    layer.validate();
    QCOMPARE(layer.getFreeformExtent(), QRect(0, 0, 100, 50));
    const QSignalSpy changed(&layer, SIGNAL(extentChanged()));
    figure.setBounds(QRect(-30, 0, 100, 50));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(layer.getFreeformExtent(), QRect(0, 0, 100, 50));
}

void tst_FreeformLayer::layoutSignalIsRelayed()
{
    FreeformLayer layer(nullptr, false);
    Figure figure;
    layer.getFreeformExtent();
    layer.add(&figure, QRect(0, 0, 100, 50));
    const QSignalSpy changed(&layer, SIGNAL(extentChanged()));
    qobject_cast<FreeformLayout *>(layer.getLayoutManager())->examineExtent();
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayer::replacedLayoutStillRelays()
{
    FreeformLayer layer(nullptr, false);
    auto *first = qobject_cast<FreeformLayout *>(layer.getLayoutManager());
    StackLayout other;
    QCOMPARE(layer.setLayoutManager(&other), first);
    const QSignalSpy changed(&layer, SIGNAL(extentChanged()));
    QVERIFY(QMetaObject::invokeMethod(first, "extentChanged"));
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayer::deletedLayoutLeavesAnEmptyLayer()
{
    FreeformLayer layer(nullptr, true);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 100, 50));
    delete layer.getLayoutManager();
    QCOMPARE(layer.getFreeformExtent(), QRect());
    layer.setFreeformBounds(QRect(0, 0, 10, 10));
    QCOMPARE(layer.getBounds(), QRect());
    QCOMPARE(layer.isContentMonitored(), false);
}

void tst_FreeformLayer::figuresOutliveTheLayer()
{
    Figure figure;
    {
        FreeformLayer layer(nullptr, true);
        layer.add(&figure, QRect(0, 0, 100, 50));
        QCOMPARE(brokenInvariant(&layer), QString());
    }
    QCOMPARE(figure.getParentFigure(), nullptr);
    figure.setBounds(QRect(1, 2, 3, 4));
    QCOMPARE(figure.getBounds(), QRect(1, 2, 3, 4));
}

PICTEL_TEST_MAIN(tst_FreeformLayer)
#include "tst_freeformlayer.moc"
