#pragma once

#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/ViewerStub.h"

#include <vtlpictel/figure/UpdateManager.h>

/// A tree that counts as displayed: a notified root with an update manager whose viewer remembers the dirty rectangles.
///
/// The root is named "root", uses local coordinates and covers (0, 0, 1000, 1000); nothing is registered or dirty.
struct DisplayedRoot
{
    explicit DisplayedRoot(CallLog *log = nullptr)
        : layout(QStringLiteral("rootLayout"))
        , root(QStringLiteral("root"), log)
    {
        manager.setViewer(&viewer);
        root.setLayoutManager(&layout);
        root.setBounds(QRect(0, 0, 1000, 1000));
        root.addNotify();
        root.setRootUpdateManager(&manager);
        if (log)
            log->clear();
    }

    /// The rectangles that were requested since the last take, in absolute coordinates.
    QList<QRect> takeDirtyRects() { return viewer.takeDirtyRects(); }

    ViewerStub viewer;
    Vantrel::Pictel::UpdateManager manager;
    ProbeLayout layout;
    ProbeFigure root;
};
