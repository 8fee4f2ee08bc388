#include "support/CallLog.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/ITreeSearch.h>

#include <QPainter>
#include <QPointer>
#include <QTest>

using namespace Vantrel::Pictel;

namespace {

class EveryFigure : public ITreeSearch
{
public:
    bool accept(const Figure *) const override { return true; }
    bool prune(const Figure *) const override { return false; }
};

/// A container at (10, 20) with two overlapping children; everything logs.
struct Bench
{
    Bench()
        : layout("layout", &log)
        , container("container", &log)
        , below("below", &log)
        , above("above", &log)
    {
        container.setLayoutManager(&layout);
        container.setBounds(QRect(10, 20, 100, 80));
        below.setBounds(QRect(0, 0, 20, 20));
        above.setBounds(QRect(10, 10, 20, 20));
        below.setBackgroundColor(Qt::red);
        above.setBackgroundColor(Qt::blue);
        container.add(&below);
        container.add(&above);
        log.clear();
    }

    QStringList layoutCalls() const { return log.only({"layout", "performLayout", "postLayout", "invalidate"}); }

    CallLog log;
    ProbeLayout layout;
    ProbeFigure container;
    ProbeFigure below;
    ProbeFigure above;
};

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

/// Shows other children than it holds, and counts the layout passes.
class SubstitutingLayout : public ProbeLayout
{
public:
    QList<Figure *> shown;
    int passes = 0;

    QList<Figure *> childFigures() const override { return shown; }
    bool layout(Figure *container) override
    {
        ++passes;
        return ProbeLayout::layout(container);
    }
};

/// Deletes a layout while that lays out.
class DeletingListener : public LayoutListenerProbe
{
public:
    DeletingListener(CallLog &log, Layout *victim)
        : LayoutListenerProbe("deleting", log)
        , m_victim(victim)
    { }

    bool layout(Figure *) override
    {
        delete m_victim.data();
        return false;
    }

private:
    QPointer<Layout> m_victim;
};

} // namespace

class tst_LayoutPass : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void sizesAreCachedUntilInvalidate();
    void invalidSizesAreAskedForAgain();
    void sizesHaveSeparateCaches();

    void invalidateTellsListenersAndForgets();
    void layoutPerformsOnceInTheClientArea();
    void layoutOfNullIsRefused();
    void failedLayoutIsTriedAgain();
    void listenersAreAskedBeforeAndToldAfter();
    void allListenersAreAskedEvenAfterOneSaidTrue();
    void listenerThatLaysOutKeepsTheLayoutUndone();
    void laidOutLayoutAsksNobody();
    void layoutDeletedByItsListenerWhileLayingOut();

    void renderPaintsVisibleChildrenBottomToTop();
    void renderWithoutPainterOrContainerDoesNothing();
    void renderLaysOutFirst();
    void renderOfUndoneLayoutPaintsNothing();
    void renderReplacesTheClip();
    void renderOfUnclippingLayoutLeavesTheClip();
    void renderRestoresThePainter();
    void renderPassesTheOptionOn();
    void renderGoesThroughTheVirtualLayout();
    void childrenAreThoseOfTheVirtualList();
    void baseLayoutClips();

    void topmostVisibleDescendantIsFound();
    void visibleDescendantsAreListedInOrder();
    void findPassesArgumentsUnchanged();
};

void tst_LayoutPass::sizesAreCachedUntilInvalidate()
{
    Bench bench;
    bench.layout.preferredSize = QSize(30, 40);
    bench.layout.minimumSize = QSize(10, 20);
    QCOMPARE(bench.layout.getPreferredSize(), QSize(30, 40));
    QCOMPARE(bench.layout.getMinimumSize(), QSize(10, 20));
    bench.layout.preferredSize = QSize(1, 1);
    bench.layout.minimumSize = QSize(2, 2);
    QCOMPARE(bench.layout.getPreferredSize(), QSize(30, 40));
    QCOMPARE(bench.layout.getMinimumSize(), QSize(10, 20));
    QCOMPARE(bench.log.calls(), QStringList({"layout.calculatePreferredSize", "layout.calculateMinimumSize"}));
    bench.layout.invalidate();
    QCOMPARE(bench.layout.getPreferredSize(), QSize(1, 1));
    QCOMPARE(bench.layout.getMinimumSize(), QSize(2, 2));
}

