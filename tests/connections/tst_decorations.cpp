#include "support/DisplayedRoot.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"
#include "support/UpdateOrderProbe.h"

#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/Transform.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/shapes/Decoration.h>
#include <vtlpictel/shapes/PolygonDecoration.h>
#include <vtlpictel/shapes/PolylineDecoration.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

class OpenDecoration : public Decoration
{
public:
    using Decoration::Decoration;
    using Decoration::getPainterPath;
    using Decoration::isValid;
    using Decoration::regeneratePath;
    using Decoration::setValid;
};

class OpenPolygonDecoration : public PolygonDecoration
{
public:
    using PolygonDecoration::getTransform;
    using PolygonDecoration::PolygonDecoration;
};

class OpenPolylineDecoration : public PolylineDecoration
{
public:
    using PolylineDecoration::getLocation;
    using PolylineDecoration::getTransform;
    using PolylineDecoration::PolylineDecoration;

    int recalculations = 0;

protected:
    void recalculatePoints() override
    {
        ++recalculations;
        PolylineDecoration::recalculatePoints();
    }
};

/// An owner that remembers whether its listener was displayed when it came and when it went.
class ListeningOwner : public Figure
{
public:
    QStringList calls;

    void addAncestorListener(IAncestorListener *listener) override
    {
        note("add", listener);
        Figure::addAncestorListener(listener);
    }
    void removeAncestorListener(IAncestorListener *listener) override
    {
        note("remove", listener);
        Figure::removeAncestorListener(listener);
    }

private:
    void note(const char *operation, IAncestorListener *listener)
    {
        const auto *figure = dynamic_cast<Figure *>(listener);
        const bool isShown = figure && figure->getFlag(FLAG_NOTIFIED);
        calls << QStringLiteral("%1 %2").arg(QLatin1String(operation), isShown ? "shown" : "not shown");
    }
};

/// Either kind of rotatable decoration, told apart by a data row.
struct Mark
{
    explicit Mark(bool isPolygon)
    {
        if (isPolygon)
            line = std::make_unique<OpenPolygonDecoration>();
        else
            line = std::make_unique<OpenPolylineDecoration>();
        decoration = qobject_cast<IRotatableDecoration *>(line.get());
    }

    template <typename Operation>
    void apply(Operation operation)
    {
        if (auto *polygon = qobject_cast<PolygonDecoration *>(line.get()))
            operation(polygon);
        else
            operation(qobject_cast<PolylineDecoration *>(line.get()));
    }

    QList<QPoint> points() const { return line->getLinePoints(); }

    std::unique_ptr<Polyline> line;
    IRotatableDecoration *decoration = nullptr;
};

void addBothKinds()
{
    QTest::addColumn<bool>("isPolygon");
    QTest::newRow("polygon") << true;
    QTest::newRow("polyline") << false;
}

} // namespace

class tst_Decorations : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void decorationStoresOwnerAndLocator();
    void constraintHoldsTheLocator();
    void decorationDrawsNothingItself();
    void addNotifyListensToTheOwner();
    void removeNotifyStopsListening();
    void decorationWithoutOwnerWarnsOnBothPaths();
    void movedOwnerRevalidatesAndRepaints();
    void newAndLostAncestorsChangeNothing();
    void validateAsksTheLocatorAndStaysInvalid();
    void validDecorationIsNotPlaced();
    void externallyManagedDecorationIsNotPlaced();
    void decorationWithoutLocatorIsNotPlaced();
    void ownerAndLocatorMayDieFirst();
    void decorationMayDieWhileListening();
    void newOwnerOfAShownDecorationIsNotListenedTo();
    void decorationListensWhileItIsShown();
    void movedOwnerRevalidatesBeforeItRepaints();

    void markStartsAsAnArrowHeadAtTheOrigin_data() { addBothKinds(); }
    void markStartsAsAnArrowHeadAtTheOrigin();
    void markIsFoundByInterface_data() { addBothKinds(); }
    void markIsFoundByInterface();
    void markFollowsLocationAndReference_data() { addBothKinds(); }
    void markFollowsLocationAndReference();
    void integerPointsServeLikeRealOnes_data() { addBothKinds(); }
    void integerPointsServeLikeRealOnes();
    void referenceAtTheLocationDoesNotTurn_data() { addBothKinds(); }
    void referenceAtTheLocationDoesNotTurn();
    void scaleRotationAndTemplateShapeTheMark_data() { addBothKinds(); }
    void scaleRotationAndTemplateShapeTheMark();
    void notANumberLeavesPointsInRange_data() { addBothKinds(); }
    void notANumberLeavesPointsInRange();
    void polygonDecorationIsFilledBlack();
    void polylineDecorationIsNotFilled();
    void polylineDecorationRecalculatesVirtually();
    void polylineDecorationRoundsItsLocation();
};

