// A figure of one's own: a dial. Click on one to turn it up.

#include "support/ExampleApplication.h"
#include "support/SmoothPane.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <cmath>

using namespace Vantrel::Pictel;

namespace {

class Dial : public Figure
{
public:
    Dial(const QString &name, int percent, const QColor &color, QObject *parent)
        : Figure(parent, Qt::transparent)
        , m_name(name)
        , m_percent(percent)
        , m_color(color)
    { }

    void turnUp()
    {
        m_percent = m_percent < 100 ? qMin(m_percent + 10, 100) : 0;
        repaint(); // Had the size changed as well, it would take a revalidate(), too.
    }

    // The dial is round: what lies under its corners is hit instead. Point and bounds are in the parent's coordinates.
    bool contains(const QPoint &point) const override
    {
        const QRectF bounds = mutableSelf()->getBounds(); // Getters are not const, so that they may be computed.
        const QPointF offset = point - bounds.center();
        return std::hypot(offset.x(), offset.y()) <= bounds.width() / 2;
    }

protected:
    // What the figure needs besides margin and border, which the library adds.
    QSize calculateContentSize() override { return QSize(130, 130); }

    // The rectangle of the option holds the bounds in the painter's coordinates. Painter settings need no restoring.
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        const qreal width = 16;
        const QRectF ring = QRectF(option.rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
        painter->setPen(QPen(QColor("#e7eaee"), width));
        painter->drawEllipse(ring);
        painter->setPen(QPen(m_color, width, Qt::SolidLine, Qt::RoundCap));
        painter->drawArc(ring, 90 * 16, -m_percent * 360 * 16 / 100); // Qt counts in sixteenths of a degree.
        painter->setPen(QColor("#2b3440"));
        painter->drawText(ring, Qt::AlignCenter, QStringLiteral("%1\n%2 %").arg(m_name).arg(m_percent));
    }

private:
    const QString m_name;
    int m_percent;
    const QColor m_color;
};

class DialViewer : public FreeformViewer
{
protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        FreeformViewer::mousePressEvent(event);
        if (auto *dial = dynamic_cast<Dial *>(getContent()->findFigureAt(toContent(event->position().toPoint()))))
            dial->turnUp();
    }
};

} // namespace

int main(int argc, char *argv[])
{
    ExampleApplication application(argc, argv, "A custom figure: click on the dials");
    DialViewer viewer;
    auto *drawing = new SmoothPane(&viewer);
    auto *dials = new FreeformLayer(drawing, true);
    drawing->addLayer(dials, "dials");
    viewer.setContent(drawing);

    // A negative size stands for the preferred one.
    dials->add(new Dial("Speed", 70, "#2a9d8f", dials), QRect(0, 0, -1, -1));
    dials->add(new Dial("Fuel", 35, "#e9b44c", dials), QRect(160, 0, -1, -1));
    dials->add(new Dial("Heat", 90, "#d1495b", dials), QRect(320, 0, -1, -1));

    return application.run(viewer);
}
