#include "figure/AncestorProbes.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/AncestorHelper.h>

#include <QSignalSpy>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

/// Opens what a helper keeps protected and logs the walks that it makes.
class OpenHelper : public AncestorHelper
{
public:
    using AncestorHelper::AncestorHelper;
    using AncestorHelper::cleanup;

    void addAncestors(Figure *figure) override
    {
        walks << QStringLiteral("add ") + figure->objectName();
        AncestorHelper::addAncestors(figure);
    }
    void removeAncestors(Figure *figure) override
    {
        walks << QStringLiteral("remove ") + (figure ? figure->objectName() : QStringLiteral("null"));
        AncestorHelper::removeAncestors(figure);
    }

    QStringList walks;
};

QVariant variantOf(Figure *figure)
{
    return QVariant::fromValue(figure);
}

} // namespace

class tst_AncestorHelper : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAPropertyChangeListener();
    void belongsToItsParent();
    void observesTheWholeChainOnce();

    void moveOfAnyFigureInTheChainIsAnnounced();
    void resizeIsAnnouncedAsAMove();
    void everyListenerHears();
    void figureEmitsWhatItsHelperEmits();
    void nullMoveIsIgnored();

    void newParentIsFollowed();
    void newParentOfAnAncestorIsFollowed();
    void lostParentIsAnnouncedAsRemovedOnly();
    void gainedParentIsAnnouncedAsAddedOnly();
    void sameParentAgainIsRemovedAndAdded();
    void otherPropertiesAreIgnored();
    void valuesThatHoldNoFigureAreIgnored();
    void unobservedOldParentIsAnnouncedAllTheSame();
    void newParentIsObservedOnTheWordOfTheCaller();
    void walksGoThroughTheVirtualOperations();

    void secondListenerSharesTheHelper();
    void helperLivesUntilTheLastListenerLeaves();
    void deletedHelperLeavesNothingBehind();
    void cleanupEndsAllObservation();
    void helperWithoutFigureObservesNothing();

    void nullDestroyedObjectIsIgnored();
    void anyDestroyedObjectEndsAllObservation();
    void destroyedAncestorEndsAllObservation_data();
    void destroyedAncestorEndsAllObservation();
    void ancestorDestroyedByItsOwnerEndsAllObservation();
    void ancestorThatOwnsTheFigureTakesItAlong();
    void helperMayOutliveItsFigure();
    void brokenChainIsNotBuiltAgain();
    void deletedListenerIsForgotten();
};

void tst_AncestorHelper::isAPropertyChangeListener()
{
    AncestorHelper helper(nullptr);
    QCOMPARE(qobject_cast<IPropertyChangeListener *>(&helper), static_cast<IPropertyChangeListener *>(&helper));
}

void tst_AncestorHelper::belongsToItsParent()
{
    QObject parent;
    const auto *helper = new AncestorHelper(nullptr, &parent);
    QCOMPARE(helper->parent(), &parent);
}

void tst_AncestorHelper::observesTheWholeChainOnce()
{
    Families families;
    const AncestorHelper helper(&families.figure);
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.parent.observers(), observed);
    QCOMPARE(families.grandparent.observers(), observed);
    QCOMPARE(families.newParent.observers(), unobserved);
}

void tst_AncestorHelper::moveOfAnyFigureInTheChainIsAnnounced()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved figure")}));
    families.parent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent")}));
    families.grandparent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved grandparent")}));
    families.newParent.move();
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorHelper::resizeIsAnnouncedAsAMove()
{
    Families families;
    AncestorListener listener;
    families.parent.setBounds(QRect(0, 0, 10, 10));
    families.figure.addAncestorListener(&listener);
    families.parent.setBounds(QRect(0, 0, 20, 10));
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent")}));
}

