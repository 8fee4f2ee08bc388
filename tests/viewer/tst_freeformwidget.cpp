#include "support/TestMain.h"

#include "Drawing.h"
#include "EventLog.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layers/LayeredPane.h>

#include <QHoverEvent>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_FreeformWidget : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newWidgetHasItsDefaults();
    void metaObjectHasThePrivateSlot();

    void mappingStartsAsIdentity();
    void mappingFollowsOriginAndScale();
    void samePointAtOriginUpdatesNothing();

    void contentGetsWhatItNeedsToBeShown();
    void otherContentIsRefused();
    void contentWithoutUpdateManagerGetsNone();
    void contentIsQueuedForValidation();
    void replacedContentKeepsTheUpdateManager();
    void replacedContentIsStillListenedTo();
    void contentOfAnotherWidgetKeepsItsManager();
    void sameContentAgainIsNotifiedAgain();
    void updateManagerReachesTheContent();
    void sameUpdateManagerIsNotHandedOnAgain();

    void negativeMarginsBecomeNone();
    void marginsMoveNothingByThemselves();
    void sizeHintIsTheScaledExtentWithMargins();
    void sizeHintWithoutExtentIsTheMinimumSize();

    void highlightIsRepaintedWhenItChanges();
    void highlightStyleIsRepaintedWhileHighlighted();

    void hoverMoveIsPostedToTheViewer();
    void otherHoverEventsAreNotPosted();
    void realMouseMoveReachesTheViewerAsHover();
    void nullEventIsIgnored();

    void contentDiesWhileShown();
    void updateManagerDiesWhileShown();
    void widgetDiesBeforeItsContent();
};

namespace {

class HoverLog : public QObject
{
public:
    explicit HoverLog(QObject &object) { object.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::HoverMove) {
            const auto *hover = static_cast<QHoverEvent *>(event);
            ++count;
            position = hover->position();
            oldPosition = hover->oldPosF();
            modifiers = hover->modifiers();
        }
        return false;
    }

    int count = 0;
    QPointF position;
    QPointF oldPosition;
    Qt::KeyboardModifiers modifiers;
};

} // namespace

void tst_FreeformWidget::newWidgetHasItsDefaults()
{
    FreeformWidget widget(nullptr);
    QCOMPARE(widget.getContent(), nullptr);
    QCOMPARE(widget.getUpdateManager(), nullptr);
    QCOMPARE(widget.elasticBand(), QRect());
    QCOMPARE(widget.getPointAtOrigin(), QPointF(0, 0));
    QCOMPARE(widget.getScale(), 1.0);
    QCOMPARE(widget.getXMargin(), 50);
    QCOMPARE(widget.getYMargin(), 50);
    QCOMPARE(widget.isResizing(), false);
    QCOMPARE(widget.extentHandlingEnabled(), true);
    QCOMPARE(widget.isHighlighted(), false);
    QCOMPARE(widget.getHighlightStyle(), 0);
    QCOMPARE(widget.minimumSize(), QSize(300, 200));
    QCOMPARE(widget.backgroundRole(), QPalette::Base);
    QCOMPARE(widget.autoFillBackground(), true);
    QCOMPARE(widget.testAttribute(Qt::WA_Hover), true);
    QCOMPARE(widget.testAttribute(Qt::WA_MouseTracking), true);
    QCOMPARE(widget.windowType(), Qt::Window);
    FreeformWidget tool(nullptr, Qt::Tool);
    QCOMPARE(tool.windowType(), Qt::Tool);
}

void tst_FreeformWidget::metaObjectHasThePrivateSlot()
{
    const QMetaObject &meta = FreeformWidget::staticMetaObject;
    QCOMPARE(meta.className(), "Vantrel::Pictel::FreeformWidget");
    const int index = meta.indexOfSlot("contentExtentChanged()");
    QVERIFY(index >= meta.methodOffset());
    QCOMPARE(meta.method(index).access(), QMetaMethod::Private);
}

