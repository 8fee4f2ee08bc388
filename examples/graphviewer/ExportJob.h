#pragma once

#include "CommandLine.h"
#include "GraphLoader.h"
#include "GraphView.h"

namespace GraphViewer {

/// Loads a graph and writes its picture, as the command line asked for, without showing a window.
class ExportJob : public QObject
{
    Q_OBJECT

public:
    explicit ExportJob(const CommandLine &request);

    /// Works until the picture is written, or something failed and standard error says what; runs an event loop.
    ExitStatus run();

private:
    void write(const GraphDocument &document);
    void finish(const QString &error);

    CommandLine m_request;
    GraphView m_view;
    GraphLoader m_loader;
    bool m_finished = false;
    QString m_error;

Q_SIGNALS:
    void finished();
};

/// Writes \a text and a line end to standard output or standard error.
void printLine(FILE *stream, const QString &text);

} // namespace GraphViewer
