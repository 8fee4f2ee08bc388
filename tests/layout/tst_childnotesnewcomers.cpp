#include "layout/NotedScene.h"
#include "support/TestMain.h"

#include <QTest>

#include <functional>

using namespace Vantrel::Pictel;

namespace {

/// A child that keeps to itself what it is told when it is added; all that its layout can notice is that it is there.
class UnmovedFigure : public ActingFigure
{
public:
    void setParentFigure(Figure *) override { }
    void revalidate() override { }
};

/// Adds itself to a layout before it is what it will be.
class EarlyFigure : public Figure
{
public:
    explicit EarlyFigure(Layout &layout)
    {
        setBounds(QRect(0, 0, 5, 5));
        layout.add(this);
        setBounds(here);
        setVisible(false);
        setVisible(true);
        layout.getFigure()->invalidate();
        layout.getFigure()->validate();
    }
};

class LateFigure : public EarlyFigure
{
public:
    using EarlyFigure::EarlyFigure;
    int rendered = 0;
    int validated = 0;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        ++rendered;
        EarlyFigure::render(painter, option);
    }
    void validate() override
    {
        ++validated;
        EarlyFigure::validate();
    }
};

/// Acts when a connection from it ends.
class ListeningFigure : public Figure
{
public:
    std::function<void()> onDisconnect;

protected:
    void disconnectNotify(const QMetaMethod &) override
    {
        if (onDisconnect)
            onDisconnect();
    }
};

} // namespace

/// What a layout knew about children that have gone is not taken for what it knows about those that came.
class tst_ChildNotesNewcomers : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.reset(); }

    void childAddedByItsConstructorIsTakenForWhatItBecomes();
    void newcomerIsValidated();
    void newcomerBelowOthersIsValidated();
    void newcomerInTheTopmostPlaceIsValidated();
    void newcomerAfterALeaverIsValidated();
    void newcomerOfAReleasedLayoutIsValidated();
    void newcomerInTheTopmostPlaceIsSeen();
    void newcomerAfterALeaverIsSeen();
    void childrenOfAReleasedLayoutAreFollowed();
    void leaversAreNotFollowed();
    void childrenThatChangeWhileTheyAreReleasedAreLetGo();
    void childrenThatDieWhileTheyAreReleasedAreLetGo();

private:
    // Validates the scene's children, of which all others are at rest.
    int layoutsOf(ActingFigure *child);

    std::unique_ptr<NotedScene> m_scene;
    Figures m_noted;
};

void tst_ChildNotesNewcomers::init()
{
    PictelTest::init();
    m_scene = std::make_unique<NotedScene>();
    m_noted.clear();
    for (int number = 0; number < 4; ++number)
        m_noted << m_scene->add(QRect(100 * number, 900, 10, 10));
    m_scene->takeNotes();
}

int tst_ChildNotesNewcomers::layoutsOf(ActingFigure *child)
{
    m_scene->root->setValid(false);
    m_scene->root->validate();
    return child->layouts;
}

void tst_ChildNotesNewcomers::childAddedByItsConstructorIsTakenForWhatItBecomes()
{
    LateFigure child(*m_scene->layout);
    for (int pass = 1; pass <= 2; ++pass) {
        QCOMPARE(m_scene->painted(there), Rects());
        QCOMPARE(child.rendered, pass);
        m_scene->root->setValid(false);
        m_scene->root->validate();
        QCOMPARE(child.validated, pass);
    }
}

void tst_ChildNotesNewcomers::newcomerIsValidated()
{
    QCOMPARE(layoutsOf(m_scene->add<UnmovedFigure>(here)), 1);
}

void tst_ChildNotesNewcomers::newcomerBelowOthersIsValidated()
{
    QCOMPARE(layoutsOf(m_scene->add<UnmovedFigure>(here, 1)), 1);
}

void tst_ChildNotesNewcomers::newcomerInTheTopmostPlaceIsValidated()
{
    delete m_noted.last();
    QCOMPARE(layoutsOf(m_scene->add<UnmovedFigure>(here)), 1);
}

void tst_ChildNotesNewcomers::newcomerAfterALeaverIsValidated()
{
    delete m_noted.at(1);
    delete m_noted.at(2);
    QCOMPARE(m_scene->painted(here), Rects());
    QCOMPARE(layoutsOf(m_scene->add<UnmovedFigure>(here)), 1);
}