void tst_LayoutPass::invalidSizesAreAskedForAgain()
{
    Bench bench;
    bench.layout.preferredSize = QSize(-1, 5);
    bench.layout.minimumSize = QSize(5, -1);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(bench.layout.getPreferredSize(), QSize(-1, 5));
        QCOMPARE(bench.layout.getMinimumSize(), QSize(5, -1));
    }
    QCOMPARE(bench.log.calls().size(), 4);
}

void tst_LayoutPass::sizesHaveSeparateCaches()
{
    Bench bench;
    bench.layout.preferredSize = QSize(3, 3);
    bench.layout.minimumSize = QSize(1, 1);
    QCOMPARE(bench.layout.getMinimumSize(), QSize(1, 1));
    QCOMPARE(bench.layout.getPreferredSize(), QSize(3, 3));
}

void tst_LayoutPass::invalidateTellsListenersAndForgets()
{
    Bench bench;
    LayoutListenerProbe first("first", bench.log);
    LayoutListenerProbe second("second", bench.log);
    bench.layout.addListener(&first);
    bench.layout.addListener(&second);
    bench.layout.setLaidOut(true);
    bench.layout.invalidate();
    QVERIFY(!bench.layout.isLaidOut());
    QCOMPARE(bench.log.calls(),
             QStringList({"layout.invalidate", "first.invalidate(container)", "second.invalidate(container)"}));
}

void tst_LayoutPass::layoutPerformsOnceInTheClientArea()
{
    Bench bench;
    bench.container.setMargin(3);
    QVERIFY(bench.layout.layout(&bench.container));
    QVERIFY(bench.layout.isLaidOut());
    QVERIFY(bench.layout.layout(&bench.container));
    QCOMPARE(bench.layoutCalls(), QStringList({"layout.performLayout(0,0 94x74)"}));
    bench.layout.isRelative = false;
    bench.layout.invalidate();
    bench.log.clear();
    QVERIFY(bench.layout.layout(&bench.container));
    QCOMPARE(bench.layoutCalls(), QStringList({"layout.performLayout(13,23 94x74)"}));
}

void tst_LayoutPass::layoutOfNullIsRefused()
{
    Bench bench;
    bench.layout.setLaidOut(true);
    QVERIFY(!bench.layout.layout(nullptr));
    QCOMPARE(bench.log.calls(), QStringList());
}

void tst_LayoutPass::failedLayoutIsTriedAgain()
{
    Bench bench;
    bench.layout.layoutSucceeds = false;
    QVERIFY(!bench.layout.layout(&bench.container));
    QVERIFY(!bench.layout.isLaidOut());
    bench.layout.layoutSucceeds = true;
    QVERIFY(bench.layout.layout(&bench.container));
}

void tst_LayoutPass::listenersAreAskedBeforeAndToldAfter()
{
    Bench bench;
    LayoutListenerProbe first("first", bench.log);
    LayoutListenerProbe second("second", bench.log);
    bench.layout.addListener(&first);
    bench.layout.addListener(&second);
    QVERIFY(bench.layout.layout(&bench.container));
    QCOMPARE(bench.layoutCalls(),
             QStringList({"first.layout(container)", "second.layout(container)", "layout.performLayout(0,0 100x80)",
                          "first.postLayout(container)", "second.postLayout(container)"}));
}

void tst_LayoutPass::allListenersAreAskedEvenAfterOneSaidTrue()
{
    Bench bench;
    LayoutListenerProbe first("first", bench.log, true);
    LayoutListenerProbe second("second", bench.log, false);
    bench.layout.addListener(&first);
    bench.layout.addListener(&second);
    QVERIFY(!bench.layout.layout(&bench.container));
    QCOMPARE(bench.layoutCalls(),
             QStringList({"first.layout(container)", "second.layout(container)", "first.postLayout(container)",
                          "second.postLayout(container)"}));
}

