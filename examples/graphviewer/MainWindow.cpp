#include "MainWindow.h"

#include "Export.h"
#include "GraphView.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <memory>

namespace GraphViewer {

namespace {

QString droppedFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_view(new GraphView(this))
{
    setCentralWidget(m_view);
    setAcceptDrops(true);
    createFileMenu();
    createEditMenu();
    createViewMenu();
    createHelpMenu();
    createToolBar();
    createStatusBar();
    connect(&m_loader, &GraphLoader::loaded, this, &MainWindow::showGraph);
    connect(&m_loader, &GraphLoader::failed, this, &MainWindow::showError);
    connect(m_view, &GraphView::scaleChanged, this, &MainWindow::updateZoom);
    connect(m_view, &GraphView::partHovered, m_hoverLabel, &QLabel::setText);
    updateActions();
    updateZoom();
    resize(1000, 720);
}

// Actions

QAction *MainWindow::addCommand(QMenu *menu, const QString &text, const QKeySequence &shortcut,
                                void (MainWindow::*slot)())
{
    return menu->addAction(text, shortcut, this, slot);
}

QAction *MainWindow::addToggle(QMenu *menu, const QString &text, bool checked, void (GraphView::*slot)(bool))
{
    QAction *action = menu->addAction(text, m_view, slot);
    action->setCheckable(true);
    action->setChecked(checked);
    m_toolActions << action;
    return action;
}

void MainWindow::addZoomAction(QMenu *menu, const QString &text, const QList<QKeySequence> &shortcuts,
                               void (GraphView::*slot)())
{
    QAction *action = menu->addAction(text, m_view, slot);
    action->setShortcuts(shortcuts);
    m_graphActions << action;
    m_toolActions << action;
}

void MainWindow::createFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    QAction *open = addCommand(menu, tr("&Open..."), QKeySequence::Open, &MainWindow::chooseFile);
    QAction *reloadFile = addCommand(menu, tr("&Reload"), QKeySequence::Refresh, &MainWindow::reload);
    menu->addSeparator();
    QAction *exportFile = addCommand(menu, tr("&Export..."), tr("Ctrl+E"), &MainWindow::chooseExport);
    QAction *previewPage = addCommand(menu, tr("Print Pre&view..."), tr("Ctrl+Shift+P"), &MainWindow::preview);
    QAction *printPage = addCommand(menu, tr("&Print..."), QKeySequence::Print, &MainWindow::print);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close)->setMenuRole(QAction::QuitRole);
    m_toolActions << open << exportFile << printPage;
    m_graphActions << reloadFile << exportFile << previewPage << printPage;
}

void MainWindow::createEditMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    QAction *copyPicture = addCommand(menu, tr("&Copy Picture"), QKeySequence::Copy, &MainWindow::copy);
    m_toolActions << copyPicture;
    m_graphActions << copyPicture;
}

void MainWindow::createViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    const QKeySequence plainPlus(Qt::CTRL | Qt::Key_Equal);
    addZoomAction(menu, tr("Zoom &In"), QKeySequence::keyBindings(QKeySequence::ZoomIn) << plainPlus,
                  &GraphView::zoomIn);
    addZoomAction(menu, tr("Zoom &Out"), QKeySequence::keyBindings(QKeySequence::ZoomOut), &GraphView::zoomOut);
    addZoomAction(menu, tr("&100 %"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, &GraphView::zoomToActualSize);
    addZoomAction(menu, tr("&Fit"), {QKeySequence(Qt::CTRL | Qt::Key_9)}, &GraphView::zoomToFit);
    menu->addSeparator();
    addToggle(menu, tr("&Grid"), m_view->isGridVisible(), &GraphView::setGridVisible)->setShortcut(tr("Ctrl+G"));
    addToggle(menu, tr("&Antialiasing"), m_view->isAntialiasing(), &GraphView::setAntialiasing);
    createRouterMenu(menu->addMenu(tr("&Edges")));
}

void MainWindow::createRouterMenu(QMenu *menu)
{
    m_routerActions = new QActionGroup(this);
    const QList<QPair<RouterKind, QString>> entries {{RouterKind::Straight, tr("&Straight")},
                                                     {RouterKind::Bendpoint, tr("With &Bendpoints")},
                                                     {RouterKind::Manhattan, tr("&Manhattan")}};
    for (const auto &[kind, text] : entries) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        action->setData(int(kind));
        m_routerActions->addAction(action);
    }
    connect(m_routerActions, &QActionGroup::triggered, m_view,
            [this](const QAction *action) { m_view->setRouter(RouterKind(action->data().toInt())); });
    setRouter(m_view->router());
}

