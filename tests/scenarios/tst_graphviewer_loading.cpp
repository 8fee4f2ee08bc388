#include "support/TestMain.h"

#include "GraphViewerSupport.h"
#include "MainWindow.h"

#include <QMessageBox>
#include <QProgressBar>
#include <QToolButton>

using namespace GraphViewer;
using namespace GraphViewerSupport;

/// What happens while Graphviz works, and when it is stopped.
class tst_GraphViewerLoading : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledLoadingGivesAMessage();
    void newLoadReplacesTheRunningOne();
    void loaderCanBeDeletedWhileGraphvizRuns();

    void windowIsBusyWhileGraphvizRuns();
    void cancelButtonEndsLoadingAndKeepsTheShownGraph();
    void failureOpensADialogAndKeepsTheShownGraph();
    void openedFileNamesTheWindow();

private:
    QTemporaryDir m_directory;
};

// Cancelling

void tst_GraphViewerLoading::cancelledLoadingGivesAMessage()
{
    const ReplacedDot dot(hangingDot);
    GraphLoader loader;
    QSignalSpy failed(&loader, &GraphLoader::failed);
    loader.load(bundled(QStringLiteral("shapes.gv")));
    QVERIFY(loader.isLoading());
    loader.cancel();
    QVERIFY(!loader.isLoading());
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed[0][0].toString().endsWith(QStringLiteral("Loading was cancelled.")));
    loader.cancel();
    QCOMPARE(failed.count(), 1);
}

void tst_GraphViewerLoading::newLoadReplacesTheRunningOne()
{
    GraphLoader loader;
    QSignalSpy failed(&loader, &GraphLoader::failed);
    QSignalSpy loaded(&loader, &GraphLoader::loaded);
    {
        const ReplacedDot dot(hangingDot);
        loader.load(bundled(QStringLiteral("shapes.gv")));
    }
    loader.load(bundled(QStringLiteral("records.gv")));
    QTRY_COMPARE(loaded.count(), 1);
    QCOMPARE(failed.count(), 0);
    QCOMPARE(loaded[0][0].value<GraphDocument>().name, QStringLiteral("records"));
}

void tst_GraphViewerLoading::loaderCanBeDeletedWhileGraphvizRuns()
{
    const ReplacedDot dot(hangingDot);
    auto loader = std::make_unique<GraphLoader>();
    QSignalSpy failed(loader.get(), &GraphLoader::failed);
    loader->load(bundled(QStringLiteral("shapes.gv")));
    loader.reset();
    QCOMPARE(failed.count(), 0);
}

// The window

void tst_GraphViewerLoading::windowIsBusyWhileGraphvizRuns()
{
    const ReplacedDot dot(hangingDot);
    MainWindow window;
    window.show();
    auto *busy = window.findChild<QProgressBar *>();
    QVERIFY(!busy->isVisible());
    window.openFile(bundled(QStringLiteral("shapes.gv")));
    QVERIFY(busy->isVisible());
    QCOMPARE(busy->maximum(), 0);
}

void tst_GraphViewerLoading::cancelButtonEndsLoadingAndKeepsTheShownGraph()
{
    MainWindow window;
    window.show();
    window.openFile(bundled(QStringLiteral("records.gv")));
    QTRY_VERIFY(window.view()->scene());
    const GraphScene *shown = window.view()->scene();

    const ReplacedDot dot(hangingDot);
    window.openFile(bundled(QStringLiteral("shapes.gv")));
    QToolButton *cancel = nullptr;
    for (QToolButton *button : window.findChildren<QToolButton *>())
        cancel = button->text() == QStringLiteral("Cancel") ? button : cancel;
    QVERIFY(cancel && cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);

    QVERIFY(!cancel->isVisible());
    QVERIFY(!window.findChild<QProgressBar *>()->isVisible());
    auto *box = window.findChild<QMessageBox *>();
    QVERIFY(box);
    QVERIFY(box->text().contains(QStringLiteral("Loading was cancelled.")));
    QCOMPARE(window.view()->scene(), shown);
}

void tst_GraphViewerLoading::failureOpensADialogAndKeepsTheShownGraph()
{
    MainWindow window;
    window.show();
    window.openFile(bundled(QStringLiteral("records.gv")));
    QTRY_VERIFY(window.view()->scene());
    const GraphScene *shown = window.view()->scene();

    window.openFile(writeFile(m_directory, QStringLiteral("broken.dot"), "digraph { a -> "));
    QTRY_VERIFY(window.findChild<QMessageBox *>());
    auto *box = window.findChild<QMessageBox *>();
    QTRY_VERIFY(box->isVisible());
    QVERIFY(box->text().contains(QStringLiteral("syntax error")));
    QCOMPARE(window.view()->scene(), shown);
    QVERIFY(window.windowFilePath().endsWith(QStringLiteral("records.gv")));
}

void tst_GraphViewerLoading::openedFileNamesTheWindow()
{
    MainWindow window;
    window.openFile(sample(QStringLiteral("states.gv")));
    QTRY_COMPARE(window.windowFilePath(), sample(QStringLiteral("states.gv")));
}

PICTEL_TEST_MAIN(tst_GraphViewerLoading)
#include "tst_graphviewer_loading.moc"
