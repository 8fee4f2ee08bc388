#include "layout/NotedScene.h"
#include "support/ProbeBorder.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

/// Validates itself in its own way, which it has to be asked for each time.
class StubbornFigure : public ActingFigure
{
public:
    int validations = 0;
    void validate() override
    {
        ++validations;
        ActingFigure::validate();
    }
};

const QRect corner(0, 0, 31, 31);
// A container that is moved so has there where here was.
const QRect moved(-490, -490, 1000, 1000);

using Action = std::function<void()>;

} // namespace

/// Figures, containers and layouts change while their children are gone over: from then on they count as they are.
class tst_ChildNotesReentrance : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.reset(); }

    void containerMovedWhilePainting();
    void containerMovedBackWhilePainting();
    void marginChangedWhilePainting();
    void borderChangedWhilePainting();
    void ancestorMovedWhilePainting();
    void layoutOfTheContainerReplacedWhilePainting();
    void containerDeletedWhilePainting();
    void layoutDeletedWhilePainting();

    void siblingMovedWhilePainting();
    void siblingHiddenWhilePainting();
    void siblingShownWhilePainting();
    void siblingReparentedWhilePainting();
    void siblingsRemovedWhilePainting();
    void siblingsDeletedWhilePainting();
    void siblingAddedWhilePainting();
    void siblingInsertedBelowWhilePainting();
    void childRemovesItselfWhilePainting();
    void childPutOnTopWhilePainting();

    void siblingInvalidatedWhileValidating();
    void siblingsDeletedWhileValidating();
    void siblingsRemovedWhileValidating();
    void siblingAddedWhileValidating();
    void siblingInsertedBelowWhileValidating();
    void siblingsShiftedWhileValidatingAreNotMistaken();
    void layoutDeletedWhileValidating();
    void containerDeletedWhileValidating();
    void siblingConstrainedWhileLayingOut();

    void siblingsDeletedWhileSearching();
    void siblingsRemovedWhileSearching();
    void siblingInsertedBelowWhileSearching();
    void siblingMovedWhileSearching();
    void layoutDeletedWhileSearching();
    void siblingsDeletedByTheHitTest();
    void siblingsRemovedByTheHitTest();
    void siblingInsertedBelowByTheHitTest();
    void siblingMovedByTheHitTest();
    void layoutDeletedByTheHitTest();

private:
    ActingFigure *addNoted(const QRect &bounds) { return m_scene->addNoted<ActingFigure>(bounds); }
    // Does something when the pass comes by m_first.
    void validateFirst(const Action &action);
    void searchAnd(const Action &action);
    // Does something when the hit test comes by the topmost child.
    Figure *hitTestAnd(const Action &action);

    std::unique_ptr<NotedScene> m_scene;
    // From bottom to top, with others between them that lie out of the way: at (0, 0, 5, 5), here and there.
    ActingFigure *m_first = nullptr;
    ActingFigure *m_near = nullptr;
    ActingFigure *m_far = nullptr;
    Figures m_found;
};

void tst_ChildNotesReentrance::init()
{
    PictelTest::init();
    m_scene = std::make_unique<NotedScene>();
    m_first = addNoted(QRect(0, 0, 5, 5));
    addNoted(QRect(800, 0, 20, 20));
    m_near = addNoted(here);
    addNoted(QRect(0, 800, 20, 20));
    m_far = addNoted(there);
}

void tst_ChildNotesReentrance::containerMovedWhilePainting()
{
    m_first->onDraw = [this] { m_scene->root->setBounds(moved); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here}));
}

void tst_ChildNotesReentrance::containerMovedBackWhilePainting()
{
    Figure *last = m_scene->addNoted(here.translated(1, 0));
    m_first->onDraw = [this] { m_scene->root->setBounds(moved); };
    m_far->onDraw = [this] { m_scene->root->setBounds(QRect(0, 0, 1000, 1000)); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here, last->getBounds()}));
}

void tst_ChildNotesReentrance::marginChangedWhilePainting()
{
    m_scene->addNoted(QRect(-80, -80, 20, 20));
    m_first->onDraw = [this] { m_scene->root->setMargin(90); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here}));
}