void tst_AncestorHelper::everyListenerHears()
{
    Families families;
    AncestorListener first;
    AncestorListener second;
    families.figure.addAncestorListener(&first);
    families.figure.addAncestorListener(&second);
    families.grandparent.move();
    QCOMPARE(first.take(), QStringList({QStringLiteral("moved grandparent")}));
    QCOMPARE(second.take(), QStringList({QStringLiteral("moved grandparent")}));
}

void tst_AncestorHelper::figureEmitsWhatItsHelperEmits()
{
    Families families;
    AncestorHelper helper(&families.figure);
    QSignalSpy added(&families.figure, SIGNAL(ancestorAdded(Figure *)));
    QSignalSpy moved(&families.figure, SIGNAL(ancestorMoved(Figure *)));
    QSignalSpy removed(&families.figure, SIGNAL(ancestorRemoved(Figure *)));
    Q_EMIT helper.ancestorAdded(&families.parent);
    Q_EMIT helper.ancestorMoved(&families.grandparent);
    Q_EMIT helper.ancestorRemoved(&families.newParent);
    QCOMPARE(added, QList<QVariantList>({{variantOf(&families.parent)}}));
    QCOMPARE(moved, QList<QVariantList>({{variantOf(&families.grandparent)}}));
    QCOMPARE(removed, QList<QVariantList>({{variantOf(&families.newParent)}}));
}

void tst_AncestorHelper::nullMoveIsIgnored()
{
    Families families;
    AncestorHelper helper(&families.figure);
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);
    helper.figureMoved(nullptr);
    QCOMPARE(moved.count(), 0);
    helper.figureMoved(&families.newParent);
    QCOMPARE(moved, QList<QVariantList>({{variantOf(&families.newParent)}}));
}

void tst_AncestorHelper::newParentIsFollowed()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(&families.newParent);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed parent"), QStringLiteral("added new parent")}));
    families.parent.move();
    families.grandparent.move();
    QCOMPARE(listener.take(), QStringList());
    families.newParent.move();
    families.newGrandparent.move();
    families.figure.move();
    QCOMPARE(listener.take(),
             QStringList({QStringLiteral("moved new parent"), QStringLiteral("moved new grandparent"),
                          QStringLiteral("moved figure")}));
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
}

void tst_AncestorHelper::newParentOfAnAncestorIsFollowed()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.parent.setParentFigure(&families.newParent);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed grandparent"), QStringLiteral("added new parent")}));
    QCOMPARE(families.grandparent.observers(), unobserved);
    QCOMPARE(families.parent.observers(), observed);
    QCOMPARE(families.newParent.observers(), observed);
    QCOMPARE(families.newGrandparent.observers(), observed);
}

void tst_AncestorHelper::lostParentIsAnnouncedAsRemovedOnly()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(nullptr);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed parent")}));
    QCOMPARE(families.parent.observers(), unobserved);
    families.figure.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved figure")}));
}

void tst_AncestorHelper::gainedParentIsAnnouncedAsAddedOnly()
{
    Families families;
    AncestorListener listener;
    families.grandparent.addAncestorListener(&listener);
    families.grandparent.setParentFigure(&families.newParent);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("added new parent")}));
    QCOMPARE(families.newGrandparent.observers(), observed);
}

void tst_AncestorHelper::sameParentAgainIsRemovedAndAdded()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(&families.parent);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed parent"), QStringLiteral("added parent")}));
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.parent.observers(), observed);
    QCOMPARE(families.grandparent.observers(), observed);
}

void tst_AncestorHelper::otherPropertiesAreIgnored()
{
    Families families;
    OpenHelper helper(&families.figure);
    QSignalSpy added(&helper, &AncestorHelper::ancestorAdded);
    QSignalSpy removed(&helper, &AncestorHelper::ancestorRemoved);
    helper.propertyChanged(QStringLiteral("Parent"), variantOf(&families.parent), variantOf(&families.newParent));
    QCOMPARE(added.count(), 0);
    QCOMPARE(removed.count(), 0);
    QCOMPARE(helper.walks, QStringList());
}