void tst_ChildNotesNewcomers::newcomerOfAReleasedLayoutIsValidated()
{
    delete m_scene->root;
    NotedScene other(m_scene->layout);
    auto *child = other.add<UnmovedFigure>(here);
    other.root->validate();
    QCOMPARE(child->layouts, 1);
}

void tst_ChildNotesNewcomers::newcomerInTheTopmostPlaceIsSeen()
{
    m_scene->root->remove(m_noted.last());
    auto *child = m_scene->add<UnmovedFigure>(here);
    QCOMPARE(m_scene->painted(here), Rects({here}));
    QCOMPARE(m_scene->found(here), Figures({child}));
    QCOMPARE(m_scene->hit(15, 15), child);
}

void tst_ChildNotesNewcomers::newcomerAfterALeaverIsSeen()
{
    m_scene->root->remove(m_noted.at(1));
    QCOMPARE(m_scene->painted(here), Rects());
    m_scene->root->remove(m_noted.at(2));
    auto *child = m_scene->add<UnmovedFigure>(here);
    QCOMPARE(m_scene->painted(here), Rects({here}));
    QCOMPARE(m_scene->found(here), Figures({child}));
    QCOMPARE(m_scene->hit(15, 15), child);
}

void tst_ChildNotesNewcomers::childrenOfAReleasedLayoutAreFollowed()
{
    m_scene->addNoted(QRect(500, 900, 10, 10), 0);
    delete m_scene->root;
    NotedScene other(m_scene->layout);
    for (Figure *child : {m_noted.at(3), m_noted.at(1), m_noted.at(0)})
        other.root->add(child);
    other.layout->add(m_noted.at(2), QVariant(), 0);
    other.takeNotes();
    for (Figure *child : std::as_const(m_noted)) {
        const QRect before = child->getBounds();
        child->setBounds(here);
        QCOMPARE(other.painted(here), Rects({here}));
        QCOMPARE(other.found(here), Figures({child}));
        QCOMPARE(other.painted(before), Rects());
        child->setBounds(before);
    }
    for (Figure *child : std::as_const(m_noted))
        other.root->remove(child);
}

void tst_ChildNotesNewcomers::leaversAreNotFollowed()
{
    Figure *child = m_noted.at(1);
    m_scene->root->remove(child);
    child->setBounds(here);
    child->setVisible(false);
    QCOMPARE(m_scene->painted(here), Rects());
    QCOMPARE(m_scene->found(QRect(0, 900, 400, 10)), Figures({m_noted.at(0), m_noted.at(2), m_noted.at(3)}));
}

void tst_ChildNotesNewcomers::childrenThatChangeWhileTheyAreReleasedAreLetGo()
{
    auto *second = m_scene->addNoted<ActingFigure>(QRect(500, 900, 10, 10), 0);
    auto *first = m_scene->addNoted<ListeningFigure>(QRect(400, 900, 10, 10), 1);
    int ends = 0;
    first->onDisconnect = [&ends, second] {
        ++ends;
        second->setBounds(here);
        second->setVisible(false);
        second->setVisible(true);
        second->setValid(true);
        second->setValid(false);
        second->setParentFigure(nullptr);
    };
    delete m_scene->root;
    QCOMPARE(ends, 1);
    NotedScene other(m_scene->layout);
    other.root->add(second);
    other.takeNotes();
    QCOMPARE(other.painted(), Rects({here}));
    QCOMPARE(other.found(there), Figures());
}

void tst_ChildNotesNewcomers::childrenThatDieWhileTheyAreReleasedAreLetGo()
{
    auto *first = m_scene->addNoted<ListeningFigure>(QRect(400, 900, 10, 10), 0);
    auto below = std::make_unique<Figure>();
    auto above = std::make_unique<Figure>();
    m_scene->root->add(below.get(), QVariant(), 0);
    m_scene->root->add(above.get());
    first->onDisconnect = [&below, &above] {
        below.reset();
        above.reset();
    };
    delete m_scene->root;
    QVERIFY(!below && !above);
    QCOMPARE(m_scene->layout->childFigureCount(), 0);
}

PICTEL_TEST_MAIN(tst_ChildNotesNewcomers)
#include "tst_childnotesnewcomers.moc"
