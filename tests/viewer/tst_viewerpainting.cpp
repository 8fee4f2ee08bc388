#include "support/TestMain.h"

#include "Drawing.h"
#include "OnScreen.h"

#include <vtlpictel/figure/UpdateManager.h>

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTest>

#include <functional>
#include <memory>

using namespace Vantrel::Pictel;

class tst_ViewerPainting : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pendingFiguresAreValidatedBeforePainting();
    void backgroundColorFillsTheBackground();
    void translucentBackgroundColorLetsTheBaseColorThrough();
    void withoutBackgroundColorTheBackgroundIsBlack();
    void withoutContentTheBaseColorShows();
    void withoutUpdateManagerTheBaseColorShows();
    void contentDeletedByTheValidationIsNotPainted();

    void contentIsPaintedScaledAndScrolled();
    void paintAreaIsTheDirtyAreaInContentCoordinates();
    void paintAreaOfAScaledWidgetIsAllOfIt();
    void paintAreaOfAScaledPartHoldsItsSurroundings();
    void paintAreaOfAReducedPartHoldsItsSurroundings();
    void painterMapsFromContentToWidget();
    void viewOptionsDescribeTheWidget();
    void contentGetsTheViewOptions();

    void elasticBandIsPaintedInContentCoordinates();
    void elasticBandIsCutBeyondTheWidget();
    void invalidElasticBandIsNotPainted();
    void highlightFramesTheVisiblePart();
    void highlightStyleOneIsARubberBand();
    void highlightLiesOverTheContent();
};

namespace {

// A style that paints neither rubber bands nor focus frames but remembers what it was asked for.
class FrameStyle : public QProxyStyle
{
public:
    struct Frame
    {
        QRect rect;
        QStyle::State state;
        QTransform transform;
        const QWidget *widget = nullptr;
        bool isOpaque = true;
        int shape = -1;
    };

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element != CE_RubberBand) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        const auto *band = qstyleoption_cast<const QStyleOptionRubberBand *>(option);
        bands << Frame {option->rect, option->state, painter->transform(), widget, band->opaque, band->shape};
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_FrameFocusRect && qstyleoption_cast<const QStyleOptionFocusRect *>(option))
            frames << Frame {option->rect, option->state, painter->transform(), widget};
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable QList<Frame> bands;
    mutable QList<Frame> frames;
};

// A figure that tells how it is painted.
class PaintProbe : public Figure
{
public:
    std::function<void(QPainter *, const QStyleOptionViewItem &)> onRender;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        if (onRender)
            onRender(painter, option);
        Figure::render(painter, option);
    }
};

// A pane that tells how it is painted.
class ProbePane : public FreeformLayeredPane
{
public:
    QList<QRect> areas;
    QList<QTransform> transforms;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        areas << option.rect;
        transforms << painter->transform();
        FreeformLayeredPane::render(painter, option);
    }
};

// A drawing with an extent of (0, 0, 1000, 1000) whose pane tells how it is painted.
struct ProbedDrawing : BasicDrawing<ProbePane>
{
    ProbedDrawing()
    {
        large.setBackgroundColor(Qt::transparent);
        add(large, QRect(0, 0, 1000, 1000));
    }

    bool showAtScale(double scale, const QPoint &topLeft)
    {
        const bool shown = show();
        viewer.setScale(scale, &topLeft);
        QCoreApplication::processEvents();
        pane.areas.clear();
        pane.transforms.clear();
        return shown;
    }

    Figure large;
};

} // namespace

void tst_ViewerPainting::pendingFiguresAreValidatedBeforePainting()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    QStringList calls;
    connect(drawing.viewer.getUpdateManager(), &UpdateManager::aboutToValidate, this, [&] { calls << "validate"; });
    PaintProbe probe;
    probe.onRender = [&](QPainter *, const QStyleOptionViewItem &) { calls << "paint"; };
    drawing.layer.add(&probe, QRect(0, 0, 10, 10));
    QTRY_COMPARE(calls, QStringList({"validate", "paint"}));
    drawing.widget.repaint();
    QCOMPARE(calls, QStringList({"validate", "paint", "paint"}));
}

void tst_ViewerPainting::backgroundColorFillsTheBackground()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.setProperty("backgroundColor", QColor(10, 20, 30));
    QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor(10, 20, 30));
    drawing.widget.setProperty("backgroundColor", QStringLiteral("#405060"));
    QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor("#405060"));
}

void tst_ViewerPainting::translucentBackgroundColorLetsTheBaseColorThrough()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    QPalette palette = drawing.widget.palette();
    palette.setColor(QPalette::Base, QColor(Qt::blue));
    drawing.widget.setPalette(palette);
    for (int turn = 0; turn < 2; ++turn) {
        drawing.widget.setProperty("backgroundColor", QColor(Qt::green));
        QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor(Qt::green));
        drawing.widget.setProperty("backgroundColor", QColor(255, 0, 0, 51));
        QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor(51, 0, 204));
        QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor(51, 0, 204));
    }
}