void tst_LayoutPass::listenerThatLaysOutKeepsTheLayoutUndone()
{
    Bench bench;
    LayoutListenerProbe first("first", bench.log, false);
    LayoutListenerProbe second("second", bench.log, true);
    bench.layout.addListener(&first);
    bench.layout.addListener(&second);
    QVERIFY(!bench.layout.layout(&bench.container));
    QVERIFY(!bench.layout.isLaidOut());
    bench.log.clear();
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QVERIFY(device.isEmpty());
    QVERIFY(bench.log.calls().contains("second.layout(container)"));
}

void tst_LayoutPass::laidOutLayoutAsksNobody()
{
    Bench bench;
    LayoutListenerProbe listener("listener", bench.log);
    bench.layout.addListener(&listener);
    bench.layout.setLaidOut(true);
    QVERIFY(bench.layout.layout(&bench.container));
    QCOMPARE(bench.log.calls(), QStringList());
}

void tst_LayoutPass::layoutDeletedByItsListenerWhileLayingOut()
{
    CallLog log;
    Figure container;
    container.setBounds(QRect(0, 0, 10, 10));
    const QPointer<Layout> layout = new ProbeLayout("layout", &log);
    container.setLayoutManager(layout);
    DeletingListener listener(log, layout);
    LayoutListenerProbe second("second", log);
    layout->addListener(&listener);
    layout->addListener(&second);
    QVERIFY(!layout->layout(&container));
    QVERIFY(layout.isNull());
    QCOMPARE(log.calls(), QStringList());
}

void tst_LayoutPass::renderPaintsVisibleChildrenBottomToTop()
{
    Bench bench;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(10, 20, 20, 20), QRectF(20, 30, 20, 20)}));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::red), QColor(Qt::blue)}));
    bench.below.setVisible(false);
    device.clear();
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::blue)}));
}

void tst_LayoutPass::renderWithoutPainterOrContainerDoesNothing()
{
    Bench bench;
    bench.layout.render(nullptr, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(bench.log.calls(), QStringList());
    bench.layout.setLaidOut(true);
    bench.layout.setFigure(nullptr);
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QVERIFY(device.isEmpty());
    QCOMPARE(bench.log.calls(), QStringList());
}

void tst_LayoutPass::renderLaysOutFirst()
{
    Bench bench;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QVERIFY(bench.layout.isLaidOut());
    QCOMPARE(
        bench.log.only({"performLayout", "render"}),
        QStringList({"layout.performLayout(0,0 100x80)", "below.render(0,0 500x500)", "above.render(0,0 500x500)"}));
    bench.log.clear();
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(bench.log.only({"performLayout"}), QStringList());
}

void tst_LayoutPass::renderOfUndoneLayoutPaintsNothing()
{
    Bench bench;
    bench.layout.layoutSucceeds = false;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QVERIFY(device.isEmpty());
    QCOMPARE(bench.log.only({"performLayout"}).size(), 1);
}

void tst_LayoutPass::renderReplacesTheClip()
{
    Bench bench;
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setClipRect(QRect(0, 0, 15, 15));
    bench.layout.render(&painter, optionFor(QRect(12, 22, 50, 50)));
    QCOMPARE(device.count(), 2);
    QCOMPARE(device.at(0).deviceClipRect(), QRectF(12, 22, 50, 50));
    QCOMPARE(device.at(1).deviceClipRect(), QRectF(12, 22, 50, 50));
}

void tst_LayoutPass::renderOfUnclippingLayoutLeavesTheClip()
{
    Bench bench;
    bench.layout.clips = false;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(12, 22, 50, 50)));
    QVERIFY(!device.at(0).isClipped);
    painter.setClipRect(QRect(0, 0, 15, 15));
    device.clear();
    bench.layout.render(&painter, optionFor(QRect(12, 22, 50, 50)));
    QCOMPARE(device.at(0).deviceClipRect(), QRectF(0, 0, 15, 15));
}

