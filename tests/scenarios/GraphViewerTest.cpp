#include "GraphViewerTest.h"

#include <QAction>
#include <QApplication>
#include <QStyle>

using namespace GraphViewer;
using namespace GraphViewerSupport;

void GraphViewerTest::init()
{
    PictelTest::init();
    m_window = std::make_unique<MainWindow>();
    m_window->resize(900, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    show(sample(QStringLiteral("webshop.dot")));
}

void GraphViewerTest::cleanup()
{
    m_window.reset();
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void GraphViewerTest::show(const QString &file)
{
    m_window->openFile(file);
    QTRY_COMPARE(m_window->windowFilePath(), file);
    QCoreApplication::processEvents();
}

QString GraphViewerTest::temporaryFile(const QString &name, const QByteArray &bytes)
{
    return writeFile(m_directory, name, bytes);
}

void GraphViewerTest::showGraph(const QByteArray &graph)
{
    static int number = 0;
    show(temporaryFile(QStringLiteral("graph%1.gv").arg(++number), graph));
}

QAction *GraphViewerTest::action(const QString &text) const
{
    for (QAction *each : m_window->findChildren<QAction *>()) {
        if (each->text().remove(u'&') == text)
            return each;
    }
    return nullptr;
}

QPoint GraphViewerTest::freeSpot()
{
    for (int y = 5; y < view().viewport()->height(); y += 7) {
        for (int x = 5; x < view().viewport()->width(); x += 7) {
            if (!view().scene()->partAt(view().toContent(QPoint(x, y))))
                return {x, y};
        }
    }
    return {};
}

void GraphViewerTest::hover(const QPoint &viewportPoint)
{
    QTest::mouseMove(m_window->windowHandle(), view().viewport()->mapTo(m_window.get(), viewportPoint));
    QCoreApplication::processEvents();
}

QList<EdgeConnection *> GraphViewerTest::edges()
{
    QList<EdgeConnection *> edges;
    for (Vantrel::Pictel::Figure *figure : view().scene()->content()->getLayer(QStringLiteral("edges"))->childFigures())
        edges << dynamic_cast<EdgeConnection *>(figure);
    return edges;
}

QColor GraphViewerTest::pixelAt(const QPointF &contentPoint)
{
    return screen().pixelColor(view().fromContent(contentPoint).toPoint());
}

void GraphViewerTest::addRouters() const
{
    QTest::addColumn<RouterKind>("router");
    for (const RouterKind kind : everyRouter)
        QTest::addRow("%s", qPrintable(routerName(kind))) << kind;
}

void GraphViewerTest::useRouter()
{
    QFETCH(RouterKind, router);
    m_window->setRouter(router);
    layOut();
}
