#include "support/CallLog.h"
#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"

#include <QTest>

#include <climits>

using namespace Vantrel::Pictel;

namespace {

constexpr int unbounded = 0x7ffffff;

const char *const sizeOutOfMinimum = "Figure::setMinimumSize(): size out of bound";
const char *const sizeOutOfMaximum = "Figure::setMaximumSize(): size out of bound";
const char *const sizeOutOfPreferred = "Figure::setPreferredSize(): size out of bound";
const char *const stillInvalid = "Figure::resolveBounds(): resolved bounds still invalid";

} // namespace

class tst_FigureSizes : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void clientAreaIsBoundsWithoutMarginAndBorder();
    void clientAreaOfInvalidBoundsIsNotShrunk();
    void contentRectAndRectForContentAreInverse();
    void applyMarginAddsTwiceAndRemoveMarginTakesOnce();
    void hugeMarginDoesNotOverflow();

    void minimumSizeDefaultsToZero();
    void minimumSizeIsGrownToTheStored();
    void minimumSizeAsksLayoutMarginAndBorder();
    void minimumSizeLeavesInvalidLayoutSizeWithoutBorder();
    void setMinimumSizeChecksTheMaximum_data();
    void setMinimumSizeChecksTheMaximum();
    void setMaximumSizeChecksTheStoredMinimum_data();
    void setMaximumSizeChecksTheStoredMinimum();
    void setPreferredSizeReturnsFalseAlways_data();
    void setPreferredSizeReturnsFalseAlways();
    void sizeSettersNeitherInvalidateNorRepaint();

    void preferredSizeOfValidFigureIsTheStored();
    void preferredSizeAsksTheLayout();
    void preferredSizeOfContentSizedFigureAsksContent();
    void preferredSizeWithoutLayoutAsksContent();
    void preferredSizeIsExpandedToMinimumThenBounded();
    void preferredSizeIsStored();
    void preferredSizeOfInvalidContentGetsNoBorder();
    void contentSizeTakesMarginOnceAndBorder();
    void contentSizeOfInvalidPreferredStaysInvalid();
    void resizeMinimumIsTheMinimumSize();
};

void tst_FigureSizes::clientAreaIsBoundsWithoutMarginAndBorder()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    Figure figure;
    figure.setBounds(QRect(10, 10, 100, 50));
    QCOMPARE(figure.getClientArea(), QRect(10, 10, 100, 50));
    figure.setMargin(5);
    QCOMPARE(figure.getClientArea(), QRect(15, 15, 90, 40));
    figure.setBorder(&border);
    QCOMPARE(figure.getClientArea(), QRect(19, 16, 84, 36));
    figure.setMargin(0);
    QCOMPARE(figure.getClientArea(), QRect(14, 11, 94, 46));
}

void tst_FigureSizes::clientAreaOfInvalidBoundsIsNotShrunk()
{
    Figure figure;
    figure.setMargin(5);
    figure.setMaximumSize(QSize(0, 0));
    expectDebug(stillInvalid);
    QCOMPARE(figure.getClientArea(), QRect(0, 0, 0, 0));
}

void tst_FigureSizes::contentRectAndRectForContentAreInverse()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    Figure figure;
    const QRect rect(10, 20, 100, 50);
    QCOMPARE(figure.calculateContentRect(rect), rect);
    QCOMPARE(figure.calculateRectForContent(rect), rect);
    figure.setMargin(1);
    figure.setBorder(&border);
    QCOMPARE(figure.calculateContentRect(rect), QRect(15, 22, 92, 44));
    QCOMPARE(figure.calculateRectForContent(QRect(15, 22, 92, 44)), rect);
}

void tst_FigureSizes::applyMarginAddsTwiceAndRemoveMarginTakesOnce()
{
    ProbeFigure figure;
    QSize size(10, 20);
    QCOMPARE(figure.applyMargin(size), QSize(10, 20));
    QCOMPARE(figure.removeMargin(size), QSize(10, 20));
    figure.setMargin(3);
    QCOMPARE(figure.applyMargin(size), QSize(16, 26));
    QCOMPARE(figure.removeMargin(size), QSize(7, 17));
    QCOMPARE(size, QSize(7, 17));
}

void tst_FigureSizes::hugeMarginDoesNotOverflow()
{
    ProbeFigure figure;
    figure.setMargin(INT_MAX);
    QCOMPARE(figure.getMargin(), INT_MAX);
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.getClientArea();
    figure.getPreferredSize();
    QPoint point(0, 0);
    figure.translateToParent(point);
    QCOMPARE(figure.translateFromParent(point), QPoint(0, 0));
}

void tst_FigureSizes::minimumSizeDefaultsToZero()
{
    Figure figure;
    figure.setMargin(4);
    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
}

