#include "support/TestMain.h"

#include "Export.h"
#include "GraphViewerSupport.h"

#include <QImage>
#include <QMimeData>

#include <unistd.h>

using namespace GraphViewer;
using namespace GraphViewerSupport;

/// Opening files: real graphs, bundled and made by other programs, and everything that is not a graph.
class tst_GraphViewer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyNodeAndEdgeIsRead_data() { addRealGraphs(); }
    void everyNodeAndEdgeIsRead();
    void pictureLooksLikeTheOneOfGraphviz_data() { addRealGraphs(); }
    void pictureLooksLikeTheOneOfGraphviz();
    void graphOfFiveHundredNodesIsShownInFull();
    void namesAreThoseOfTheFile();
    void firstOfSeveralGraphsIsShown();
    void textsOfLatin1GraphsAreDecoded();
    void clustersKnowWhatIsInsideThem();
    void textHasFontSizeAndColorOfTheFile();
    void paperHasTheBackgroundColorOfTheGraph();

    void unusableFileGivesAMessage_data();
    void unusableFileGivesAMessage();
    void unreadableFileGivesAMessage();
    void failingGraphvizGivesAMessage_data();
    void failingGraphvizGivesAMessage();
    void missingGraphvizGivesAMessage();
    void absurdAnswerIsShownWithoutHarm();
    void fileNamesAreNoOptions();

private:
    void addRealGraphs() const;
    QString makeDependencyGraph() const;
    QString makeControlFlowGraph() const;
    QString makeHistoryGraph() const;

    QTemporaryDir m_directory;
    QString m_dependencies;
    QString m_controlFlow;
    QString m_history;
};

namespace {

qsizetype countLines(const QByteArray &text, const char *start)
{
    qsizetype count = 0;
    for (const QByteArray &line : text.split('\n'))
        count += line.startsWith(start) ? 1 : 0;
    return count;
}

// The first graph of the file as Graphviz itself draws it.
QImage referencePicture(const QString &file)
{
    const QByteArray png = outputOf(QStringLiteral("dot"), {QStringLiteral("-Tpng"), file}, QFileInfo(file).path());
    QImage image(QSize(1, 1), QImage::Format_RGB32);
    const QImage drawn = QImage::fromData(png, "PNG");
    image = QImage(drawn.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, drawn);
    return image;
}

QImage ownPicture(const GraphDocument &document)
{
    GraphView view;
    view.showGraph(document);
    QMimeData data;
    const QString error = copyPicture(view, data);
    return error.isEmpty() ? qvariant_cast<QImage>(data.imageData()) : QImage();
}

// The mean difference of brightness, 0 to 255, after letters and edges were smoothed away.
double difference(const QImage &one, const QImage &other)
{
    constexpr int block = 4;
    const QSize size = (one.size() / block).expandedTo({1, 1});
    const auto coarse = [&](const QImage &image) {
        return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const QImage first = coarse(one);
    const QImage second = coarse(other);
    qint64 sum = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            sum += qAbs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y)));
    }
    return double(sum) / (double(size.width()) * size.height());
}

const TextRun *textRun(const Drawing &drawing, const QString &text)
{
    for (const DrawItem &item : drawing) {
        const auto *run = std::get_if<TextRun>(&item);
        if (run && run->text == text)
            return run;
    }
    return nullptr;
}

QStringList nodeNames(const GraphDocument &document)
{
    QStringList names;
    for (const Node &each : document.nodes)
        names << each.name;
    return names;
}

} // namespace

void tst_GraphViewer::initTestCase()
{
    m_dependencies = makeDependencyGraph();
    m_controlFlow = makeControlFlowGraph();
    m_history = makeHistoryGraph();
    QVERIFY2(QFile::exists(m_dependencies), "cmake wrote no graph");
    QVERIFY2(QFile::exists(m_controlFlow), "gcc wrote no graph");
    QVERIFY2(QFile::exists(m_history), "git wrote no history");
}

