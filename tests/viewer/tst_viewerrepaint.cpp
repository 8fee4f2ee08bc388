#include "support/TestMain.h"

#include "Drawing.h"
#include "EventLog.h"
#include "OnScreen.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/RoundedRectangle.h>

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <array>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

class tst_ViewerRepaint : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void partialRepaintEqualsFullRepaint_data();
    void partialRepaintEqualsFullRepaint();
    void scrolledPictureEqualsFullRepaint_data();
    void scrolledPictureEqualsFullRepaint();
    void replacedContentLeavesNothingBehind();
    void manyFiguresArePaintedInOnePass();
    void manyChangesAtOnceEqualFullRepaint_data();
    void manyChangesAtOnceEqualFullRepaint();
    void manyChangesArePaintedAgainEachTime();
    void changesOutOfViewPaintNothing();
};

namespace {

class SmoothPane : public FreeformLayeredPane
{
public:
    bool isSmooth = false;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        painter->setRenderHint(QPainter::Antialiasing, isSmooth);
        FreeformLayeredPane::render(painter, option);
    }
};

// A drawing of many shapes, all several times larger than their lines are wide, and random changes to them.
class RandomDrawing : public BasicDrawing<SmoothPane>
{
public:
    explicit RandomDrawing(quint32 seed)
        : m_random(seed)
    {
        for (int i = 0; i < 10; ++i) {
            addShape(std::make_unique<Vantrel::Pictel::Rectangle>());
            addShape(std::make_unique<Ellipse>());
            addShape(std::make_unique<RoundedRectangle>());
        }
    }

    void change()
    {
        Shape &shape = *m_shapes.at(static_cast<std::size_t>(below(static_cast<int>(m_shapes.size()))));
        switch (below(5)) {
        case 0:
            shape.setVisible(!shape.isVisible());
            break;
        case 1:
            shape.setEnabledBGColor(QColor::fromHsv(below(360), 200, 200));
            break;
        case 2:
            shape.setFill(!shape.getFill());
            break;
        default:
            shape.setBounds(randomRect());
        }
    }

    QRect randomRect() { return QRect(below(260) - 20, below(200) - 20, 12 + below(60), 12 + below(50)); }
    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }

private:
    void addShape(std::unique_ptr<Shape> shape)
    {
        shape->setLineWidth(1 + below(4));
        shape->setEnabledFGColor(QColor::fromHsv(below(360), 255, 120));
        shape->setEnabledBGColor(QColor::fromHsv(below(360), 100, 255));
        shape->setBounds(QRect(0, 0, 1, 1));
        layer.add(shape.get(), randomRect());
        m_shapes.push_back(std::move(shape));
    }

    QRandomGenerator m_random;
    std::vector<std::unique_ptr<Shape>> m_shapes;
};

QRect randomRect(QRandomGenerator &random)
{
    return QRect(random.bounded(300), random.bounded(300), 5 + random.bounded(60), 5 + random.bounded(60));
}

void changeAnyOf(std::array<Figure, 40> &figures, QRandomGenerator &random)
{
    Figure &figure = figures.at(random.bounded(quint32(figures.size())));
    switch (random.bounded(3)) {
    case 0:
        figure.setVisible(!figure.isVisible());
        break;
    case 1:
        figure.setBackgroundColor(QColor::fromHsv(random.bounded(360), 200, 200));
        break;
    default:
        figure.setBounds(randomRect(random));
    }
}

} // namespace

void tst_ViewerRepaint::partialRepaintEqualsFullRepaint_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("grid");
    QTest::addColumn<bool>("smooth");
    for (const double scale : {0.33, 0.5, 0.77, 1.0, 1.25, 1.5, 2.0, 3.0}) {
        QTest::addRow("scale %g", scale) << scale << false << false;
        QTest::addRow("scale %g with grid", scale) << scale << true << false;
        // At scale 1 dirty areas are exact, and antialiased outlines of shapes reach half a pixel beyond their bounds.
        if (scale != 1.0)
            QTest::addRow("scale %g antialiased", scale) << scale << false << true;
    }
}

void tst_ViewerRepaint::partialRepaintEqualsFullRepaint()
{
    QFETCH(double, scale);
    QFETCH(bool, grid);
    QFETCH(bool, smooth);
    for (const quint32 seed : {1u, 2u}) {
        RandomDrawing drawing(seed);
        drawing.pane.setDrawGrid(grid);
        drawing.pane.isSmooth = smooth;
        QVERIFY(drawing.show());
        const QPoint topLeft(-7, -3);
        drawing.viewer.setScale(scale, &topLeft);
        QCoreApplication::processEvents();
        for (int step = 0; step < 60; ++step) {
            drawing.change();
            QCoreApplication::processEvents();
            if (step % 6 != 5)
                continue;
            const QImage partial = onScreen(drawing.viewer);
            const QString found = difference(partial, fullyRepainted(drawing));
            QVERIFY2(found.isEmpty(),
                     qPrintable(QStringLiteral("%1, seed %2, step %3").arg(found).arg(seed).arg(step)));
        }
    }
}

void tst_ViewerRepaint::scrolledPictureEqualsFullRepaint_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("smooth");
    for (const double scale : {0.9, 1.0, 1.25, 2.0, 3.0, 7.0}) {
        QTest::addRow("scale %g", scale) << scale << false;
        QTest::addRow("scale %g antialiased", scale) << scale << true;
    }
}

