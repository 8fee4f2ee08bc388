#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"
#include "support/ViewerStub.h"

#include <vtlpictel/figure/SimpleBorder.h>
#include <vtlpictel/figure/UpdateManager.h>

#include <QMetaMethod>
#include <QSignalSpy>

#include <deque>
#include <functional>
#include <memory>
#include <numeric>

using namespace Vantrel::Pictel;

namespace {

/// A figure that does something when it is validated.
class ActingFigure : public Figure
{
public:
    explicit ActingFigure(std::function<void()> act)
        : m_act(std::move(act))
    { }

    void validate() override
    {
        // Kept apart from the figure, which the action may delete.
        const std::function<void()> act = m_act;
        act();
    }

private:
    std::function<void()> m_act;
};

/// A viewer that is no QObject.
class PlainViewer : public IFigureViewer
{
public:
    UpdateManager *getUpdateManager() override { return nullptr; }
    void setUpdateManager(UpdateManager *) override { }
    IViewport *getViewport() override { return nullptr; }
    void updateContentRect(const QRect &rect) override { dirtyRects << rect; }
    QRect &elasticBand() override { return m_elasticBand; }
    QPoint toGlobal(const QPoint &point) override { return point; }
    QPoint fromGlobal(const QPoint &point) override { return point; }

    QList<QRect> dirtyRects;

private:
    QRect m_elasticBand;
};

/// A manager bound to a viewer.
struct Shown
{
    Shown() { manager.setViewer(&viewer); }

    ViewerStub viewer;
    UpdateManager manager;
};

} // namespace

class tst_UpdateManager : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAnUpdateManagerInterface();
    void belongsToItsParent();
    void hasNoViewerAtFirst();
    void storesItsViewer();

    void withoutViewerInvalidFiguresAreRefusedWithAWarning();
    void withoutViewerDirtyRegionsAreRefusedWithAWarning();
    void withoutViewerUpdatesAreRefusedWithAWarning();
    void withoutViewerTheMissingViewerIsTheComplaintAboutANullFigure();
    void nullFigureIsRefusedWithAWarning();
    void dirtyRegionOfNoFigureIsIgnored();

    void absoluteDirtyRegionReachesTheViewerUnchanged();
    void dirtyRegionIsShiftedByTheClientOriginsOfAllAncestors();
    void dirtyRegionReachesAViewerThatIsNoObject();

    void figuresAreValidatedInTheOrderOfRegistration();
    void figureIsRegisteredOnce();
    void registeringRequestsNoRepaint();
    void validatedFiguresAreForgotten();
    void figureCanBeRegisteredAgainAfterTheUpdate();
    void validationIsAnnouncedBeforeTheFirstFigure();
    void nothingIsAnnouncedWithoutInvalidFigures();
    void announcementCarriesTheViewer();
    void announcementNamesItsParameter();
    void figureRegisteredByTheAnnouncementIsValidated();
    void figureRegisteredDuringValidationIsDropped();
    void hundredThousandRegistrationsKeepTheirOrder();

    void deletedFigureIsForgotten();
    void deletedFigureLeavesTheOthersInOrder();
    void figureDeletedByTheAnnouncementIsForgotten();
    void figureDeletedDuringValidationIsForgotten();
    void figureMayDeleteItselfDuringValidation();
    void deletedFigureLeavesEveryManager();
    void managersComeAndGoInAnyOrder();
    void managerMayBeDeletedByTheAnnouncement();
    void managerMayBeDeletedDuringValidation();
    void figuresOutliveTheirManager();
    void deletedViewerIsForgotten();
    void viewerMayBeReplacedAfterItsDeath();
    void updateWithinTheAnnouncementIsIgnored();
    void updateWithinValidationIsIgnored();
};

void tst_UpdateManager::isAnUpdateManagerInterface()
{
    UpdateManager manager;
    QCOMPARE(qobject_cast<IUpdateManager *>(&manager), static_cast<IUpdateManager *>(&manager));
}

void tst_UpdateManager::belongsToItsParent()
{
    QObject parent;
    const auto *manager = new UpdateManager(&parent);
    QCOMPARE(manager->parent(), &parent);
}

void tst_UpdateManager::hasNoViewerAtFirst()
{
    QCOMPARE(UpdateManager().getViewer(), nullptr);
}