void tst_ChildNotesReentrance::borderChangedWhilePainting()
{
    ProbeBorder border(Insets(90, 90, 90, 90));
    m_scene->addNoted(QRect(-80, -80, 20, 20));
    m_first->onDraw = [this, &border] { m_scene->root->setBorder(&border); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here}));
}

void tst_ChildNotesReentrance::ancestorMovedWhilePainting()
{
    NotedScene outer;
    outer.root->add(m_scene->root);
    outer.takeNotes();
    m_first->onDraw = [&outer] { outer.root->setBounds(moved); };
    QCOMPARE(fillsOf(*outer.root, corner), Rects({m_first->getBounds(), here}));
    outer.root->remove(m_scene->root);
}

void tst_ChildNotesReentrance::layoutOfTheContainerReplacedWhilePainting()
{
    FreeformLayout absolute(nullptr, false);
    auto *first = m_scene->addNoted<ActingFigure>(QRect(490, 490, 5, 5), 0);
    m_scene->root->setBounds(moved);
    first->onDraw = [this, &absolute] { m_scene->root->setLayoutManager(&absolute); };
    QCOMPARE(m_scene->painted(corner), Rects({QRect(0, 0, 5, 5), m_first->getBounds(), here}));
}

void tst_ChildNotesReentrance::containerDeletedWhilePainting()
{
    m_first->onDraw = [this] { delete m_scene->root; };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds()}));
}

void tst_ChildNotesReentrance::layoutDeletedWhilePainting()
{
    m_first->onDraw = [this] { delete m_scene->layout; };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds()}));
    QCOMPARE(m_scene->painted(corner), Rects());
}

void tst_ChildNotesReentrance::siblingMovedWhilePainting()
{
    m_first->onDraw = [this] {
        m_near->setBounds(there);
        m_far->setBounds(here.translated(1, 1));
    };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here.translated(1, 1)}));
}

void tst_ChildNotesReentrance::siblingHiddenWhilePainting()
{
    m_first->onDraw = [this] { m_near->setVisible(false); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds()}));
}

void tst_ChildNotesReentrance::siblingShownWhilePainting()
{
    m_near->setVisible(false);
    m_scene->takeNotes();
    m_first->onDraw = [this] { m_near->setVisible(true); };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here}));
}

void tst_ChildNotesReentrance::siblingReparentedWhilePainting()
{
    Figure other;
    other.setBounds(moved);
    m_first->onDraw = [this, &other] {
        m_near->setParentFigure(&other);
        m_far->setParentFigure(&other);
    };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here}));
    m_near->setParentFigure(m_scene->root);
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here, here}));
}

void tst_ChildNotesReentrance::siblingsRemovedWhilePainting()
{
    m_first->onDraw = [this] {
        m_scene->root->remove(m_near);
        m_far->setBounds(here.translated(1, 1));
    };
    const Rects expected({m_first->getBounds(), here.translated(1, 1)});
    QCOMPARE(m_scene->painted(corner), expected);
    QCOMPARE(m_scene->painted(corner), expected);
}

void tst_ChildNotesReentrance::siblingsDeletedWhilePainting()
{
    m_first->onDraw = [this] {
        delete m_near;
        m_far->setBounds(here.translated(1, 1));
    };
    const Rects expected({m_first->getBounds(), here.translated(1, 1)});
    QCOMPARE(m_scene->painted(corner), expected);
    QCOMPARE(m_scene->painted(corner), expected);
}

void tst_ChildNotesReentrance::siblingAddedWhilePainting()
{
    m_first->onDraw = [this] {
        m_scene->add(here.translated(2, 2));
        m_far->setBounds(here.translated(1, 1));
    };
    const Rects expected({m_first->getBounds(), here, here.translated(1, 1)});
    QCOMPARE(m_scene->painted(corner), expected);
    QCOMPARE(m_scene->painted(corner), expected + Rects({here.translated(2, 2)}));
}