QString tst_GraphViewer::makeDependencyGraph() const
{
    writeFile(
        m_directory, QStringLiteral("CMakeLists.txt"),
        "cmake_minimum_required(VERSION 3.25)\nproject(shop NONE)\n"
        "foreach(name core network storage gui app)\n  add_library(${name} INTERFACE)\nendforeach()\n"
        "target_link_libraries(network INTERFACE core)\ntarget_link_libraries(storage INTERFACE core)\n"
        "target_link_libraries(gui INTERFACE core network)\ntarget_link_libraries(app INTERFACE gui storage m)\n");
    const QString file = m_directory.filePath(QStringLiteral("dependencies.dot"));
    outputOf(QStringLiteral("cmake"),
             {QStringLiteral("-S."), QStringLiteral("-Bbuild"), QStringLiteral("--graphviz=") + file},
             m_directory.path());
    return file;
}

QString tst_GraphViewer::makeControlFlowGraph() const
{
    writeFile(m_directory, QStringLiteral("collatz.c"),
              "int steps(int n) {\n  int count = 0;\n  while (n > 1) {\n    n = n % 2 ? 3 * n + 1 : n / 2;\n"
              "    ++count;\n  }\n  return count;\n}\nint twice(int n) { return n > 0 ? 2 * n : 0; }\n");
    outputOf(QStringLiteral("gcc"),
             {QStringLiteral("-c"), QStringLiteral("-fdump-tree-cfg-graph"), QStringLiteral("collatz.c")},
             m_directory.path());
    const QDir directory(m_directory.path());
    const QStringList dumps = directory.entryList({QStringLiteral("*.cfg.dot")});
    return dumps.isEmpty() ? QString() : directory.filePath(dumps.first());
}

QString tst_GraphViewer::makeHistoryGraph() const
{
    writeFile(
        m_directory, QStringLiteral("commit.sh"),
        "set -e\ngit init -q -b trunk repository\ncd repository\n"
        "git config user.email someone@example.org\ngit config user.name Someone\n"
        "commit() { git commit -q --allow-empty -m \"$1\"; }\n"
        "commit first; commit second; git checkout -q -b side; commit 'a \"quoted\" step'; git checkout -q trunk\n"
        "commit third; git merge -q --no-ff -m merge side; commit last\n");
    outputOf(QStringLiteral("sh"), {QStringLiteral("commit.sh")}, m_directory.path());
    const QString repository = m_directory.filePath(QStringLiteral("repository"));
    const QByteArray log
        = outputOf(QStringLiteral("git"), {QStringLiteral("log"), QStringLiteral("--format=%h %p")}, repository);
    QByteArray graph = "digraph history {\n";
    for (const QByteArray &line : log.split('\n')) {
        const QList<QByteArray> hashes = line.split(' ');
        for (const QByteArray &parent : hashes.mid(1)) {
            if (!parent.isEmpty())
                graph += '"' + hashes.first() + "\" -> \"" + parent + "\";\n";
        }
    }
    return log.isEmpty() ? QString() : writeFile(m_directory, QStringLiteral("history.dot"), graph + "}\n");
}

void tst_GraphViewer::addRealGraphs() const
{
    QTest::addColumn<QString>("file");
    for (const char *name :
         {"shapes", "records", "html", "clusters", "undirected", "unicode", "styles", "arrows", "latin1", "picture"})
        QTest::newRow(name) << bundled(QLatin1String(name) + QStringLiteral(".gv"));
    QTest::newRow("web shop") << sample(QStringLiteral("webshop.dot"));
    QTest::newRow("states") << sample(QStringLiteral("states.gv"));
    QTest::newRow("dependencies from cmake") << m_dependencies;
    QTest::newRow("control flow from gcc") << m_controlFlow;
    QTest::newRow("history from git") << m_history;
}

void tst_GraphViewer::everyNodeAndEdgeIsRead()
{
    QFETCH(QString, file);
    const Loaded loaded = load(file);
    QCOMPARE(loaded.message, QString());
    const QByteArray plain = outputOf(QStringLiteral("dot"), {QStringLiteral("-Tplain"), file}, QFileInfo(file).path());
    QCOMPARE(qsizetype(loaded.document->nodes.size()), countLines(plain, "node "));
    QCOMPARE(qsizetype(loaded.document->edges.size()), countLines(plain, "edge "));
}