void tst_FigureSizes::minimumSizeIsGrownToTheStored()
{
    Figure figure;
    QVERIFY(figure.setMinimumSize(QSize(7, -3)));
    QCOMPARE(figure.getMinimumSize(), QSize(7, 0));
}

void tst_FigureSizes::minimumSizeAsksLayoutMarginAndBorder()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    ProbeLayout layout;
    layout.minimumSize = QSize(10, 20);
    Figure figure;
    figure.setLayoutManager(&layout);
    QCOMPARE(figure.getMinimumSize(), QSize(10, 20));
    figure.setMargin(5);
    QCOMPARE(figure.getMinimumSize(), QSize(20, 30));
    figure.setBorder(&border);
    QCOMPARE(figure.getMinimumSize(), QSize(26, 34));
    figure.setMinimumSize(QSize(27, 1));
    QCOMPARE(figure.getMinimumSize(), QSize(27, 34));
}

void tst_FigureSizes::minimumSizeLeavesInvalidLayoutSizeWithoutBorder()
{
    ProbeBorder border(Insets(10, 10, 10, 10));
    ProbeLayout layout;
    layout.minimumSize = QSize(-1, 5);
    Figure figure;
    figure.setLayoutManager(&layout);
    figure.setBorder(&border);
    QCOMPARE(figure.getMinimumSize(), QSize(-1, 5));
}

void tst_FigureSizes::setMinimumSizeChecksTheMaximum_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("below") << QSize(10, 10) << true;
    QTest::newRow("equal") << QSize(100, 50) << true;
    QTest::newRow("too wide") << QSize(101, 50) << false;
    QTest::newRow("too high") << QSize(100, 51) << false;
    QTest::newRow("negative") << QSize(-7, -7) << true;
}

void tst_FigureSizes::setMinimumSizeChecksTheMaximum()
{
    QFETCH(QSize, size);
    QFETCH(bool, accepted);
    Figure figure;
    QVERIFY(figure.setMaximumSize(QSize(100, 50)));
    if (!accepted)
        expectDebug(sizeOutOfMinimum);
    QCOMPARE(figure.setMinimumSize(size), accepted);
    QCOMPARE(figure.getMinimumSize(), accepted ? size.expandedTo(QSize(0, 0)) : QSize(0, 0));
}

void tst_FigureSizes::setMaximumSizeChecksTheStoredMinimum_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("above") << QSize(100, 100) << true;
    QTest::newRow("equal") << QSize(20, 10) << true;
    QTest::newRow("too narrow") << QSize(19, 10) << false;
    QTest::newRow("too low") << QSize(20, 9) << false;
}

void tst_FigureSizes::setMaximumSizeChecksTheStoredMinimum()
{
    QFETCH(QSize, size);
    QFETCH(bool, accepted);
    ProbeLayout layout;
    layout.minimumSize = QSize(500, 500);
    Figure figure;
    figure.setLayoutManager(&layout);
    QVERIFY(figure.setMaximumSize(QSize(0, 0)));
    QVERIFY(figure.setMaximumSize(QSize(unbounded, unbounded)));
    QVERIFY(figure.setMinimumSize(QSize(20, 10)));
    if (!accepted)
        expectDebug(sizeOutOfMaximum);
    QCOMPARE(figure.setMaximumSize(size), accepted);
    QCOMPARE(figure.getMaximumSize(), accepted ? size : QSize(unbounded, unbounded));
}

void tst_FigureSizes::setPreferredSizeReturnsFalseAlways_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("between") << QSize(25, 25) << true;
    QTest::newRow("the minimum") << QSize(20, 10) << true;
    QTest::newRow("the maximum") << QSize(200, 100) << true;
    QTest::newRow("too narrow") << QSize(19, 50) << false;
    QTest::newRow("too low") << QSize(50, 9) << false;
    QTest::newRow("too wide") << QSize(201, 50) << false;
    QTest::newRow("too high") << QSize(50, 101) << false;
}

void tst_FigureSizes::setPreferredSizeReturnsFalseAlways()
{
    QFETCH(QSize, size);
    QFETCH(bool, accepted);
    ProbeFigure figure;
    figure.setMinimumSize(QSize(20, 10));
    figure.setMaximumSize(QSize(200, 100));
    figure.setPreferredSize(QSize(30, 30));
    if (!accepted)
        expectDebug(sizeOutOfPreferred);
    QVERIFY(!figure.setPreferredSize(size));
    figure.setValid(true);
    QCOMPARE(figure.getPreferredSize(), accepted ? size : QSize(30, 30));
}

