#include "Screen.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QWidget>

#include <utility>

Screen::Screen(Vantrel::Pictel::FreeformViewer &viewer)
    : m_widget(*viewer.widget())
    , m_viewport(*viewer.viewport())
{
    m_widget.installEventFilter(this);
    restart();
}

bool Screen::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::Paint || m_isRendering)
        return false;
    m_pending << static_cast<QPaintEvent *>(event)->region();
    return true;
}

QRegion Screen::visibleRegion() const
{
    return m_viewport.rect().translated(-m_widget.pos()) & m_widget.rect();
}

// Under a clip of several rectangles Qt blends text and scales pixmaps by other algorithms, with other roundings, so
// the rectangles are painted one by one.
void Screen::paint(QImage &image, const QRegion &region) const
{
    m_isRendering = true;
    for (const QRect &rect : region)
        m_widget.render(&image, rect.topLeft(), rect, QWidget::DrawWindowBackground);
    m_isRendering = false;
}

// What is asked for while painting is on its way as an event of its own until it becomes a paint event.
void Screen::deliverPaintEvents()
{
    QCoreApplication::processEvents();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(m_widget.window(), &request);
}

void Screen::askForPaint()
{
    m_widget.update(QRect(visibleRegion().boundingRect().topLeft(), QSize(1, 1)));
}

void Screen::settle()
{
    constexpr int enough = 100;
    for (int round = 0; round < enough; ++round) {
        deliverPaintEvents();
        if (m_pending.isEmpty())
            return;
        const QList<QRegion> pending = std::exchange(m_pending, {});
        for (const QRegion &region : pending)
            paint(m_picture, region);
    }
}

QImage Screen::accumulated() const
{
    return m_picture.copy(visibleRegion().boundingRect());
}

QImage Screen::repainted() const
{
    QImage picture(m_widget.size(), QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    paint(picture, visibleRegion());
    return picture.copy(visibleRegion().boundingRect());
}

void Screen::restart()
{
    m_picture = QImage(m_widget.size(), QImage::Format_RGB32);
    m_picture.fill(Qt::magenta);
    settle();
    paint(m_picture, visibleRegion());
    settle();
}

QString difference(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("different sizes");
    QRect bounds;
    QString first;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) == expected.pixel(x, y))
                continue;
            if (bounds.isNull())
                first = QStringLiteral("%1 instead of %2")
                            .arg(actual.pixelColor(x, y).name(), expected.pixelColor(x, y).name());
            bounds |= QRect(x, y, 1, 1);
        }
    }
    if (bounds.isNull())
        return QString();
    return QStringLiteral("differs within %1,%2 %3x%4, first %5")
        .arg(bounds.x())
        .arg(bounds.y())
        .arg(bounds.width())
        .arg(bounds.height())
        .arg(first);
}
