#include "layout/NotedScene.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

const WatchingSearch everyFigure;

/// A figure that overrides one operation, to count its calls.
class CountingFigure : public Figure
{
public:
    using Figure::Figure;
    mutable int calls = 0;

protected:
    template <typename Answer>
    Answer counted(Answer &&answer) const
    {
        ++calls;
        return std::forward<Answer>(answer);
    }
};

class OwnVisibility : public CountingFigure
{
public:
    bool isVisible() const override { return counted(Figure::isVisible()); }
};

class OwnBounds : public CountingFigure
{
public:
    QRect getBounds() override { return counted(Figure::getBounds()); }
};

class OwnBoundingRect : public CountingFigure
{
public:
    QRect getBoundingRect() override { return counted(Figure::getBoundingRect()); }
};

class OwnRender : public CountingFigure
{
public:
    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        ++calls;
        Figure::render(painter, option);
    }
};

class OwnMapping : public CountingFigure
{
public:
    using Figure::translateToAbsolute;
    QRect &translateToAbsolute(QRect &rect) override
    {
        ++calls;
        return Figure::translateToAbsolute(rect);
    }
};

class OwnParent : public CountingFigure
{
public:
    Figure *getParentFigure() const override { return counted(Figure::getParentFigure()); }
};

class OwnSearch : public CountingFigure
{
public:
    using Figure::findFigures;
    void findFigures(Figures &result, const QRect &area, const ITreeSearch &search, bool contained) const override
    {
        ++calls;
        Figure::findFigures(result, area, search, contained);
    }
};

class OwnIntersection : public CountingFigure
{
public:
    bool isIntersecting(const QRect &area) const override { return counted(Figure::isIntersecting(area)); }
};

class OwnHitTest : public CountingFigure
{
public:
    using Figure::findFigureAt;
    Figure *findFigureAt(int x, int y, const ITreeSearch &search) const override
    {
        return counted(Figure::findFigureAt(x, y, search));
    }
};

class OwnContains : public CountingFigure
{
public:
    bool contains(const QPoint &point) const override { return counted(Figure::contains(point)); }
};

class OwnValidation : public CountingFigure
{
public:
    void validate() override
    {
        ++calls;
        Figure::validate();
    }
};

class OwnPlacing : public CountingFigure
{
public:
    void setBounds(const QRect &bounds) override
    {
        ++calls;
        Figure::setBounds(bounds);
    }
};

class OwnResolution : public CountingFigure
{
public:
    QRect resolveBounds(const QRect &bounds) override { return counted(Figure::resolveBounds(bounds)); }
};

// What goes over the children. Each is given a place far from the child.

void paint(NotedScene &scene)
{
    scene.painted(there);
}

void search(NotedScene &scene)
{
    scene.found(there);
}

void hitTest(NotedScene &scene)
{
    scene.hit(there.x(), there.y());
}

void layOut(NotedScene &scene)
{
    scene.layOut();
}

void validateAll(NotedScene &scene)
{
    scene.validateAll();
}

template <typename Child>
CountingFigure *addNoted(NotedScene &scene)
{
    return scene.addNoted<Child>(here);
}

// With a constraint that it meets already.
template <typename Child>
CountingFigure *addPlaced(NotedScene &scene)
{
    Child *child = scene.add<Child>(here);
    scene.layout->setConstraint(child, here);
    scene.takeNotes();
    return child;
}

using Adding = CountingFigure *(*)(NotedScene &scene);
using Pass = void (*)(NotedScene &scene);

/// Shows itself in one place and says that it is in another.
class DisplacedFigure : public ActingFigure
{
public:
    using ActingFigure::ActingFigure;
    QRect getBounds() override { return ActingFigure::getBounds().translated(490, 490); }
};

/// Is visible whatever its flag says.
class EverVisibleFigure : public Figure
{
public:
    bool isVisible() const override { return true; }
};

} // namespace

