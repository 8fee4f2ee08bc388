#pragma once

#include <vtlpictel/figure/IUpdateManager.h>
#include <vtlpictel/figure/InterfacePointer.h>

#include <QHash>

#include <list>

namespace Vantrel::Pictel {

class IFigureViewer;

/// Collects the figures of one viewer that need validation, and passes their dirty rectangles on to the viewer.
///
/// The viewer widget calls performUpdate() at the start of each paint; nothing is timed or posted. Figures find the
/// manager through Figure::getUpdateManager().
///
/// Ownership: neither viewer nor figures are owned. A figure that dies is forgotten; a viewer that is a QObject and
/// dies is forgotten, any other viewer must be taken away with setViewer(nullptr) first.
///
/// Coordinates: the viewer is told absolute content rectangles.
///
/// Bad input: calls without a viewer and a null invalid figure leave a warning; a dirty rectangle of no figure is
/// ignored.
class VTLPICTEL_EXPORT UpdateManager : public QObject, public IUpdateManager
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IUpdateManager)
    Q_MOC_INCLUDE("vtlpictel/viewer/IFigureViewer.h")

public:
    explicit UpdateManager(QObject *parent = nullptr);
    ~UpdateManager() override;

    // Requests

    /// Maps \a rect, given in the coordinates of \a figure's bounds, to absolute ones and has the viewer repaint it.
    void addDirtyRegion(Figure *figure, const QRect &rect) override;
    /// Has the viewer repaint \a rect, given in absolute coordinates.
    void addDirtyRegion(const QRect &rect) override;
    /// Registers \a figure, once, for the next performUpdate(); requests no repaint.
    void addInvalidFigure(Figure *figure) override;
    /// Validates the registered figures in the order of their registration. Figures that are registered meanwhile are
    /// dropped, since what they wait for is being done; so is a call of this function from within itself.
    void performUpdate() override;

    // Viewer

    /// Stores the viewer that is told of dirty rectangles, or null; it is not owned.
    void setViewer(IFigureViewer *viewer);
    /// The viewer, or null when there is none or it is gone.
    IFigureViewer *getViewer() const;

Q_SIGNALS:
    /// performUpdate() is about to validate; figures that are registered now are still validated in this pass.
    void aboutToValidate(IFigureViewer *viewer);

private:
    friend class Figure;

    /// Drops the dying \a figure from every living manager.
    static void forgetFigure(Figure *figure);
    void forget(Figure *figure);
    IFigureViewer *viewerFor(const char *operation) const;
    Figure *takeFirstInvalidFigure();
    void validateInvalidFigures();

    UpdateManager *m_nextManager;
    std::list<Figure *> m_invalidFigures;
    QHash<Figure *, std::list<Figure *>::iterator> m_registrations;
    InterfacePointer<IFigureViewer> m_viewer;
    bool m_isUpdating = false;
    bool m_isValidating = false;
};

} // namespace Vantrel::Pictel