void tst_ViewerPainting::withoutBackgroundColorTheBackgroundIsBlack()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.setProperty("backgroundColor", QVariant());
    QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), QColor(Qt::black));
}

void tst_ViewerPainting::withoutContentTheBaseColorShows()
{
    FreeformViewer viewer;
    viewer.setFrameShape(QFrame::NoFrame);
    viewer.resize(250, 150);
    QPalette palette = viewer.palette();
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    viewer.setPalette(palette);
    viewer.widget()->setProperty("backgroundColor", QColor(Qt::red));
    viewer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    QTRY_COMPARE(onScreen(viewer).pixelColor(20, 20), QColor(1, 2, 3));
}

void tst_ViewerPainting::withoutUpdateManagerTheBaseColorShows()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.setProperty("backgroundColor", QColor(Qt::red));
    drawing.viewer.setUpdateManager(nullptr);
    QCOMPARE(fullyRepainted(drawing).pixelColor(200, 150), drawing.widget.palette().color(QPalette::Base));
}

void tst_ViewerPainting::contentDeletedByTheValidationIsNotPainted()
{
    FreeformViewer viewer;
    viewer.resize(400, 300);
    viewer.widget()->setProperty("backgroundColor", QColor(Qt::white));
    auto pane = std::make_unique<FreeformLayeredPane>();
    viewer.setContent(pane.get());
    connect(viewer.getUpdateManager(), &UpdateManager::aboutToValidate, this, [&] { pane.reset(); });
    viewer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&viewer));
    QTRY_COMPARE(pane.get(), nullptr);
    QCOMPARE(viewer.getContent(), nullptr);
}

void tst_ViewerPainting::contentIsPaintedScaledAndScrolled()
{
    ProbedDrawing drawing;
    Figure figure;
    figure.setBackgroundColor(Qt::red);
    drawing.layer.add(&figure, QRect(20, 30, 10, 10));
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 10)));
    const QImage image = fullyRepainted(drawing);
    QCOMPARE(image.pixelColor(20, 40), QColor(Qt::red));
    QCOMPARE(image.pixelColor(39, 59), QColor(Qt::red));
    QCOMPARE(image.pixelColor(19, 40), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 39), QColor(Qt::white));
    QCOMPARE(image.pixelColor(40, 59), QColor(Qt::white));
    QCOMPARE(image.pixelColor(39, 60), QColor(Qt::white));
}

void tst_ViewerPainting::paintAreaIsTheDirtyAreaInContentCoordinates()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.widget.repaint(QRect(60, 70, 30, 20));
    QCOMPARE(drawing.pane.areas, QList<QRect>({QRect(10, 20, 30, 20)}));
    drawing.widget.repaint();
    QCOMPARE(drawing.pane.areas.last(), QRect(-50, -50, 400, 300));
}

void tst_ViewerPainting::paintAreaOfAScaledWidgetIsAllOfIt()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(0.25, QPoint(-50, -50)));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
    drawing.widget.repaint();
    QCOMPARE(drawing.pane.areas, QList<QRect>({QRect(-50, -50, 1600, 1200)}));
}

void tst_ViewerPainting::paintAreaOfAScaledPartHoldsItsSurroundings()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    drawing.widget.repaint(QRect(120, 140, 60, 40));
    // The part itself is (10, 20, 30, 20).
    QCOMPARE(drawing.pane.areas, QList<QRect>({QRect(8, 18, 34, 24)}));
    drawing.widget.repaint(QRect(0, 0, 60, 40));
    QCOMPARE(drawing.pane.areas.last(), QRect(-50, -50, 32, 22));
}

void tst_ViewerPainting::paintAreaOfAReducedPartHoldsItsSurroundings()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(0.5, QPoint(-50, -50)));
    drawing.widget.repaint(QRect(100, 80, 60, 40));
    // The part itself is (150, 110, 120, 80); a pixel is two units.
    QCOMPARE(drawing.pane.areas, QList<QRect>({QRect(147, 107, 126, 86)}));
}

void tst_ViewerPainting::painterMapsFromContentToWidget()
{
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 10)));
    drawing.widget.repaint();
    QCOMPARE(drawing.pane.transforms, QList<QTransform>({QTransform(2, 0, 0, 2, 100, 100)}));
}

void tst_ViewerPainting::viewOptionsDescribeTheWidget()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    const QFont font(QStringLiteral("DejaVu Sans"), 17, QFont::Bold);
    drawing.widget.setFont(font);
    QPalette palette = drawing.widget.palette();
    palette.setColor(QPalette::Text, Qt::magenta);
    drawing.widget.setPalette(palette);
    const QStyleOptionViewItem option = drawing.widget.viewOptions();
    QCOMPARE(option.font, drawing.widget.font());
    QCOMPARE(option.font.pointSize(), 17);
    QCOMPARE(option.palette.color(QPalette::Text), QColor(Qt::magenta));
    QCOMPARE(option.rect, drawing.widget.rect());
    QCOMPARE(option.state & QStyle::State_Enabled, QStyle::State_Enabled);
}