void tst_UpdateManager::storesItsViewer()
{
    ViewerStub viewer;
    UpdateManager manager;
    manager.setViewer(&viewer);
    QCOMPARE(manager.getViewer(), &viewer);
    manager.setViewer(nullptr);
    QCOMPARE(manager.getViewer(), nullptr);
}

void tst_UpdateManager::withoutViewerInvalidFiguresAreRefusedWithAWarning()
{
    CallLog log;
    ProbeFigure figure(QStringLiteral("figure"), &log);
    ViewerStub viewer;
    UpdateManager manager;
    expectWarning("UpdateManager::addInvalidFigure(): no managed widget");
    manager.addInvalidFigure(&figure);
    manager.setViewer(&viewer);
    manager.performUpdate();
    QCOMPARE(log.calls(), QStringList());
}

void tst_UpdateManager::withoutViewerDirtyRegionsAreRefusedWithAWarning()
{
    Figure figure;
    UpdateManager manager;
    expectWarning("UpdateManager::addDirtyRegion(): no managed widget");
    manager.addDirtyRegion(QRect(1, 2, 3, 4));
    expectWarning("UpdateManager::addDirtyRegion(): no managed widget");
    manager.addDirtyRegion(&figure, QRect(1, 2, 3, 4));
    expectWarning("UpdateManager::addDirtyRegion(): no managed widget");
    manager.addDirtyRegion(nullptr, QRect(1, 2, 3, 4));
}

