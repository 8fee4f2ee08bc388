#include "support/TestMain.h"

#include "Export.h"
#include "GraphViewerSupport.h"
#include "MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

using namespace GraphViewer;
using namespace GraphViewerSupport;

/// Pictures on the command line, in files, on paper and on the clipboard.
class tst_GraphViewerExport : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void commandLineWritesPng();
    void commandLineWritesPdf();
    void commandLineChoosesTheRouter();
    void suffixMayBeUpperCase();
    void helpAndVersionGoToStandardOutput_data();
    void helpAndVersionGoToStandardOutput();
    void wrongCommandLineEndsWithStatusTwo_data();
    void wrongCommandLineEndsWithStatusTwo();
    void failureEndsWithStatusOneAndWritesNothing_data();
    void failureEndsWithStatusOneAndWritesNothing();
    void missingGraphvizEndsWithStatusOne();
    void hangingGraphvizIsGivenUpAfterTheTimeout();
    void failureKeepsTheFileThatWasThere();

    void pngHasTheColorsOfTheGraph();
    void pngShowsMovedNodes();
    void pngHasNeitherGridNorZoom();
    void darkPaletteDoesNotChangePictures();
    void darkPaperIsPrinted();
    void hugeGraphIsRefusedAsImageOnly();
    void emptyViewHasNoPicture();
    void pictureGoesToTheClipboard();
    void printPreviewShowsThePage();
    void exportDialogOffersAPngBesideTheGraph();
    void exportDialogAddsTheSuffix();

private:
    struct Run
    {
        int status = -1;
        QString output;
        QString error;
    };

    Run run(const QStringList &arguments, const QByteArray &path = qgetenv("PATH")) const;
    QString out(const QString &name) const { return m_directory.filePath(name); }
    static void trigger(const MainWindow &window, const QString &text);

    QTemporaryDir m_directory;
};

namespace {

std::unique_ptr<GraphView> viewOf(const QString &file)
{
    auto view = std::make_unique<GraphView>();
    const Loaded loaded = load(file);
    if (loaded.document)
        view->showGraph(*loaded.document);
    return view;
}

QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage picture(GraphView &view)
{
    QMimeData data;
    copyPicture(view, data);
    return qvariant_cast<QImage>(data.imageData());
}

// Width and height of the first page, in points.
QSizeF pageSize(const QByteArray &pdf)
{
    static const QRegularExpression box(QStringLiteral("/MediaBox \\[ ?0 0 ([0-9.]+) ([0-9.]+) ?\\]"));
    const QRegularExpressionMatch match = box.match(QString::fromLatin1(pdf));
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

} // namespace

void tst_GraphViewerExport::trigger(const MainWindow &window, const QString &text)
{
    for (QAction *action : window.findChildren<QAction *>()) {
        if (action->text() == text)
            action->trigger();
    }
}

// No platform is set and no screen is named: the program has to do without.
tst_GraphViewerExport::Run tst_GraphViewerExport::run(const QStringList &arguments, const QByteArray &path) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("PATH"), QString::fromLocal8Bit(path));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(GRAPHVIEWER_PROGRAM), arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

// The program

void tst_GraphViewerExport::commandLineWritesPng()
{
    const QString file = out(QStringLiteral("shop.png"));
    const Run result = run({QStringLiteral("--export"), file, sample(QStringLiteral("webshop.dot"))});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QString());
    const QImage image(file);
    const QSize expected = load(sample(QStringLiteral("webshop.dot"))).document->page.size().toSize();
    QCOMPARE(image.size(), expected);
    QCOMPARE(image.pixelColor(0, 0), QColor(0xfb, 0xfb, 0xf8));
    QCOMPARE(image.dotsPerMeterX(), 3780);
}

void tst_GraphViewerExport::commandLineWritesPdf()
{
    const QString file = out(QStringLiteral("shop.pdf"));
    const Run result = run({QStringLiteral("--export=") + file, sample(QStringLiteral("webshop.dot"))});
    QCOMPARE(result.status, 0);
    const QByteArray pdf = contents(file);
    QVERIFY(pdf.startsWith("%PDF-"));
    const QSizeF page = load(sample(QStringLiteral("webshop.dot"))).document->page.size() * 0.75;
    QVERIFY(qAbs(pageSize(pdf).width() - page.width()) <= 1.0);
    QVERIFY(qAbs(pageSize(pdf).height() - page.height()) <= 1.0);
    QCOMPARE(pdf.count("/Type /Page\n"), 1);
}

