#include "support/TestMain.h"

#include "Drawing.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/PageLayout.h>

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_FreeformViewer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void viewerComesWithWidgetAndUpdateManager();
    void isFoundAsViewerAndViewport();
    void metaObjectHasSignalsAndSlots_data();
    void metaObjectHasSignalsAndSlots();

    void contentIsForwarded();
    void refusedContentIsReported();
    void contentSetOnScreenKeepsItsBounds();
    void contentSetBeforeShowIsLaidOutByTheResize();

    void newUpdateManagerIsBound();
    void replacedUpdateManagerIsDeletedLater();
    void sameUpdateManagerIsKept();
    void nullUpdateManagerLeavesNone();
    void parentlessUpdateManagerGoesWithTheViewer();
    void foreignUpdateManagerOutlivesTheViewer();

    void scaleIsAnnouncedAlways();
    void scaleToNormalIsAnnouncedAlways();
    void scaleAtAPointIsAnnouncedWhenItDiffers();
    void fitIsAnnouncedTwice();
    void fitWithoutExtentIsAnnouncedTwice();
    void topLeftReachesTheWidget();
    void scaleBoundsReachTheWidget();
    void viewerPropertiesAreTheWidgets();

    void pageLayoutIsStored();
    void nullsAreIgnored();

    void contentDiesAfterTheViewer();
    void contentDiesBeforeTheViewer();
    void contentOwnedByTheViewer();
    void replacedWidgetLeavesTheViewerUsable();
    void takenWidgetOutlivesTheViewer();
};

void tst_FreeformViewer::viewerComesWithWidgetAndUpdateManager()
{
    FreeformViewer viewer;
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());
    QVERIFY(widget);
    QVERIFY(viewer.isAncestorOf(widget));
    UpdateManager *manager = viewer.getUpdateManager();
    QVERIFY(manager);
    QCOMPARE(manager->parent(), &viewer);
    QCOMPARE(manager->getViewer(), static_cast<IFigureViewer *>(&viewer));
    QCOMPARE(widget->getUpdateManager(), manager);
    QCOMPARE(viewer.backgroundRole(), QPalette::Dark);
    QCOMPARE(viewer.getContent(), nullptr);
    QCOMPARE(viewer.getPageLayout(), nullptr);
    QCOMPARE(viewer.getScale(), 1.0);
}

void tst_FreeformViewer::isFoundAsViewerAndViewport()
{
    FreeformViewer viewer;
    QObject *object = &viewer;
    QCOMPARE(qobject_cast<IFigureViewer *>(object), static_cast<IFigureViewer *>(&viewer));
    QCOMPARE(qobject_cast<IViewport *>(object), static_cast<IViewport *>(&viewer));
    QCOMPARE(viewer.getViewport(), static_cast<IViewport *>(&viewer));
    QCOMPARE(object->qt_metacast("IFigureViewer.Pictel.Vantrel.vantrel.org"), static_cast<IFigureViewer *>(&viewer));
    QCOMPARE(object->qt_metacast("IViewport.Pictel.Vantrel.vantrel.org"), static_cast<IViewport *>(&viewer));
}

void tst_FreeformViewer::metaObjectHasSignalsAndSlots_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("access");
    QTest::addColumn<QList<QByteArray>>("names");
    const auto row = [](const char *signature, QMetaMethod::MethodType type, QMetaMethod::Access access,
                        const QList<QByteArray> &names = {}) {
        QTest::newRow(signature) << QByteArray(signature) << int(type) << int(access) << names;
    };
    row("scaleChanged(double)", QMetaMethod::Signal, QMetaMethod::Public, {"newScale"});
    row("setScale(double,const QPoint*)", QMetaMethod::Slot, QMetaMethod::Public, {"scale", "pTopLeft"});
    row("setScale(double)", QMetaMethod::Slot, QMetaMethod::Public, {"scale"});
    row("scaleToFit()", QMetaMethod::Slot, QMetaMethod::Public);
    row("scaleToNormal()", QMetaMethod::Slot, QMetaMethod::Public);
    row("setScaleBounds(double,double)", QMetaMethod::Slot, QMetaMethod::Public);
    row("evaluateContentBounds()", QMetaMethod::Slot, QMetaMethod::Private);
    row("moveViewTo(int,int)", QMetaMethod::Slot, QMetaMethod::Private);
}