void tst_FreeformWidget::mappingStartsAsIdentity()
{
    FreeformWidget widget(nullptr);
    QCOMPARE(widget.toLogical(QPointF(3.5, -4)), QPointF(3.5, -4));
    QCOMPARE(widget.fromLogical(QPointF(3.5, -4)), QPointF(3.5, -4));
    QCOMPARE(widget.toLogical(QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
    QCOMPARE(widget.fromLogical(QRectF(1, 2, 3, 4)), QRectF(1, 2, 3, 4));
}

void tst_FreeformWidget::mappingFollowsOriginAndScale()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(0, 0);
    drawing.widget.setScale(2.0, &topLeft);
    drawing.widget.setPointAtOrigin(QPoint(10, -20));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(10, -20));
    QCOMPARE(drawing.widget.toLogical(QPointF(5, 6)), QPointF(12.5, -17));
    QCOMPARE(drawing.widget.fromLogical(QPointF(12.5, -17)), QPointF(5, 6));
    QCOMPARE(drawing.widget.toLogical(QRectF(5, 6, 8, 10)), QRectF(12.5, -17, 4, 5));
    QCOMPARE(drawing.widget.fromLogical(QRectF(12.5, -17, 4, 5)), QRectF(5, 6, 8, 10));
}

void tst_FreeformWidget::samePointAtOriginUpdatesNothing()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.widget.setPointAtOrigin(QPoint(0, 0));
    QCoreApplication::processEvents();
    QCOMPARE(log.count(QEvent::Paint), 0);
    drawing.widget.setPointAtOrigin(QPoint(1, 0));
    QTRY_COMPARE(log.count(QEvent::Paint), 1);
}