// The same picture as the window's, and another one for each router.
void tst_GraphViewerExport::commandLineChoosesTheRouter()
{
    const QString graph = sample(QStringLiteral("states.gv"));
    QList<QImage> pictures;
    for (const RouterKind kind : everyRouter) {
        const QString byProgram = out(routerName(kind) + QStringLiteral(".png"));
        const QString byView = out(routerName(kind) + QStringLiteral("-view.png"));
        QCOMPARE(
            run({QStringLiteral("--router"), routerName(kind), QStringLiteral("--export"), byProgram, graph}).status,
            0);
        GraphView view;
        view.setRouter(kind);
        view.showGraph(*load(graph).document);
        QCOMPARE(exportPicture(view, byView), QString());
        QCOMPARE(QImage(byProgram).size(), QImage(byView).size());
        pictures << QImage(byProgram);
    }
    QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2] && pictures[0] != pictures[2]);
    const QString byDefault = out(QStringLiteral("default.png"));
    QCOMPARE(run({QStringLiteral("--export"), byDefault, graph}).status, 0);
    QCOMPARE(QImage(byDefault), pictures[1]);
}

void tst_GraphViewerExport::suffixMayBeUpperCase()
{
    const QString file = out(QStringLiteral("RECORDS.PNG"));
    QCOMPARE(run({QStringLiteral("--export"), file, bundled(QStringLiteral("records.gv"))}).status, 0);
    QVERIFY(contents(file).startsWith("\x89PNG"));
}

void tst_GraphViewerExport::helpAndVersionGoToStandardOutput_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("text");
    QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("--export <out>");
    QTest::newRow("help on routers") << QStringLiteral("--help") << QStringLiteral("--router <router>");
    QTest::newRow("short help") << QStringLiteral("-h") << QStringLiteral("Usage:");
    QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("graphviewer 0.");
}

void tst_GraphViewerExport::helpAndVersionGoToStandardOutput()
{
    QFETCH(QString, option);
    QFETCH(QString, text);
    const Run result = run({option});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains(text), qPrintable(result.output));
}

void tst_GraphViewerExport::wrongCommandLineEndsWithStatusTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");
    const QString graph = bundled(QStringLiteral("records.gv"));
    const QString png = out(QStringLiteral("unused.png"));
    const QString option = QStringLiteral("--export");
    QTest::newRow("no graph") << QStringList {option, png} << QStringLiteral("There is no file to export.");
    QTest::newRow("two graphs") << QStringList {option, png, graph, graph}
                                << QStringLiteral("More than one file was given.");
    QTest::newRow("unknown option") << QStringList {option, png, QStringLiteral("--frobnicate"), graph}
                                    << QStringLiteral("Unknown option 'frobnicate'.");
    QTest::newRow("no picture") << QStringList {option} << QStringLiteral("Missing value after '--export'.");
    QTest::newRow("another format") << QStringList {option, QStringLiteral("a.gif"), graph}
                                    << QStringLiteral("must end in .png or .pdf");
    QTest::newRow("timeout is a word") << QStringList {option, png, QStringLiteral("--timeout=soon"), graph}
                                       << QStringLiteral("The timeout must be a number of seconds.");
    QTest::newRow("unknown router") << QStringList {option, png, QStringLiteral("--router=orthogonal"), graph}
                                    << QStringLiteral("The router must be straight, bendpoint or manhattan.");
    QTest::newRow("empty router") << QStringList {option, png, QStringLiteral("--router="), graph}
                                  << QStringLiteral("The router must be straight, bendpoint or manhattan.");
    QTest::newRow("timeout before now") << QStringList {option, png, QStringLiteral("--timeout=-1"), graph}
                                        << QStringLiteral("The timeout must be a number of seconds.");
}

void tst_GraphViewerExport::wrongCommandLineEndsWithStatusTwo()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);
    const Run result = run(arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.error.contains(complaint), qPrintable(result.error));
    QVERIFY(!QFile::exists(out(QStringLiteral("unused.png"))));
}

