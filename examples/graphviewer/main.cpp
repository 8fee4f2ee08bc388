#include "CommandLine.h"
#include "ExportJob.h"
#include "MainWindow.h"

#include <QApplication>

#include <cstdio>

using namespace GraphViewer;

namespace {

QStringList rawArguments(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// Pictures can be made on machines without a screen.
void choosePlatform(const QStringList &arguments)
{
    if (runsWithoutWindow(arguments) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

int showWindow(const CommandLine &request)
{
    MainWindow window;
    window.setRouter(request.router);
    window.show();
    if (!request.file.isEmpty())
        window.openFile(request.file);
    return QApplication::exec();
}

int run(const CommandLine &request)
{
    switch (request.action) {
    case CommandLine::Action::PrintText:
        printLine(stdout, request.text);
        return Success;
    case CommandLine::Action::Refuse:
        printLine(stderr, QStringLiteral("graphviewer: ") + request.text);
        return UsageError;
    case CommandLine::Action::Export:
        return ExportJob(request).run();
    case CommandLine::Action::ShowWindow:
        break;
    }
    return showWindow(request);
}

} // namespace

int main(int argc, char *argv[])
{
    choosePlatform(rawArguments(argc, argv));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("graphviewer"));
    QApplication::setApplicationDisplayName(QStringLiteral("Graph Viewer"));
    QApplication::setApplicationVersion(QStringLiteral(GRAPHVIEWER_VERSION));
    return run(parseCommandLine(QApplication::arguments()));
}
