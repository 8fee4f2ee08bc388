#include "GraphvizRunner.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace GraphViewer {

GraphvizRunner::GraphvizRunner(QObject *parent)
    : QObject(parent)
{ }

GraphvizRunner::~GraphvizRunner()
{
    abandon();
}

void GraphvizRunner::start(const QString &file)
{
    abandon();
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dot"));
    if (program.isEmpty())
        return fail(tr("The program \"dot\" was not found. Please install Graphviz."));

    const QFileInfo info(file);
    m_file = info.absoluteFilePath();
    m_process = new QProcess(this);
    m_process->setWorkingDirectory(info.absolutePath());
    m_process->setStandardInputFile(QProcess::nullDevice());
    connectProcess();
    m_process->start(program, {QStringLiteral("-Tjson"), m_file});
}

void GraphvizRunner::connectProcess()
{
    connect(m_process, &QProcess::finished, this, &GraphvizRunner::processFinished);
    connect(m_process, &QProcess::errorOccurred, this, &GraphvizRunner::processFailed);
}

void GraphvizRunner::cancel(const QString &reason)
{
    if (!isRunning())
        return;
    abandon();
    fail(reason);
}

void GraphvizRunner::processFinished(int exitCode, QProcess::ExitStatus status)
{
    if (status == QProcess::CrashExit)
        return fail(tr("Graphviz stopped unexpectedly while it laid the graph out."));
    if (exitCode != 0)
        return fail(tr("The file is not a graph that Graphviz can read.\n%1").arg(complaint()).trimmed());
    const QByteArray json = m_process->readAllStandardOutput();
    abandon();
    Q_EMIT finished(json);
}

// Crashes arrive as finished() too; only a process that never ran does not.
void GraphvizRunner::processFailed(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart)
        fail(tr("Graphviz could not be started: %1.").arg(m_process->errorString()));
}

// The first lines of what Graphviz wrote to standard error, without the directory of the file.
QString GraphvizRunner::complaint() const
{
    constexpr int mostLines = 3;
    constexpr int longestLine = 200;
    const QString text = QString::fromLocal8Bit(m_process->readAllStandardError());
    QStringList lines;
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts).mid(0, mostLines))
        lines << line.left(longestLine).replace(m_file, QFileInfo(m_file).fileName());
    return lines.join(u'\n');
}

void GraphvizRunner::abandon()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished();
    // It may be the sender of the signal being handled.
    m_process->deleteLater();
    m_process = nullptr;
}

void GraphvizRunner::fail(const QString &reason)
{
    abandon();
    Q_EMIT failed(reason);
}

} // namespace GraphViewer
