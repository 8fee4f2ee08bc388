#include "support/CallLog.h"
#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionRubberBand>
#include <QTest>

#include <functional>

using namespace Vantrel::Pictel;

namespace {

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

/// Renders on a recording device and returns what arrived.
RecordingPaintDevice &rendered(RecordingPaintDevice &device, Figure &figure, const QRect &area)
{
    QPainter painter(&device);
    figure.render(&painter, optionFor(area));
    return device;
}

/// A parent at (10, 20) with one child at (10, 10), that is at (20, 30) in absolute coordinates.
struct Family
{
    Family()
        : parent("parent", &log)
        , child("child", &log)
    {
        parent.setBackgroundColor(Qt::red);
        child.setBackgroundColor(Qt::blue);
        parent.setLayoutManager(&layout);
        parent.setBounds(QRect(10, 20, 100, 80));
        child.setBounds(QRect(10, 10, 20, 20));
        parent.add(&child);
        parent.validate();
        log.clear();
    }

    CallLog log;
    ProbeLayout layout;
    ProbeFigure parent;
    ProbeFigure child;
};

/// A figure that runs some code as its drawing.
class DrawingFigure : public Figure
{
public:
    using Draw = std::function<void(QPainter *, const QStyleOptionViewItem &)>;

    explicit DrawingFigure(Draw draw)
        : m_draw(std::move(draw))
    { }

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        // Kept apart from the figure, which the code may delete.
        const Draw draw = m_draw;
        draw(painter, option);
    }

private:
    Draw m_draw;
};

/// Remembers the highlights that figures ask the application style for, and draws each as an ellipse.
class HighlightStyle : public QProxyStyle
{
public:
    struct Highlight
    {
        int element = 0;
        int optionType = 0;
        QRect rect;
        QStyle::State state;
        QRubberBand::Shape shape = QRubberBand::Line;
        bool opaque = true;
        const QWidget *widget = nullptr;
    };

    HighlightStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    { }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        Highlight highlight = note(element, *option, widget);
        if (const auto *band = qstyleoption_cast<const QStyleOptionRubberBand *>(option)) {
            highlight.shape = band->shape;
            highlight.opaque = band->opaque;
        }
        highlights << highlight;
        painter->drawEllipse(option->rect);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        highlights << note(element, *option, widget);
        painter->drawEllipse(option->rect);
    }

    mutable QList<Highlight> highlights;

private:
    static Highlight note(int element, const QStyleOption &option, const QWidget *widget)
    {
        Highlight highlight;
        highlight.element = element;
        highlight.optionType = option.type;
        highlight.rect = option.rect;
        highlight.state = option.state;
        highlight.widget = widget;
        return highlight;
    }
};

} // namespace

class tst_FigurePainting : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nullPainterPaintsNothing();
    void invalidBoundsPaintNothingAndSaySo();
    void figureOutsideTheAreaPaintsNothingNotEvenChildren();
    void touchingEdgeIsOutside();
    void stepsComeInOrderWithTheirRects();
    void ownDrawingGetsTheBoundingRect();
    void coordinatesAreAbsoluteAtAnyDepth();
    void childrenGetTheIntersectionWithTheClientArea();
    void childrenAreLeftOutWhenTheAreaMissesTheClientArea();
    void invalidClientAreaHasNoChildrenNorHighlight();
    void figureSetsNoClipOfItsOwn();
    void layoutClipsChildren();
    void ownDrawingDoesNotLeakPainterState();
    void callersOptionStaysUntouched();
    void optionReachesEveryStep();
    void renderIgnoresOwnVisibility();
    void hiddenChildIsSkippedByTheLayout();
    void childrenPaintBottomToTop();
    void childrenWithoutLayoutManagerAreNotAsked();
    void drawingThatRendersAnotherTreeKeepsItsOption();
    void figureDeletedByItsDrawing();
    void childDeletedByDrawingOfItsSibling();

    void backgroundIsFilled();
    void transparentBackgroundIsNotFilled_data();
    void transparentBackgroundIsNotFilled();
    void borderRendersItself();
    void figureWithoutBorderDrawsNone();

    void highlightIsARubberBandOverTheClientArea();
    void highlightOfStyleZeroIsAFocusFrame();
    void highlightComesAfterChildren();
    void highlightIsDrawnWhereTheAreaMissesTheClientArea();

