#include "support/ActingListener.h"
#include "support/DisplayedRoot.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/connections/XYAnchor.h>
#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/IPropertyChangeListener.h>

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <new>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// Counts what it is told, whoever tells it.
class Listener : public QObject, public IAncestorListener, public IPropertyChangeListener, public IAnchorListener
{
    Q_OBJECT
    Q_INTERFACES(
        Vantrel::Pictel::IAncestorListener Vantrel::Pictel::IPropertyChangeListener Vantrel::Pictel::IAnchorListener)

public:
    int calls = 0;

public Q_SLOTS:
    void ancestorAdded(Figure *) override { ++calls; }
    void ancestorMoved(Figure *) override { ++calls; }
    void ancestorRemoved(Figure *) override { ++calls; }
    void propertyChanged(const QString &, const QVariant &, const QVariant &) override { ++calls; }
    void anchorMoved(IConnectionAnchor *) override { ++calls; }
};

/// Somebody to listen to: how a listener comes and goes, and what makes every listener hear once.
class Speaker
{
public:
    virtual ~Speaker() = default;
    virtual void add(Listener *listener) = 0;
    virtual void remove(Listener *listener) = 0;
    virtual void speak() = 0;
};

class MovingFigure : public Speaker
{
public:
    void add(Listener *listener) override { m_figure.addAncestorListener(listener); }
    void remove(Listener *listener) override { m_figure.removeAncestorListener(listener); }
    void speak() override { m_figure.setBounds(QRect(++m_position, 0, 10, 10)); }

private:
    Figure m_figure;
    int m_position = 0;
};

class ChangingFigure : public Speaker
{
public:
    void add(Listener *listener) override { m_figure.addPropertyChangeListener(listener); }
    void remove(Listener *listener) override { m_figure.removePropertyChangeListener(listener); }
    void speak() override { m_figure.setParentFigure(nullptr); }

private:
    Figure m_figure;
};

class MovingAnchor : public Speaker
{
public:
    void add(Listener *listener) override { m_anchor.addAnchorListener(listener); }
    void remove(Listener *listener) override { m_anchor.removeAnchorListener(listener); }
    void speak() override { m_anchor.setLocation(QPoint(1, 1)); }

private:
    XYAnchor m_anchor {QPoint(0, 0)};
};

using SpeakerFactory = std::shared_ptr<Speaker> (*)();

template <typename Kind>
std::shared_ptr<Speaker> make()
{
    return std::make_shared<Kind>();
}

void addSpeakers()
{
    QTest::addColumn<SpeakerFactory>("makeSpeaker");
    QTest::newRow("ancestor listeners") << SpeakerFactory(&make<MovingFigure>);
    QTest::newRow("property listeners") << SpeakerFactory(&make<ChangingFigure>);
    QTest::newRow("anchor listeners") << SpeakerFactory(&make<MovingAnchor>);
}

/// Listeners of one speaker; every second of them can be deleted without a word.
class Audience
{
public:
    explicit Audience(Speaker &speaker)
        : m_speaker(speaker)
    { }

    void join(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_listeners.push_back(std::make_unique<Listener>());
            m_speaker.add(m_listeners.back().get());
        }
    }
    void halve()
    {
        for (size_t i = 0; i < m_listeners.size(); ++i)
            m_listeners.erase(m_listeners.begin() + std::ptrdiff_t(i));
    }
    std::unique_ptr<Listener> leave()
    {
        std::unique_ptr<Listener> last = std::move(m_listeners.back());
        m_listeners.pop_back();
        m_speaker.remove(last.get());
        return last;
    }
    bool isEmpty() const { return m_listeners.empty(); }
    /// How often each one heard since the last time.
    QList<int> takeCalls()
    {
        QList<int> calls;
        for (const auto &listener : m_listeners)
            calls << std::exchange(listener->calls, 0);
        return calls;
    }

private:
    Speaker &m_speaker;
    std::vector<std::unique_ptr<Listener>> m_listeners;
};

} // namespace

Q_DECLARE_METATYPE(SpeakerFactory)