void tst_AncestorHelper::valuesThatHoldNoFigureAreIgnored()
{
    Families families;
    OpenHelper helper(&families.figure);
    QSignalSpy added(&helper, &AncestorHelper::ancestorAdded);
    QSignalSpy removed(&helper, &AncestorHelper::ancestorRemoved);
    helper.propertyChanged(QStringLiteral("parent"), QVariant(), QVariant(QStringLiteral("text")));
    helper.propertyChanged(QStringLiteral("parent"), QVariant(1), variantOf(nullptr));
    QCOMPARE(added.count(), 0);
    QCOMPARE(removed.count(), 0);
    QCOMPARE(helper.walks, QStringList());
}

void tst_AncestorHelper::unobservedOldParentIsAnnouncedAllTheSame()
{
    Families families;
    AncestorHelper helper(&families.figure);
    QSignalSpy removed(&helper, &AncestorHelper::ancestorRemoved);
    helper.propertyChanged(QStringLiteral("parent"), variantOf(&families.newParent), QVariant());
    QCOMPARE(removed, QList<QVariantList>({{variantOf(&families.newParent)}}));
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.grandparent.observers(), observed);
}

void tst_AncestorHelper::newParentIsObservedOnTheWordOfTheCaller()
{
    Families families;
    AncestorHelper helper(&families.figure);
    helper.propertyChanged(QStringLiteral("parent"), QVariant(), variantOf(&families.newParent));
    QCOMPARE(families.newParent.observers(), observed);
    QCOMPARE(families.newGrandparent.observers(), observed);
    QCOMPARE(families.parent.observers(), observed);
}

void tst_AncestorHelper::walksGoThroughTheVirtualOperations()
{
    Families families;
    OpenHelper helper(&families.figure);
    families.figure.setParentFigure(&families.newParent);
    helper.cleanup();
    QCOMPARE(helper.walks,
             QStringList(
                 {QStringLiteral("remove parent"), QStringLiteral("add new parent"), QStringLiteral("remove figure")}));
}

void tst_AncestorHelper::secondListenerSharesTheHelper()
{
    Families families;
    AncestorListener first;
    AncestorListener second;
    families.figure.addAncestorListener(&first);
    families.figure.addAncestorListener(&second);
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.grandparent.observers(), observed);
}

void tst_AncestorHelper::helperLivesUntilTheLastListenerLeaves()
{
    Families families;
    AncestorListener first;
    AncestorListener second;
    families.figure.addAncestorListener(&first);
    families.figure.addAncestorListener(&second);
    families.figure.removeAncestorListener(&first);
    families.grandparent.move();
    QCOMPARE(first.take(), QStringList());
    QCOMPARE(second.take(), QStringList({QStringLiteral("moved grandparent")}));
    families.figure.removeAncestorListener(&second);
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
}

void tst_AncestorHelper::deletedHelperLeavesNothingBehind()
{
    Families families;
    {
        const AncestorHelper helper(&families.figure);
    }
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
}

void tst_AncestorHelper::cleanupEndsAllObservation()
{
    Families families;
    OpenHelper helper(&families.figure);
    helper.cleanup();
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
    helper.cleanup();
    QCOMPARE(helper.walks, QStringList({QStringLiteral("remove figure")}));
}

void tst_AncestorHelper::helperWithoutFigureObservesNothing()
{
    Families families;
    AncestorHelper helper(nullptr);
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);
    families.figure.move();
    QCOMPARE(moved.count(), 0);
}

void tst_AncestorHelper::nullDestroyedObjectIsIgnored()
{
    Families families;
    AncestorHelper helper(&families.figure);
    helper.ancestorDestroyed(nullptr);
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.grandparent.observers(), observed);
}

void tst_AncestorHelper::anyDestroyedObjectEndsAllObservation()
{
    Families families;
    QObject object;
    AncestorHelper helper(&families.figure);
    helper.ancestorDestroyed(&object);
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
}