void tst_FreeformWidget::contentGetsWhatItNeedsToBeShown()
{
    FreeformViewer viewer;
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());
    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, false);
    pane.addLayer(&layer, "layer");
    pane.setBackgroundColor(Qt::red);
    QCOMPARE(widget->setContent(&pane), true);
    QCOMPARE(widget->getContent(), &pane);
    QCOMPARE(pane.getBackgroundColor(), QColor(Qt::transparent));
    QVERIFY(pane.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(layer.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(pane.getUpdateManager(), viewer.getUpdateManager());
    QCOMPARE(layer.getUpdateManager(), viewer.getUpdateManager());
}

void tst_FreeformWidget::otherContentIsRefused()
{
    Square drawing;
    LayeredPane plainPane;
    for (Figure *content : QList<Figure *>({&plainPane, &drawing.layer, nullptr})) {
        expectWarning("FreeformWidget::setContent(): assigned content not a FreeformedLayeredPane");
        QCOMPARE(drawing.widget.setContent(content), false);
        QCOMPARE(drawing.widget.getContent(), &drawing.pane);
    }
    QCOMPARE(plainPane.getFlag(Figure::FLAG_NOTIFIED), false);
    QCOMPARE(drawing.pane.getUpdateManager(), drawing.viewer.getUpdateManager());
}

void tst_FreeformWidget::contentWithoutUpdateManagerGetsNone()
{
    FreeformWidget widget(nullptr);
    FreeformLayeredPane pane;
    QCOMPARE(widget.setContent(&pane), true);
    QVERIFY(pane.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(pane.getUpdateManager(), nullptr);
}

void tst_FreeformWidget::contentIsQueuedForValidation()
{
    Drawing drawing;
    FreeformLayeredPane other;
    other.setFreeformBounds(QRect(0, 0, 10, 10));
    drawing.pane.setFreeformBounds(QRect(0, 0, 10, 10));
    drawing.viewer.getUpdateManager()->performUpdate();
    drawing.widget.setContent(&other);
    const QSignalSpy validating(drawing.viewer.getUpdateManager(), SIGNAL(aboutToValidate(IFigureViewer *)));
    drawing.viewer.getUpdateManager()->performUpdate();
    QCOMPARE(validating.count(), 1);
}

void tst_FreeformWidget::replacedContentKeepsTheUpdateManager()
{
    Square drawing;
    FreeformLayeredPane other;
    QCOMPARE(drawing.widget.setContent(&other), true);
    QCOMPARE(other.getUpdateManager(), drawing.viewer.getUpdateManager());
    QCOMPARE(drawing.pane.getUpdateManager(), drawing.viewer.getUpdateManager());
    QVERIFY(drawing.pane.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FreeformWidget::replacedContentIsStillListenedTo()
{
    class CountingPane : public FreeformLayeredPane
    {
    public:
        int watchers() const { return receivers(SIGNAL(extentChanged())); }
    };
    FreeformWidget widget(nullptr);
    CountingPane first;
    CountingPane second;
    widget.setContent(&first);
    QCOMPARE(first.watchers(), 1);
    widget.setContent(&second);
    QCOMPARE(first.watchers(), 1);
    QCOMPARE(second.watchers(), 1);
}

void tst_FreeformWidget::contentOfAnotherWidgetKeepsItsManager()
{
    Drawing first;
    Drawing second;
    expectDebug("Figure::addNotify() should not be call multiple times");
    second.widget.setContent(&first.pane);
    QCOMPARE(first.pane.getUpdateManager(), second.viewer.getUpdateManager());
    FreeformLayeredPane other;
    first.widget.setContent(&other);
    QCOMPARE(first.pane.getUpdateManager(), second.viewer.getUpdateManager());
}

void tst_FreeformWidget::sameContentAgainIsNotifiedAgain()
{
    Drawing drawing;
    expectDebug("Figure::addNotify() should not be call multiple times");
    QCOMPARE(drawing.widget.setContent(&drawing.pane), true);
    QCOMPARE(drawing.pane.getUpdateManager(), drawing.viewer.getUpdateManager());
}

void tst_FreeformWidget::updateManagerReachesTheContent()
{
    Drawing drawing;
    UpdateManager other;
    drawing.widget.setUpdateManager(&other);
    QCOMPARE(drawing.widget.getUpdateManager(), &other);
    QCOMPARE(drawing.pane.getUpdateManager(), &other);
    drawing.widget.setUpdateManager(nullptr);
    QCOMPARE(drawing.widget.getUpdateManager(), nullptr);
    QCOMPARE(drawing.pane.getUpdateManager(), nullptr);
}

void tst_FreeformWidget::sameUpdateManagerIsNotHandedOnAgain()
{
    Drawing first;
    Drawing second;
    expectDebug("Figure::addNotify() should not be call multiple times");
    second.widget.setContent(&first.pane);
    first.widget.setUpdateManager(first.viewer.getUpdateManager());
    QCOMPARE(first.pane.getUpdateManager(), second.viewer.getUpdateManager());
}

void tst_FreeformWidget::negativeMarginsBecomeNone()
{
    FreeformWidget widget(nullptr);
    widget.setMargins(-5, 10);
    QCOMPARE(widget.getXMargin(), 0);
    QCOMPARE(widget.getYMargin(), 10);
    widget.setMargins(7, -1);
    QCOMPARE(widget.getXMargin(), 7);
    QCOMPARE(widget.getYMargin(), 0);
}

void tst_FreeformWidget::marginsMoveNothingByThemselves()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setMargins(500, 600);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
}

void tst_FreeformWidget::sizeHintIsTheScaledExtentWithMargins()
{
    Square drawing;
    QCOMPARE(drawing.widget.sizeHint(), QSize(200, 200));
    drawing.widget.setMargins(10, 20);
    QCOMPARE(drawing.widget.sizeHint(), QSize(120, 140));
    drawing.widget.setMargins(50, 50);
    QVERIFY(drawing.show());
    drawing.widget.setScale(2.0);
    QCOMPARE(drawing.widget.sizeHint(), QSize(400, 400));
}

void tst_FreeformWidget::sizeHintWithoutExtentIsTheMinimumSize()
{
    Drawing drawing;
    QCOMPARE(drawing.widget.sizeHint(), QSize(300, 200));
    FreeformWidget empty(nullptr);
    empty.setMinimumSize(20, 10);
    QCOMPARE(empty.sizeHint(), QSize(20, 10));
}

void tst_FreeformWidget::highlightIsRepaintedWhenItChanges()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.widget.setHighlighted(true);
    QCOMPARE(log.count(QEvent::Paint), 1);
    drawing.widget.setHighlighted(true);
    QCOMPARE(log.count(QEvent::Paint), 1);
    QCOMPARE(drawing.widget.isHighlighted(), true);
    drawing.widget.setHighlighted(false);
    QCOMPARE(log.count(QEvent::Paint), 2);
    QCOMPARE(drawing.widget.isHighlighted(), false);
}

void tst_FreeformWidget::highlightStyleIsRepaintedWhileHighlighted()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.widget.setHighlightStyle(1);
    QCOMPARE(drawing.widget.getHighlightStyle(), 1);
    QCOMPARE(log.count(QEvent::Paint), 0);
    drawing.widget.setHighlighted(true);
    drawing.widget.setHighlightStyle(1);
    QCOMPARE(log.count(QEvent::Paint), 2);
}

void tst_FreeformWidget::hoverMoveIsPostedToTheViewer()
{
    Square drawing;
    QVERIFY(drawing.show());
    HoverLog log(drawing.viewer);
    QHoverEvent hover(QEvent::HoverMove, QPointF(12, 34), QPointF(112, 134), QPointF(11, 33), Qt::ShiftModifier);
    QCoreApplication::sendEvent(&drawing.widget, &hover);
    QCOMPARE(log.count, 0);
    QCoreApplication::sendPostedEvents(&drawing.viewer, QEvent::HoverMove);
    QCOMPARE(log.count, 1);
    QCOMPARE(log.position, QPointF(12, 34));
    QCOMPARE(log.oldPosition, QPointF(11, 33));
    QCOMPARE(log.modifiers, Qt::NoModifier);
}

void tst_FreeformWidget::otherHoverEventsAreNotPosted()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.viewer, {QEvent::HoverEnter, QEvent::HoverLeave, QEvent::HoverMove});
    QHoverEvent enter(QEvent::HoverEnter, QPointF(12, 34), QPointF(112, 134), QPointF(11, 33));
    QCoreApplication::sendEvent(&drawing.widget, &enter);
    QHoverEvent leave(QEvent::HoverLeave, QPointF(12, 34), QPointF(112, 134), QPointF(11, 33));
    QCoreApplication::sendEvent(&drawing.widget, &leave);
    QCoreApplication::sendPostedEvents(&drawing.viewer);
    QCOMPARE(log.seen(), QList<QEvent::Type>());
}

