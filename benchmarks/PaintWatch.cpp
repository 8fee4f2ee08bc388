#include "PaintWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QPixmap>
#include <QScreen>

namespace Bench {

namespace {

constexpr int PatientRounds = 1000;

} // namespace

PaintWatch::PaintWatch(QWidget *widget)
{
    widget->installEventFilter(this);
}

void PaintWatch::wait()
{
    // Paintings that nobody waited for, those during somebody else's wait for instance, do not count.
    m_paints = 0;
    for (int round = 0; m_paints == 0; ++round) {
        if (round == PatientRounds)
            qFatal("nothing was painted");
        QCoreApplication::processEvents();
    }
}

bool PaintWatch::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Paint)
        ++m_paints;
    return QObject::eventFilter(object, event);
}

QImage screenPicture(const QWidget &widget)
{
    const QWidget &window = *widget.window();
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace Bench