void tst_FreeformViewer::metaObjectHasSignalsAndSlots()
{
    QFETCH(QByteArray, signature);
    const QMetaObject &meta = FreeformViewer::staticMetaObject;
    const int index = meta.indexOfMethod(signature);
    QVERIFY(index >= meta.methodOffset());
    QTEST(int(meta.method(index).methodType()), "type");
    QTEST(int(meta.method(index).access()), "access");
    QFETCH(QList<QByteArray>, names);
    if (!names.isEmpty())
        QCOMPARE(meta.method(index).parameterNames(), names);
}

void tst_FreeformViewer::contentIsForwarded()
{
    FreeformViewer viewer;
    FreeformLayeredPane pane;
    QCOMPARE(viewer.setContent(&pane), true);
    QCOMPARE(viewer.getContent(), &pane);
    QCOMPARE(qobject_cast<FreeformWidget *>(viewer.widget())->getContent(), &pane);
}

void tst_FreeformViewer::refusedContentIsReported()
{
    FreeformViewer viewer;
    Figure figure;
    expectWarning("FreeformWidget::setContent(): assigned content not a FreeformedLayeredPane");
    QCOMPARE(viewer.setContent(&figure), false);
    QCOMPARE(viewer.getContent(), nullptr);
}

void tst_FreeformViewer::contentSetOnScreenKeepsItsBounds()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    FreeformLayeredPane late;
    drawing.viewer.setContent(&late);
    QCOMPARE(late.getBounds(), QRect());
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
    expectDebug("Figure::render(): invalid figure bounds");
    drawing.widget.repaint();
    FreeformLayeredPane placed;
    placed.setFreeformBounds(QRect(5, 6, 7, 8));
    drawing.viewer.setContent(&placed);
    QCOMPARE(placed.getBounds(), QRect(5, 6, 7, 8));
}

void tst_FreeformViewer::contentSetBeforeShowIsLaidOutByTheResize()
{
    Drawing drawing;
    QCOMPARE(drawing.pane.getBounds(), QRect());
    QVERIFY(drawing.show());
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
}

void tst_FreeformViewer::newUpdateManagerIsBound()
{
    Drawing drawing;
    auto *manager = new UpdateManager(&drawing.viewer);
    drawing.viewer.setUpdateManager(manager);
    QCOMPARE(drawing.viewer.getUpdateManager(), manager);
    QCOMPARE(manager->getViewer(), static_cast<IFigureViewer *>(&drawing.viewer));
    QCOMPARE(drawing.widget.getUpdateManager(), manager);
    QCOMPARE(drawing.pane.getUpdateManager(), manager);
}