void tst_UpdateManager::withoutViewerUpdatesAreRefusedWithAWarning()
{
    CallLog log;
    ProbeFigure figure(QStringLiteral("figure"), &log);
    Shown shown;
    shown.manager.addInvalidFigure(&figure);
    shown.manager.setViewer(nullptr);
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    expectWarning("UpdateManager::performUpdate(): no managed widget");
    shown.manager.performUpdate();
    QCOMPARE(log.calls(), QStringList());
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::withoutViewerTheMissingViewerIsTheComplaintAboutANullFigure()
{
    UpdateManager manager;
    expectWarning("UpdateManager::addInvalidFigure(): no managed widget");
    manager.addInvalidFigure(nullptr);
}

void tst_UpdateManager::nullFigureIsRefusedWithAWarning()
{
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    expectWarning("UpdateManager::addInvalidFigure(): null figure pointer");
    shown.manager.addInvalidFigure(nullptr);
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::dirtyRegionOfNoFigureIsIgnored()
{
    Shown shown;
    shown.manager.addDirtyRegion(nullptr, QRect(1, 2, 3, 4));
    QCOMPARE(shown.viewer.dirtyRects(), QList<QRect>());
}

void tst_UpdateManager::absoluteDirtyRegionReachesTheViewerUnchanged()
{
    Shown shown;
    shown.manager.addDirtyRegion(QRect(1, 2, 3, 4));
    shown.manager.addDirtyRegion(QRect());
    QCOMPARE(shown.viewer.dirtyRects(), QList<QRect>({QRect(1, 2, 3, 4), QRect()}));
}

void tst_UpdateManager::dirtyRegionIsShiftedByTheClientOriginsOfAllAncestors()
{
    SimpleBorder border(nullptr, 7);
    ProbeLayout rootLayout;
    ProbeLayout parentLayout;
    ProbeFigure root;
    ProbeFigure parent;
    ProbeFigure figure;
    root.setLayoutManager(&rootLayout);
    parent.setLayoutManager(&parentLayout);
    root.setBounds(QRect(100, 200, 500, 500));
    root.setMargin(3);
    parent.setBounds(QRect(10, 20, 100, 100));
    parent.setBorder(&border);
    figure.setBounds(QRect(1, 1, 10, 10));
    root.add(&parent);
    parent.add(&figure);

    Shown shown;
    shown.manager.addDirtyRegion(&figure, QRect(1, 2, 30, 40));
    QCOMPARE(shown.viewer.dirtyRects(), QList<QRect>({QRect(121, 232, 30, 40)}));
}

void tst_UpdateManager::dirtyRegionReachesAViewerThatIsNoObject()
{
    PlainViewer viewer;
    UpdateManager manager;
    manager.setViewer(&viewer);
    QCOMPARE(manager.getViewer(), &viewer);
    manager.addDirtyRegion(QRect(1, 2, 3, 4));
    QCOMPARE(viewer.dirtyRects, QList<QRect>({QRect(1, 2, 3, 4)}));
}

void tst_UpdateManager::figuresAreValidatedInTheOrderOfRegistration()
{
    CallLog log;
    ProbeFigure first(QStringLiteral("first"), &log);
    ProbeFigure second(QStringLiteral("second"), &log);
    ProbeFigure third(QStringLiteral("third"), &log);
    Shown shown;
    for (Figure *figure : {&second, &third, &first})
        shown.manager.addInvalidFigure(figure);
    shown.manager.performUpdate();
    QCOMPARE(log.only({QStringLiteral("validate")}),
             QStringList({QStringLiteral("second.validate"), QStringLiteral("third.validate"),
                          QStringLiteral("first.validate")}));
    QVERIFY(first.isValid());
}

void tst_UpdateManager::figureIsRegisteredOnce()
{
    CallLog log;
    ProbeFigure first(QStringLiteral("first"), &log);
    ProbeFigure second(QStringLiteral("second"), &log);
    Shown shown;
    for (Figure *figure : {&first, &second, &first})
        shown.manager.addInvalidFigure(figure);
    shown.manager.performUpdate();
    QCOMPARE(log.only({QStringLiteral("validate")}),
             QStringList({QStringLiteral("first.validate"), QStringLiteral("second.validate")}));
}

void tst_UpdateManager::registeringRequestsNoRepaint()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    Shown shown;
    shown.manager.addInvalidFigure(&figure);
    QCOMPARE(shown.viewer.dirtyRects(), QList<QRect>());
}

void tst_UpdateManager::validatedFiguresAreForgotten()
{
    int validations = 0;
    ActingFigure figure([&] { ++validations; });
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    shown.manager.addInvalidFigure(&figure);
    shown.manager.performUpdate();
    shown.manager.performUpdate();
    QCOMPARE(validations, 1);
    QCOMPARE(announced.count(), 1);
}

void tst_UpdateManager::figureCanBeRegisteredAgainAfterTheUpdate()
{
    int validations = 0;
    ActingFigure figure([&] { ++validations; });
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    for (int i = 0; i < 2; ++i) {
        shown.manager.addInvalidFigure(&figure);
        shown.manager.performUpdate();
    }
    QCOMPARE(validations, 2);
    QCOMPARE(announced.count(), 2);
}

void tst_UpdateManager::validationIsAnnouncedBeforeTheFirstFigure()
{
    QStringList calls;
    ActingFigure figure([&] { calls << QStringLiteral("validate"); });
    Shown shown;
    connect(&shown.manager, &UpdateManager::aboutToValidate, this, [&] { calls << QStringLiteral("announce"); });
    shown.manager.addInvalidFigure(&figure);
    QCOMPARE(calls, QStringList());
    shown.manager.performUpdate();
    QCOMPARE(calls, QStringList({QStringLiteral("announce"), QStringLiteral("validate")}));
}

void tst_UpdateManager::nothingIsAnnouncedWithoutInvalidFigures()
{
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::announcementCarriesTheViewer()
{
    Figure figure;
    Shown shown;
    QSignalSpy announced(&shown.manager, SIGNAL(aboutToValidate(IFigureViewer *)));
    shown.manager.addInvalidFigure(&figure);
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().value<IFigureViewer *>(), &shown.viewer);
}

void tst_UpdateManager::announcementNamesItsParameter()
{
    const QMetaObject &meta = UpdateManager::staticMetaObject;
    const QMetaMethod announcement = meta.method(meta.indexOfSignal("aboutToValidate(IFigureViewer*)"));
    QCOMPARE(announcement.parameterNames(), QList<QByteArray>({"viewer"}));
}

void tst_UpdateManager::figureRegisteredByTheAnnouncementIsValidated()
{
    int validations = 0;
    Figure registered;
    ActingFigure late([&] { ++validations; });
    Shown shown;
    connect(&shown.manager, &UpdateManager::aboutToValidate, this, [&] { shown.manager.addInvalidFigure(&late); });
    shown.manager.addInvalidFigure(&registered);
    shown.manager.performUpdate();
    QCOMPARE(validations, 1);
}

void tst_UpdateManager::figureRegisteredDuringValidationIsDropped()
{
    int validations = 0;
    Shown shown;
    ActingFigure late([&] { ++validations; });
    ActingFigure registered([&] { shown.manager.addInvalidFigure(&late); });
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    shown.manager.addInvalidFigure(&registered);
    shown.manager.performUpdate();
    shown.manager.performUpdate();
    QCOMPARE(validations, 0);
    QCOMPARE(announced.count(), 1);
}

void tst_UpdateManager::hundredThousandRegistrationsKeepTheirOrder()
{
    constexpr int count = 100000;
    QList<int> validated;
    std::deque<ActingFigure> figures;
    Shown shown;
    for (int i = 0; i < count; ++i)
        figures.emplace_back([&validated, i] { validated << i; });
    for (int pass = 0; pass < 2; ++pass) {
        for (ActingFigure &figure : figures)
            shown.manager.addInvalidFigure(&figure);
    }
    shown.manager.performUpdate();
    QList<int> expected(count);
    std::iota(expected.begin(), expected.end(), 0);
    QCOMPARE(validated, expected);
}

void tst_UpdateManager::deletedFigureIsForgotten()
{
    auto figure = std::make_unique<Figure>();
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    shown.manager.addInvalidFigure(figure.get());
    figure.reset();
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 0);
}

