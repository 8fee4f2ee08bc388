#pragma once

#include "EdgeConnection.h"
#include "Element.h"
#include "GraphLoader.h"
#include "GraphScene.h"
#include "GraphView.h"

#include <vtlpictel/layers/FreeformLayeredPane.h>

#include <QFile>
#include <QMouseEvent>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <array>

/// What the tests of the graph viewer share.
namespace GraphViewerSupport {

constexpr std::array<GraphViewer::RouterKind, 3> everyRouter {
    GraphViewer::RouterKind::Straight, GraphViewer::RouterKind::Bendpoint, GraphViewer::RouterKind::Manhattan};

/// The ends of an edge, in content coordinates.
inline QPointF startOf(const GraphViewer::EdgeConnection &edge)
{
    return edge.track().at(0);
}

inline QPointF endOf(const GraphViewer::EdgeConnection &edge)
{
    return edge.track().at(edge.track().length());
}

inline QString bundled(const QString &name)
{
    return QStringLiteral(GRAPHS_DIRECTORY "/") + name;
}

inline QString sample(const QString &name)
{
    return QStringLiteral(SAMPLES_DIRECTORY "/") + name;
}

/// Runs a program to its end and returns its standard output; null when it failed.
inline QByteArray outputOf(const QString &program, const QStringList &arguments, const QString &directory = {})
{
    QProcess process;
    process.setWorkingDirectory(directory);
    process.start(program, arguments);
    const bool succeeded = process.waitForFinished(60000) && process.exitCode() == 0;
    return succeeded ? process.readAllStandardOutput() : QByteArray();
}

inline QString writeFile(const QTemporaryDir &directory, const QString &name, const QByteArray &bytes)
{
    QFile file(directory.filePath(name));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return written ? file.fileName() : QString();
}

/// The end of one load: a document or a message.
struct Loaded
{
    std::optional<GraphViewer::GraphDocument> document;
    QString message;
};

inline Loaded load(const QString &file)
{
    Loaded result;
    GraphViewer::GraphLoader loader;
    QObject::connect(&loader, &GraphViewer::GraphLoader::loaded,
                     [&](const GraphViewer::GraphDocument &document) { result.document = document; });
    QObject::connect(&loader, &GraphViewer::GraphLoader::failed, [&](const QString &text) { result.message = text; });
    loader.load(file);
    const auto ended = [&] { return result.document.has_value() || !result.message.isEmpty(); };
    const bool inTime = QTest::qWaitFor(ended, 60000);
    return inTime ? result : Loaded {std::nullopt, QStringLiteral("the test waited too long")};
}

/// As long as it lives, "dot" is the shell script \a script, or missing when that is empty.
class ReplacedDot
{
public:
    explicit ReplacedDot(const QByteArray &script)
        : m_path(qgetenv("PATH"))
    {
        if (!script.isEmpty()) {
            const QString file = writeFile(m_directory, QStringLiteral("dot"), script);
            QFile::setPermissions(
                file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        }
        qputenv("PATH", m_directory.path().toLocal8Bit());
    }
    ~ReplacedDot() { qputenv("PATH", m_path); }
    Q_DISABLE_COPY_MOVE(ReplacedDot)

private:
    QTemporaryDir m_directory;
    QByteArray m_path;
};

/// A dot that never answers.
inline const QByteArray hangingDot = "#!/bin/sh\nexec /bin/sleep 1000\n";

// Figures

/// The part of that name in \a layer; null when there is none of that type.
template <typename Part>
Part *part(GraphViewer::GraphView &view, const QString &layer, const QString &name)
{
    for (Vantrel::Pictel::Figure *figure : view.scene()->content()->getLayer(layer)->childFigures()) {
        auto *candidate = dynamic_cast<Part *>(figure);
        if (candidate && candidate->name() == name)
            return candidate;
    }
    return nullptr;
}

inline GraphViewer::Element *node(GraphViewer::GraphView &view, const QString &name)
{
    return part<GraphViewer::Element>(view, QStringLiteral("nodes"), name);
}

inline GraphViewer::Element *clusterNamed(GraphViewer::GraphView &view, const QString &name)
{
    return part<GraphViewer::Element>(view, QStringLiteral("clusters"), name);
}

inline GraphViewer::EdgeConnection *edgeNamed(GraphViewer::GraphView &view, const QString &name)
{
    return part<GraphViewer::EdgeConnection>(view, QStringLiteral("edges"), name);
}

/// The middle of \a figure in viewport pixels.
inline QPoint middleOf(GraphViewer::GraphView &view, Vantrel::Pictel::Figure *figure)
{
    return view.fromContent(QRectF(figure->getBounds()).center()).toPoint();
}

// Real events: they go to the widget under the pointer, as the window system would send them

inline void sendMouse(GraphViewer::GraphView &view, QEvent::Type type, const QPoint &viewportPoint,
                      Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QWidget *target = view.viewport()->childAt(viewportPoint);
    target = target ? target : view.viewport();
    const QPointF local = target->mapFrom(view.viewport(), viewportPoint);
    QMouseEvent event(type, local, view.viewport()->mapToGlobal(viewportPoint), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

inline void drag(GraphViewer::GraphView &view, Qt::MouseButton button, const QPoint &from, const QPoint &to)
{
    sendMouse(view, QEvent::MouseButtonPress, from, button, button);
    sendMouse(view, QEvent::MouseMove, (from + to) / 2, Qt::NoButton, button);
    sendMouse(view, QEvent::MouseMove, to, Qt::NoButton, button);
    sendMouse(view, QEvent::MouseButtonRelease, to, button, Qt::NoButton);
}

inline void turnWheel(GraphViewer::GraphView &view, const QPoint &viewportPoint, int angle,
                      Qt::KeyboardModifiers modifiers)
{
    QWidget *target = view.viewport()->childAt(viewportPoint);
    target = target ? target : view.viewport();
    QWheelEvent event(target->mapFrom(view.viewport(), QPointF(viewportPoint)),
                      view.viewport()->mapToGlobal(QPointF(viewportPoint)), QPoint(), QPoint(0, angle), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    // Only events of the window system travel on to the widgets beneath.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(target, &event);
}

} // namespace GraphViewerSupport