Q_DECLARE_METATYPE(Adding)
Q_DECLARE_METATYPE(Pass)

/// Nothing is taken for granted about figures and layouts that do something in their own way.
class tst_ChildNotesOverrides : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void overriddenOperationIsCalledInEachPass_data();
    void overriddenOperationIsCalledInEachPass();
    void overriddenBoundsCountEverywhere();
    void overriddenVisibilityCounts();
};

void tst_ChildNotesOverrides::overriddenOperationIsCalledInEachPass_data()
{
    QTest::addColumn<Adding>("add");
    QTest::addColumn<Pass>("pass");
    QTest::newRow("isVisible, paint") << &addNoted<OwnVisibility> << &paint;
    QTest::newRow("isVisible, search") << &addNoted<OwnVisibility> << &search;
    QTest::newRow("isVisible, hit test") << &addNoted<OwnVisibility> << &hitTest;
    QTest::newRow("isVisible, layout") << &addNoted<OwnVisibility> << &layOut;
    QTest::newRow("getBounds, paint") << &addNoted<OwnBounds> << &paint;
    QTest::newRow("getBounds, search") << &addNoted<OwnBounds> << &search;
    QTest::newRow("getBounds, hit test") << &addNoted<OwnBounds> << &hitTest;
    QTest::newRow("getBoundingRect") << &addNoted<OwnBoundingRect> << &paint;
    QTest::newRow("render") << &addNoted<OwnRender> << &paint;
    QTest::newRow("translateToAbsolute") << &addNoted<OwnMapping> << &paint;
    QTest::newRow("getParentFigure") << &addNoted<OwnParent> << &paint;
    QTest::newRow("findFigures") << &addNoted<OwnSearch> << &search;
    QTest::newRow("isIntersecting") << &addNoted<OwnIntersection> << &search;
    QTest::newRow("findFigureAt") << &addNoted<OwnHitTest> << &hitTest;
    QTest::newRow("contains") << &addNoted<OwnContains> << &hitTest;
    QTest::newRow("isVisible, placed") << &addPlaced<OwnVisibility> << &layOut;
    QTest::newRow("setBounds") << &addPlaced<OwnPlacing> << &layOut;
    QTest::newRow("resolveBounds") << &addPlaced<OwnResolution> << &layOut;
    QTest::newRow("validate, placed") << &addPlaced<OwnValidation> << &validateAll;
    QTest::newRow("validate") << &addNoted<OwnValidation> << &validateAll;
}

void tst_ChildNotesOverrides::overriddenOperationIsCalledInEachPass()
{
    QFETCH(Adding, add);
    QFETCH(Pass, pass);
    NotedScene scene;
    scene.add(here);
    const CountingFigure *child = add(scene);
    scene.addNoted(here);
    for (int round = 0; round < 3; ++round) {
        const int before = child->calls;
        pass(scene);
        QCOMPARE(child->calls, before + 1);
    }
}

void tst_ChildNotesOverrides::overriddenBoundsCountEverywhere()
{
    NotedScene scene;
    auto *child = scene.addNoted<DisplacedFigure>(here);
    QCOMPARE(scene.painted(there), Rects({there}));
    QCOMPARE(scene.hit(505, 505), child);
    QCOMPARE(scene.found(there), Figures({child}));
    QCOMPARE(scene.painted(here), Rects());
    QCOMPARE(scene.hit(15, 15), nullptr);
    QCOMPARE(scene.found(here), Figures());
}

void tst_ChildNotesOverrides::overriddenVisibilityCounts()
{
    NotedScene scene;
    auto *child = scene.addNoted<EverVisibleFigure>(here);
    child->setVisible(false);
    QCOMPARE(scene.painted(here), Rects({here}));
    QCOMPARE(scene.hit(15, 15), child);
    QCOMPARE(scene.found(here), Figures({child}));
}

PICTEL_TEST_MAIN(tst_ChildNotesOverrides)
#include "tst_childnotesoverrides.moc"