void tst_Decorations::decorationStoresOwnerAndLocator()
{
    Figure owner;
    ProbeLocator locator;
    Decoration decoration(&owner, &locator);
    QCOMPARE(decoration.getOwner(), &owner);
    QCOMPARE(decoration.getLocator(), &locator);
    QCOMPARE(decoration.isManagedExternally(), false);
    decoration.setOwner(nullptr);
    decoration.setLocator(nullptr);
    decoration.setManagedExternally(true);
    QCOMPARE(decoration.getOwner(), nullptr);
    QCOMPARE(decoration.getLocator(), nullptr);
    QCOMPARE(decoration.isManagedExternally(), true);
    QCOMPARE(Decoration().getOwner(), nullptr);
    QCOMPARE(Decoration().getLocator(), nullptr);
}

void tst_Decorations::constraintHoldsTheLocator()
{
    ProbeLocator locator;
    const Decoration decoration(nullptr, &locator);
    QCOMPARE(decoration.getConstraint().value<ILocator *>(), &locator);
}

void tst_Decorations::decorationDrawsNothingItself()
{
    OpenDecoration decoration;
    decoration.regeneratePath(QRectF(0, 0, 10, 10));
    QCOMPARE(decoration.getPainterPath().elementCount(), 0);
}

void tst_Decorations::addNotifyListensToTheOwner()
{
    Figure owner;
    Decoration decoration(&owner, nullptr);
    decoration.addNotify();
    QVERIFY(decoration.getFlag(Figure::FLAG_NOTIFIED));
    DisplayedRoot displayed;
    displayed.root.add(&owner);
    QSignalSpy moved(&owner, &Figure::ancestorMoved);
    displayed.root.setBounds(QRect(5, 5, 1000, 1000));
    QCOMPARE(moved.count(), 1);
}

void tst_Decorations::removeNotifyStopsListening()
{
    Figure owner;
    Decoration decoration(&owner, nullptr);
    decoration.addNotify();
    decoration.removeNotify();
    QVERIFY(!decoration.getFlag(Figure::FLAG_NOTIFIED));
    QSignalSpy moved(&owner, &Figure::ancestorMoved);
    owner.setBounds(QRect(1, 1, 5, 5));
    QCOMPARE(moved.count(), 0);
}

void tst_Decorations::decorationWithoutOwnerWarnsOnBothPaths()
{
    DisplayedRoot displayed;
    Decoration decoration;
    decoration.setBounds(QRect(0, 0, 5, 5));
    expectWarning("Decoration::addNotify(): no owner");
    displayed.root.add(&decoration);
    expectWarning("DecorationFigure::addNotify(): no owner");
    displayed.root.remove(&decoration);
}

void tst_Decorations::movedOwnerRevalidatesAndRepaints()
{
    DisplayedRoot displayed;
    Figure owner;
    displayed.root.add(&owner);
    OpenDecoration decoration(&owner, nullptr);
    displayed.root.add(&decoration);
    decoration.setBounds(QRect(30, 30, 5, 5));
    decoration.setValid(true);
    displayed.takeDirtyRects();
    owner.setBounds(QRect(1, 1, 5, 5));
    QCOMPARE(decoration.isValid(), false);
    QVERIFY(displayed.takeDirtyRects().contains(QRect(30, 30, 5, 5)));
}

void tst_Decorations::newAndLostAncestorsChangeNothing()
{
    DisplayedRoot displayed;
    OpenDecoration decoration;
    expectWarning("Decoration::addNotify(): no owner");
    displayed.root.add(&decoration);
    decoration.setBounds(QRect(30, 30, 5, 5));
    decoration.setValid(true);
    displayed.takeDirtyRects();
    decoration.ancestorAdded(&displayed.root);
    decoration.ancestorRemoved(&displayed.root);
    QCOMPARE(decoration.isValid(), true);
    QCOMPARE(displayed.takeDirtyRects(), QList<QRect>());
    expectWarning("DecorationFigure::addNotify(): no owner");
    displayed.root.remove(&decoration);
}