void tst_AncestorHelper::destroyedAncestorEndsAllObservation_data()
{
    QTest::addColumn<bool>("isParent");
    QTest::newRow("parent") << true;
    QTest::newRow("grandparent") << false;
}

void tst_AncestorHelper::destroyedAncestorEndsAllObservation()
{
    QFETCH(const bool, isParent);
    ObservedFigure figure(QStringLiteral("figure"));
    auto parent = std::make_unique<ObservedFigure>(QStringLiteral("parent"));
    auto grandparent = std::make_unique<ObservedFigure>(QStringLiteral("grandparent"));
    figure.setParentFigure(parent.get());
    parent->setParentFigure(grandparent.get());
    AncestorListener listener;
    figure.addAncestorListener(&listener);

    (isParent ? parent : grandparent).reset();
    const ObservedFigure &survivor = isParent ? *grandparent : *parent;
    QCOMPARE(listener.take(), QStringList());
    QCOMPARE(figure.observers(), unobserved);
    QCOMPARE(survivor.observers(), unobserved);
    figure.move();
    figure.setParentFigure(nullptr);
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorHelper::ancestorDestroyedByItsOwnerEndsAllObservation()
{
    ObservedFigure grandparent(QStringLiteral("grandparent"));
    ObservedFigure figure(QStringLiteral("figure"));
    auto owner = std::make_unique<QObject>();
    auto *parent = new ObservedFigure(QStringLiteral("parent"), owner.get());
    figure.setParentFigure(parent);
    parent->setParentFigure(&grandparent);
    AncestorListener listener;
    figure.addAncestorListener(&listener);

    owner.reset();
    QCOMPARE(figure.observers(), unobserved);
    QCOMPARE(grandparent.observers(), unobserved);
    grandparent.move();
    figure.move();
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorHelper::ancestorThatOwnsTheFigureTakesItAlong()
{
    ObservedFigure grandparent(QStringLiteral("grandparent"));
    AncestorListener listener;
    auto parent = std::make_unique<ObservedFigure>(QStringLiteral("parent"));
    auto *figure = new ObservedFigure(QStringLiteral("figure"), parent.get());
    figure->setParentFigure(parent.get());
    parent->setParentFigure(&grandparent);
    figure->addAncestorListener(&listener);
    parent.reset();
    QCOMPARE(grandparent.observers(), unobserved);
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorHelper::helperMayOutliveItsFigure()
{
    Families families;
    auto figure = std::make_unique<ObservedFigure>(QStringLiteral("figure"));
    figure->setParentFigure(&families.parent);
    AncestorHelper helper(figure.get());
    QSignalSpy moved(&helper, &AncestorHelper::ancestorMoved);
    figure.reset();
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
    families.parent.move();
    QCOMPARE(moved.count(), 0);
}

void tst_AncestorHelper::brokenChainIsNotBuiltAgain()
{
    Families families;
    auto parent = std::make_unique<ObservedFigure>(QStringLiteral("short-lived"));
    families.figure.setParentFigure(parent.get());
    AncestorListener first;
    AncestorListener second;
    families.figure.addAncestorListener(&first);
    parent.reset();
    families.figure.addAncestorListener(&second);
    families.figure.setParentFigure(&families.newParent);
    families.newParent.move();
    QCOMPARE(first.take(), QStringList());
    QCOMPARE(second.take(), QStringList());
    QCOMPARE(families.newParent.observers(), unobserved);
}

void tst_AncestorHelper::deletedListenerIsForgotten()
{
    Families families;
    auto doomed = std::make_unique<AncestorListener>();
    AncestorListener listener;
    families.figure.addAncestorListener(doomed.get());
    families.figure.addAncestorListener(&listener);
    doomed.reset();
    families.parent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent")}));
}

PICTEL_TEST_MAIN(tst_AncestorHelper)
#include "tst_ancestorhelper.moc"