void tst_FreeformViewer::replacedUpdateManagerIsDeletedLater()
{
    Drawing drawing;
    const QPointer<UpdateManager> first = drawing.viewer.getUpdateManager();
    drawing.viewer.setUpdateManager(new UpdateManager(&drawing.viewer));
    QVERIFY(first);
    QCoreApplication::sendPostedEvents(first, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_FreeformViewer::sameUpdateManagerIsKept()
{
    Drawing drawing;
    const QPointer<UpdateManager> manager = drawing.viewer.getUpdateManager();
    drawing.viewer.setUpdateManager(manager);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(manager);
    QCOMPARE(drawing.viewer.getUpdateManager(), manager.data());
}

void tst_FreeformViewer::nullUpdateManagerLeavesNone()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPointer<UpdateManager> first = drawing.viewer.getUpdateManager();
    drawing.viewer.setUpdateManager(nullptr);
    QCOMPARE(drawing.viewer.getUpdateManager(), nullptr);
    QCOMPARE(drawing.widget.getUpdateManager(), nullptr);
    QCOMPARE(drawing.pane.getUpdateManager(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    drawing.figure.setBounds(QRect(1, 1, 1, 1));
    drawing.widget.repaint();
}

void tst_FreeformViewer::parentlessUpdateManagerGoesWithTheViewer()
{
    const QPointer<UpdateManager> manager = new UpdateManager;
    {
        FreeformViewer viewer;
        viewer.setUpdateManager(manager);
    }
    QVERIFY(manager);
    QCOMPARE(manager->getViewer(), nullptr);
    QCoreApplication::sendPostedEvents(manager, QEvent::DeferredDelete);
    QVERIFY(!manager);
}

void tst_FreeformViewer::foreignUpdateManagerOutlivesTheViewer()
{
    QObject owner;
    const QPointer<UpdateManager> manager = new UpdateManager(&owner);
    {
        FreeformViewer viewer;
        viewer.setUpdateManager(manager);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(manager);
    QCOMPARE(manager->getViewer(), nullptr);
}

void tst_FreeformViewer::scaleIsAnnouncedAlways()
{
    Square drawing;
    QVERIFY(drawing.show());
    QSignalSpy changed(&drawing.viewer, SIGNAL(scaleChanged(double)));
    drawing.viewer.setScale(2.0);
    drawing.viewer.setScale(2.0);
    drawing.viewer.setScaleBounds(0.5, 4.0);
    drawing.viewer.setScale(8.0);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.at(0).first().toDouble(), 2.0);
    QCOMPARE(changed.at(1).first().toDouble(), 2.0);
    QCOMPARE(changed.at(2).first().toDouble(), 4.0);
    QCOMPARE(drawing.viewer.getScale(), 4.0);
}

void tst_FreeformViewer::scaleToNormalIsAnnouncedAlways()
{
    Square drawing;
    QVERIFY(drawing.show());
    QSignalSpy changed(&drawing.viewer, SIGNAL(scaleChanged(double)));
    drawing.viewer.scaleToNormal();
    drawing.widget.setScale(2.0);
    drawing.viewer.scaleToNormal();
    QCOMPARE(changed, QList<QVariantList>({{1.0}, {1.0}}));
    QCOMPARE(drawing.viewer.getScale(), 1.0);
}

void tst_FreeformViewer::scaleAtAPointIsAnnouncedWhenItDiffers()
{
    Square drawing;
    QVERIFY(drawing.show());
    QSignalSpy changed(&drawing.viewer, SIGNAL(scaleChanged(double)));
    QCOMPARE(drawing.viewer.setScaleAt(1.0, QPoint(0, 0)), 1.0);
    QCOMPARE(drawing.viewer.setScaleAt(-1.0, QPoint(0, 0)), 1.0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(drawing.viewer.setScaleAt(2.0, QPoint(50, 60)), 2.0);
    QCOMPARE(changed, QList<QVariantList>({{2.0}}));
    QCOMPARE(drawing.viewer.fromContent(QPoint(50, 60)), QPoint(50, 60));
}

void tst_FreeformViewer::fitIsAnnouncedTwice()
{
    Square drawing;
    QVERIFY(drawing.show());
    QSignalSpy changed(&drawing.viewer, SIGNAL(scaleChanged(double)));
    drawing.viewer.scaleToFit();
    QCOMPARE(changed, QList<QVariantList>({{1.5}, {1.5}}));
    // The second fit moves a view that has the fitting size already.
    QCOMPARE(drawing.pane.getBounds(), QRect(QPoint(-84, -51), QPoint(182, 149)));
    QVERIFY(drawing.viewer.getViewRect().contains(QRect(-50, -50, 199, 199)));
}

void tst_FreeformViewer::fitWithoutExtentIsAnnouncedTwice()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    QSignalSpy changed(&drawing.viewer, SIGNAL(scaleChanged(double)));
    drawing.viewer.scaleToFit();
    QCOMPARE(changed, QList<QVariantList>({{-1.0}, {-1.0}}));
    QCOMPARE(drawing.viewer.getScale(), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
}

void tst_FreeformViewer::topLeftReachesTheWidget()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(10, 20);
    drawing.viewer.setScale(2.0, &topLeft);
    QCOMPARE(drawing.viewer.getViewRect(), QRect(10, 20, 200, 150));
}

void tst_FreeformViewer::scaleBoundsReachTheWidget()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.viewer.setScaleBounds(4.0, 2.0);
    QCOMPARE(drawing.widget.getScale(), 2.0);
    drawing.viewer.resetScaleBounds();
    drawing.viewer.setScale(1.0);
    QCOMPARE(drawing.widget.getScale(), 1.0);
}

void tst_FreeformViewer::viewerPropertiesAreTheWidgets()
{
    Drawing drawing;
    drawing.viewer.enableExtentHandling(false);
    QCOMPARE(drawing.widget.extentHandlingEnabled(), false);
    QCOMPARE(drawing.viewer.extentHandlingEnabled(), false);
    drawing.viewer.enableExtentHandling(true);
    QCOMPARE(drawing.widget.extentHandlingEnabled(), true);
    QCOMPARE(drawing.viewer.extentHandlingEnabled(), true);
    drawing.viewer.setHighlighted(true);
    QCOMPARE(drawing.widget.isHighlighted(), true);
    QCOMPARE(drawing.viewer.isHighlighted(), true);
    drawing.viewer.setHighlightStyle(3);
    QCOMPARE(drawing.widget.getHighlightStyle(), 3);
    QCOMPARE(drawing.viewer.getHighlightStyle(), 3);
    drawing.viewer.elasticBand() = QRect(1, 2, 3, 4);
    QCOMPARE(drawing.widget.elasticBand(), QRect(1, 2, 3, 4));
    drawing.viewer.setXYMargins(7, -8);
    QCOMPARE(drawing.widget.getXMargin(), 7);
    QCOMPARE(drawing.widget.getYMargin(), 0);
}

void tst_FreeformViewer::pageLayoutIsStored()
{
    FreeformViewer viewer;
    auto page = std::make_unique<PageLayout>();
    viewer.setPageLayout(page.get());
    QCOMPARE(viewer.getPageLayout(), page.get());
    QCOMPARE(page->parent(), nullptr);
    page.reset();
    QCOMPARE(viewer.getPageLayout(), nullptr);
}

void tst_FreeformViewer::nullsAreIgnored()
{
    Drawing drawing;
    drawing.viewer.print(nullptr, "drawing", QRect(0, 0, 10, 10));
    drawing.viewer.copy(nullptr, "drawing", QRect(0, 0, 10, 10));
    drawing.viewer.setPageLayout(nullptr);
    QCOMPARE(drawing.viewer.getPageLayout(), nullptr);
}

void tst_FreeformViewer::contentDiesAfterTheViewer()
{
    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, true);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 100, 100));
    pane.addLayer(&layer, "layer");
    {
        FreeformViewer viewer;
        viewer.resize(400, 300);
        viewer.setContent(&pane);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    }
    QCOMPARE(pane.getUpdateManager(), nullptr);
    figure.setBounds(QRect(10, 10, 10, 10));
    layer.revalidate();
    FreeformViewer next;
    expectDebug("Figure::addNotify() should not be call multiple times");
    QCOMPARE(next.setContent(&pane), true);
    QCOMPARE(figure.getUpdateManager(), next.getUpdateManager());
}