void tst_FigureSizes::sizeSettersNeitherInvalidateNorRepaint()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setValid(true);
    expectDebug(sizeOutOfMinimum);
    QVERIFY(!figure.setMinimumSize(QSize(134217728, 10)));
    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
    figure.setMinimumSize(QSize(1, 1));
    figure.setMaximumSize(QSize(9, 9));
    figure.setPreferredSize(QSize(5, 5));
    QVERIFY(figure.isValid());
    QCOMPARE(log.calls(), QStringList());
}

void tst_FigureSizes::preferredSizeOfValidFigureIsTheStored()
{
    ProbeFigure figure;
    figure.setPreferredSize(QSize(10, 10));
    figure.setValid(true);
    figure.setContentSize(QSize(77, 77));
    QCOMPARE(figure.getPreferredSize(), QSize(10, 10));
    figure.setValid(false);
    QCOMPARE(figure.getPreferredSize(), QSize(77, 77));
}

void tst_FigureSizes::preferredSizeAsksTheLayout()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    ProbeLayout layout;
    layout.preferredSize = QSize(30, 40);
    ProbeFigure figure;
    figure.setContentSize(QSize(77, 77));
    figure.setLayoutManager(&layout);
    QCOMPARE(figure.getPreferredSize(), QSize(30, 40));
    figure.setMargin(2);
    QCOMPARE(figure.getPreferredSize(), QSize(34, 44));
    figure.setBorder(&border);
    QCOMPARE(figure.getPreferredSize(), QSize(40, 48));
}

void tst_FigureSizes::preferredSizeOfContentSizedFigureAsksContent()
{
    ProbeLayout layout;
    layout.preferredSize = QSize(30, 40);
    ProbeFigure figure;
    figure.setContentSize(QSize(77, 78));
    figure.setLayoutManager(&layout);
    figure.setFlag(Figure::FLAG_CONTENT_SIZED, true);
    QCOMPARE(figure.getPreferredSize(), QSize(77, 78));
}

void tst_FigureSizes::preferredSizeWithoutLayoutAsksContent()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    ProbeFigure figure;
    figure.setContentSize(QSize(10, 20));
    figure.setMargin(1);
    figure.setBorder(&border);
    QCOMPARE(figure.getPreferredSize(), QSize(18, 26));
}

void tst_FigureSizes::preferredSizeIsExpandedToMinimumThenBounded()
{
    ProbeLayout layout;
    layout.preferredSize = QSize(10, 500);
    layout.minimumSize = QSize(60, 5);
    Figure figure;
    figure.setLayoutManager(&layout);
    figure.setMaximumSize(QSize(50, 300));
    QCOMPARE(figure.getPreferredSize(), QSize(50, 300));
    figure.setMaximumSize(QSize(100, 1000));
    layout.invalidate();
    QCOMPARE(figure.getPreferredSize(), QSize(60, 500));
}

void tst_FigureSizes::preferredSizeIsStored()
{
    ProbeFigure figure;
    figure.setContentSize(QSize(33, 44));
    figure.getPreferredSize();
    figure.setContentSize(QSize(1, 1));
    figure.setValid(true);
    QCOMPARE(figure.getPreferredSize(), QSize(33, 44));
}

void tst_FigureSizes::preferredSizeOfInvalidContentGetsNoBorder()
{
    ProbeBorder border(Insets(10, 10, 10, 10));
    Figure figure;
    figure.setBorder(&border);
    QCOMPARE(figure.getPreferredSize(), QSize(0, 0));
    Figure margined;
    margined.setMargin(4);
    QCOMPARE(margined.getPreferredSize(), QSize(7, 7));
}

void tst_FigureSizes::contentSizeTakesMarginOnceAndBorder()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    ProbeFigure figure;
    figure.setPreferredSize(QSize(100, 50));
    QCOMPARE(figure.calculateContentSize(), QSize(100, 50));
    figure.setMargin(10);
    QCOMPARE(figure.calculateContentSize(), QSize(90, 40));
    figure.setBorder(&border);
    QCOMPARE(figure.calculateContentSize(), QSize(84, 36));
}

void tst_FigureSizes::contentSizeOfInvalidPreferredStaysInvalid()
{
    ProbeBorder border(Insets(1, 2, 3, 4));
    ProbeFigure figure;
    figure.setMargin(10);
    figure.setBorder(&border);
    QCOMPARE(figure.calculateContentSize(), QSize(-1, -1));
}

void tst_FigureSizes::resizeMinimumIsTheMinimumSize()
{
    Figure figure;
    figure.setMinimumSize(QSize(8, 9));
    QCOMPARE(figure.getResizeMinimum(0), QSize(8, 9));
    QCOMPARE(figure.getResizeMinimum(-1), QSize(8, 9));
}

PICTEL_TEST_MAIN(tst_FigureSizes)
#include "tst_figuresizes.moc"