void tst_GraphViewerExport::failureEndsWithStatusOneAndWritesNothing_data()
{
    QTest::addColumn<QString>("graph");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("complaint");
    const auto made
        = [this](const char *name, const char *text) { return writeFile(m_directory, QLatin1String(name), text); };
    const QString png = out(QStringLiteral("none.png"));
    QTest::newRow("missing") << out(QStringLiteral("none.dot")) << png << QStringLiteral("does not exist");
    QTest::newRow("empty") << made("empty.dot", "") << png << QStringLiteral("The file is empty.");
    QTest::newRow("no graph") << made("prose.dot", "hello") << png << QStringLiteral("syntax error");
    QTest::newRow("no nodes") << made("hollow.dot", "graph {}") << png << QStringLiteral("no nodes");
    QTest::newRow("no such folder") << bundled(QStringLiteral("records.gv"))
                                    << out(QStringLiteral("no/such/folder.png")) << QStringLiteral("Cannot write");
    QTest::newRow("no such folder for PDF")
        << bundled(QStringLiteral("records.gv")) << out(QStringLiteral("no/such/folder.pdf"))
        << QStringLiteral("Cannot write");
}

void tst_GraphViewerExport::failureEndsWithStatusOneAndWritesNothing()
{
    QFETCH(QString, graph);
    QFETCH(QString, picture);
    QFETCH(QString, complaint);
    const Run result = run({QStringLiteral("--export"), picture, graph});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.error.contains(complaint), qPrintable(result.error));
    QVERIFY2(result.error.contains(QStringLiteral("graphviewer: Cannot ")), qPrintable(result.error));
    QVERIFY(!QFile::exists(picture));
}

void tst_GraphViewerExport::missingGraphvizEndsWithStatusOne()
{
    const Run result
        = run({QStringLiteral("--export"), out(QStringLiteral("none.png")), bundled(QStringLiteral("records.gv"))},
              "/no/such/folder");
    QCOMPARE(result.status, 1);
    QVERIFY(result.error.contains(QStringLiteral("The program \"dot\" was not found. Please install Graphviz.")));
}

void tst_GraphViewerExport::hangingGraphvizIsGivenUpAfterTheTimeout()
{
    const ReplacedDot dot(hangingDot);
    const Run result = run({QStringLiteral("--timeout"), QStringLiteral("1"), QStringLiteral("--export"),
                            out(QStringLiteral("none.png")), bundled(QStringLiteral("records.gv"))});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.error.contains(QStringLiteral("Graphviz took too long.")), qPrintable(result.error));
}

void tst_GraphViewerExport::failureKeepsTheFileThatWasThere()
{
    const QString file = writeFile(m_directory, QStringLiteral("kept.png"), "precious");
    const QString graph = writeFile(m_directory, QStringLiteral("bad.dot"), "digraph {");
    QCOMPARE(run({QStringLiteral("--export"), file, graph}).status, 1);
    QCOMPARE(contents(file), QByteArray("precious"));
}

// Pictures

void tst_GraphViewerExport::pngHasTheColorsOfTheGraph()
{
    const QString graph = writeFile(m_directory, QStringLiteral("colors.dot"),
                                    "digraph { rankdir=LR; node [shape=box, style=filled, label=\"\"];\n"
                                    "a [fillcolor=\"#ff0000\", color=\"#ff0000\"]; b [fillcolor=\"#00ff00\"];\n"
                                    "a -> b [color=\"#0000ff\", penwidth=6, arrowhead=none] }");
    const auto view = viewOf(graph);
    const QImage image = picture(*view);
    const auto middle = [&](const char *name) { return node(*view, QLatin1String(name))->getBounds().center(); };
    QCOMPARE(image.pixelColor(middle("a")), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(middle("b")), QColor(0, 255, 0));
    QCOMPARE(image.pixelColor((middle("a") + middle("b")) / 2), QColor(0, 0, 255));
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::white));
}

void tst_GraphViewerExport::pngShowsMovedNodes()
{
    const auto view = viewOf(bundled(QStringLiteral("styles.gv")));
    const QSize size = picture(*view).size();
    Element *thick = node(*view, QStringLiteral("thick"));
    view->scene()->move(thick, {size.width(), 0});
    view->scene()->updateExtent();
    QCOMPARE(view->scene()->pictureArea().right(), thick->getBounds().right());
    QCOMPARE(picture(*view).size(), view->scene()->pictureArea().size());
}

void tst_GraphViewerExport::pngHasNeitherGridNorZoom()
{
    const auto view = viewOf(bundled(QStringLiteral("records.gv")));
    const QImage plain = picture(*view);
    view->setGridVisible(true);
    view->zoomIn();
    QCOMPARE(picture(*view), plain);
}

