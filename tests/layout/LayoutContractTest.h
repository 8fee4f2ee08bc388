#pragma once

#include "support/FreeformProbe.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/Layout.h>

#include <QMetaType>
#include <QPointer>

#include <memory>
#include <vector>

using LayoutMaker = Vantrel::Pictel::Layout *(*)(QObject *parent);
using Figures = QList<Vantrel::Pictel::Figure *>;

Q_DECLARE_METATYPE(LayoutMaker)

/// A container with one of the layouts, in turn, and figures that every layout can place.
class LayoutContractTest : public PictelTest
{
protected:
    /// The global data: one row for each layout.
    static void addLayouts();

    void setUp();
    void tearDown();
    /// A figure that every layout can place, with a size to be given where a layout asks for one.
    FreeformProbe *addChild();
    /// A constraint by which this layout places a child.
    QVariant place();
    /// Moves the children to where the next layout cannot leave them.
    void displace(const Figures &figures);
    Figures children() const { return m_container->childFigures(); }

    std::unique_ptr<Vantrel::Pictel::Figure> m_container;
    QPointer<Vantrel::Pictel::Layout> m_layout;
    std::vector<std::unique_ptr<FreeformProbe>> m_children;
    std::vector<std::unique_ptr<ProbeLocator>> m_locators;
};
