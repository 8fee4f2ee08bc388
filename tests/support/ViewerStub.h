#pragma once

#include <vtlpictel/viewer/IFigureViewer.h>
#include <vtlpictel/viewer/IViewport.h>

#include <QList>
#include <QObject>
#include <QSize>

#include <utility>

/// A viewport without a widget: an unscaled view whose calls are counted.
class ViewportStub : public QObject, public Vantrel::Pictel::IViewport
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IViewport)

public:
    using QObject::QObject;

    Vantrel::Pictel::Figure *getContent() override { return m_content; }
    int getPageStep(Qt::Orientation) override { return 0; }
    QPoint getViewLocation() override { return m_location; }
    QRect getViewRect() override { return QRect(m_location, m_size); }
    bool setContent(Vantrel::Pictel::Figure *content) override;
    void setViewLocation(const QPoint &location, bool) override { m_location = location; }
    void update() override { ++m_updates; }
    void repaint() override { ++m_repaints; }
    void resizeViewport(const QSize &size) override { m_size = size; }
    void setXYMargins(int, int) override { }
    QPointF toContent(const QPointF &point) override { return point + m_location; }
    QPoint toContent(const QPoint &point) override { return point + m_location; }
    QRectF toContent(const QRectF &rect) override { return rect.translated(m_location); }
    QRect toContent(const QRect &rect) override { return rect.translated(m_location); }
    QPointF fromContent(const QPointF &point) override { return point - m_location; }
    QPoint fromContent(const QPoint &point) override { return point - m_location; }
    QRectF fromContent(const QRectF &rect) override { return rect.translated(-m_location); }
    QRect fromContent(const QRect &rect) override { return rect.translated(-m_location); }

    int updateCount() const { return m_updates; }
    int repaintCount() const { return m_repaints; }

private:
    Vantrel::Pictel::Figure *m_content = nullptr;
    QPoint m_location;
    QSize m_size {1000, 1000};
    int m_updates = 0;
    int m_repaints = 0;
};

/// A viewer without a widget: it remembers the dirty rectangles an update manager passes to it.
///
/// To show a tree without a viewer: bind a manager with setViewer(&stub), call root.addNotify() and give the manager to
/// the root with ProbeFigure::setRootUpdateManager().
class ViewerStub : public QObject, public Vantrel::Pictel::IFigureViewer
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IFigureViewer)

public:
    using QObject::QObject;

    Vantrel::Pictel::UpdateManager *getUpdateManager() override { return m_updateManager; }
    void setUpdateManager(Vantrel::Pictel::UpdateManager *updateManager) override { m_updateManager = updateManager; }
    Vantrel::Pictel::IViewport *getViewport() override { return &m_viewport; }
    void updateContentRect(const QRect &rect) override { m_dirtyRects << rect; }
    QRect &elasticBand() override { return m_elasticBand; }
    QPoint toGlobal(const QPoint &point) override { return point; }
    QPoint fromGlobal(const QPoint &point) override { return point; }

    /// The rectangles given to updateContentRect() so far, in absolute content coordinates.
    const QList<QRect> &dirtyRects() const { return m_dirtyRects; }
    /// The rectangles since the last take.
    QList<QRect> takeDirtyRects() { return std::exchange(m_dirtyRects, {}); }
    const ViewportStub &viewport() const { return m_viewport; }

private:
    Vantrel::Pictel::UpdateManager *m_updateManager = nullptr;
    ViewportStub m_viewport;
    QRect m_elasticBand;
    QList<QRect> m_dirtyRects;
};
