#pragma once

#include "EdgeRouters.h"
#include "GraphLoader.h"

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QPrinter;
class QProgressBar;
class QToolBar;
class QToolButton;
QT_END_NAMESPACE

namespace GraphViewer {

class GraphView;

/// The window of the program: one graph with menus, tool bar and status bar.
///
/// While a file is being laid out the status bar shows a busy indicator and a Cancel button; what was shown before
/// stays until the new graph is there. Every failure opens a message that does not stop the event loop.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    /// Starts to load \a file.
    void openFile(const QString &file);
    /// Lays the edges of all graphs with that router, as the menu does.
    void setRouter(RouterKind kind);
    GraphView *view() const { return m_view; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QAction *addCommand(QMenu *menu, const QString &text, const QKeySequence &shortcut, void (MainWindow::*slot)());
    QAction *addToggle(QMenu *menu, const QString &text, bool checked, void (GraphView::*slot)(bool));
    void addZoomAction(QMenu *menu, const QString &text, const QList<QKeySequence> &shortcuts,
                       void (GraphView::*slot)());
    void createFileMenu();
    void createEditMenu();
    void createViewMenu();
    void createRouterMenu(QMenu *menu);
    void createHelpMenu();
    void createStatusBar();
    void createToolBar();

    void chooseFile();
    void reload();
    void chooseExport();
    void exportTo(const QString &file);
    void preview();
    void print();
    void copy();
    void about();
    void cancelLoading();

    void showGraph(const GraphDocument &document);
    void showError(const QString &message);
    void setBusy(bool busy);
    void updateZoom();
    void updateActions();

    GraphView *m_view;
    GraphLoader m_loader;
    QString m_shownFile;
    QActionGroup *m_routerActions = nullptr;
    QList<QAction *> m_toolActions;
    QList<QAction *> m_graphActions; ///< Those that need a graph.
    QLabel *m_zoomLabel = nullptr;
    QLabel *m_hoverLabel = nullptr;
    QProgressBar *m_busyBar = nullptr;
    QToolButton *m_cancelButton = nullptr;
};

} // namespace GraphViewer
