#pragma once

#include <QObject>
#include <QProcess>

namespace GraphViewer {

/// Runs Graphviz on one file as a child process, so that no file can stop or crash the program.
///
/// Every start() ends in exactly one of finished() and failed(), unless the next start() or the destructor comes first.
/// At most one process runs at a time; a second start() ends the first without a signal.
class GraphvizRunner : public QObject
{
    Q_OBJECT

public:
    explicit GraphvizRunner(QObject *parent = nullptr);
    ~GraphvizRunner() override;

    /// Lays out \a file; relative names in it are looked up beside it.
    void start(const QString &file);
    /// Ends a running process and reports that with failed(); does nothing otherwise.
    void cancel(const QString &reason);
    /// Ends a running process without a signal.
    void abandon();
    bool isRunning() const { return m_process != nullptr; }

Q_SIGNALS:
    /// The graph with its layout and draw operations as JSON.
    void finished(const QByteArray &json);
    /// \a reason is a sentence for the user.
    void failed(const QString &reason);

private:
    void connectProcess();
    void processFinished(int exitCode, QProcess::ExitStatus status);
    void processFailed(QProcess::ProcessError error);
    void fail(const QString &reason);
    QString complaint() const;

    QString m_file;
    QProcess *m_process = nullptr;
};

} // namespace GraphViewer
