#include "support/ProbeBorder.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/Figure.h>

#include <QPainter>
#include <QTest>

using namespace Vantrel::Pictel;

namespace {

/// Leaves the painter with a red pen.
class OwnBackground : public Figure
{
protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &) const override { painter->setPen(Qt::red); }
};

class OwnDrawing : public Figure
{
protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &) const override { painter->setPen(Qt::red); }
};

class OwnBorderDrawing : public Figure
{
public:
    mutable int borders = 0;

protected:
    void drawBorder(QPainter *painter, const QStyleOptionViewItem &, const Border *) const override
    {
        ++borders;
        painter->setPen(Qt::red);
    }
};

class OwnBorder : public Figure
{
public:
    Border *own = nullptr;
    mutable int questions = 0;

    Border *getBorder() const override
    {
        ++questions;
        return own;
    }
};

} // namespace

/// A figure that only fills its background is painted in a shorter way; any other is not.
class tst_FilledFigures : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void plainFigureFillsItsBounds();
    void borderOfAPlainFigureIsPainted();
    void ownBackgroundLeavesThePainterAsItWas();
    void ownDrawingLeavesThePainterAsItWas();
    void ownBorderDrawingIsCalledWithoutABorder();
    void ownBorderIsAskedForOnceAndPainted();
    void ownLackOfABorderIsAskedForOnce();

private:
    // Paints the figure at (10, 10, 20, 20).
    void paint(Figure &figure);

    RecordingPaintDevice m_device;
    QColor m_penColor;
};

void tst_FilledFigures::paint(Figure &figure)
{
    figure.setBounds(QRect(10, 10, 20, 20));
    m_device.clear();
    QPainter painter(&m_device);
    painter.setPen(Qt::blue);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);
    figure.render(&painter, option);
    m_penColor = painter.pen().color();
}

void tst_FilledFigures::plainFigureFillsItsBounds()
{
    Figure figure(nullptr, Qt::green);
    paint(figure);
    QCOMPARE(m_device.fills(), QList<QRectF>({QRectF(10, 10, 20, 20)}));
    QCOMPARE(m_device.fillColors(), QList<QColor>({QColor(Qt::green)}));
    QCOMPARE(m_device.count(), 1);
    QCOMPARE(m_penColor, QColor(Qt::blue));
}

void tst_FilledFigures::borderOfAPlainFigureIsPainted()
{
    Figure figure;
    CallLog log;
    ProbeBorder border(Insets(1, 1, 1, 1), &log);
    figure.setBorder(&border);
    paint(figure);
    QCOMPARE(log.calls(), QStringList({"border.render(10,10 20x20)"}));
}

void tst_FilledFigures::ownBackgroundLeavesThePainterAsItWas()
{
    OwnBackground figure;
    paint(figure);
    QCOMPARE(m_penColor, QColor(Qt::blue));
}

void tst_FilledFigures::ownDrawingLeavesThePainterAsItWas()
{
    OwnDrawing figure;
    paint(figure);
    QCOMPARE(m_penColor, QColor(Qt::blue));
}

void tst_FilledFigures::ownBorderDrawingIsCalledWithoutABorder()
{
    OwnBorderDrawing figure;
    paint(figure);
    QCOMPARE(figure.borders, 1);
    QCOMPARE(m_penColor, QColor(Qt::blue));
}

void tst_FilledFigures::ownBorderIsAskedForOnceAndPainted()
{
    OwnBorder figure;
    CallLog log;
    ProbeBorder border(Insets(1, 1, 1, 1), &log);
    figure.own = &border;
    paint(figure);
    QCOMPARE(figure.questions, 1);
    QCOMPARE(log.calls(), QStringList({"border.render(10,10 20x20)"}));
}

void tst_FilledFigures::ownLackOfABorderIsAskedForOnce()
{
    OwnBorder figure;
    ProbeBorder border(Insets(1, 1, 1, 1));
    figure.setBorder(&border);
    paint(figure);
    QCOMPARE(figure.questions, 1);
    QCOMPARE(m_device.count(), 1);
}

PICTEL_TEST_MAIN(tst_FilledFigures)
#include "tst_filledfigures.moc"