void tst_FreeformViewer::contentDiesBeforeTheViewer()
{
    FreeformViewer viewer;
    viewer.resize(400, 300);
    {
        FreeformLayeredPane pane;
        FreeformLayer layer(nullptr, true);
        Figure figure;
        layer.add(&figure, QRect(0, 0, 100, 100));
        pane.addLayer(&layer, "layer");
        viewer.setContent(&pane);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowExposed(&viewer));
        figure.setBounds(QRect(10, 10, 10, 10));
    }
    QCOMPARE(viewer.getContent(), nullptr);
    QCoreApplication::processEvents();
    viewer.scaleToFit();
    QCOMPARE(viewer.getScale(), 1.0);
}

void tst_FreeformViewer::contentOwnedByTheViewer()
{
    QPointer<FreeformLayeredPane> pane;
    {
        FreeformViewer viewer;
        pane = new FreeformLayeredPane(&viewer);
        auto *layer = new FreeformLayer(pane, true);
        pane->addLayer(layer, "layer");
        layer->add(new Figure(layer), QRect(0, 0, 100, 100));
        viewer.resize(400, 300);
        viewer.setContent(pane);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    }
    QVERIFY(!pane);
}

void tst_FreeformViewer::replacedWidgetLeavesTheViewerUsable()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.viewer.setWidget(new QWidget);
    QCOMPARE(drawing.viewer.getContent(), nullptr);
    QCOMPARE(drawing.pane.getUpdateManager(), nullptr);
    QCOMPARE(drawing.viewer.toContent(QPoint(3, 4)), QPoint(3, 4));
    drawing.viewer.setScale(2.0);
    QCOMPARE(drawing.viewer.getScale(), 1.0);
    drawing.viewer.resize(500, 400);
    QCOMPARE(drawing.viewer.elasticBand(), QRect());
    FreeformLayeredPane next;
    QCOMPARE(drawing.viewer.setContent(&next), true);
    QCOMPARE(next.getUpdateManager(), drawing.viewer.getUpdateManager());
}

void tst_FreeformViewer::takenWidgetOutlivesTheViewer()
{
    std::unique_ptr<QWidget> widget;
    {
        FreeformViewer viewer;
        widget.reset(viewer.takeWidget());
    }
    auto *freeform = qobject_cast<FreeformWidget *>(widget.get());
    QVERIFY(freeform);
    QCOMPARE(freeform->setScale(2.0), 1.0);
    freeform->setHighlighted(true);
    QVERIFY(!freeform->grab().isNull());
}

PICTEL_TEST_MAIN(tst_FreeformViewer)
#include "tst_freeformviewer.moc"