void tst_ChildNotesReentrance::siblingInsertedBelowWhilePainting()
{
    const QRect inserted = here.translated(2, 2);
    m_first->onDraw = [this, &inserted] {
        m_scene->add(inserted, 0);
        m_scene->add(inserted, 2);
        m_scene->add(inserted, 3);
        m_far->setBounds(here.translated(1, 1));
    };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here, here.translated(1, 1)}));
    QCOMPARE(m_scene->painted(corner),
             Rects({inserted, m_first->getBounds(), inserted, inserted, here, here.translated(1, 1)}));
}

void tst_ChildNotesReentrance::childRemovesItselfWhilePainting()
{
    m_first->onDraw = [this] {
        m_scene->root->remove(m_first);
        m_far->setBounds(here.translated(1, 1));
    };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here, here.translated(1, 1)}));
    QCOMPARE(m_scene->painted(corner), Rects({here, here.translated(1, 1)}));
}

void tst_ChildNotesReentrance::childPutOnTopWhilePainting()
{
    m_far->setBounds(here.translated(1, 1));
    m_first->onDraw = [this] {
        m_scene->root->remove(m_near);
        m_scene->root->add(m_near);
    };
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here, here.translated(1, 1)}));
    QCOMPARE(m_scene->painted(corner), Rects({m_first->getBounds(), here.translated(1, 1), here}));
}

void tst_ChildNotesReentrance::validateFirst(const ActingFigure::Action &action)
{
    for (ActingFigure *figure : {m_scene->root.data(), m_first, m_near, m_far})
        figure->layouts = 0;
    m_scene->root->setValid(false);
    m_first->setValid(false);
    m_first->onLayout = action;
    m_scene->root->validate();
}

void tst_ChildNotesReentrance::siblingInvalidatedWhileValidating()
{
    validateFirst([this] { m_far->setValid(false); });
    QCOMPARE(m_first->layouts, 1);
    QCOMPARE(m_near->layouts, 0);
    QCOMPARE(m_far->layouts, 1);
}

void tst_ChildNotesReentrance::siblingsDeletedWhileValidating()
{
    validateFirst([this] {
        delete m_near;
        m_far->setValid(false);
    });
    QCOMPARE(m_far->layouts, 1);
}

void tst_ChildNotesReentrance::siblingsRemovedWhileValidating()
{
    validateFirst([this] {
        m_near->setValid(false);
        m_scene->root->remove(m_near);
        m_far->setValid(false);
    });
    QCOMPARE(m_near->layouts, 0);
    QCOMPARE(m_far->layouts, 1);
}

void tst_ChildNotesReentrance::siblingAddedWhileValidating()
{
    const ActingFigure *added = nullptr;
    validateFirst([this, &added] {
        added = m_scene->add<ActingFigure>(here);
        m_far->setValid(false);
    });
    QCOMPARE(m_far->layouts, 1);
    QCOMPARE(added->layouts, 0);
}

void tst_ChildNotesReentrance::siblingInsertedBelowWhileValidating()
{
    validateFirst([this] {
        m_scene->add(here, 0);
        m_far->setValid(false);
    });
    QCOMPARE(m_far->layouts, 1);
}

void tst_ChildNotesReentrance::siblingsShiftedWhileValidatingAreNotMistaken()
{
    auto *stubborn = m_scene->addNoted<StubbornFigure>(here.translated(1, 1), 1);
    for (int pass = 1; pass <= 3; ++pass) {
        stubborn->validations = 0;
        validateFirst([this] { m_scene->add(QRect(900, 900, 5, 5), 0); });
        QCOMPARE(stubborn->validations, 1);
        QCOMPARE(m_scene->painted(QRect(30, 30, 1, 1)), Rects({stubborn->getBounds()}));
    }
}

void tst_ChildNotesReentrance::layoutDeletedWhileValidating()
{
    validateFirst([this] {
        m_far->setValid(false);
        delete m_scene->layout;
    });
    QCOMPARE(m_far->layouts, 0);
}

void tst_ChildNotesReentrance::containerDeletedWhileValidating()
{
    validateFirst([this] {
        m_far->setValid(false);
        delete m_scene->root;
    });
    QCOMPARE(m_far->layouts, 0);
}

