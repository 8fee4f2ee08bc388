#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/ExclusionSearch.h>

using namespace Vantrel::Pictel;

class tst_ExclusionSearch : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isATreeSearch();
    void belongsToItsParent();
    void acceptsEveryFigure();
    void prunesExcludedFiguresOnly();
    void prunesNothingButNullWithoutExclusions();
    void keepsItsOwnCopyOfTheList();
    void excludedChildUncoversItsParent();
    void excludedChildHidesItsDescendants();
    void siblingOfAnExcludedChildIsFound();
};

namespace {

/// A root that holds a child, which holds a grandchild of the same area; all in one coordinate system.
struct Family
{
    Family()
    {
        const QRect area(0, 0, 100, 100);
        for (ProbeLayout *layout : {&rootLayout, &childLayout})
            layout->isRelative = false;
        root.setLayoutManager(&rootLayout);
        child.setLayoutManager(&childLayout);
        root.setBounds(area);
        child.setBounds(area);
        grandchild.setBounds(area);
        root.add(&child);
        child.add(&grandchild);
    }

    ProbeFigure root;
    ProbeFigure child;
    ProbeFigure grandchild;
    ProbeLayout rootLayout;
    ProbeLayout childLayout;
};

} // namespace

void tst_ExclusionSearch::isATreeSearch()
{
    ExclusionSearch search {QList<Figure *>()};
    QCOMPARE(qobject_cast<ITreeSearch *>(&search), static_cast<ITreeSearch *>(&search));
}

void tst_ExclusionSearch::belongsToItsParent()
{
    QObject parent;
    const auto *search = new ExclusionSearch(QList<Figure *>(), &parent);
    QCOMPARE(search->parent(), &parent);
}

void tst_ExclusionSearch::acceptsEveryFigure()
{
    Figure excluded;
    Figure other;
    const ExclusionSearch search({&excluded});
    QVERIFY(search.accept(&excluded));
    QVERIFY(search.accept(&other));
    QVERIFY(search.accept(nullptr));
}

void tst_ExclusionSearch::prunesExcludedFiguresOnly()
{
    Figure first;
    Figure second;
    Figure other;
    const ExclusionSearch search({&first, &second});
    QVERIFY(search.prune(&first));
    QVERIFY(search.prune(&second));
    QVERIFY(!search.prune(&other));
    QVERIFY(search.prune(nullptr));
}

void tst_ExclusionSearch::prunesNothingButNullWithoutExclusions()
{
    Figure figure;
    const ExclusionSearch search {QList<Figure *>()};
    QVERIFY(!search.prune(&figure));
    QVERIFY(search.prune(nullptr));
}

void tst_ExclusionSearch::keepsItsOwnCopyOfTheList()
{
    Figure figure;
    QList<Figure *> excluded {&figure};
    const ExclusionSearch search(excluded);
    excluded.clear();
    QVERIFY(search.prune(&figure));
}

void tst_ExclusionSearch::excludedChildUncoversItsParent()
{
    Family family;
    QCOMPARE(family.root.findFigureAt(50, 50), &family.grandchild);
    QCOMPARE(family.root.findFigureAtExcluding(50, 50, {&family.grandchild}), &family.child);
}

void tst_ExclusionSearch::excludedChildHidesItsDescendants()
{
    Family family;
    QCOMPARE(family.root.findFigureAtExcluding(50, 50, {&family.child}), &family.root);
    QCOMPARE(family.root.findFigureAtExcluding(50, 50, {&family.root}), nullptr);
}

void tst_ExclusionSearch::siblingOfAnExcludedChildIsFound()
{
    Family family;
    ProbeFigure sibling;
    sibling.setBounds(QRect(0, 0, 100, 100));
    family.root.add(&sibling);
    QCOMPARE(family.root.findFigureAtExcluding(50, 50, {&sibling}), &family.grandchild);
}

PICTEL_TEST_MAIN(tst_ExclusionSearch)
#include "tst_exclusionsearch.moc"