void tst_UpdateManager::deletedFigureLeavesTheOthersInOrder()
{
    QStringList calls;
    ActingFigure first([&] { calls << QStringLiteral("first"); });
    auto second = std::make_unique<Figure>();
    ActingFigure third([&] { calls << QStringLiteral("third"); });
    Shown shown;
    for (Figure *figure : QList<Figure *> {&first, second.get(), &third})
        shown.manager.addInvalidFigure(figure);
    second.reset();
    shown.manager.performUpdate();
    QCOMPARE(calls, QStringList({QStringLiteral("first"), QStringLiteral("third")}));
}

void tst_UpdateManager::figureDeletedByTheAnnouncementIsForgotten()
{
    int validations = 0;
    auto figure = std::make_unique<Figure>();
    ActingFigure other([&] { ++validations; });
    Shown shown;
    connect(&shown.manager, &UpdateManager::aboutToValidate, this, [&] { figure.reset(); });
    shown.manager.addInvalidFigure(figure.get());
    shown.manager.addInvalidFigure(&other);
    shown.manager.performUpdate();
    QCOMPARE(validations, 1);
}

void tst_UpdateManager::figureDeletedDuringValidationIsForgotten()
{
    int validations = 0;
    auto doomed = std::make_unique<Figure>();
    ActingFigure deleter([&] { doomed.reset(); });
    ActingFigure last([&] { ++validations; });
    Shown shown;
    for (Figure *figure : QList<Figure *> {&deleter, doomed.get(), &last})
        shown.manager.addInvalidFigure(figure);
    shown.manager.performUpdate();
    QCOMPARE(doomed.get(), nullptr);
    QCOMPARE(validations, 1);
}

void tst_UpdateManager::figureMayDeleteItselfDuringValidation()
{
    int validations = 0;
    std::unique_ptr<Figure> self;
    self = std::make_unique<ActingFigure>([&] { self.reset(); });
    ActingFigure last([&] { ++validations; });
    Shown shown;
    shown.manager.addInvalidFigure(self.get());
    shown.manager.addInvalidFigure(&last);
    shown.manager.performUpdate();
    QCOMPARE(self.get(), nullptr);
    QCOMPARE(validations, 1);
}

void tst_UpdateManager::deletedFigureLeavesEveryManager()
{
    auto figure = std::make_unique<Figure>();
    Shown first;
    Shown second;
    QSignalSpy announcedByFirst(&first.manager, &UpdateManager::aboutToValidate);
    QSignalSpy announcedBySecond(&second.manager, &UpdateManager::aboutToValidate);
    first.manager.addInvalidFigure(figure.get());
    second.manager.addInvalidFigure(figure.get());
    figure.reset();
    first.manager.performUpdate();
    second.manager.performUpdate();
    QCOMPARE(announcedByFirst.count(), 0);
    QCOMPARE(announcedBySecond.count(), 0);
}

