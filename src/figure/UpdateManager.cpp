#include <vtlpictel/figure/UpdateManager.h>

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/viewer/IFigureViewer.h>

#include <QMessageLogger>

namespace Vantrel::Pictel {

namespace {

// All living managers are chained, so that a dying figure can leave them. Figures may die as late as static
// destruction, when a container might be gone already.
UpdateManager *firstManager = nullptr;

} // namespace

UpdateManager::UpdateManager(QObject *parent)
    : QObject(parent)
    , m_nextManager(firstManager)
{
    firstManager = this;
}

UpdateManager::~UpdateManager()
{
    UpdateManager **link = &firstManager;
    while (*link != this)
        link = &(*link)->m_nextManager;
    *link = m_nextManager;
}

void UpdateManager::setViewer(IFigureViewer *viewer)
{
    m_viewer = viewer;
}

IFigureViewer *UpdateManager::getViewer() const
{
    return m_viewer.get();
}

// The viewer; a warning in the name of operation when there is none.
IFigureViewer *UpdateManager::viewerFor(const char *operation) const
{
    IFigureViewer *viewer = getViewer();
    if (!viewer)
        QMessageLogger().warning("UpdateManager::%s(): no managed widget", operation);
    return viewer;
}

void UpdateManager::addDirtyRegion(Figure *figure, const QRect &rect)
{
    IFigureViewer *viewer = viewerFor("addDirtyRegion");
    if (!viewer || !figure)
        return;
    QRect absolute = rect;
    viewer->updateContentRect(figure->translateToAbsolute(absolute));
}

void UpdateManager::addDirtyRegion(const QRect &rect)
{
    if (IFigureViewer *viewer = viewerFor("addDirtyRegion"))
        viewer->updateContentRect(rect);
}

void UpdateManager::addInvalidFigure(Figure *figure)
{
    if (!viewerFor("addInvalidFigure"))
        return;
    if (!figure) {
        QMessageLogger().warning("UpdateManager::addInvalidFigure(): null figure pointer");
        return;
    }
    if (!m_isValidating && !m_registrations.contains(figure))
        m_registrations.insert(figure, m_invalidFigures.insert(m_invalidFigures.end(), figure));
}

void UpdateManager::performUpdate()
{
    IFigureViewer *viewer = viewerFor("performUpdate");
    if (!viewer || m_isUpdating || m_invalidFigures.empty())
        return;
    const QPointer<UpdateManager> self(this);
    m_isUpdating = true;
    Q_EMIT aboutToValidate(viewer);
    if (self)
        validateInvalidFigures();
    if (self)
        m_isUpdating = false;
}

// A figure leaves the list before it is validated: whatever dies meanwhile, the list holds living figures only.
void UpdateManager::validateInvalidFigures()
{
    const QPointer<UpdateManager> self(this);
    m_isValidating = true;
    while (self && !m_invalidFigures.empty())
        takeFirstInvalidFigure()->validate();
    if (self)
        m_isValidating = false;
}

Figure *UpdateManager::takeFirstInvalidFigure()
{
    Figure *figure = m_invalidFigures.front();
    forget(figure);
    return figure;
}

void UpdateManager::forgetFigure(Figure *figure)
{
    for (UpdateManager *manager = firstManager; manager; manager = manager->m_nextManager)
        manager->forget(figure);
}

void UpdateManager::forget(Figure *figure)
{
    const auto registration = m_registrations.constFind(figure);
    if (registration == m_registrations.cend())
        return;
    m_invalidFigures.erase(*registration);
    m_registrations.erase(registration);
}

} // namespace Vantrel::Pictel