void tst_ViewerPainting::contentGetsTheViewOptions()
{
    ProbedDrawing drawing;
    PaintProbe probe;
    QFont font;
    probe.onRender = [&](QPainter *, const QStyleOptionViewItem &option) { font = option.font; };
    drawing.layer.add(&probe, QRect(0, 0, 10, 10));
    drawing.widget.setFont(QFont(QStringLiteral("DejaVu Sans"), 23));
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.widget.repaint();
    QCOMPARE(font.pointSize(), 23);
}

void tst_ViewerPainting::elasticBandIsPaintedInContentCoordinates()
{
    FrameStyle style;
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 10)));
    drawing.widget.setStyle(&style);
    drawing.viewer.elasticBand() = QRect(20, 30, 40, 50);
    drawing.widget.repaint();
    QCOMPARE(style.bands.size(), 1);
    QCOMPARE(style.bands.first().rect, QRect(20, 30, 40, 50));
    QCOMPARE(style.bands.first().transform, QTransform(2, 0, 0, 2, 100, 100));
    QCOMPARE(style.bands.first().widget, &drawing.widget);
    QCOMPARE(style.bands.first().isOpaque, false);
    QCOMPARE(style.bands.first().shape, int(QRubberBand::Rectangle));
    QCOMPARE(style.bands.first().state & QStyle::State_Enabled, QStyle::State_Enabled);
    QCOMPARE(style.frames.size(), 0);
}

void tst_ViewerPainting::elasticBandIsCutBeyondTheWidget()
{
    FrameStyle style;
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 10)));
    drawing.widget.setStyle(&style);
    drawing.viewer.elasticBand() = QRect(-100000, -100000, 200000, 200000);
    drawing.widget.repaint();
    // The widget shows (-50, -50, 1100, 1100); 16 pixels are 8 content units.
    QCOMPARE(style.bands.first().rect, QRect(-58, -58, 1116, 1116));
}

void tst_ViewerPainting::invalidElasticBandIsNotPainted()
{
    FrameStyle style;
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 10)));
    drawing.widget.setStyle(&style);
    drawing.viewer.elasticBand() = QRect(20, 30, 0, 50);
    drawing.widget.repaint();
    QCOMPARE(style.bands.size(), 0);
    drawing.viewer.elasticBand() = QRect(20, 30, 1, 1);
    drawing.widget.repaint();
    QCOMPARE(style.bands.size(), 1);
}

void tst_ViewerPainting::highlightFramesTheVisiblePart()
{
    FrameStyle style;
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 20)));
    drawing.widget.setStyle(&style);
    drawing.widget.repaint();
    QCOMPARE(style.frames.size(), 0);
    drawing.viewer.setHighlighted(true);
    QCOMPARE(style.frames.size(), 1);
    QCOMPARE(style.frames.first().rect, QRect(120, 140, 400, 300));
    QCOMPARE(style.frames.first().transform, QTransform());
    QCOMPARE(style.frames.first().widget, &drawing.widget);
    QCOMPARE(style.frames.first().state & QStyle::State_KeyboardFocusChange, QStyle::State_KeyboardFocusChange);
    QCOMPARE(style.frames.first().state & QStyle::State_Enabled, QStyle::State_Enabled);
    QCOMPARE(style.bands.size(), 0);
}

void tst_ViewerPainting::highlightStyleOneIsARubberBand()
{
    FrameStyle style;
    ProbedDrawing drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 20)));
    drawing.widget.setStyle(&style);
    drawing.viewer.setHighlighted(true);
    style.frames.clear();
    drawing.viewer.setHighlightStyle(1);
    QCOMPARE(style.bands.size(), 1);
    QCOMPARE(style.bands.first().rect, QRect(120, 140, 400, 300));
    QCOMPARE(style.bands.first().transform, QTransform());
    QCOMPARE(style.bands.first().isOpaque, false);
    QCOMPARE(style.bands.first().shape, int(QRubberBand::Rectangle));
    QCOMPARE(style.frames.size(), 0);
    drawing.viewer.setHighlightStyle(2);
    QCOMPARE(style.frames.size(), 1);
    QCOMPARE(style.bands.size(), 1);
}

void tst_ViewerPainting::highlightLiesOverTheContent()
{
    Drawing drawing;
    Figure figure;
    figure.setBackgroundColor(Qt::red);
    drawing.add(figure, QRect(0, 0, 400, 300));
    QVERIFY(drawing.show());
    QCOMPARE(fullyRepainted(drawing).pixelColor(0, 150), QColor(Qt::red));
    drawing.viewer.setHighlightStyle(1);
    drawing.viewer.setHighlighted(true);
    QVERIFY(onScreen(drawing.viewer).pixelColor(0, 150) != QColor(Qt::red));
}

PICTEL_TEST_MAIN(tst_ViewerPainting)
#include "tst_viewerpainting.moc"
