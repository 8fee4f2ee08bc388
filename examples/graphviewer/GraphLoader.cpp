#include "GraphLoader.h"

#include "GraphReader.h"

#include <QDir>
#include <QFileInfo>

namespace GraphViewer {

namespace {

// Why \a path cannot be laid out, found without Graphviz; empty when nothing speaks against it.
QString objectionTo(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return GraphLoader::tr("The file does not exist.");
    if (!info.isFile())
        return GraphLoader::tr("This is a folder or a device, not a file.");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return GraphLoader::tr("The file cannot be read: %1.").arg(file.errorString());
    if (info.size() == 0)
        return GraphLoader::tr("The file is empty.");
    return {};
}

} // namespace

GraphLoader::GraphLoader(QObject *parent)
    : QObject(parent)
{
    connect(&m_runner, &GraphvizRunner::failed, this, &GraphLoader::fail);
    connect(&m_runner, &GraphvizRunner::finished, this, &GraphLoader::readAnswer);
}

void GraphLoader::load(const QString &file)
{
    m_runner.abandon();
    m_file = file;
    const QString objection = objectionTo(file);
    if (!objection.isEmpty())
        return fail(objection);
    m_runner.start(file);
}

void GraphLoader::cancel(const QString &reason)
{
    m_runner.cancel(reason.isEmpty() ? tr("Loading was cancelled.") : reason);
}

void GraphLoader::fail(const QString &reason)
{
    Q_EMIT failed(tr("Cannot show \"%1\".\n%2").arg(QDir::toNativeSeparators(m_file), reason));
}

void GraphLoader::readAnswer(const QByteArray &json)
{
    const ReadResult result = readGraph(json, QFileInfo(m_file).absoluteDir());
    if (result.document)
        Q_EMIT loaded(*result.document);
    else
        fail(result.error);
}

} // namespace GraphViewer
