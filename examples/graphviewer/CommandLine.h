#pragma once

#include "EdgeRouters.h"

#include <QStringList>

namespace GraphViewer {

/// The exit statuses of the program.
enum ExitStatus { Success = 0, Failure = 1, UsageError = 2 };

/// What the user asked for.
struct CommandLine
{
    enum class Action { ShowWindow, Export, PrintText, Refuse };

    Action action = Action::ShowWindow;
    QString file; ///< The graph; empty for an empty window.
    QString exportFile;
    RouterKind router = RouterKind::Bendpoint;
    int timeout = 0; ///< Seconds an export may take; 0 is no limit.
    QString text; ///< What PrintText prints to standard output and Refuse to standard error.
};

/// Reads \a arguments, the program's name first. Needs an application object.
CommandLine parseCommandLine(const QStringList &arguments);

/// True when \a arguments ask for something that opens no window.
bool runsWithoutWindow(const QStringList &arguments);

} // namespace GraphViewer