private:
    QPointer<HighlightStyle> m_style;
};

void tst_FigurePainting::init()
{
    PictelTest::init();
    m_style = new HighlightStyle;
    QApplication::setStyle(m_style);
}

void tst_FigurePainting::cleanup()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QVERIFY(m_style.isNull());
}

void tst_FigurePainting::nullPainterPaintsNothing()
{
    Family family;
    family.parent.render(nullptr, optionFor(QRect(0, 0, 500, 500)));
    QCOMPARE(family.log.only({"drawBackground", "drawChildren"}), QStringList());
}

void tst_FigurePainting::invalidBoundsPaintNothingAndSaySo()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    RecordingPaintDevice device;
    expectDebug("Figure::render(): invalid figure bounds");
    QVERIFY(rendered(device, figure, QRect(0, 0, 500, 500)).isEmpty());
    QCOMPARE(log.calls(), QStringList({"figure.render(0,0 500x500)"}));
}

void tst_FigurePainting::figureOutsideTheAreaPaintsNothingNotEvenChildren()
{
    Family family;
    family.child.setBounds(QRect(200, 200, 50, 50));
    family.log.clear();
    RecordingPaintDevice device;
    QVERIFY(rendered(device, family.parent, QRect(200, 200, 100, 100)).isEmpty());
    QCOMPARE(family.log.calls(), QStringList({"parent.render(200,200 100x100)"}));
}

void tst_FigurePainting::touchingEdgeIsOutside()
{
    Family family;
    RecordingPaintDevice device;
    QVERIFY(rendered(device, family.parent, QRect(110, 20, 10, 10)).isEmpty());
    QVERIFY(!rendered(device, family.parent, QRect(109, 20, 10, 10)).isEmpty());
}

void tst_FigurePainting::stepsComeInOrderWithTheirRects()
{
    Family family;
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 40, 45));
    QCOMPARE(family.log.calls(),
             QStringList({"parent.render(0,0 40x45)", "parent.drawBackground(10,20 100x80)",
                          "parent.drawFigure(10,20 100x80)", "parent.drawBorder(10,20 100x80)",
                          "parent.drawChildren(10,20 30x25)", "child.render(10,20 30x25)",
                          "child.drawBackground(20,30 20x20)", "child.drawFigure(20,30 20x20)",
                          "child.drawBorder(20,30 20x20)", "child.drawChildren(20,30 20x15)"}));
}

void tst_FigurePainting::ownDrawingGetsTheBoundingRect()
{
    Family family;
    family.parent.setBoundingRect(QRect(0, 0, 200, 200));
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(family.log.only({"drawBackground", "drawChildren"}),
             QStringList({"parent.drawBackground(0,0 200x200)", "parent.drawChildren(0,0 200x200)",
                          "child.drawBackground(20,30 20x20)", "child.drawChildren(20,30 20x20)"}));
}

void tst_FigurePainting::coordinatesAreAbsoluteAtAnyDepth()
{
    Family family;
    ProbeLayout inner;
    family.child.setLayoutManager(&inner);
    family.child.setMargin(2);
    Figure grandchild(nullptr, Qt::green);
    family.child.add(&grandchild);
    grandchild.setBounds(QRect(1, 1, 5, 5));
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(10, 20, 100, 80), QRectF(20, 30, 20, 20), QRectF(23, 33, 5, 5)}));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::red), QColor(Qt::blue), QColor(Qt::green)}));
}

void tst_FigurePainting::childrenGetTheIntersectionWithTheClientArea()
{
    Family family;
    ProbeBorder border(Insets(1, 2, 3, 2));
    family.parent.setMargin(4);
    family.parent.setBorder(&border);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(family.log.only({"drawChildren"}).value(0), QStringLiteral("parent.drawChildren(16,25 88x68)"));
}