void tst_UpdateManager::managersComeAndGoInAnyOrder()
{
    auto figure = std::make_unique<Figure>();
    auto first = std::make_unique<Shown>();
    auto second = std::make_unique<Shown>();
    auto third = std::make_unique<Shown>();
    second.reset();
    Shown fourth;
    third.reset();
    QSignalSpy announcedByFirst(&first->manager, &UpdateManager::aboutToValidate);
    QSignalSpy announcedByFourth(&fourth.manager, &UpdateManager::aboutToValidate);
    first->manager.addInvalidFigure(figure.get());
    fourth.manager.addInvalidFigure(figure.get());
    figure.reset();
    first->manager.performUpdate();
    fourth.manager.performUpdate();
    QCOMPARE(announcedByFirst.count(), 0);
    QCOMPARE(announcedByFourth.count(), 0);
}

void tst_UpdateManager::managerMayBeDeletedByTheAnnouncement()
{
    int validations = 0;
    ViewerStub viewer;
    auto manager = std::make_unique<UpdateManager>();
    manager->setViewer(&viewer);
    ActingFigure figure([&] { ++validations; });
    connect(manager.get(), &UpdateManager::aboutToValidate, this, [&] { manager.reset(); });
    manager->addInvalidFigure(&figure);
    manager->performUpdate();
    QCOMPARE(manager.get(), nullptr);
    QCOMPARE(validations, 0);
}

void tst_UpdateManager::managerMayBeDeletedDuringValidation()
{
    int validations = 0;
    ViewerStub viewer;
    auto manager = std::make_unique<UpdateManager>();
    manager->setViewer(&viewer);
    ActingFigure deleter([&] { manager.reset(); });
    ActingFigure last([&] { ++validations; });
    manager->addInvalidFigure(&deleter);
    manager->addInvalidFigure(&last);
    manager->performUpdate();
    QCOMPARE(manager.get(), nullptr);
    QCOMPARE(validations, 0);
}

void tst_UpdateManager::figuresOutliveTheirManager()
{
    ViewerStub viewer;
    auto figure = std::make_unique<Figure>();
    auto manager = std::make_unique<UpdateManager>();
    manager->setViewer(&viewer);
    manager->addInvalidFigure(figure.get());
    manager.reset();
    figure.reset();
    QCOMPARE(viewer.dirtyRects(), QList<QRect>());
}

void tst_UpdateManager::deletedViewerIsForgotten()
{
    Figure figure;
    auto viewer = std::make_unique<ViewerStub>();
    UpdateManager manager;
    manager.setViewer(viewer.get());
    viewer.reset();
    QCOMPARE(manager.getViewer(), nullptr);
    expectWarning("UpdateManager::addDirtyRegion(): no managed widget");
    manager.addDirtyRegion(&figure, QRect(1, 2, 3, 4));
    expectWarning("UpdateManager::addInvalidFigure(): no managed widget");
    manager.addInvalidFigure(&figure);
    expectWarning("UpdateManager::performUpdate(): no managed widget");
    manager.performUpdate();
}

void tst_UpdateManager::viewerMayBeReplacedAfterItsDeath()
{
    auto viewer = std::make_unique<ViewerStub>();
    PlainViewer plainViewer;
    UpdateManager manager;
    manager.setViewer(viewer.get());
    viewer.reset();
    manager.setViewer(&plainViewer);
    QCOMPARE(manager.getViewer(), &plainViewer);
}

void tst_UpdateManager::updateWithinTheAnnouncementIsIgnored()
{
    int validations = 0;
    ActingFigure figure([&] { ++validations; });
    Shown shown;
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    connect(&shown.manager, &UpdateManager::aboutToValidate, this, [&] { shown.manager.performUpdate(); });
    shown.manager.addInvalidFigure(&figure);
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 1);
    QCOMPARE(validations, 1);
}

void tst_UpdateManager::updateWithinValidationIsIgnored()
{
    QStringList calls;
    Shown shown;
    ActingFigure first([&] {
        shown.manager.performUpdate();
        calls << QStringLiteral("first");
    });
    ActingFigure second([&] { calls << QStringLiteral("second"); });
    QSignalSpy announced(&shown.manager, &UpdateManager::aboutToValidate);
    shown.manager.addInvalidFigure(&first);
    shown.manager.addInvalidFigure(&second);
    shown.manager.performUpdate();
    QCOMPARE(announced.count(), 1);
    QCOMPARE(calls, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

PICTEL_TEST_MAIN(tst_UpdateManager)
#include "tst_updatemanager.moc"