void tst_LayoutPass::renderRestoresThePainter()
{
    Bench bench;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(12, 22, 50, 50)));
    QVERIFY(!painter.hasClipping());
}

void tst_LayoutPass::renderPassesTheOptionOn()
{
    Bench bench;
    RecordingPaintDevice device;
    QPainter painter(&device);
    bench.layout.render(&painter, optionFor(QRect(12, 22, 1, 1)));
    QCOMPARE(bench.log.only({"render"}), QStringList({"below.render(12,22 1x1)", "above.render(12,22 1x1)"}));
}

void tst_LayoutPass::renderGoesThroughTheVirtualLayout()
{
    SubstitutingLayout layout;
    Figure container;
    container.setBounds(QRect(0, 0, 100, 80));
    container.setLayoutManager(&layout);
    RecordingPaintDevice device;
    QPainter painter(&device);
    layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(layout.passes, 1);
    layout.render(&painter, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(layout.passes, 1);
}

void tst_LayoutPass::childrenAreThoseOfTheVirtualList()
{
    SubstitutingLayout layout;
    Figure container;
    container.setLayoutManager(&layout);
    Figure figures[3];
    for (int number = 0; number < 3; ++number) {
        figures[number].setBounds(QRect(0, 0, 10, 10));
        layout.add(&figures[number], 1U << number, 10U << number, -1);
    }
    layout.shown = {&figures[2], &figures[0]};
    QCOMPARE(layout.getVTotalStretch(), 5U);
    QCOMPARE(layout.getHTotalStretch(), 50U);
    const EveryFigure search;
    QCOMPARE(layout.findDescendantAtExcluding(5, 5, search), &figures[0]);
    QList<Figure *> found;
    layout.findDescendantFigures(found, QRect(5, 5, 1, 1), search, false);
    QCOMPARE(found, QList<Figure *>({&figures[2], &figures[0]}));
}

void tst_LayoutPass::baseLayoutClips()
{
    class Opened : public ProbeLayout
    {
    public:
        using ProbeLayout::isClipping;
    };
    QVERIFY(Opened().isClipping());
}

void tst_LayoutPass::topmostVisibleDescendantIsFound()
{
    Bench bench;
    const EveryFigure search;
    QCOMPARE(bench.layout.findDescendantAtExcluding(15, 15, search), &bench.above);
    QCOMPARE(bench.layout.findDescendantAtExcluding(5, 5, search), &bench.below);
    QCOMPARE(bench.layout.findDescendantAtExcluding(50, 50, search), nullptr);
    bench.above.setVisible(false);
    QCOMPARE(bench.layout.findDescendantAtExcluding(15, 15, search), &bench.below);
    bench.below.setVisible(false);
    QCOMPARE(bench.layout.findDescendantAtExcluding(15, 15, search), nullptr);
}

void tst_LayoutPass::visibleDescendantsAreListedInOrder()
{
    Bench bench;
    const EveryFigure search;
    QList<Figure *> found {&bench.container};
    bench.layout.findDescendantFigures(found, QRect(15, 15, 1, 1), search, false);
    QCOMPARE(found, QList<Figure *>({&bench.container, &bench.below, &bench.above}));
    bench.below.setVisible(false);
    found.clear();
    bench.layout.findDescendantFigures(found, QRect(15, 15, 1, 1), search, false);
    QCOMPARE(found, QList<Figure *>({&bench.above}));
}

void tst_LayoutPass::findPassesArgumentsUnchanged()
{
    Bench bench;
    const EveryFigure search;
    bench.container.setMargin(7);
    QCOMPARE(bench.layout.findDescendantAtExcluding(0, 0, search), &bench.below);
    QList<Figure *> found;
    bench.layout.findDescendantFigures(found, QRect(0, 0, 25, 25), search, true);
    QCOMPARE(found, QList<Figure *>({&bench.below}));
}

PICTEL_TEST_MAIN(tst_LayoutPass)
#include "tst_layoutpass.moc"