void tst_FigurePainting::childrenAreLeftOutWhenTheAreaMissesTheClientArea()
{
    Family family;
    family.parent.setMargin(10);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(10, 20, 10, 500));
    QCOMPARE(family.log.only({"drawBackground", "drawChildren"}), QStringList({"parent.drawBackground(10,20 100x80)"}));
}

void tst_FigurePainting::invalidClientAreaHasNoChildrenNorHighlight()
{
    Family family;
    family.parent.setMargin(40);
    family.parent.highlightClientArea(true);
    family.log.clear();
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(family.log.only({"drawChildren"}), QStringList());
    QCOMPARE(m_style->highlights.size(), 0);
}

void tst_FigurePainting::figureSetsNoClipOfItsOwn()
{
    Family family;
    family.layout.clips = false;
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 40, 45));
    QCOMPARE(device.count(), 2);
    QVERIFY(!device.at(0).isClipped);
    QVERIFY(!device.at(1).isClipped);
}

void tst_FigurePainting::layoutClipsChildren()
{
    Family family;
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 40, 45));
    QCOMPARE(device.count(), 2);
    QVERIFY(!device.at(0).isClipped);
    QCOMPARE(device.at(1).deviceClipRect(), QRectF(10, 20, 30, 25));
}

void tst_FigurePainting::ownDrawingDoesNotLeakPainterState()
{
    DrawingFigure figure([](QPainter *painter, const QStyleOptionViewItem &) {
        painter->setOpacity(0.5);
        painter->translate(100, 100);
    });
    ProbeLayout layout;
    figure.setLayoutManager(&layout);
    figure.setBounds(QRect(0, 0, 50, 50));
    Figure child;
    child.setBounds(QRect(0, 0, 5, 5));
    figure.add(&child);
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 50, 50));
    QCOMPARE(device.at(1).opacity, 1.0);
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(0, 0, 50, 50), QRectF(0, 0, 5, 5)}));
}

void tst_FigurePainting::callersOptionStaysUntouched()
{
    Family family;
    RecordingPaintDevice device;
    QPainter painter(&device);
    const QStyleOptionViewItem option = optionFor(QRect(0, 0, 40, 45));
    family.parent.render(&painter, option);
    QCOMPARE(option.rect, QRect(0, 0, 40, 45));
}

void tst_FigurePainting::optionReachesEveryStep()
{
    QStringList texts;
    const auto note = [&texts](QPainter *, const QStyleOptionViewItem &option) {
        texts << option.text + CallLog::text(option.rect);
    };
    DrawingFigure parent(note);
    DrawingFigure child(note);
    ProbeLayout layout;
    parent.setLayoutManager(&layout);
    parent.setBounds(QRect(0, 0, 50, 50));
    child.setBounds(QRect(1, 1, 5, 5));
    parent.add(&child);
    RecordingPaintDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 40, 40));
    option.text = QStringLiteral("text ");
    parent.render(&painter, option);
    QCOMPARE(texts, QStringList({"text 0,0 50x50", "text 1,1 5x5"}));
}

void tst_FigurePainting::renderIgnoresOwnVisibility()
{
    Family family;
    family.parent.setVisible(false);
    RecordingPaintDevice device;
    QCOMPARE(rendered(device, family.parent, QRect(0, 0, 500, 500)).count(), 2);
}

void tst_FigurePainting::hiddenChildIsSkippedByTheLayout()
{
    Family family;
    family.child.setVisible(false);
    RecordingPaintDevice device;
    QCOMPARE(rendered(device, family.parent, QRect(0, 0, 500, 500)).count(), 1);
}

void tst_FigurePainting::childrenPaintBottomToTop()
{
    Family family;
    Figure top(nullptr, Qt::green);
    top.setBounds(QRect(15, 15, 20, 20));
    family.parent.add(&top);
    Figure bottom(nullptr, Qt::yellow);
    bottom.setBounds(QRect(15, 15, 20, 20));
    family.parent.add(&bottom, QVariant(), 0);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(device.fillColors(),
             QList<QColor>({QColor(Qt::red), QColor(Qt::yellow), QColor(Qt::blue), QColor(Qt::green)}));
}