void tst_ChildNotesReentrance::siblingConstrainedWhileLayingOut()
{
    const QRect asked(600, 600, 20, 20);
    m_scene->layout->setConstraint(m_first, QRect(1, 1, 5, 5));
    m_scene->layout->invalidate();
    m_first->setBounds(QRect(0, 0, 5, 5));
    m_scene->root->validate();
    m_scene->layout->invalidate();
    m_first->setBounds(QRect(0, 0, 5, 5));
    connect(m_first, &Figure::figureMoved, m_far, [this, &asked] {
        m_scene->layout->setConstraint(m_far, asked);
        m_far->setBounds(there);
        m_far->setValid(true);
    });
    m_scene->layout->layout(m_scene->root);
    QCOMPARE(m_far->getBounds(), asked);
}

void tst_ChildNotesReentrance::searchAnd(const Action &action)
{
    WatchingSearch search;
    search.onPrune = [this, &action](const Figure *figure) {
        if (figure == m_first)
            action();
    };
    m_found.clear();
    m_scene->layout->findDescendantFigures(m_found, corner, search, false);
}

void tst_ChildNotesReentrance::siblingsDeletedWhileSearching()
{
    searchAnd([this] {
        delete m_near;
        m_far->setBounds(here);
    });
    QCOMPARE(m_found, Figures({m_first, m_far}));
}

void tst_ChildNotesReentrance::siblingsRemovedWhileSearching()
{
    searchAnd([this] {
        m_scene->root->remove(m_near);
        m_far->setBounds(here);
    });
    QCOMPARE(m_found, Figures({m_first, m_far}));
}

void tst_ChildNotesReentrance::siblingInsertedBelowWhileSearching()
{
    searchAnd([this] {
        m_scene->add(QRect(900, 900, 5, 5), 0);
        m_far->setBounds(here);
    });
    QCOMPARE(m_found, Figures({m_first, m_near, m_far}));
}

void tst_ChildNotesReentrance::siblingMovedWhileSearching()
{
    searchAnd([this] {
        m_near->setBounds(there);
        m_far->setBounds(here);
    });
    QCOMPARE(m_found, Figures({m_first, m_far}));
}

void tst_ChildNotesReentrance::layoutDeletedWhileSearching()
{
    searchAnd([this] { delete m_scene->layout; });
    QCOMPARE(m_found, Figures({m_first}));
}

Figure *tst_ChildNotesReentrance::hitTestAnd(const Action &action)
{
    const Figure *top = addNoted(corner);
    WatchingSearch search;
    search.refused = top;
    search.onPrune = [top, &action](const Figure *figure) {
        if (figure == top)
            action();
    };
    return m_scene->layout->findDescendantAtExcluding(12, 12, search);
}

void tst_ChildNotesReentrance::siblingsDeletedByTheHitTest()
{
    Figure *found = hitTestAnd([this] {
        delete m_far;
        delete m_near;
        m_first->setBounds(here);
    });
    QCOMPARE(found, m_first);
}

void tst_ChildNotesReentrance::siblingsRemovedByTheHitTest()
{
    Figure *found = hitTestAnd([this] {
        m_scene->root->remove(m_near);
        m_first->setBounds(here);
    });
    QCOMPARE(found, m_first);
}

void tst_ChildNotesReentrance::siblingInsertedBelowByTheHitTest()
{
    QCOMPARE(hitTestAnd([this] { m_scene->add(QRect(900, 900, 5, 5), 0); }), m_near);
}

void tst_ChildNotesReentrance::siblingMovedByTheHitTest()
{
    Figure *found = hitTestAnd([this] {
        m_near->setBounds(there);
        m_far->setBounds(here);
    });
    QCOMPARE(found, m_far);
}

void tst_ChildNotesReentrance::layoutDeletedByTheHitTest()
{
    QCOMPARE(hitTestAnd([this] { delete m_scene->layout; }), nullptr);
}

PICTEL_TEST_MAIN(tst_ChildNotesReentrance)
#include "tst_childnotesreentrance.moc"
