#include "ShownTree.h"
#include "SizeSetterProbe.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"
#include "support/UpdateOrderProbe.h"

#include <vtlpictel/figure/SimpleBorder.h>
#include <vtlpictel/shapes/TextFigure.h>

#include <QFontMetrics>
#include <QTest>

#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

using ProbeTextFigure = SizeSetterProbe<TextFigure>;

const QString helloText = QStringLiteral("Hello");
const QString longText = QStringLiteral("Hello, figures of the world");

QSize measured(const QString &text, const QFont &font = QFont())
{
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(text), metrics.lineSpacing());
}

QFont largeFont()
{
    QFont font;
    font.setPixelSize(40);
    return font;
}

/// The smallest multiple of 5 that is not below \a length.
int onGrid(int length)
{
    while (length % 5 != 0)
        ++length;
    return length;
}

QSize onGrid(const QSize &size)
{
    return QSize(onGrid(size.width()), onGrid(size.height()));
}

/// The left end of the ink of the one text drawn.
double textStart(const RecordingPaintDevice &device)
{
    return device.first(PaintCall::Text).position.x();
}

} // namespace

class tst_TextFigure : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newFigureHasItsDefaults();
    void constructorTakesTextParentAndBackground();
    void constructorMeasuresTheText();
    void emptyTextAtConstructionSetsNoSize();
    void metaObjectTellsTheClass();

    void textIsStoredAndMeasured();
    void sameTextDoesNothing();
    void fontIsStoredAndMeasured();
    void sameFontDoesNothing();
    void indentIsStoredAndMeasured();
    void sameIndentDoesNothing();
    void negativeIndentIsStoredAsZeroButMeasured();
    void shorterTextShrinksTheFigure();
    void sizeIncludesTheMargin();
    void minimumIsSetBeforePreferred();
    void resizingRevalidatesBeforeItRepaints();
    void textBeyondTheMaximumIsRefusedButStored();
    void textColorIsStoredAndRepaintedWhenItDiffers();
    void alignmentIsStoredAndRepaintedWhenItDiffers();

    void contentSizeIsIndentAndText();
    void hugeIndentDoesNotOverflow();
    void hugeIndentAndMarginDoNotOverflow();
    void snapToGridTakesEffectWithTheNextChange();
    void snapToGridRoundsUpToWholeCells();
    void snapToGridKeepsWholeCells();
    void snapToGridCountsTheMargin();
    void snapToGridCountsTheBorder();
    void snapToGridCanBeSwitchedOff();

    void textIsDrawnWithFontAndColor();
    void unsetColorIsBlack();
    void indentMovesTheText();
    void alignmentPlacesTheText();
    void painterIsLeftAsItWas();
    void nullPainterDrawsNothing();

private:
    void compareResized(const QSize &size);
    void compareUntouched();

    std::unique_ptr<ShownTree> m_tree;
    std::unique_ptr<ProbeTextFigure> m_figure;
    const QRect m_bounds {10, 20, 300, 60};
};

void tst_TextFigure::init()
{
    PictelTest::init();
    m_tree = std::make_unique<ShownTree>();
    m_figure = std::make_unique<ProbeTextFigure>(helloText);
    m_tree->show(*m_figure);
    m_figure->setBounds(m_bounds);
    m_figure->validate();
    m_figure->setters.clear();
    m_tree->forget();
}

void tst_TextFigure::cleanup()
{
    m_figure.reset();
    m_tree.reset();
}

/// The figure took \a size, asked for a new layout once and for one repaint.
void tst_TextFigure::compareResized(const QSize &size)
{
    QCOMPARE(m_figure->setters, QStringList({"minimum", "preferred"}));
    QVERIFY(!m_figure->getFlag(Figure::FLAG_VALID));
    QCOMPARE(m_figure->getMinimumSize(), size);
    QCOMPARE(m_figure->getPreferredSize(), size);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    QCOMPARE(m_tree->takeRevalidations(), 1);
}

void tst_TextFigure::compareUntouched()
{
    QCOMPARE(m_figure->setters, QStringList());
    QVERIFY(m_figure->getFlag(Figure::FLAG_VALID));
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
    QCOMPARE(m_tree->takeRevalidations(), 0);
}

void tst_TextFigure::newFigureHasItsDefaults()
{
    QObject owner;
    auto *figure = new TextFigure(&owner);
    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getText(), QString());
    QCOMPARE(figure->getFont(), QFont());
    QCOMPARE(figure->getIndent(), 0);
    QCOMPARE(figure->getTextColor(), QColor());
    QCOMPARE(figure->getAlignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::white));
}

void tst_TextFigure::constructorTakesTextParentAndBackground()
{
    QObject owner;
    auto *figure = new TextFigure(helloText, &owner, Qt::blue);
    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getText(), helloText);
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::blue));
    QCOMPARE(TextFigure(helloText).getBackgroundColor(), QColor(Qt::white));
    QCOMPARE(TextFigure(helloText).parent(), nullptr);
}