/// Listeners that come, go and die in large numbers, and listeners that delete what calls them.
class tst_Listeners : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void survivorsOfManyHearOnceAndLeave_data() { addSpeakers(); }
    void survivorsOfManyHearOnceAndLeave();
    void listenersThatComeAndDieForeverLeaveTheOthersAlone_data() { addSpeakers(); }
    void listenersThatComeAndDieForeverLeaveTheOthersAlone();
    void newListenerAtADeadOnesAddressHearsOnce_data() { addSpeakers(); }
    void newListenerAtADeadOnesAddressHearsOnce();
    void newListenerAtADeadOnesAddressIsNoListenerYet_data() { addSpeakers(); }
    void newListenerAtADeadOnesAddressIsNoListenerYet();

    void containerMayDieAsItIsResized();
    void layoutMayDieAsItsContainerIsResized();
    void containerMayDieAsItsChildrenMoveAlong();
    void containerMayDieAsItsOldPlaceIsRepainted();
    void containerMayDieAsItIsRevalidated();
    void childMayDieAsItIsRevalidated();
    void validateRootMayDieAsItIsRevalidated();
};

void tst_Listeners::survivorsOfManyHearOnceAndLeave()
{
    QFETCH(SpeakerFactory, makeSpeaker);
    const auto speaker = makeSpeaker();
    Audience audience(*speaker);
    for (const int count : {40, 40, 100}) {
        audience.join(count);
        audience.halve();
    }
    speaker->speak();
    QCOMPARE(audience.takeCalls(), QList<int>(65, 1));
    while (!audience.isEmpty()) {
        const auto gone = audience.leave();
        speaker->speak();
        QCOMPARE(gone->calls, 0);
        const QList<int> calls = audience.takeCalls();
        QCOMPARE(calls, QList<int>(calls.size(), 1));
    }
}

void tst_Listeners::listenersThatComeAndDieForeverLeaveTheOthersAlone()
{
    QFETCH(SpeakerFactory, makeSpeaker);
    const auto speaker = makeSpeaker();
    Audience audience(*speaker);
    audience.join(3);
    for (int i = 0; i < 1000; ++i) {
        Listener passing;
        speaker->add(&passing);
    }
    speaker->speak();
    QCOMPARE(audience.takeCalls(), QList<int>({1, 1, 1}));
    const auto gone = audience.leave();
    speaker->speak();
    QCOMPARE(gone->calls, 0);
    QCOMPARE(audience.takeCalls(), QList<int>({1, 1}));
}

void tst_Listeners::newListenerAtADeadOnesAddressHearsOnce()
{
    QFETCH(SpeakerFactory, makeSpeaker);
    const auto speaker = makeSpeaker();
    alignas(Listener) unsigned char storage[sizeof(Listener)];
    for (int i = 0; i < 5; ++i) {
        auto *doomed = new (storage) Listener;
        speaker->add(doomed);
        doomed->~Listener();
    }
    auto *listener = new (storage) Listener;
    speaker->add(listener);
    speaker->speak();
    QCOMPARE(listener->calls, 1);
    speaker->remove(listener);
    speaker->speak();
    QCOMPARE(listener->calls, 1);
    listener->~Listener();
}

void tst_Listeners::newListenerAtADeadOnesAddressIsNoListenerYet()
{
    QFETCH(SpeakerFactory, makeSpeaker);
    const auto speaker = makeSpeaker();
    Audience audience(*speaker);
    audience.join(1);
    alignas(Listener) unsigned char storage[sizeof(Listener)];
    auto *doomed = new (storage) Listener;
    speaker->add(doomed);
    doomed->~Listener();
    auto *listener = new (storage) Listener;
    speaker->remove(listener);
    speaker->speak();
    QCOMPARE(listener->calls, 0);
    QCOMPARE(audience.takeCalls(), QList<int>({1}));
    listener->~Listener();
}

namespace {

/// Acts when it is asked to repaint the first time.
class ActingViewer : public ViewerStub
{
public:
    explicit ActingViewer(const std::function<void()> &act)
        : m_act(act)
    { }

    void updateContentRect(const QRect &) override
    {
        if (const auto act = std::exchange(m_act, nullptr))
            act();
    }

private:
    std::function<void()> m_act;
};

/// A displayed container with a layout that both can be deleted at any time.
struct MortalContainer
{
    MortalContainer()
    {
        container->setLayoutManager(layout.get());
        container->setBounds(QRect(0, 0, 100, 100));
        displayed.root.add(container.get());
        displayed.root.validate();
        displayed.takeDirtyRects();
    }

