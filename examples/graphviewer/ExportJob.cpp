#include "ExportJob.h"

#include "Export.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace GraphViewer {

void printLine(FILE *stream, const QString &text)
{
    std::fprintf(stream, "%s\n", qUtf8Printable(text));
    std::fflush(stream);
}

ExportJob::ExportJob(const CommandLine &request)
    : m_request(request)
{
    m_view.setRouter(request.router);
    connect(&m_loader, &GraphLoader::loaded, this, &ExportJob::write);
    connect(&m_loader, &GraphLoader::failed, this, &ExportJob::finish);
    if (request.timeout > 0)
        QTimer::singleShot(std::chrono::seconds(request.timeout), &m_loader,
                           [this] { m_loader.cancel(tr("Graphviz took too long.")); });
}

ExitStatus ExportJob::run()
{
    QEventLoop loop;
    connect(this, &ExportJob::finished, &loop, &QEventLoop::quit);
    m_loader.load(m_request.file);
    if (!m_finished)
        loop.exec();
    if (m_error.isEmpty())
        return Success;
    printLine(stderr, QStringLiteral("graphviewer: ") + m_error);
    return Failure;
}

void ExportJob::write(const GraphDocument &document)
{
    m_view.showGraph(document);
    finish(exportPicture(m_view, m_request.exportFile));
}

void ExportJob::finish(const QString &error)
{
    m_finished = true;
    m_error = error;
    Q_EMIT finished();
}

} // namespace GraphViewer