void MainWindow::setRouter(RouterKind kind)
{
    for (QAction *action : m_routerActions->actions())
        action->setChecked(action->data().toInt() == int(kind));
    m_view->setRouter(kind);
}

void MainWindow::createHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    addCommand(menu, tr("&About"), QKeySequence(), &MainWindow::about)->setMenuRole(QAction::AboutRole);
}

void MainWindow::createToolBar()
{
    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addActions(m_toolActions);
}

void MainWindow::createStatusBar()
{
    m_hoverLabel = new QLabel(this);
    m_hoverLabel->setTextFormat(Qt::PlainText);
    m_hoverLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_zoomLabel = new QLabel(this);
    m_busyBar = new QProgressBar(this);
    m_busyBar->setRange(0, 0);
    m_busyBar->setMaximumWidth(120);
    m_cancelButton = new QToolButton(this);
    m_cancelButton->setText(tr("Cancel"));
    connect(m_cancelButton, &QToolButton::clicked, this, &MainWindow::cancelLoading);
    statusBar()->addWidget(m_hoverLabel, 1);
    statusBar()->addPermanentWidget(m_busyBar);
    statusBar()->addPermanentWidget(m_cancelButton);
    statusBar()->addPermanentWidget(m_zoomLabel);
    setBusy(false);
}

void MainWindow::updateActions()
{
    for (QAction *action : std::as_const(m_graphActions))
        action->setEnabled(m_view->scene() != nullptr);
}

// Loading

void MainWindow::openFile(const QString &file)
{
    setBusy(true);
    m_hoverLabel->setText(tr("Laying out %1...").arg(QFileInfo(file).fileName()));
    m_loader.load(file);
}

void MainWindow::chooseFile()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open Graph"), QFileInfo(m_shownFile).path(),
                                                      tr("Graphviz files (*.dot *.gv);;All files (*)"));
    if (!file.isEmpty())
        openFile(file);
}

void MainWindow::reload()
{
    openFile(m_shownFile);
}

void MainWindow::cancelLoading()
{
    m_loader.cancel();
}

void MainWindow::setBusy(bool busy)
{
    m_busyBar->setVisible(busy);
    m_cancelButton->setVisible(busy);
    m_hoverLabel->clear();
}

void MainWindow::showGraph(const GraphDocument &document)
{
    setBusy(false);
    m_view->showGraph(document);
    m_shownFile = m_loader.file();
    setWindowFilePath(m_shownFile);
    updateActions();
    updateZoom();
}

void MainWindow::showError(const QString &message)
{
    setBusy(false);
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Graph Viewer"), message, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    openFile(droppedFile(event->mimeData()));
}

// Output

void MainWindow::chooseExport()
{
    const QFileInfo shown(m_shownFile);
    auto *dialog = new QFileDialog(this, tr("Export Picture"), shown.absolutePath(), tr("Pictures (*.png *.pdf)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->selectFile(shown.completeBaseName() + QStringLiteral(".png"));
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::exportTo);
    dialog->open();
}

void MainWindow::exportTo(const QString &file)
{
    const QString error = exportPicture(*m_view, file);
    if (!error.isEmpty())
        showError(error);
}

void MainWindow::preview()
{
    auto *dialog = new QPrintPreviewDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter *printer) { printPicture(*m_view, *printer); });
    dialog->open();
}

void MainWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        printPicture(*m_view, printer);
}

void MainWindow::copy()
{
    auto picture = std::make_unique<QMimeData>();
    const QString error = copyPicture(*m_view, *picture);
    if (!error.isEmpty())
        return showError(error);
    QApplication::clipboard()->setMimeData(picture.release());
}

// Status

void MainWindow::updateZoom()
{
    m_zoomLabel->setText(m_view->scene() ? tr("%1 %").arg(qRound(100 * m_view->getScale())) : QString());
}

void MainWindow::about()
{
    QMessageBox::about(this, tr("Graph Viewer"),
                       tr("Shows graphs laid out by Graphviz.\nAn example of the vtlpictel library."));
}

} // namespace GraphViewer