void tst_FreeformWidget::realMouseMoveReachesTheViewerAsHover()
{
    Square drawing;
    QVERIFY(drawing.show());
    HoverLog log(drawing.viewer);
    QTest::mouseMove(drawing.viewer.windowHandle(), QPoint(40, 50));
    QTest::mouseMove(drawing.viewer.windowHandle(), QPoint(60, 70));
    QTRY_COMPARE(log.position, QPointF(60, 70));
}

void tst_FreeformWidget::nullEventIsIgnored()
{
    class OpenWidget : public FreeformWidget
    {
    public:
        using FreeformWidget::event;
        using FreeformWidget::FreeformWidget;
        using FreeformWidget::paintEvent;
    };
    OpenWidget widget(nullptr);
    QCOMPARE(widget.event(nullptr), false);
    widget.paintEvent(nullptr);
}

void tst_FreeformWidget::contentDiesWhileShown()
{
    FreeformViewer viewer;
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());
    auto pane = std::make_unique<FreeformLayeredPane>();
    viewer.setContent(pane.get());
    viewer.resize(400, 300);
    viewer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    QCoreApplication::processEvents();
    EventLog log(*widget, {QEvent::Paint});
    pane.reset();
    QCOMPARE(widget->getContent(), nullptr);
    QTRY_VERIFY(log.count(QEvent::Paint) > 0);
    viewer.setScale(2.0);
    viewer.resize(500, 400);
    FreeformLayeredPane next;
    QCOMPARE(viewer.setContent(&next), true);
}

void tst_FreeformWidget::updateManagerDiesWhileShown()
{
    Square drawing;
    QVERIFY(drawing.show());
    delete drawing.viewer.getUpdateManager();
    QCOMPARE(drawing.widget.getUpdateManager(), nullptr);
    QCOMPARE(drawing.pane.getUpdateManager(), nullptr);
    drawing.figure.setBounds(QRect(10, 10, 50, 50));
    drawing.widget.repaint();
    QCOMPARE(drawing.widget.setScale(2.0), 2.0);
}

void tst_FreeformWidget::widgetDiesBeforeItsContent()
{
    FreeformLayeredPane pane;
    UpdateManager manager;
    {
        FreeformWidget widget(nullptr);
        widget.setUpdateManager(&manager);
        expectWarning("UpdateManager::addInvalidFigure(): no managed widget");
        widget.setContent(&pane);
        QCOMPARE(pane.getUpdateManager(), &manager);
    }
    QCOMPARE(pane.getUpdateManager(), nullptr);
    pane.setFreeformBounds(QRect(0, 0, 10, 10));
}

PICTEL_TEST_MAIN(tst_FreeformWidget)
#include "tst_freeformwidget.moc"