    DisplayedRoot displayed;
    std::unique_ptr<ProbeLayout> layout = std::make_unique<ProbeLayout>();
    std::unique_ptr<ProbeFigure> container = std::make_unique<ProbeFigure>();
};

} // namespace

void tst_Listeners::containerMayDieAsItIsResized()
{
    MortalContainer mortal;
    ActingListener listener([&] { mortal.container.reset(); });
    mortal.layout->addListener(&listener);
    mortal.container->setBounds(QRect(0, 0, 120, 120));
    QCOMPARE(mortal.container.get(), nullptr);
    QCOMPARE(mortal.displayed.root.childFigureCount(), 0);
    QCOMPARE(mortal.layout->getFigure(), nullptr);
}

void tst_Listeners::layoutMayDieAsItsContainerIsResized()
{
    MortalContainer mortal;
    ActingListener listener([&] { mortal.layout.reset(); });
    mortal.layout->addListener(&listener);
    mortal.container->setBounds(QRect(0, 0, 120, 120));
    QCOMPARE(mortal.container->getLayoutManager(), nullptr);
    QCOMPARE(mortal.container->getBounds(), QRect(0, 0, 120, 120));
    QCOMPARE(mortal.displayed.takeDirtyRects(), QList<QRect>({QRect(0, 0, 100, 100), QRect(0, 0, 120, 120)}));
}

void tst_Listeners::containerMayDieAsItsChildrenMoveAlong()
{
    MortalContainer mortal;
    mortal.layout->isRelative = false;
    Figure child;
    child.setBounds(QRect(10, 10, 10, 10));
    mortal.container->add(&child);
    connect(&child, &Figure::figureMoved, this, [&] { mortal.container.reset(); });
    QSignalSpy moved(mortal.container.get(), &Figure::figureMoved);
    mortal.container->setBounds(QRect(5, 5, 120, 120));
    QCOMPARE(mortal.container.get(), nullptr);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(child.getParentFigure(), nullptr);
}

void tst_Listeners::containerMayDieAsItsOldPlaceIsRepainted()
{
    MortalContainer mortal;
    ActingViewer viewer([&] { mortal.container.reset(); });
    mortal.displayed.manager.setViewer(&viewer);
    QSignalSpy moved(mortal.container.get(), &Figure::figureMoved);
    mortal.container->setBounds(QRect(5, 5, 120, 120));
    QCOMPARE(mortal.container.get(), nullptr);
    QCOMPARE(moved.count(), 0);
    mortal.displayed.manager.setViewer(nullptr);
}

void tst_Listeners::containerMayDieAsItIsRevalidated()
{
    MortalContainer mortal;
    ActingListener listener([&] { mortal.container.reset(); });
    mortal.layout->addListener(&listener);
    mortal.container->revalidate();
    QCOMPARE(mortal.container.get(), nullptr);
    QCOMPARE(mortal.displayed.root.childFigureCount(), 0);
    mortal.displayed.manager.performUpdate();
    QCOMPARE(mortal.displayed.root.isValid(), true);
}

void tst_Listeners::childMayDieAsItIsRevalidated()
{
    MortalContainer mortal;
    auto child = std::make_unique<ProbeFigure>();
    mortal.container->add(child.get());
    mortal.displayed.root.validate();
    ActingListener listener([&] { child.reset(); });
    mortal.layout->addListener(&listener);
    child->revalidate();
    QCOMPARE(child.get(), nullptr);
    QCOMPARE(mortal.container->childFigureCount(), 0);
    mortal.displayed.manager.performUpdate();
    QCOMPARE(mortal.container->isValid(), true);
}

void tst_Listeners::validateRootMayDieAsItIsRevalidated()
{
    MortalContainer mortal;
    mortal.container->setValidateRoot(true);
    ActingListener listener([&] { mortal.container.reset(); });
    mortal.layout->addListener(&listener);
    mortal.container->revalidate();
    mortal.displayed.manager.performUpdate();
    QCOMPARE(mortal.displayed.root.childFigureCount(), 0);
}

PICTEL_TEST_MAIN(tst_Listeners)
#include "tst_listeners.moc"
