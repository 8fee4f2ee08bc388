#include "support/TestMain.h"

#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/connections/IBendpoint.h>
#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/figure/AncestorHelper.h>
#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/ConnectionLocator.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/ILocator.h>
#include <vtlpictel/figure/IRotatableDecoration.h>
#include <vtlpictel/figure/ITreeSearch.h>
#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/figure/RelativeLocator.h>
#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/layout/ILayoutListener.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/viewer/FreeformWidget.h>
#include <vtlpictel/viewer/IFigureViewer.h>
#include <vtlpictel/viewer/IViewport.h>

#include <QPixmap>
#include <QTest>

#include <cstring>

// The order of virtual functions is part of the binary interface: applications compiled against an older release call
// by slot number. The Itanium C++ ABI keeps that number in the pointer to a virtual member function.

using namespace Vantrel::Pictel;

namespace {

template <typename Function>
int slotOf(Function function)
{
    struct MemberPointer
    {
        std::ptrdiff_t value;
        std::ptrdiff_t adjustment;
    };
    static_assert(sizeof(Function) == sizeof(MemberPointer));
    MemberPointer pointer;
    std::memcpy(&pointer, &function, sizeof pointer);
#if defined(__aarch64__) || defined(__arm__)
    const std::ptrdiff_t offset = pointer.adjustment & 1 ? pointer.value : -1;
#else
    const std::ptrdiff_t offset = pointer.value & 1 ? pointer.value - 1 : -1;
#endif
    return offset < 0 ? -1 : static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void *)));
}

// A destructor has two slots.
constexpr int afterDestructor = 2;
// metaObject, qt_metacast, qt_metacall, two destructors, event, eventFilter, timerEvent, childEvent, customEvent,
// connectNotify, disconnectNotify
constexpr int afterObject = 12;

template <typename... Functions>
QList<int> slotsOf(Functions... functions)
{
    return {slotOf(functions)...};
}

QList<int> consecutive(int first, qsizetype count)
{
    QList<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers << first + i;
    return numbers;
}

// Classes that open what is protected.
struct OpenFigure : Figure
{
    using Figure::calculateContentSize;
    using Figure::drawBackground;
    using Figure::drawBorder;
    using Figure::drawChildren;
    using Figure::drawFigure;
    using Figure::isValidateRoot;
    using Figure::layout;
    using Figure::primTranslate;
};

struct OpenLayout : Layout
{
    using Layout::applyConstraint;
    using Layout::calculateMinimumSize;
    using Layout::calculatePreferredSize;
    using Layout::isClipping;
    using Layout::performLayout;
};

struct OpenPane : FreeformLayeredPane
{
    using FreeformLayeredPane::drawMainGrid;
    using FreeformLayeredPane::drawSubGrid;
};

struct OpenBorder : Border
{
    using Border::createPen;
    using Border::toBorderRect;
};

struct OpenHelper : AncestorHelper
{
    using AncestorHelper::addAncestors;
    using AncestorHelper::removeAncestors;
};

struct OpenLocator : Locator
{
    using Locator::getNewBounds;
    using Locator::getReferencePoint;
};

struct OpenConnectionLocator : ConnectionLocator
{
    using ConnectionLocator::getConnection;
    using ConnectionLocator::getLocation;
};

struct OpenRelativeLocator : RelativeLocator
{
    using RelativeLocator::getReferenceBox;
    using RelativeLocator::getReferenceFigure;
};

template <typename Connection>
struct OpenConnection : Connection
{
    using Connection::getSourceDecoration;
    using Connection::getTargetDecoration;
};

struct OpenChopboxAnchor : ChopboxAnchor
{
    using ChopboxAnchor::getBox;
};

struct OpenBendpointRouter : BendpointConnectionRouter
{
    using BendpointConnectionRouter::getBendpointList;
    using BendpointConnectionRouter::getBendpointLocation;
    using BendpointConnectionRouter::getEndPoint;
    using BendpointConnectionRouter::getStartPoint;
};

struct OpenManhattanRouter : ManhattanConnectionRouter
{
    using ManhattanConnectionRouter::colUsable;
    using ManhattanConnectionRouter::getDirection;
    using ManhattanConnectionRouter::getEndDirection;
    using ManhattanConnectionRouter::getStartDirection;
    using ManhattanConnectionRouter::rowUsable;
};

template <typename Value>
using Mapping = Value &(IFigure::*)(Value &);