void tst_TextFigure::constructorMeasuresTheText()
{
    TextFigure figure(helloText);
    QCOMPARE(figure.getMinimumSize(), measured(helloText));
    QCOMPARE(figure.getPreferredSize(), measured(helloText));
}

void tst_TextFigure::emptyTextAtConstructionSetsNoSize()
{
    TextFigure figure {QString()};
    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
}

void tst_TextFigure::metaObjectTellsTheClass()
{
    QCOMPARE(TextFigure::staticMetaObject.className(), "Vantrel::Pictel::TextFigure");
}

void tst_TextFigure::textIsStoredAndMeasured()
{
    m_figure->setText(longText);
    QCOMPARE(m_figure->getText(), longText);
    compareResized(measured(longText));
}

void tst_TextFigure::sameTextDoesNothing()
{
    m_figure->setText(helloText);
    compareUntouched();
}

void tst_TextFigure::fontIsStoredAndMeasured()
{
    m_figure->setFont(largeFont());
    QCOMPARE(m_figure->getFont(), largeFont());
    compareResized(measured(helloText, largeFont()));
}

void tst_TextFigure::sameFontDoesNothing()
{
    m_figure->setFont(QFont());
    compareUntouched();
}

void tst_TextFigure::indentIsStoredAndMeasured()
{
    m_figure->setIndent(7);
    QCOMPARE(m_figure->getIndent(), 7);
    compareResized(measured(helloText) + QSize(7, 0));
}

void tst_TextFigure::sameIndentDoesNothing()
{
    m_figure->setIndent(0);
    compareUntouched();
}

void tst_TextFigure::negativeIndentIsStoredAsZeroButMeasured()
{
    m_figure->setIndent(-4);
    QCOMPARE(m_figure->getIndent(), 0);
    compareResized(measured(helloText));
}

void tst_TextFigure::shorterTextShrinksTheFigure()
{
    m_figure->setText(longText);
    m_figure->setText(helloText);
    QCOMPARE(m_figure->getMinimumSize(), measured(helloText));
    QCOMPARE(m_figure->getPreferredSize(), measured(helloText));
}

void tst_TextFigure::sizeIncludesTheMargin()
{
    m_figure->setMargin(3);
    m_figure->setText(longText);
    QCOMPARE(m_figure->getMinimumSize(), measured(longText) + QSize(6, 6));
}

// The other way round the old minimum would refuse the smaller size.
void tst_TextFigure::minimumIsSetBeforePreferred()
{
    m_figure->setText(longText);
    m_figure->setters.clear();
    m_figure->setText(helloText);
    QCOMPARE(m_figure->setters, QStringList({"minimum", "preferred"}));
}

void tst_TextFigure::resizingRevalidatesBeforeItRepaints()
{
    CallLog log;
    UpdateOrderProbe<TextFigure> figure(log);
    figure.setText(helloText);
    QCOMPARE(log.take(), QStringList({"figure.revalidate", "figure.repaint"}));
    figure.setIndent(3);
    QCOMPARE(log.take(), QStringList({"figure.revalidate", "figure.repaint"}));
    QFont larger = figure.getFont();
    larger.setPixelSize(40);
    figure.setFont(larger);
    QCOMPARE(log.take(), QStringList({"figure.revalidate", "figure.repaint"}));
}

void tst_TextFigure::textBeyondTheMaximumIsRefusedButStored()
{
    m_figure->setMaximumSize(measured(helloText));
    expectDebug("Figure::setMinimumSize(): size out of bound");
    expectDebug("Figure::setPreferredSize(): size out of bound");
    m_figure->setText(longText);
    QCOMPARE(m_figure->getText(), longText);
    QCOMPARE(m_figure->getMinimumSize(), measured(helloText));
}

void tst_TextFigure::textColorIsStoredAndRepaintedWhenItDiffers()
{
    m_figure->setTextColor(Qt::red);
    QCOMPARE(m_figure->getTextColor(), QColor(Qt::red));
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    m_figure->setTextColor(Qt::red);
    compareUntouched();
}

