// Ends the program it is linked into as soon as its viewer has painted: successfully if the box stands where it should.
#include <vtlpictel/viewer/FreeformViewer.h>
#include <vtlpictel/viewer/FreeformWidget.h>

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QPixmap>

using namespace Vantrel::Pictel;

namespace {

FreeformViewer *shownViewer()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *viewer = qobject_cast<FreeformViewer *>(window))
            return viewer;
    }
    return nullptr;
}

bool showsTheBox(FreeformViewer *viewer)
{
    const QImage image = viewer->viewport()->grab().toImage();
    const QPoint inTheBox = viewer->fromContent(QPoint(70, 50));
    return image.rect().contains(inTheBox) && image.pixelColor(inTheBox) == QColor("gold");
}

class PaintWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<FreeformWidget *>(watched)) {
            qApp->removeEventFilter(this);
            const auto judge = [] { QApplication::exit(showsTheBox(shownViewer()) ? 0 : 1); };
            QMetaObject::invokeMethod(qApp, judge, Qt::QueuedConnection);
        }
        return false;
    }
};

void watchPaints()
{
    qApp->installEventFilter(new PaintWatch(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchPaints)