void tst_Decorations::validateAsksTheLocatorAndStaysInvalid()
{
    ProbeLocator locator(QRect(3, 4, 5, 6));
    OpenDecoration decoration(nullptr, &locator);
    decoration.validate();
    QCOMPARE(decoration.getBounds(), QRect(3, 4, 5, 6));
    QCOMPARE(decoration.isValid(), false);
    decoration.validate();
    QCOMPARE(locator.calls, 2);
    QCOMPARE(locator.lastTarget.data(), &decoration);
}

void tst_Decorations::validDecorationIsNotPlaced()
{
    ProbeLocator locator;
    OpenDecoration decoration(nullptr, &locator);
    decoration.setValid(true);
    decoration.validate();
    QCOMPARE(locator.calls, 0);
}

void tst_Decorations::externallyManagedDecorationIsNotPlaced()
{
    ProbeLocator locator;
    Decoration decoration(nullptr, &locator);
    decoration.setManagedExternally(true);
    decoration.validate();
    QCOMPARE(locator.calls, 0);
}

void tst_Decorations::decorationWithoutLocatorIsNotPlaced()
{
    Decoration decoration;
    decoration.validate();
    QCOMPARE(decoration.getBounds(), QRect());
}

void tst_Decorations::ownerAndLocatorMayDieFirst()
{
    auto owner = std::make_unique<Figure>();
    auto locator = std::make_unique<ProbeLocator>();
    Decoration decoration(owner.get(), locator.get());
    decoration.addNotify();
    owner.reset();
    locator.reset();
    QCOMPARE(decoration.getOwner(), nullptr);
    QCOMPARE(decoration.getLocator(), nullptr);
    decoration.validate();
    expectWarning("DecorationFigure::addNotify(): no owner");
    decoration.removeNotify();
}

void tst_Decorations::decorationMayDieWhileListening()
{
    Figure owner;
    auto decoration = std::make_unique<Decoration>(&owner, nullptr);
    decoration->addNotify();
    decoration.reset();
    owner.setBounds(QRect(1, 2, 3, 4));
    QCOMPARE(owner.getBounds(), QRect(1, 2, 3, 4));
}

void tst_Decorations::newOwnerOfAShownDecorationIsNotListenedTo()
{
    DisplayedRoot displayed;
    Figure first;
    Figure second;
    displayed.root.add(&first);
    displayed.root.add(&second);
    OpenDecoration decoration(&first, nullptr);
    displayed.root.add(&decoration);
    decoration.setOwner(&second);
    decoration.setValid(true);
    second.setBounds(QRect(1, 1, 5, 5));
    QCOMPARE(decoration.isValid(), true);
    first.setBounds(QRect(1, 1, 5, 5));
    QCOMPARE(decoration.isValid(), false);
}

void tst_Decorations::decorationListensWhileItIsShown()
{
    ListeningOwner owner;
    Decoration decoration(&owner, nullptr);
    decoration.addNotify();
    decoration.removeNotify();
    QCOMPARE(owner.calls, QStringList({"add shown", "remove shown"}));
    QVERIFY(!decoration.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Decorations::movedOwnerRevalidatesBeforeItRepaints()
{
    CallLog log;
    UpdateOrderProbe<Decoration> decoration(log);
    decoration.ancestorMoved(nullptr);
    QCOMPARE(log.calls(), QStringList({"figure.revalidate", "figure.repaint"}));
}

void tst_Decorations::markStartsAsAnArrowHeadAtTheOrigin()
{
    QFETCH(bool, isPolygon);
    const Mark mark(isPolygon);
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(-7, 3), QPoint(0, 0), QPoint(-7, -3)}));
}

void tst_Decorations::markIsFoundByInterface()
{
    QFETCH(bool, isPolygon);
    const Mark mark(isPolygon);
    QVERIFY(mark.decoration);
    QCOMPARE(mark.line->qt_metacast("IRotatableDecoration.Pictel.Vantrel.vantrel.org"),
             static_cast<void *>(mark.decoration));
    QCOMPARE(dynamic_cast<Figure *>(mark.decoration), mark.line.get());
}

