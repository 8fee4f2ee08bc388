#pragma once

#include "support/TestMain.h"

#include "GraphViewerSupport.h"
#include "MainWindow.h"

#include <memory>

class QAction;

/// The base of tests that use the viewer's window as a user would: it is shown, with the web shop in it.
class GraphViewerTest : public PictelTest
{
    Q_OBJECT

protected:
    GraphViewer::MainWindow &window() { return *m_window; }
    GraphViewer::GraphView &view() { return *m_window->view(); }
    /// Opens \a file and waits until it is shown.
    void show(const QString &file);
    /// Likewise for a graph in the Graphviz language.
    void showGraph(const QByteArray &graph);
    QImage screen() { return view().viewport()->grab().toImage(); }
    /// The entry of a menu; null when there is none of that text.
    QAction *action(const QString &text) const;
    /// A point of the viewport where there is only paper.
    QPoint freeSpot();
    void hover(const QPoint &viewportPoint);
    QList<GraphViewer::EdgeConnection *> edges();
    /// Routes the edges as the next paint would.
    void layOut() { view().scene()->updateExtent(); }
    QColor pixelAt(const QPointF &contentPoint);
    /// A column "router" with a row for each router, for useRouter() to choose it.
    void addRouters() const;
    void useRouter();
    QString temporaryFile(const QString &name, const QByteArray &bytes);

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    QTemporaryDir m_directory;
    std::unique_ptr<GraphViewer::MainWindow> m_window;
};
