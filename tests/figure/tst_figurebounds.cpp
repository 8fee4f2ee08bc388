#include "support/CallLog.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <climits>

using namespace Vantrel::Pictel;

namespace {

const char *const stillInvalid = "Figure::resolveBounds(): resolved bounds still invalid";

class DyingFigure : public Figure
{
public:
    QRect resolveBounds(const QRect &bounds) override
    {
        const QRect resolved = bounds;
        delete this;
        return resolved;
    }
};

} // namespace

class tst_FigureBounds : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void boundsAreStoredAndAnnouncedOnce();
    void setBoundsOrderOfCalls();
    void setBoundsOfHiddenFigureErasesNothing();
    void setSameBoundsDoesNothing();
    void setOnlySizeKeepsThePlace();
    void setOnlyPlaceKeepsValidity();
    void moveTakesChildrenOfAbsoluteLayoutAlong();
    void moveLeavesChildrenOfRelativeLayout();
    void boundsAreCompletedFromPreferredSize_data();
    void boundsAreCompletedFromPreferredSize();
    void validBoundsAreNotResolved();
    void unresolvableBoundsAreStoredAllTheSame();
    void moveWrapsAroundAtTheEnds();
    void figureDeletedByItsMoveSignal();
    void figureDeletedWhenItResolvesItsBounds();

    void translateWithoutLayoutOnlyAnnounces();
    void translateWithRelativeLayoutOnlyAnnounces();
    void translateWithAbsoluteLayoutMoves();
    void primTranslateTranslatesChildrenInOrder();
};

void tst_FigureBounds::boundsAreStoredAndAnnouncedOnce()
{
    Figure figure;
    QSignalSpy spy(&figure, &Figure::figureMoved);
    figure.setBounds(QRect(10, 20, 30, 40));
    QCOMPARE(figure.getBounds(), QRect(10, 20, 30, 40));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).value<Figure *>(), &figure);
}

void tst_FigureBounds::setBoundsOrderOfCalls()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(5, 5, 10, 10));
    connect(&figure, &Figure::figureMoved, this, [&log] { log.add("figure", "figureMoved"); });
    log.clear();
    figure.setBounds(QRect(10, 20, 30, 40));
    QCOMPARE(log.calls(),
             QStringList({"figure.erase", "figure.primTranslate(5,15)", "figure.invalidate", "figure.figureMoved",
                          "figure.repaint", "figure.repaint(10,20 30x40)"}));
}

void tst_FigureBounds::setBoundsOfHiddenFigureErasesNothing()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(5, 5, 10, 10));
    figure.setVisible(false);
    log.clear();
    figure.setBounds(QRect(6, 5, 10, 10));
    QCOMPARE(log.calls(), QStringList({"figure.primTranslate(1,0)", "figure.repaint", "figure.repaint(6,5 10x10)"}));
}

void tst_FigureBounds::setSameBoundsDoesNothing()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(5, 5, 10, 10));
    QSignalSpy spy(&figure, &Figure::figureMoved);
    log.clear();
    figure.setBounds(QRect(5, 5, 10, 10));
    QCOMPARE(log.calls(), QStringList());
    QCOMPARE(spy.size(), 0);
}

void tst_FigureBounds::setOnlySizeKeepsThePlace()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(5, 5, 10, 10));
    for (const QRect &bounds : {QRect(5, 5, 11, 10), QRect(5, 5, 11, 12)}) {
        figure.setValid(true);
        log.clear();
        figure.setBounds(bounds);
        QCOMPARE(figure.getBounds(), bounds);
        QCOMPARE(log.only({"primTranslate", "invalidate"}), QStringList({"figure.invalidate"}));
        QVERIFY(!figure.isValid());
    }
}

void tst_FigureBounds::setOnlyPlaceKeepsValidity()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(5, 5, 10, 10));
    figure.setValid(true);
    log.clear();
    figure.setBounds(QRect(6, 5, 10, 10));
    figure.setBounds(QRect(6, 7, 10, 10));
    QCOMPARE(figure.getBounds(), QRect(6, 7, 10, 10));
    QCOMPARE(log.only({"primTranslate", "invalidate"}),
             QStringList({"figure.primTranslate(1,0)", "figure.primTranslate(0,2)"}));
    QVERIFY(figure.isValid());
}

void tst_FigureBounds::moveTakesChildrenOfAbsoluteLayoutAlong()
{
    ProbeLayout layout;
    layout.isRelative = false;
    ProbeLayout childLayout;
    childLayout.isRelative = false;
    Figure parent;
    parent.setLayoutManager(&layout);
    Figure child;
    child.setLayoutManager(&childLayout);
    parent.setBounds(QRect(0, 0, 100, 100));
    parent.add(&child);
    child.setBounds(QRect(10, 10, 5, 5));
    parent.setBounds(QRect(3, 4, 100, 100));
    QCOMPARE(child.getBounds(), QRect(13, 14, 5, 5));
}

void tst_FigureBounds::moveLeavesChildrenOfRelativeLayout()
{
    ProbeLayout layout;
    CallLog log;
    Figure parent;
    parent.setLayoutManager(&layout);
    ProbeFigure child("child", &log);
    parent.setBounds(QRect(0, 0, 100, 100));
    parent.add(&child);
    child.setBounds(QRect(10, 10, 5, 5));
    log.clear();
    parent.setBounds(QRect(3, 4, 100, 100));
    QCOMPARE(child.getBounds(), QRect(10, 10, 5, 5));
    QCOMPARE(log.calls(), QStringList());
}