void tst_GraphViewer::pictureLooksLikeTheOneOfGraphviz()
{
    QFETCH(QString, file);
    const Loaded loaded = load(file);
    QCOMPARE(loaded.message, QString());
    const QImage expected = referencePicture(file);
    const QImage actual = ownPicture(*loaded.document);
    QVERIFY2(qAbs(actual.width() - expected.width()) <= 1 && qAbs(actual.height() - expected.height()) <= 1,
             qPrintable(QStringLiteral("%1 x %2 instead of %3 x %4")
                            .arg(actual.width())
                            .arg(actual.height())
                            .arg(expected.width())
                            .arg(expected.height())));
    const double found = difference(actual, expected);
    QVERIFY2(found < 4.0, qPrintable(QStringLiteral("differs by %1").arg(found)));
}

void tst_GraphViewer::graphOfFiveHundredNodesIsShownInFull()
{
    QByteArray graph = "digraph tree {\n";
    for (int i = 1; i < 500; ++i)
        graph += "n" + QByteArray::number(i / 3) + " -> n" + QByteArray::number(i) + ";\n";
    const Loaded loaded = load(writeFile(m_directory, QStringLiteral("tree.dot"), graph + "}\n"));
    QCOMPARE(loaded.message, QString());
    GraphView view;
    view.resize(800, 600);
    view.showGraph(*loaded.document);
    QCOMPARE(view.scene()->content()->getLayer(QStringLiteral("nodes"))->childFigureCount(), 500);
    QCOMPARE(view.scene()->content()->getLayer(QStringLiteral("edges"))->childFigureCount(), 499);
    QVERIFY(view.getViewRect().contains(view.scene()->pictureArea()));
}

void tst_GraphViewer::namesAreThoseOfTheFile()
{
    const Loaded loaded = load(bundled(QStringLiteral("unicode.gv")));
    QCOMPARE(loaded.document->name, QStringLiteral("über \"Größe\""));
    const QStringList expected {QStringLiteral("naïve \"quoted\""),
                                QStringLiteral("日本語"),
                                QStringLiteral("back\\\\slash (back\\slash)"),
                                QStringLiteral("a & b < c > d"),
                                QStringLiteral("100%d %s %1"),
                                QString()};
    for (const QString &name : expected)
        QVERIFY2(nodeNames(*loaded.document).contains(name), qPrintable(nodeNames(*loaded.document).join(u'|')));
    QCOMPARE(loaded.document->edges[0].name, QStringLiteral("naïve \"quoted\" → 日本語 (→ señal)"));
}