void tst_FigurePainting::childrenWithoutLayoutManagerAreNotAsked()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(0, 0, 10, 10));
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 10, 10));
    QCOMPARE(log.only({"drawChildren"}), QStringList({"figure.drawChildren(0,0 10x10)"}));
    QCOMPARE(device.count(), 1);
}

void tst_FigurePainting::drawingThatRendersAnotherTreeKeepsItsOption()
{
    Family other;
    QStringList rects;
    DrawingFigure figure([&](QPainter *painter, const QStyleOptionViewItem &option) {
        rects << CallLog::text(option.rect);
        other.parent.render(painter, option);
        rects << CallLog::text(option.rect);
        QStyleOptionViewItem own(option);
        own.rect = QRect(0, 0, 30, 500);
        other.parent.render(painter, own);
        rects << CallLog::text(own.rect) << CallLog::text(option.rect);
    });
    ProbeLayout layout;
    figure.setLayoutManager(&layout);
    figure.setBounds(QRect(5, 5, 400, 400));
    ProbeFigure child("child", &other.log);
    child.setBounds(QRect(0, 0, 5, 5));
    figure.add(&child);
    other.log.clear();
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 200, 200));
    QCOMPARE(rects, QStringList({"5,5 400x400", "5,5 400x400", "0,0 30x500", "5,5 400x400"}));
    QCOMPARE(other.log.only({"render"}),
             QStringList({"parent.render(5,5 400x400)", "child.render(10,20 100x80)", "parent.render(0,0 30x500)",
                          "child.render(10,20 20x80)", "child.render(5,5 195x195)"}));
}

void tst_FigurePainting::figureDeletedByItsDrawing()
{
    QPointer<Figure> figure;
    figure = new DrawingFigure([&figure](QPainter *, const QStyleOptionViewItem &) { delete figure.data(); });
    figure->highlightClientArea(true);
    figure->setBounds(QRect(0, 0, 10, 10));
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setOpacity(0.25);
    figure->render(&painter, optionFor(QRect(0, 0, 10, 10)));
    QVERIFY(figure.isNull());
    QCOMPARE(painter.opacity(), 0.25);
    QCOMPARE(m_style->highlights.size(), 0);
}

void tst_FigurePainting::childDeletedByDrawingOfItsSibling()
{
    Family family;
    const QPointer<Figure> victim = new Figure;
    DrawingFigure killer([&victim](QPainter *, const QStyleOptionViewItem &) { delete victim.data(); });
    killer.setBounds(QRect(0, 0, 10, 10));
    victim->setBounds(QRect(0, 0, 10, 10));
    family.parent.add(&killer);
    family.parent.add(victim);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QVERIFY(victim.isNull());
    QCOMPARE(device.count(), 3);
}

void tst_FigurePainting::backgroundIsFilled()
{
    Figure figure;
    figure.setBounds(QRect(1, 2, 3, 4));
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 3, 3));
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(1, 2, 3, 4)}));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::white)}));
}

void tst_FigurePainting::transparentBackgroundIsNotFilled_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("fills");
    QTest::newRow("transparent") << QColor(Qt::transparent) << 0;
    QTest::newRow("transparent by numbers") << QColor(0, 0, 0, 0) << 0;
    QTest::newRow("another colour without alpha") << QColor(255, 0, 0, 0) << 1;
    QTest::newRow("nearly transparent") << QColor(0, 0, 0, 1) << 1;
}

void tst_FigurePainting::transparentBackgroundIsNotFilled()
{
    QFETCH(QColor, color);
    QFETCH(int, fills);
    Figure figure(nullptr, color);
    figure.setBounds(QRect(1, 2, 3, 4));
    RecordingPaintDevice device;
    QCOMPARE(rendered(device, figure, QRect(0, 0, 30, 30)).count(), fills);
}