void tst_ViewerRepaint::scrolledPictureEqualsFullRepaint()
{
    QFETCH(double, scale);
    QFETCH(bool, smooth);
    RandomDrawing drawing(5);
    drawing.pane.isSmooth = smooth;
    Figure corner;
    drawing.add(corner, QRect(700, 700, 5, 5));
    QVERIFY(drawing.show());
    const QPoint topLeft(-20, -20);
    drawing.viewer.setScale(scale, &topLeft);
    QCoreApplication::processEvents();
    for (int step = 0; step < 20; ++step) {
        drawing.viewer.horizontalScrollBar()->setValue(drawing.below(200));
        drawing.viewer.verticalScrollBar()->setValue(drawing.below(200));
        QCoreApplication::processEvents();
        const QImage scrolled = onScreen(drawing.viewer);
        const QString found = difference(scrolled, fullyRepainted(drawing));
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("%1, step %2").arg(found).arg(step)));
    }
}

void tst_ViewerRepaint::replacedContentLeavesNothingBehind()
{
    Drawing drawing;
    Figure figure;
    figure.setBackgroundColor(Qt::red);
    drawing.add(figure, QRect(0, 0, 400, 300));
    QVERIFY(drawing.show());
    QTRY_COMPARE(onScreen(drawing.viewer).pixelColor(200, 150), QColor(Qt::red));
    FreeformLayeredPane other;
    other.setFreeformBounds(QRect(0, 0, 400, 300));
    drawing.viewer.setContent(&other);
    QTRY_COMPARE(onScreen(drawing.viewer).pixelColor(200, 150), QColor(Qt::white));
}

void tst_ViewerRepaint::manyFiguresArePaintedInOnePass()
{
    Drawing drawing;
    std::vector<std::unique_ptr<Figure>> figures;
    for (int i = 0; i < 20000; ++i) {
        figures.push_back(std::make_unique<Figure>());
        figures.back()->setBackgroundColor(Qt::red);
        drawing.layer.add(figures.back().get(), QRect(2 * (i % 200), 3 * (i / 200), 1, 2));
    }
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    const QImage image = fullyRepainted(drawing);
    QCOMPARE(log.count(), 1);
    QCOMPARE(image.pixelColor(398, 298), QColor(Qt::red));
    QCOMPARE(image.pixelColor(399, 298), QColor(Qt::white));
}

void tst_ViewerRepaint::manyChangesAtOnceEqualFullRepaint_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("changes");
    for (const double scale : {0.5, 1.0, 2.0}) {
        for (const int changes : {20, 65, 300})
            QTest::addRow("scale %g, %d changes", scale, changes) << scale << changes;
    }
}

void tst_ViewerRepaint::manyChangesAtOnceEqualFullRepaint()
{
    QFETCH(double, scale);
    QFETCH(int, changes);
    QRandomGenerator random(9);
    Drawing drawing;
    std::array<Figure, 40> figures;
    for (Figure &figure : figures)
        drawing.add(figure, randomRect(random));
    Figure corner;
    drawing.add(corner, QRect(900, 900, 5, 5));
    QVERIFY(drawing.show());
    const QPoint topLeft(-5, -5);
    drawing.viewer.setScale(scale, &topLeft);
    QCoreApplication::processEvents();
    for (int round = 0; round < 10; ++round) {
        for (int change = 0; change < changes; ++change) {
            changeAnyOf(figures, random);
            // In the middle of it the view moves: what was out of sight so far may come into it.
            if (change == changes / 2)
                drawing.viewer.verticalScrollBar()->setValue(random.bounded(100));
        }
        // Validated first: what moves during a painting is painted by another, later one.
        drawing.viewer.getUpdateManager()->performUpdate();
        QCoreApplication::processEvents();
        const QImage partial = onScreen(drawing.viewer);
        const QString found = difference(partial, fullyRepainted(drawing));
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("%1, round %2").arg(found).arg(round)));
    }
}

void tst_ViewerRepaint::manyChangesArePaintedAgainEachTime()
{
    Drawing drawing;
    Figure figure;
    drawing.add(figure, QRect(10, 10, 50, 50));
    QVERIFY(drawing.show());
    for (const QColor color : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        for (int change = 0; change < 100; ++change)
            figure.setBackgroundColor(color);
        QCoreApplication::processEvents();
        QCOMPARE(onScreen(drawing.viewer).pixelColor(30, 30), color);
    }
}

void tst_ViewerRepaint::changesOutOfViewPaintNothing()
{
    Drawing drawing;
    Figure near, far;
    drawing.add(near, QRect(10, 10, 50, 50));
    drawing.add(far, QRect(2000, 2000, 50, 50));
    QVERIFY(drawing.show());
    const QPoint topLeft(0, 0);
    drawing.viewer.setScale(1.0, &topLeft);
    QCoreApplication::processEvents();
    EventLog log(drawing.widget, {QEvent::Paint});
    far.setBackgroundColor(Qt::red);
    QCoreApplication::processEvents();
    QCOMPARE(log.count(), 0);
    near.setBackgroundColor(Qt::red);
    QCoreApplication::processEvents();
    QCOMPARE(log.painted(),
             QRegion(QRect(near.getBounds().topLeft() - drawing.pane.getBounds().topLeft(), QSize(50, 50))));
}

PICTEL_TEST_MAIN(tst_ViewerRepaint)
#include "tst_viewerrepaint.moc"