QList<int> sizeSlots()
{
    return slotsOf(&IFigure::getBorder, &IFigure::setBorder, &IFigure::getMinimumSize, &IFigure::setMinimumSize,
                   &IFigure::getMaximumSize, &IFigure::setMaximumSize, &IFigure::getPreferredSize,
                   &IFigure::setPreferredSize, &IFigure::getMargin, &IFigure::setMargin, &IFigure::getClientArea,
                   &IFigure::calculateContentRect, &IFigure::getBounds, &IFigure::setBounds, &IFigure::getBoundingRect,
                   &IFigure::isEnabled, &IFigure::setEnabled, &IFigure::isVisible, &IFigure::setVisible,
                   &IFigure::getBackgroundColor, &IFigure::setBackgroundColor, &IFigure::getTooltip,
                   &IFigure::setTooltip);
}

QList<int> treeSlots()
{
    return slotsOf(&IFigure::addNotify, &IFigure::removeNotify, &IFigure::getParentFigure, &IFigure::setParentFigure,
                   &IFigure::getLayoutManager, &IFigure::setLayoutManager, &IFigure::getUpdateManager,
                   qNonConstOverload<Figure *, const QVariant &, int>(&IFigure::add),
                   qNonConstOverload<Figure *, unsigned int, unsigned int, int>(&IFigure::add), &IFigure::remove,
                   &IFigure::childFigures, &IFigure::childFigureCount);
}

QList<int> hitTestSlots()
{
    return slotsOf(qConstOverload<const QPoint &>(&IFigure::findFigureAt),
                   qConstOverload<int, int, const ITreeSearch &>(&IFigure::findFigureAt),
                   qConstOverload<int, int>(&IFigure::findFigureAt),
                   qConstOverload<QList<Figure *> &, const QRect &, const ITreeSearch &, bool>(&IFigure::findFigures),
                   qNonConstOverload<const QRect &, bool>(&IFigure::findFigures), &IFigure::findFigureAtExcluding,
                   &IFigure::contains, &IFigure::isContained, &IFigure::isIntersecting, &IFigure::expandingDirections,
                   &IFigure::setExpandingDirections, &IFigure::render, &IFigure::invalidate, &IFigure::validate,
                   &IFigure::translate);
}

QList<int> mappingSlots()
{
    return slotsOf(Mapping<QPointF>(&IFigure::translateFromParent), Mapping<QRectF>(&IFigure::translateFromParent),
                   Mapping<QPoint>(&IFigure::translateFromParent), Mapping<QRect>(&IFigure::translateFromParent),
                   Mapping<QPointF>(&IFigure::translateToParent), Mapping<QRectF>(&IFigure::translateToParent),
                   Mapping<QPoint>(&IFigure::translateToParent), Mapping<QRect>(&IFigure::translateToParent),
                   Mapping<QPointF>(&IFigure::translateToAbsolute), Mapping<QRectF>(&IFigure::translateToAbsolute),
                   Mapping<QPoint>(&IFigure::translateToAbsolute), Mapping<QRect>(&IFigure::translateToAbsolute),
                   Mapping<QPointF>(&IFigure::translateToRelative), Mapping<QRectF>(&IFigure::translateToRelative),
                   Mapping<QPoint>(&IFigure::translateToRelative), Mapping<QRect>(&IFigure::translateToRelative));
}

QList<int> listenerSlots()
{
    return slotsOf(&IFigure::addAncestorListener, &IFigure::removeAncestorListener, &IFigure::addPropertyChangeListener,
                   &IFigure::removePropertyChangeListener, &IFigure::erase, &IFigure::revalidate,
                   qNonConstOverload<const QRect &>(&IFigure::repaint),
                   qNonConstOverload<int, int, int, int>(&IFigure::repaint), qNonConstOverload<>(&IFigure::repaint));
}

template <typename Connection>
QList<int> decorationSlots()
{
    return slotsOf(&Connection::setSourceDecoration, &Connection::setTargetDecoration,
                   &OpenConnection<Connection>::getSourceDecoration, &OpenConnection<Connection>::getTargetDecoration);
}

} // namespace

class tst_VtableOrder : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
};