void tst_TextFigure::alignmentIsStoredAndRepaintedWhenItDiffers()
{
    m_figure->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(m_figure->getAlignment(), Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    m_figure->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    compareUntouched();
}

void tst_TextFigure::contentSizeIsIndentAndText()
{
    QCOMPARE(m_figure->calculateContentSize(), measured(helloText));
    m_figure->setIndent(11);
    QCOMPARE(m_figure->calculateContentSize(), measured(helloText) + QSize(11, 0));
}

void tst_TextFigure::hugeIndentDoesNotOverflow()
{
    expectDebug("Figure::setMinimumSize(): size out of bound");
    expectDebug("Figure::setPreferredSize(): size out of bound");
    m_figure->setIndent(std::numeric_limits<int>::max());
    QCOMPARE(m_figure->calculateContentSize().width(), std::numeric_limits<int>::max());
    RecordingPaintDevice device;
    paint(*m_figure, device);
    QCOMPARE(m_figure->getIndent(), std::numeric_limits<int>::max());
}

void tst_TextFigure::hugeIndentAndMarginDoNotOverflow()
{
    m_figure->setMargin(10);
    const QSize before = m_figure->getMinimumSize();
    expectDebug("Figure::setMinimumSize(): size out of bound");
    expectDebug("Figure::setPreferredSize(): size out of bound");
    m_figure->setIndent(std::numeric_limits<int>::max());
    QCOMPARE(m_figure->getMinimumSize(), before);
}

void tst_TextFigure::snapToGridTakesEffectWithTheNextChange()
{
    m_figure->setSnapToGrid(true);
    QCOMPARE(m_figure->getMinimumSize(), measured(helloText));
    compareUntouched();
    m_figure->setText(longText);
    compareResized(onGrid(measured(longText)));
}

void tst_TextFigure::snapToGridRoundsUpToWholeCells()
{
    m_figure->setSnapToGrid(true);
    // Every remainder of the width is met.
    for (int indent = 0; indent < 5; ++indent) {
        m_figure->setIndent(indent);
        QCOMPARE(m_figure->calculateContentSize(), onGrid(measured(helloText) + QSize(indent, 0)));
    }
}

void tst_TextFigure::snapToGridKeepsWholeCells()
{
    m_figure->setSnapToGrid(true);
    m_figure->setIndent(onGrid(measured(helloText).width()) - measured(helloText).width());
    QCOMPARE(m_figure->calculateContentSize().width(), onGrid(measured(helloText).width()));
}

void tst_TextFigure::snapToGridCountsTheMargin()
{
    m_figure->setSnapToGrid(true);
    m_figure->setMargin(3);
    m_figure->setText(longText);
    QCOMPARE(m_figure->calculateContentSize(), onGrid(measured(longText)) - QSize(6, 6));
    QCOMPARE(m_figure->getMinimumSize(), onGrid(measured(longText)));
}

void tst_TextFigure::snapToGridCountsTheBorder()
{
    SimpleBorder border;
    border.setInsets(Insets(1, 2, 3, 4));
    m_figure->setSnapToGrid(true);
    m_figure->setBorder(&border);
    m_figure->setMargin(3);
    QCOMPARE(m_figure->calculateContentSize(), onGrid(measured(helloText)) - QSize(6, 6) - QSize(6, 4));
}

void tst_TextFigure::snapToGridCanBeSwitchedOff()
{
    m_figure->setSnapToGrid(true);
    m_figure->setIndent(2);
    m_figure->setSnapToGrid(false);
    QCOMPARE(m_figure->calculateContentSize(), measured(helloText) + QSize(2, 0));
}

void tst_TextFigure::textIsDrawnWithFontAndColor()
{
    m_figure->setTextColor(Qt::red);
    m_figure->setFont(largeFont());
    RecordingPaintDevice device;
    paint(*m_figure, device);
    QCOMPARE(device.texts(), QStringList({helloText}));
    const PaintCall call = device.first(PaintCall::Text);
    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.font.pixelSize(), 40);
    QCOMPARE(call.position.x(), 110.0);
    QCOMPARE(qRound(call.position.y()), 220 + QFontMetrics(largeFont()).ascent());
}

void tst_TextFigure::unsetColorIsBlack()
{
    RecordingPaintDevice device;
    paint(*m_figure, device);
    QCOMPARE(device.first(PaintCall::Text).pen.color(), QColor(Qt::black));
}

void tst_TextFigure::indentMovesTheText()
{
    m_figure->setIndent(17);
    RecordingPaintDevice device;
    paint(*m_figure, device);
    QCOMPARE(textStart(device), 127.0);
}

void tst_TextFigure::alignmentPlacesTheText()
{
    m_figure->setAlignment(Qt::AlignRight | Qt::AlignTop);
    RecordingPaintDevice device;
    paint(*m_figure, device);
    QCOMPARE(qRound(textStart(device)), 410 - measured(helloText).width());
}

void tst_TextFigure::painterIsLeftAsItWas()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setPen(Qt::yellow);
    painter.setFont(largeFont());
    m_figure->drawFigure(&painter, paintEverything());
    QCOMPARE(painter.pen().color(), QColor(Qt::yellow));
    QCOMPARE(painter.font(), largeFont());
}

void tst_TextFigure::nullPainterDrawsNothing()
{
    m_figure->drawFigure(nullptr, paintEverything());
    compareUntouched();
}

PICTEL_TEST_MAIN(tst_TextFigure)

#include "tst_textfigure.moc"