void tst_FigureBounds::boundsAreCompletedFromPreferredSize_data()
{
    QTest::addColumn<QRect>("asked");
    QTest::addColumn<QRect>("resolved");
    QTest::newRow("no size") << QRect(3, 4, 0, 0) << QRect(3, 4, 40, 20);
    QTest::newRow("no width") << QRect(3, 4, 0, 7) << QRect(3, 4, 40, 7);
    QTest::newRow("no height") << QRect(3, 4, 7, 0) << QRect(3, 4, 7, 20);
    QTest::newRow("negative size") << QRect(3, 4, -5, -6) << QRect(3, 4, 40, 20);
    QTest::newRow("one pixel counts") << QRect(3, 4, 1, 0) << QRect(3, 4, 1, 20);
    QTest::newRow("one pixel high") << QRect(3, 4, 0, 1) << QRect(3, 4, 40, 1);
    QTest::newRow("null") << QRect() << QRect(0, 0, 40, 20);
}

void tst_FigureBounds::boundsAreCompletedFromPreferredSize()
{
    QFETCH(QRect, asked);
    QFETCH(QRect, resolved);
    Figure figure;
    figure.setPreferredSize(QSize(40, 20));
    QCOMPARE(figure.resolveBounds(asked), resolved);
    figure.setBounds(asked);
    QCOMPARE(figure.getBounds(), resolved);
}

void tst_FigureBounds::validBoundsAreNotResolved()
{
    Figure figure;
    figure.setMinimumSize(QSize(50, 50));
    figure.setPreferredSize(QSize(60, 60));
    QCOMPARE(figure.resolveBounds(QRect(-1, -2, 1, 1)), QRect(-1, -2, 1, 1));
}

void tst_FigureBounds::unresolvableBoundsAreStoredAllTheSame()
{
    Figure figure;
    expectDebug(stillInvalid);
    QCOMPARE(figure.resolveBounds(QRect(3, 4, 0, 5)), QRect(3, 4, 0, 5));
    expectDebug(stillInvalid);
    figure.setBounds(QRect(3, 4, 0, 5));
    QCOMPARE(figure.getBounds(), QRect(3, 4, 0, 5));
    ProbeFigure flat;
    flat.setContentSize(QSize(1, 0));
    expectDebug(stillInvalid);
    QCOMPARE(flat.resolveBounds(QRect()), QRect(0, 0, 1, 0));
}

void tst_FigureBounds::moveWrapsAroundAtTheEnds()
{
    Figure figure;
    const QPoint lowest(INT_MIN, INT_MIN);
    const QPoint highest(INT_MAX, INT_MAX);
    figure.setBounds(QRect(lowest, lowest));
    figure.setBounds(QRect(highest, highest));
    QCOMPARE(figure.getBounds(), QRect(highest, highest));
}

void tst_FigureBounds::figureDeletedByItsMoveSignal()
{
    const QPointer<Figure> figure = new Figure;
    connect(figure, &Figure::figureMoved, this, [](Figure *moved) { delete moved; });
    figure->setBounds(QRect(1, 1, 1, 1));
    QVERIFY(figure.isNull());
}

void tst_FigureBounds::figureDeletedWhenItResolvesItsBounds()
{
    const QPointer<Figure> figure = new DyingFigure;
    figure->setBounds(QRect(1, 1, 1, 1));
    QVERIFY(figure.isNull());
}

void tst_FigureBounds::translateWithoutLayoutOnlyAnnounces()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(0, 0, 5, 5));
    QSignalSpy spy(&figure, &Figure::figureMoved);
    log.clear();
    figure.translate(5, 5);
    QCOMPARE(figure.getBounds(), QRect(0, 0, 5, 5));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).value<Figure *>(), &figure);
    QCOMPARE(log.calls(), QStringList({"figure.translate(5,5)"}));
}

void tst_FigureBounds::translateWithRelativeLayoutOnlyAnnounces()
{
    ProbeLayout layout;
    Figure figure;
    figure.setLayoutManager(&layout);
    figure.setBounds(QRect(0, 0, 5, 5));
    QSignalSpy spy(&figure, &Figure::figureMoved);
    figure.translate(5, 5);
    QCOMPARE(figure.getBounds(), QRect(0, 0, 5, 5));
    QCOMPARE(spy.size(), 1);
}

void tst_FigureBounds::translateWithAbsoluteLayoutMoves()
{
    CallLog log;
    ProbeLayout layout;
    layout.isRelative = false;
    ProbeFigure figure("figure", &log);
    figure.setLayoutManager(&layout);
    figure.setBounds(QRect(0, 0, 5, 5));
    connect(&figure, &Figure::figureMoved, this, [&log] { log.add("figure", "figureMoved"); });
    log.clear();
    figure.translate(2, 3);
    QCOMPARE(figure.getBounds(), QRect(2, 3, 5, 5));
    QCOMPARE(log.calls(), QStringList({"figure.translate(2,3)", "figure.primTranslate(2,3)", "figure.figureMoved"}));
}

void tst_FigureBounds::primTranslateTranslatesChildrenInOrder()
{
    CallLog log;
    ProbeLayout layout;
    layout.isRelative = false;
    ProbeFigure figure("figure");
    figure.setLayoutManager(&layout);
    ProbeFigure first("first", &log);
    ProbeFigure second("second", &log);
    figure.add(&first);
    figure.add(&second);
    log.clear();
    figure.primTranslate(2, -3);
    QCOMPARE(figure.getBounds(), QRect(2, -3, 0, 0));
    QCOMPARE(log.calls(), QStringList({"first.translate(2,-3)", "second.translate(2,-3)"}));
}

PICTEL_TEST_MAIN(tst_FigureBounds)
#include "tst_figurebounds.moc"
