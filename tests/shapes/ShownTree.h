#pragma once

#include "support/CallLog.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/ViewerStub.h"

#include <vtlpictel/figure/UpdateManager.h>

#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionViewItem>

/// A displayed tree without a window: a root at (100, 200), whose children are relative to it, and a viewer that
/// remembers what is to be repainted.
class ShownTree
{
public:
    using Figure = Vantrel::Pictel::Figure;

    ShownTree()
    {
        m_root.setLayoutManager(&m_layout);
        m_root.setBounds(QRect(origin(), QSize(800, 600)));
        m_manager.setViewer(&m_viewer);
        m_root.setRootUpdateManager(&m_manager);
        m_root.addNotify();
    }

    /// Where the children's (0, 0) is in absolute coordinates.
    static QPoint origin() { return QPoint(100, 200); }

    ProbeFigure &root() { return m_root; }

    void show(Figure &figure)
    {
        m_root.add(&figure);
        forget();
    }

    void forget()
    {
        m_viewer.takeDirtyRects();
        m_log.clear();
    }

    /// The areas whose repaint was asked for since the last call, in the children's coordinates.
    QList<QRect> takeRepaints()
    {
        QList<QRect> repaints;
        for (const QRect &rect : m_viewer.takeDirtyRects())
            repaints << rect.translated(-origin());
        return repaints;
    }

    /// The areas that children left behind since the last call, in the children's coordinates.
    QStringList takeErased()
    {
        const QStringList erased = m_log.only({QStringLiteral("repaint")});
        m_log.clear();
        return erased;
    }

    /// How an erased area, in the children's coordinates, shows in takeErased().
    static QString erased(const QRect &rect)
    {
        return QStringLiteral("root.repaint(%1)").arg(CallLog::text(rect.translated(origin())));
    }

    /// How often a child asked for a new layout since the last call.
    int takeRevalidations()
    {
        const int count = static_cast<int>(m_log.only({QStringLiteral("revalidate")}).size());
        m_log.clear();
        return count;
    }

private:
    CallLog m_log;
    ViewerStub m_viewer;
    Vantrel::Pictel::UpdateManager m_manager;
    ProbeLayout m_layout;
    ProbeFigure m_root {QStringLiteral("root"), &m_log};
};

/// The option for painting everything, with a palette of colours that tell its roles apart.
inline QStyleOptionViewItem paintEverything()
{
    QStyleOptionViewItem option;
    option.rect = QRect(-5000, -5000, 10000, 10000);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, QColor(1, 0, 0));
    option.palette.setColor(QPalette::Active, QPalette::Button, QColor(2, 0, 0));
    option.palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(3, 0, 0));
    option.palette.setColor(QPalette::Disabled, QPalette::Button, QColor(4, 0, 0));
    return option;
}

/// Paints \a figure on \a device through a painter scaled by \a scale.
inline void paint(Vantrel::Pictel::Figure &figure, QPaintDevice &device,
                  const QStyleOptionViewItem &option = paintEverything(), double scale = 1.0)
{
    QPainter painter(&device);
    painter.scale(scale, scale);
    figure.render(&painter, option);
}
