#include "support/TestMain.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTest>

namespace {

QtMessageHandler frameworkHandler = nullptr;

// The offscreen platform says this of every main window.
bool isPlatformNoise(const QString &message)
{
    return message == QLatin1String("This plugin does not support propagateSizeHints()");
}

// Qt Test can fail on unexpected warnings only, so debug messages travel to it as marked warnings.
void guardMessages(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (isPlatformNoise(message))
        return;
    if (type == QtDebugMsg)
        frameworkHandler(QtWarningMsg, context, QStringLiteral("debug: ") + message);
    else
        frameworkHandler(type, context, message);
}

void installMessageGuard()
{
    const QtMessageHandler previous = qInstallMessageHandler(guardMessages);
    if (previous != guardMessages)
        frameworkHandler = previous;
}

} // namespace

void PictelTest::expectDebug(const char *text)
{
    QTest::ignoreMessage(QtWarningMsg, QByteArray("debug: ").append(text).constData());
}

void PictelTest::expectWarning(const char *text)
{
    QTest::ignoreMessage(QtWarningMsg, text);
}

void PictelTest::init()
{
    installMessageGuard();
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

int runPictelTest(QObject &(*makeTest)(), int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    return QTest::qExec(&makeTest(), argc, argv);
}
