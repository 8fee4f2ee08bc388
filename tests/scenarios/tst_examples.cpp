#include "support/TestMain.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using Spots = QList<QPair<QPoint, QColor>>;

/// The small examples, each run as a program that draws its picture.
class tst_Examples : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pictureShowsTheDrawing_data();
    void pictureShowsTheDrawing();
    void folderHasThePictureOfItsReadme_data();
    void folderHasThePictureOfItsReadme();
    void unwritablePictureEndsWithStatusOne_data();
    void unwritablePictureEndsWithStatusOne();
    void wrongOptionEndsWithStatusOne();
    void helpTellsHowToExport();

private:
    struct Run
    {
        int status = -1;
        QString output;
        QString error;
    };

    Run run(const QString &example, const QStringList &arguments) const;

    QTemporaryDir m_directory;
};

namespace {

QString exampleDirectory(const QString &example)
{
    return QStringLiteral(EXAMPLES_SOURCE_DIRECTORY "/") + example;
}

void addExampleRows()
{
    QTest::addColumn<QString>("example");
    for (const char *name : {"layouts", "layers", "connections", "customfigure", "customlayout", "customrouter"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

} // namespace

// No platform is set and no screen is named: the program has to do without.
tst_Examples::Run tst_Examples::run(const QString &example, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_directory.path());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(EXAMPLES_BINARY_DIRECTORY "/%1/%1").arg(example), arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

void tst_Examples::pictureShowsTheDrawing_data()
{
    QTest::addColumn<QString>("example");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<Spots>("spots");
    // Titles are measured in the font that the machine has, which decides about the size.
    QTest::newRow("layouts") << "layouts" << QSize(1556, 748) << 200
                             << Spots {{{2, 2}, "white"},        {{60, 110}, "#f1f4f8"},  {{90, 140}, "#8ecae6"},
                                       {{1240, 260}, "#ffc94d"}, {{160, 490}, "#d5ecc2"}, {{1130, 510}, "#dccbef"}};
    QTest::newRow("layers") << "layers" << QSize(1216, 748) << 0
                            << Spots {{{70, 70}, "#eaa99b"},   {{980, 110}, "#a9d3ee"}, {{200, 680}, "#bfe0a8"},
                                      {{100, 368}, "#f5c35c"}, {{708, 510}, "#f5c35c"}, // the street above the river
                                      {{400, 518}, "#a9d3ee"}};
    QTest::newRow("connections") << "connections" << QSize(1436, 1096) << 0
                                 << Spots {{{60, 138}, "#cfe6f5"},  {{1258, 60}, "#ffe9ad"}, {{400, 98}, "#3d4f60"},
                                           {{400, 276}, "#3d4f60"}, {{400, 290}, "white"},   {{1100, 998}, "#3d4f60"},
                                           {{1140, 998}, "white"}};
    QTest::newRow("customfigure") << "customfigure" << QSize(996, 356) << 0
                                  << Spots {{{50, 50}, "white"},
                                            {{290, 178}, "#2a9d8f"},
                                            {{64, 150}, "#e7eaee"},
                                            {{612, 178}, "#e9b44c"},
                                            {{704, 178}, "#d1495b"}};
    QTest::newRow("customlayout") << "customlayout" << QSize(1056, 816) << 0
                                  << Spots {{{460, 408}, "#f4a259"},
                                            {{528, 64}, "#bcd8ec"},
                                            {{528, 250}, "#7d8a97"},
                                            {{540, 250}, "white"}};
    QTest::newRow("customrouter") << "customrouter" << QSize(1356, 648) << 0
                                  << Spots {{{158, 66}, "#a8dadc"},
                                            {{678, 270}, "#e9ecef"},
                                            {{320, 322}, "#4f6478"},
                                            {{1200, 130}, "#c9e8bd"}};
}

void tst_Examples::pictureShowsTheDrawing()
{
    QFETCH(QString, example);
    QFETCH(QSize, size);
    QFETCH(int, tolerance);
    QFETCH(Spots, spots);
    const QString file = m_directory.filePath(example + QStringLiteral(".png"));
    const Run result = run(example, {QStringLiteral("--export"), file});
    QCOMPARE(result.error, QString());
    QCOMPARE(result.output, QString());
    QCOMPARE(result.status, 0);
    const QImage picture(file);
    const QSize deviation = picture.size() - size;
    QVERIFY2(qAbs(deviation.width()) <= tolerance && qAbs(deviation.height()) <= tolerance,
             qPrintable(QStringLiteral("%1 x %2").arg(picture.width()).arg(picture.height())));
    for (const auto &[point, color] : std::as_const(spots))
        QVERIFY2(
            picture.pixelColor(point) == color,
            qPrintable(
                QStringLiteral("%1 at %2, %3").arg(picture.pixelColor(point).name()).arg(point.x()).arg(point.y())));
}

void tst_Examples::folderHasThePictureOfItsReadme_data()
{
    addExampleRows();
}

// Its size tells a picture that was forgotten when the example changed.
void tst_Examples::folderHasThePictureOfItsReadme()
{
    QFETCH(QString, example);
    const QString name = example + QStringLiteral(".png");
    QFile readme(exampleDirectory(example) + QStringLiteral("/README.md"));
    QVERIFY(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    QVERIFY2(text.contains(QStringLiteral("](%1)").arg(name)), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("    %1 --export %2\n").arg(example, name)), qPrintable(text));
    const QString exported = m_directory.filePath(QStringLiteral("again-") + name);
    QCOMPARE(run(example, {QStringLiteral("--export=") + exported}).status, 0);
    const QSize deviation = QImage(exampleDirectory(example) + u'/' + name).size() - QImage(exported).size();
    QVERIFY2(qAbs(deviation.width()) <= 200 && qAbs(deviation.height()) <= 200, qPrintable(name));
}

void tst_Examples::unwritablePictureEndsWithStatusOne_data()
{
    addExampleRows();
}

void tst_Examples::unwritablePictureEndsWithStatusOne()
{
    QFETCH(QString, example);
    const QString file = m_directory.filePath(QStringLiteral("nowhere/picture.png"));
    const Run result = run(example, {QStringLiteral("--export"), file});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QString());
    const QString complaint = QStringLiteral("Cannot write \"%1\": ").arg(QDir::toNativeSeparators(file));
    QVERIFY2(result.error.startsWith(complaint), qPrintable(result.error));
}

void tst_Examples::wrongOptionEndsWithStatusOne()
{
    const QString file = m_directory.filePath(QStringLiteral("unused.png"));
    const Run result
        = run(QStringLiteral("layers"), {QStringLiteral("--export"), file, QStringLiteral("--frobnicate")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.error.contains(QStringLiteral("frobnicate")), qPrintable(result.error));
    QVERIFY(!QFile::exists(file));
}

void tst_Examples::helpTellsHowToExport()
{
    const Run result = run(QStringLiteral("layers"), {QStringLiteral("--help")});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.output.contains(QStringLiteral("--export <file.png>")), qPrintable(result.output));
}

PICTEL_TEST_MAIN(tst_Examples)
#include "tst_examples.moc"