void tst_FigurePainting::borderRendersItself()
{
    Family family;
    ProbeBorder border(Insets(1, 1, 1, 1), &family.log);
    family.child.setBorder(&border);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(family.log.only({"render"}),
             QStringList({"parent.render(0,0 500x500)", "child.render(10,20 100x80)", "border.render(20,30 20x20)"}));
}

void tst_FigurePainting::figureWithoutBorderDrawsNone()
{
    Figure figure(nullptr, Qt::transparent);
    figure.setBounds(QRect(1, 2, 3, 4));
    RecordingPaintDevice device;
    QVERIFY(rendered(device, figure, QRect(0, 0, 30, 30)).isEmpty());
}

void tst_FigurePainting::highlightIsARubberBandOverTheClientArea()
{
    Figure figure;
    figure.setBounds(QRect(10, 10, 100, 100));
    figure.setMargin(5);
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 500, 500));
    QCOMPARE(m_style->highlights.size(), 0);
    figure.highlightClientArea(true);
    QPainter painter(&device);
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 50, 50));
    option.state = QStyle::State_Enabled | QStyle::State_Selected;
    figure.render(&painter, option);
    QCOMPARE(m_style->highlights.size(), 1);
    const HighlightStyle::Highlight highlight = m_style->highlights.constFirst();
    QCOMPARE(highlight.element, int(QStyle::CE_RubberBand));
    QCOMPARE(highlight.optionType, int(QStyleOption::SO_RubberBand));
    QCOMPARE(highlight.rect, QRect(15, 15, 90, 90));
    QCOMPARE(highlight.state, QStyle::State_Enabled | QStyle::State_Selected);
    QCOMPARE(highlight.shape, QRubberBand::Rectangle);
    QVERIFY(!highlight.opaque);
    QCOMPARE(highlight.widget, nullptr);
}

void tst_FigurePainting::highlightOfStyleZeroIsAFocusFrame()
{
    Figure figure;
    figure.setBounds(QRect(10, 10, 100, 100));
    figure.setHighlightStyle(0);
    figure.highlightClientArea(true);
    RecordingPaintDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option = optionFor(QRect(0, 0, 50, 50));
    option.state = QStyle::State_Enabled;
    figure.render(&painter, option);
    QCOMPARE(m_style->highlights.size(), 1);
    const HighlightStyle::Highlight highlight = m_style->highlights.constFirst();
    QCOMPARE(highlight.element, int(QStyle::PE_FrameFocusRect));
    QCOMPARE(highlight.optionType, int(QStyleOption::SO_FocusRect));
    QCOMPARE(highlight.rect, QRect(10, 10, 100, 100));
    QCOMPARE(highlight.state, QStyle::State_Enabled | QStyle::State_KeyboardFocusChange);
    QCOMPARE(highlight.widget, nullptr);
}

void tst_FigurePainting::highlightComesAfterChildren()
{
    Family family;
    family.parent.highlightClientArea(true);
    family.parent.setHighlightStyle(2);
    RecordingPaintDevice device;
    rendered(device, family.parent, QRect(0, 0, 500, 500));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Rects, PaintCall::Rects, PaintCall::Ellipse}));
    QCOMPARE(m_style->highlights.constFirst().element, int(QStyle::CE_RubberBand));
    QCOMPARE(device.at(2).deviceRect(), QRectF(10, 20, 100, 80));
    QVERIFY(!device.at(2).isClipped);
}

void tst_FigurePainting::highlightIsDrawnWhereTheAreaMissesTheClientArea()
{
    Figure figure;
    figure.setBounds(QRect(10, 10, 100, 100));
    figure.setMargin(20);
    figure.highlightClientArea(true);
    RecordingPaintDevice device;
    rendered(device, figure, QRect(0, 0, 15, 15));
    QCOMPARE(m_style->highlights.size(), 1);
    QCOMPARE(m_style->highlights.constFirst().rect, QRect(30, 30, 60, 60));
}

PICTEL_TEST_MAIN(tst_FigurePainting)
#include "tst_figurepainting.moc"