void tst_GraphViewer::firstOfSeveralGraphsIsShown()
{
    const Loaded loaded = load(bundled(QStringLiteral("several.gv")));
    QCOMPARE(loaded.message, QString());
    QCOMPARE(nodeNames(*loaded.document), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

void tst_GraphViewer::textsOfLatin1GraphsAreDecoded()
{
    const Loaded loaded = load(bundled(QStringLiteral("latin1.gv")));
    QCOMPARE(nodeNames(*loaded.document), QStringList({QStringLiteral("café"), QStringLiteral("garçon")}));
    QVERIFY(textRun(loaded.document->nodes[1].drawing, QStringLiteral("garçon")));
}

void tst_GraphViewer::clustersKnowWhatIsInsideThem()
{
    const Loaded loaded = load(bundled(QStringLiteral("clusters.gv")));
    const auto &clusters = loaded.document->clusters;
    QCOMPARE(clusters.size(), std::size_t(3));
    QCOMPARE(clusters[0].name, QStringLiteral("cluster_outer (outer)"));
    QCOMPARE(clusters[0].clusters, QList<int>({1}));
    QCOMPARE(clusters[0].nodes.size(), 4);
    QCOMPARE(clusters[1].name, QStringLiteral("cluster_inner (inner)"));
    QCOMPARE(clusters[1].nodes.size(), 2);
    QCOMPARE(clusters[2].nodes.size(), 2);
}

void tst_GraphViewer::textHasFontSizeAndColorOfTheFile()
{
    const QByteArray graph = "digraph { a [label=\"text\", fontname=\"Helvetica-BoldOblique\", fontsize=21, "
                             "fontcolor=\"#123456\"] }";
    const Loaded loaded = load(writeFile(m_directory, QStringLiteral("text.dot"), graph));
    const TextRun *run = textRun(loaded.document->nodes[0].drawing, QStringLiteral("text"));
    QVERIFY(run);
    QCOMPARE(run->font.families(), QStringList(QStringLiteral("Helvetica")));
    QVERIFY(run->font.bold());
    QVERIFY(run->font.italic());
    QCOMPARE(run->size, 28.0);
    QCOMPARE(run->color, QColor(0x12, 0x34, 0x56));
}

void tst_GraphViewer::paperHasTheBackgroundColorOfTheGraph()
{
    QCOMPARE(load(bundled(QStringLiteral("styles.gv"))).document->paper, QColor(0x10, 0x20, 0x30));
    QCOMPARE(load(bundled(QStringLiteral("shapes.gv"))).document->paper, QColor(Qt::white));
}

// What is not a graph

void tst_GraphViewer::unusableFileGivesAMessage_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");

    QByteArray garbage;
    for (int i = 0; i < 3000; ++i)
        garbage += char((i * 7919 + i / 13 + 200) & 0xff);
    QFile whole(bundled(QStringLiteral("shapes.gv")));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const auto made = [this](const char *name, const QByteArray &bytes) {
        return writeFile(m_directory, QLatin1String(name), bytes);
    };
    const QString noGraph = QStringLiteral("The file is not a graph that Graphviz can read.");

    QTest::newRow("missing") << m_directory.filePath(QStringLiteral("none.dot")) << QStringLiteral("does not exist");
    QTest::newRow("no name") << QString() << QStringLiteral("does not exist");
    QTest::newRow("folder") << m_directory.path() << QStringLiteral("This is a folder");
    QTest::newRow("device") << QStringLiteral("/dev/zero") << QStringLiteral("a device, not a file");
    QTest::newRow("empty") << made("empty.dot", "") << QStringLiteral("The file is empty.");
    QTest::newRow("comment only") << made("comment.dot", "// nothing\n") << QStringLiteral("contains no graph");
    QTest::newRow("prose") << made("prose.dot", "Dear Sir or Madam,\n") << noGraph;
    QTest::newRow("garbage") << made("garbage.dot", garbage) << noGraph;
    QTest::newRow("zeros") << made("zeros.dot", QByteArray(1000, '\0')) << QStringLiteral("Cannot show");
    QTest::newRow("truncated") << made("truncated.dot", whole.readAll().left(400)) << noGraph;
    QTest::newRow("no nodes") << made("hollow.dot", "digraph hollow { label=\"nothing\" }")
                              << QStringLiteral("The graph has no nodes");
    QTest::newRow("another format") << QStringLiteral(GRAPHS_DIRECTORY "/picture.png") << noGraph;
}

void tst_GraphViewer::unusableFileGivesAMessage()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    const Loaded loaded = load(file);
    QVERIFY(!loaded.document);
    QVERIFY2(loaded.message.contains(reason), qPrintable(loaded.message));
    QVERIFY2(loaded.message.startsWith(QStringLiteral("Cannot show \"%1\".\n").arg(file)), qPrintable(loaded.message));
}

void tst_GraphViewer::unreadableFileGivesAMessage()
{
    const QString file = writeFile(m_directory, QStringLiteral("secret.dot"), "digraph { a }");
    QVERIFY(QFile::setPermissions(file, QFileDevice::Permissions()));
    QVERIFY(QFile::setPermissions(m_directory.path(), QFile::Permissions::fromInt(0x7755)));
    // The superuser may read everything, so another user tries.
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    const bool switched = user == 0 && seteuid(nobody) == 0;
    const Loaded loaded = load(file);
    if (switched)
        QCOMPARE(seteuid(user), 0);
    QVERIFY2(loaded.message.contains(QStringLiteral("The file cannot be read:")), qPrintable(loaded.message));
}

