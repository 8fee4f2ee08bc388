#include "support/TestMain.h"

#include <QApplication>
#include <QFontInfo>
#include <QProcess>
#include <QScreen>
#include <QStyle>
#include <QTest>

namespace {

const QString victimSwitch = QStringLiteral("--victim");

} // namespace

/// Runs in a process of its own: its functions fail or pass by what they print.
class Victim : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void silence() { }
    void unexpectedWarning() { QMessageLogger().warning("surprise"); }
    void unexpectedDebug() { QMessageLogger().debug("surprise"); }
    void expectedWarningComes();
    void expectedDebugComes();
    void expectedWarningIsMissing() { expectWarning("awaited"); }
    void expectedDebugIsMissing() { expectDebug("awaited"); }
    void expectedWarningComesTwice();
    void expectedDebugComesAsWarning();
    void expectedWarningComesAsDebug();
    void expectedTextDiffers();
};

void Victim::expectedWarningComes()
{
    expectWarning("awaited (1)");
    QMessageLogger().warning("awaited (%d)", 1);
}

void Victim::expectedDebugComes()
{
    expectDebug("awaited (1)");
    QMessageLogger().debug("awaited (%d)", 1);
}

void Victim::expectedWarningComesTwice()
{
    expectWarning("awaited");
    QMessageLogger().warning("awaited");
    QMessageLogger().warning("awaited");
}

void Victim::expectedDebugComesAsWarning()
{
    expectDebug("awaited");
    QMessageLogger().warning("awaited");
}

void Victim::expectedWarningComesAsDebug()
{
    expectWarning("awaited");
    QMessageLogger().debug("awaited");
}

void Victim::expectedTextDiffers()
{
    expectWarning("awaited");
    QMessageLogger().warning("awaited ");
}

class tst_TestMain : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void messageGuard_data();
    void messageGuard();
    void styleIsFixed();
    void fontIsFixed();
    void resolutionIsFixed();
};

void tst_TestMain::messageGuard_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<bool>("passes");
    QTest::newRow("silence") << QStringLiteral("silence") << true;
    QTest::newRow("unexpected warning") << QStringLiteral("unexpectedWarning") << false;
    QTest::newRow("unexpected debug message") << QStringLiteral("unexpectedDebug") << false;
    QTest::newRow("announced warning") << QStringLiteral("expectedWarningComes") << true;
    QTest::newRow("announced debug message") << QStringLiteral("expectedDebugComes") << true;
    QTest::newRow("warning that does not come") << QStringLiteral("expectedWarningIsMissing") << false;
    QTest::newRow("debug message that does not come") << QStringLiteral("expectedDebugIsMissing") << false;
    QTest::newRow("announced once, comes twice") << QStringLiteral("expectedWarningComesTwice") << false;
    QTest::newRow("debug announced, warning comes") << QStringLiteral("expectedDebugComesAsWarning") << false;
    QTest::newRow("warning announced, debug comes") << QStringLiteral("expectedWarningComesAsDebug") << false;
    QTest::newRow("trailing space") << QStringLiteral("expectedTextDiffers") << false;
}

void tst_TestMain::messageGuard()
{
    QFETCH(QString, function);
    QFETCH(bool, passes);
    QProcess victim;
    victim.start(QCoreApplication::applicationFilePath(), {victimSwitch, function});
    QVERIFY(victim.waitForFinished());
    QCOMPARE(victim.exitStatus(), QProcess::NormalExit);
    QCOMPARE(victim.exitCode() == 0, passes);
}

void tst_TestMain::styleIsFixed()
{
    QCOMPARE(QApplication::style()->name(), QStringLiteral("fusion"));
}

void tst_TestMain::fontIsFixed()
{
    QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(QApplication::font().pointSize(), 9);
}

void tst_TestMain::resolutionIsFixed()
{
    QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96.0);
    QCOMPARE(QGuiApplication::primaryScreen()->devicePixelRatio(), 1.0);
}

namespace {

template <typename Test>
QObject &make()
{
    static Test test;
    return test;
}

} // namespace

int main(int argc, char *argv[])
{
    const bool isVictim = argc > 1 && argv[1] == victimSwitch;
    if (!isVictim)
        return runPictelTest(&make<tst_TestMain>, argc, argv);
    argv[1] = argv[0];
    return runPictelTest(&make<Victim>, argc - 1, argv + 1);
}

#include "tst_testmain.moc"
