#pragma once

#include "GraphDocument.h"
#include "GraphvizRunner.h"

namespace GraphViewer {

/// Turns a Graphviz file into a GraphDocument without blocking the event loop.
///
/// Every load() ends in exactly one of loaded() and failed(), unless the next load() or the destructor comes first.
class GraphLoader : public QObject
{
    Q_OBJECT

public:
    explicit GraphLoader(QObject *parent = nullptr);

    /// Starts to load \a file; a file that is still being loaded is dropped without a signal.
    void load(const QString &file);
    /// Gives up loading; failed() says so, with \a reason as the cause if there is one.
    void cancel(const QString &reason = QString());
    bool isLoading() const { return m_runner.isRunning(); }
    /// The file of the last load().
    QString file() const { return m_file; }

Q_SIGNALS:
    void loaded(const GraphViewer::GraphDocument &document);
    /// \a message is complete text for the user; it names the file.
    void failed(const QString &message);

private:
    void fail(const QString &reason);
    void readAnswer(const QByteArray &json);

    QString m_file;
    GraphvizRunner m_runner;
};

} // namespace GraphViewer