void tst_GraphViewer::failingGraphvizGivesAMessage_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("reason");

    QTest::newRow("error") << QByteArray("#!/bin/sh\necho 'Error: out of memory' >&2\nexit 3\n")
                           << QStringLiteral("Error: out of memory");
    QTest::newRow("silent error") << QByteArray("#!/bin/sh\nexit 1\n")
                                  << QStringLiteral("The file is not a graph that Graphviz can read.");
    QTest::newRow("crash") << QByteArray("#!/bin/sh\nkill -SEGV $$\n") << QStringLiteral("stopped unexpectedly");
    QTest::newRow("cannot start") << QByteArray("#!/no/such/interpreter\n") << QStringLiteral("could not be started");
    QTest::newRow("no answer") << QByteArray("#!/bin/sh\nexit 0\n") << QStringLiteral("contains no graph");
    QTest::newRow("no JSON") << QByteArray("#!/bin/sh\necho hello\n") << QStringLiteral("cannot be read");
    QTest::newRow("half of it") << QByteArray("#!/bin/sh\necho '{ \"name\": \"a\", \"objects\": ['\n")
                                << QStringLiteral("cannot be read");
    QTest::newRow("a list") << QByteArray("#!/bin/sh\necho '[1, 2]'\n") << QStringLiteral("cannot be read");
    QTest::newRow("other types") << QByteArray("#!/bin/sh\necho '{ \"objects\": 5, \"edges\": {}, \"bb\": [] }'\n")
                                 << QStringLiteral("The graph has no nodes");
}

void tst_GraphViewer::failingGraphvizGivesAMessage()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, reason);
    const ReplacedDot dot(script);
    const Loaded loaded = load(bundled(QStringLiteral("shapes.gv")));
    QVERIFY(!loaded.document);
    QVERIFY2(loaded.message.contains(reason), qPrintable(loaded.message));
}

void tst_GraphViewer::missingGraphvizGivesAMessage()
{
    const ReplacedDot dot {QByteArray()};
    const Loaded loaded = load(bundled(QStringLiteral("shapes.gv")));
    QVERIFY2(loaded.message.endsWith(QStringLiteral("The program \"dot\" was not found. Please install Graphviz.")),
             qPrintable(loaded.message));
}

// Numbers without bounds, subgraphs inside one another, indices of nothing, operations without operands.
void tst_GraphViewer::absurdAnswerIsShownWithoutHarm()
{
    QFile answer(bundled(QStringLiteral("absurd.json")));
    QVERIFY(answer.open(QIODevice::ReadOnly));
    const ReplacedDot dot("#!/bin/sh\n/bin/cat <<'END'\n" + answer.readAll() + "\nEND\n");
    const Loaded loaded = load(bundled(QStringLiteral("shapes.gv")));
    QCOMPARE(loaded.message, QString());
    QCOMPARE(loaded.document->nodes.size(), std::size_t(3));
    QCOMPARE(loaded.document->clusters[0].clusters, QList<int>({1}));

    GraphView view;
    view.resize(400, 300);
    view.show();
    view.showGraph(*loaded.document);
    QVERIFY(!view.viewport()->grab().isNull());
    for (const RouterKind router : everyRouter) {
        view.setRouter(router);
        QVERIFY(!view.viewport()->grab().isNull());
    }
    view.zoomAt(16, {200, 150});
    QVERIFY(!view.viewport()->grab().isNull());
    QVERIFY(
        exportPicture(view, m_directory.filePath(QStringLiteral("absurd.png"))).contains(QStringLiteral("too large")));
}

void tst_GraphViewer::fileNamesAreNoOptions()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_directory.path()));
    writeFile(m_directory, QStringLiteral("-Tpng"), "digraph { option -> name }");
    const Loaded loaded = load(QStringLiteral("-Tpng"));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(loaded.message, QString());
    QCOMPARE(nodeNames(*loaded.document), QStringList({QStringLiteral("option"), QStringLiteral("name")}));
}

PICTEL_TEST_MAIN(tst_GraphViewer)
#include "tst_graphviewer.moc"