void tst_VtableOrder::order_data()
{
    QTest::addColumn<QList<int>>("numbers");
    // Negative where what comes before belongs to a class of Qt or is no contract.
    QTest::addColumn<int>("first");

    const QList<int> figureSlots = sizeSlots() + treeSlots() + hitTestSlots() + mappingSlots() + listenerSlots();
    const int afterFigure = afterDestructor + static_cast<int>(figureSlots.size());
    QTest::newRow("IFigure") << figureSlots << afterDestructor;
    QTest::newRow("Figure") << slotsOf(&Figure::resolveBounds, &Figure::getResizeMinimum, &OpenFigure::layout,
                                       &OpenFigure::calculateContentSize, &OpenFigure::drawBackground,
                                       &OpenFigure::drawFigure, &OpenFigure::drawBorder, &OpenFigure::drawChildren,
                                       &OpenFigure::isValidateRoot, &OpenFigure::primTranslate)
                            << afterObject;
    QTest::newRow("IUpdateManager") << slotsOf(
        qNonConstOverload<Figure *, const QRect &>(&IUpdateManager::addDirtyRegion),
        qNonConstOverload<const QRect &>(&IUpdateManager::addDirtyRegion), &IUpdateManager::addInvalidFigure,
        &IUpdateManager::performUpdate)
                                    << afterDestructor;
    QTest::newRow("AncestorHelper") << slotsOf(&OpenHelper::addAncestors, &OpenHelper::removeAncestors,
                                               &AncestorHelper::propertyChanged)
                                    << afterObject;
    QTest::newRow("ITreeSearch") << slotsOf(&ITreeSearch::accept, &ITreeSearch::prune) << afterDestructor;
    QTest::newRow("Border") << slotsOf(&Border::getInsets, &Border::setInsets, &Border::render, &OpenBorder::createPen,
                                       &OpenBorder::toBorderRect)
                            << afterObject;
    QTest::newRow("Locator") << slotsOf(&Locator::getGap, &Locator::getRelativePosition, &Locator::setGap,
                                        &Locator::setRelativePosition, &OpenLocator::getNewBounds,
                                        &OpenLocator::getReferencePoint)
                             << afterObject;
    QTest::newRow("ConnectionLocator") << slotsOf(&OpenConnectionLocator::getConnection,
                                                  &OpenConnectionLocator::getLocation)
                                       << -1;
    QTest::newRow("RelativeLocator") << slotsOf(&RelativeLocator::setReferenceFigure, &RelativeLocator::setLocation,
                                                &OpenRelativeLocator::getReferenceBox,
                                                &OpenRelativeLocator::getReferenceFigure)
                                     << afterObject;
    QTest::newRow("IConnection") << slotsOf(
        &IConnection::getConnectionRouter, &IConnection::getPoints, &IConnection::getPoint, &IConnection::getPointCount,
        &IConnection::getPointsF, &IConnection::getPointF, &IConnection::getRoutingConstraint,
        &IConnection::getSourceAnchor, &IConnection::getTargetAnchor, &IConnection::setConnectionRouter,
        &IConnection::setPoints, &IConnection::setPointsF, &IConnection::setRoutingConstraint,
        &IConnection::setSourceAnchor, &IConnection::setTargetAnchor)
                                 << afterFigure;
    QTest::newRow("IRotatableDecoration")
        << slotsOf(qNonConstOverload<const QPointF &>(&IRotatableDecoration::setLocation),
                   qNonConstOverload<const QPoint &>(&IRotatableDecoration::setLocation),
                   qNonConstOverload<const QPointF &>(&IRotatableDecoration::setReferencePoint),
                   qNonConstOverload<const QPoint &>(&IRotatableDecoration::setReferencePoint))
        << afterFigure;
    QTest::newRow("ILayoutListener") << slotsOf(&ILayoutListener::invalidate, &ILayoutListener::layout,
                                                &ILayoutListener::postLayout, &ILayoutListener::remove,
                                                &ILayoutListener::setConstraint)
                                     << afterDestructor;
    QTest::newRow("Layout") << slotsOf(
        qNonConstOverload<Figure *, const QVariant &, int>(&Layout::add),
        qNonConstOverload<Figure *, unsigned int, unsigned int, int>(&Layout::add), &Layout::remove,
        &Layout::childFigures, &Layout::childFigureCount, &Layout::getConstraint, &Layout::setConstraint,
        &Layout::getPreferredSize, &Layout::getMinimumSize, &Layout::expandingDirections,
        &Layout::setExpandingDirections, &Layout::findDescendantFigures, &Layout::findDescendantAtExcluding,
        &Layout::isRelativeLayout, &Layout::render, &Layout::layout, &Layout::invalidate, &Layout::addListener,
        &Layout::removeListener, &OpenLayout::calculatePreferredSize, &OpenLayout::calculateMinimumSize,
        &OpenLayout::performLayout, &OpenLayout::isClipping, &OpenLayout::applyConstraint)
                            << afterObject;
    QTest::newRow("XYLayout") << slotsOf(&XYLayout::getOrigin, &XYLayout::childMoved) << afterObject + 24;
    QTest::newRow("LayeredPane") << slotsOf(&LayeredPane::addLayer, &LayeredPane::addLayerAbove,
                                            &LayeredPane::addLayerBeneath, &LayeredPane::getLayer,
                                            &LayeredPane::removeLayer)
                                 << slotOf(&OpenFigure::primTranslate) + 1 + static_cast<int>(figureSlots.size());
    QTest::newRow("IFreeformFigure") << slotsOf(&IFreeformFigure::getFreeformExtent,
                                                &IFreeformFigure::setFreeformBounds, &IFreeformFigure::extentChanged)
                                     << afterDestructor;
    QTest::newRow("FreeformLayeredPane") << slotsOf(&OpenPane::drawMainGrid, &OpenPane::drawSubGrid)
                                         << slotOf(&LayeredPane::removeLayer) + 1;
    QTest::newRow("IFigureViewer") << slotsOf(
        &IFigureViewer::getUpdateManager, &IFigureViewer::setUpdateManager, &IFigureViewer::getViewport,
        &IFigureViewer::updateContentRect, &IFigureViewer::elasticBand, &IFigureViewer::toGlobal,
        &IFigureViewer::fromGlobal) << afterDestructor;
    QTest::newRow("IViewport") << slotsOf(
        &IViewport::getContent, &IViewport::getPageStep, &IViewport::getViewLocation, &IViewport::getViewRect,
        &IViewport::setContent, &IViewport::setViewLocation, &IViewport::update, &IViewport::repaint,
        &IViewport::resizeViewport, &IViewport::setXYMargins, qOverload<const QPointF &>(&IViewport::toContent),
        qOverload<const QPoint &>(&IViewport::toContent), qOverload<const QRectF &>(&IViewport::toContent),
        qOverload<const QRect &>(&IViewport::toContent), qOverload<const QPointF &>(&IViewport::fromContent),
        qOverload<const QPoint &>(&IViewport::fromContent), qOverload<const QRectF &>(&IViewport::fromContent),
        qOverload<const QRect &>(&IViewport::fromContent))
                               << afterDestructor;
    QTest::newRow("FreeformWidget") << slotsOf(
        &FreeformWidget::getUpdateManager, &FreeformWidget::setUpdateManager, &FreeformWidget::elasticBand,
        &FreeformWidget::print, &FreeformWidget::printToPixmap, qOverload<const QPointF &>(&FreeformWidget::toLogical),
        qOverload<const QRectF &>(&FreeformWidget::toLogical), qOverload<const QPointF &>(&FreeformWidget::fromLogical),
        qOverload<const QRectF &>(&FreeformWidget::fromLogical), &FreeformWidget::viewOptions)
                                    << -1;
    QTest::newRow("IConnectionAnchor") << slotsOf(
        &IConnectionAnchor::addAnchorListener, &IConnectionAnchor::getLocation, &IConnectionAnchor::getOwner,
        &IConnectionAnchor::getReferencePoint, &IConnectionAnchor::removeAnchorListener)
                                       << afterDestructor;
    // Before it: two operations of ConnectionAnchorBase and five of AbstractConnectionAnchor.
    QTest::newRow("ChopboxAnchor") << slotsOf(&OpenChopboxAnchor::getBox, &ChopboxAnchor::getLocation)
                                   << afterObject + 7;
    QTest::newRow("IAnchorListener") << slotsOf(&IAnchorListener::anchorMoved) << afterDestructor;
    QTest::newRow("ILocator") << slotsOf(&ILocator::relocate) << afterDestructor;
    QTest::newRow("PolylineConnection") << decorationSlots<PolylineConnection>() << -1;
    QTest::newRow("PolylineFConnection") << decorationSlots<PolylineFConnection>() << -1;
    QTest::newRow("IConnectionRouter") << slotsOf(&IConnectionRouter::getConstraint, &IConnectionRouter::invalidate,
                                                  &IConnectionRouter::remove, &IConnectionRouter::route,
                                                  &IConnectionRouter::routeF, &IConnectionRouter::doRoute,
                                                  &IConnectionRouter::doRouteF, &IConnectionRouter::setConstraint)
                                       << afterDestructor;
    QTest::newRow("AbstractRouter") << slotsOf(&OpenBendpointRouter::getEndPoint, &OpenBendpointRouter::getStartPoint)
                                    << afterObject;
    QTest::newRow("IBendpoint") << slotsOf(&IBendpoint::getLocation, &IBendpoint::setLocation) << afterDestructor;
    QTest::newRow("BendpointConnectionRouter")
        << slotsOf(&OpenBendpointRouter::getBendpointLocation, &OpenBendpointRouter::getBendpointList) << -1;
    QTest::newRow("ManhattanConnectionRouter")
        << slotsOf(&OpenManhattanRouter::getDirection, &OpenManhattanRouter::getEndDirection,
                   &OpenManhattanRouter::getStartDirection, &OpenManhattanRouter::rowUsable,
                   &OpenManhattanRouter::colUsable)
        << -1;
}

void tst_VtableOrder::order()
{
    QFETCH(QList<int>, numbers);
    QFETCH(int, first);
    QVERIFY(!numbers.contains(-1));
    QCOMPARE(numbers, consecutive(first < 0 ? numbers.constFirst() : first, numbers.size()));
}

PICTEL_TEST_MAIN(tst_VtableOrder)
#include "tst_vtableorder.moc"