void tst_Decorations::markFollowsLocationAndReference()
{
    QFETCH(bool, isPolygon);
    const Mark mark(isPolygon);
    mark.decoration->setLocation(QPointF(100, 50));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(93, 53), QPoint(100, 50), QPoint(93, 47)}));
    mark.decoration->setReferencePoint(QPointF(0, 50));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(93, 53), QPoint(100, 50), QPoint(93, 47)}));
    mark.decoration->setReferencePoint(QPointF(100, 90));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(103, 57), QPoint(100, 50), QPoint(97, 57)}));
    mark.decoration->setReferencePoint(QPointF(300, 50));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(107, 47), QPoint(100, 50), QPoint(107, 53)}));
}

void tst_Decorations::integerPointsServeLikeRealOnes()
{
    QFETCH(bool, isPolygon);
    const Mark mark(isPolygon);
    mark.decoration->setLocation(QPoint(10, 20));
    mark.decoration->setReferencePoint(QPoint(10, 0));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(7, 13), QPoint(10, 20), QPoint(13, 13)}));
}

void tst_Decorations::referenceAtTheLocationDoesNotTurn()
{
    QFETCH(bool, isPolygon);
    const Mark mark(isPolygon);
    mark.decoration->setLocation(QPointF(10, 10));
    mark.decoration->setReferencePoint(QPointF(10, 90));
    mark.decoration->setReferencePoint(QPointF(10, 10));
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(3, 13), QPoint(10, 10), QPoint(3, 7)}));
}

void tst_Decorations::scaleRotationAndTemplateShapeTheMark()
{
    QFETCH(bool, isPolygon);
    Mark mark(isPolygon);
    mark.apply([](auto *decoration) { decoration->setScale(10.0, 2.0); });
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(-10, 2), QPoint(0, 0), QPoint(-10, -2)}));
    mark.apply([](auto *decoration) { decoration->setRotation(1.5707963267948966); });
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(-2, -10), QPoint(0, 0), QPoint(2, -10)}));
    mark.apply([](auto *decoration) { decoration->setTemplate({QPoint(1, 0), QPoint(0, 1)}); });
    QCOMPARE(mark.points(), QList<QPoint>({QPoint(0, 10), QPoint(-2, 0)}));
}

void tst_Decorations::notANumberLeavesPointsInRange()
{
    QFETCH(bool, isPolygon);
    Mark mark(isPolygon);
    mark.decoration->setLocation(QPointF(qQNaN(), qInf()));
    QCOMPARE(mark.points().at(1), QPoint(0, std::numeric_limits<int>::max()));
    mark.apply([](auto *decoration) { decoration->setRotation(qQNaN()); });
    QCOMPARE(mark.points().at(1), QPoint(0, 0));
}

void tst_Decorations::polygonDecorationIsFilledBlack()
{
    const OpenPolygonDecoration decoration;
    QCOMPARE(decoration.getFill(), true);
    QCOMPARE(decoration.getEnabledBGColor(), QColor(Qt::black));
    QCOMPARE(decoration.getDisabledBGColor(), QColor(Qt::black));
    QCOMPARE(decoration.getTransform().getTransformed(QPoint(1, 1)), QPoint(7, 3));
}

void tst_Decorations::polylineDecorationIsNotFilled()
{
    const OpenPolylineDecoration decoration;
    QCOMPARE(decoration.getFill(), false);
    QCOMPARE(decoration.getEnabledBGColor(), QColor());
    QCOMPARE(decoration.getTransform().getTransformed(QPoint(1, 1)), QPoint(7, 3));
}

void tst_Decorations::polylineDecorationRecalculatesVirtually()
{
    OpenPolylineDecoration decoration;
    decoration.setLocation(QPoint(1, 1));
    decoration.setReferencePoint(QPoint(1, 1));
    decoration.setRotation(0.0);
    decoration.setScale(1.0, 1.0);
    decoration.setTemplate({});
    QCOMPARE(decoration.recalculations, 5);
}

void tst_Decorations::polylineDecorationRoundsItsLocation()
{
    OpenPolylineDecoration decoration;
    QCOMPARE(decoration.getLocation(), QPoint(0, 0));
    decoration.setLocation(QPointF(2.5, -2.5));
    QCOMPARE(decoration.getLocation(), QPoint(3, -3));
}

PICTEL_TEST_MAIN(tst_Decorations)
#include "tst_decorations.moc"