void tst_GraphViewerExport::darkPaletteDoesNotChangePictures()
{
    const QImage light = picture(*viewOf(bundled(QStringLiteral("records.gv"))));
    QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(37, 37, 38)));
    const QImage dark = picture(*viewOf(bundled(QStringLiteral("records.gv"))));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QCOMPARE(dark, light);
}

void tst_GraphViewerExport::darkPaperIsPrinted()
{
    const auto view = viewOf(bundled(QStringLiteral("styles.gv")));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(out(QStringLiteral("dark.pdf")));
    printPicture(*view, printer);
    const auto size = contents(out(QStringLiteral("dark.pdf"))).size();
    QVERIFY(size > 1000);
    QCOMPARE(exportPicture(*view, out(QStringLiteral("dark2.pdf"))), QString());
    QVERIFY(contents(out(QStringLiteral("dark2.pdf"))).startsWith("%PDF-"));
}

void tst_GraphViewerExport::hugeGraphIsRefusedAsImageOnly()
{
    const QString graph = writeFile(m_directory, QStringLiteral("huge.dot"),
                                    "digraph { a [shape=box, width=400, height=1]; b; a -> b }");
    const auto view = viewOf(graph);
    const QString error = exportPicture(*view, out(QStringLiteral("huge.png")));
    QVERIFY2(error.startsWith(QStringLiteral("The graph is too large for an image (38")), qPrintable(error));
    QVERIFY(!QFile::exists(out(QStringLiteral("huge.png"))));
    QCOMPARE(exportPicture(*view, out(QStringLiteral("huge.pdf"))), QString());
    QVERIFY(contents(out(QStringLiteral("huge.pdf"))).startsWith("%PDF-"));
}

void tst_GraphViewerExport::emptyViewHasNoPicture()
{
    GraphView view;
    QMimeData data;
    QCOMPARE(copyPicture(view, data), QStringLiteral("There is no graph."));
    QCOMPARE(exportPicture(view, out(QStringLiteral("none.png"))), QStringLiteral("There is no graph."));
    QVERIFY(!data.hasImage());
}

void tst_GraphViewerExport::pictureGoesToTheClipboard()
{
    MainWindow window;
    window.show();
    window.openFile(bundled(QStringLiteral("records.gv")));
    QTRY_VERIFY(window.view()->scene());
    QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->image().size(), window.view()->scene()->pictureArea().size());
}

void tst_GraphViewerExport::printPreviewShowsThePage()
{
    MainWindow window;
    window.show();
    window.openFile(bundled(QStringLiteral("records.gv")));
    QTRY_VERIFY(window.view()->scene());
    trigger(window, QStringLiteral("Print Pre&view..."));
    auto *dialog = window.findChild<QPrintPreviewDialog *>();
    QVERIFY(dialog);
    QTRY_VERIFY(dialog->isVisible());
    QVERIFY(dialog->grab().toImage().size().width() > 100);
    dialog->close();
}

void tst_GraphViewerExport::exportDialogOffersAPngBesideTheGraph()
{
    MainWindow window;
    window.show();
    const QString graph = bundled(QStringLiteral("records.gv"));
    window.openFile(graph);
    QTRY_VERIFY(window.view()->scene());
    trigger(window, QStringLiteral("&Export..."));
    auto *dialog = window.findChild<QFileDialog *>();
    QVERIFY(dialog);
    QCOMPARE(dialog->selectedFiles(), {QFileInfo(graph).absoluteDir().filePath(QStringLiteral("records.png"))});
    dialog->close();
}

void tst_GraphViewerExport::exportDialogAddsTheSuffix()
{
    MainWindow window;
    window.show();
    window.openFile(bundled(QStringLiteral("records.gv")));
    QTRY_VERIFY(window.view()->scene());
    trigger(window, QStringLiteral("&Export..."));
    auto *dialog = window.findChild<QFileDialog *>();
    QVERIFY(dialog);
    dialog->setDirectory(m_directory.path());
    dialog->selectFile(QStringLiteral("named"));
    QMetaObject::invokeMethod(dialog, "accept");
    QCOMPARE(QImage(out(QStringLiteral("named.png"))).size(), window.view()->scene()->pictureArea().size());
}

PICTEL_TEST_MAIN(tst_GraphViewerExport)
#include "tst_graphviewer_export.moc"
