#include "layout/NotedScene.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

constexpr int Count = 8;
const QRect everywhere(0, 0, 1000, 1000);
const QRect elsewhere(0, 900, 8, 8);

} // namespace

/// Children come and go at the bottom, on top and in between; the layout keeps their order and knows where each is.
class tst_LayoutOrder : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.reset(); }

    void childrenAddedAtTheBottomAreFollowed();
    void childrenAboveARemovedBottomAreFollowed();
    void childAddedAtTheBottomStaysBelowThoseThatFollowALeaver();
    void childrenAboveOneInsertedBelowTheBottomThatLeftAreFollowed();
    void orderIsKeptWhenMostLeave_data();
    void orderIsKeptWhenMostLeave();
    void orderIsThatOfAPlainList();

private:
    void takeOut(int place);
    void insert(int place);
    // Moves each child away and back: the layout must find the note on it, or searches would still see it.
    void verifyAllAreFollowed();

    std::unique_ptr<NotedScene> m_scene;
    Figures m_children;
};

void tst_LayoutOrder::init()
{
    PictelTest::init();
    m_scene = std::make_unique<NotedScene>();
    m_children.clear();
    for (int number = 0; number < Count; ++number)
        insert(number);
}

void tst_LayoutOrder::insert(int place)
{
    m_children.insert(place, m_scene->addNoted(QRect(10 * place, 0, 8, 8), place));
}

void tst_LayoutOrder::takeOut(int place)
{
    QVERIFY(m_scene->root->remove(m_children.takeAt(place)));
}

void tst_LayoutOrder::verifyAllAreFollowed()
{
    QCOMPARE(m_scene->found(everywhere), m_children);
    for (Figure *child : std::as_const(m_children)) {
        const QRect before = child->getBounds();
        child->setBounds(elsewhere);
        QCOMPARE(m_scene->found(elsewhere), Figures({child}));
        child->setBounds(before);
    }
    QCOMPARE(m_scene->found(everywhere), m_children);
    QCOMPARE(m_scene->root->childFigures(), m_children);
}

void tst_LayoutOrder::childrenAddedAtTheBottomAreFollowed()
{
    insert(0);
    insert(0);
    verifyAllAreFollowed();
}

void tst_LayoutOrder::childrenAboveARemovedBottomAreFollowed()
{
    takeOut(0);
    takeOut(0);
    verifyAllAreFollowed();
}

void tst_LayoutOrder::childAddedAtTheBottomStaysBelowThoseThatFollowALeaver()
{
    takeOut(3);
    m_children.prepend(m_scene->add(QRect(500, 0, 8, 8)));
    QVERIFY(m_scene->root->remove(m_children.first()));
    m_scene->root->add(m_children.first(), QVariant(), 0);
    takeOut(Count - 3);
    takeOut(2);
    QCOMPARE(m_scene->root->childFigures(), m_children);
    m_scene->takeNotes();
    verifyAllAreFollowed();
}

void tst_LayoutOrder::childrenAboveOneInsertedBelowTheBottomThatLeftAreFollowed()
{
    insert(1);
    takeOut(0);
    insert(0);
    takeOut(2);
    takeOut(0);
    verifyAllAreFollowed();
}

void tst_LayoutOrder::orderIsKeptWhenMostLeave_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("from the bottom") << 0;
    QTest::newRow("in between") << 1;
}

void tst_LayoutOrder::orderIsKeptWhenMostLeave()
{
    QFETCH(int, step);
    constexpr int many = 300;
    for (int number = Count; number < many; ++number)
        m_children.append(m_scene->add(QRect(number % 90 * 10, 20, 8, 8)));
    m_scene->takeNotes();
    while (m_children.size() > Count) {
        takeOut(step);
        QCOMPARE(m_scene->root->childFigureCount(), m_children.size());
    }
    verifyAllAreFollowed();
}

void tst_LayoutOrder::orderIsThatOfAPlainList()
{
    QRandomGenerator random(1);
    for (int round = 0; round < 400; ++round) {
        const int size = static_cast<int>(m_children.size());
        const int places[] = {0, size, random.bounded(size + 1)};
        const int place = places[random.bounded(3)];
        if (size < 3 || random.bounded(2) == 0)
            insert(place);
        else
            takeOut(qMin(place, size - 1));
        if (random.bounded(8) == 0)
            verifyAllAreFollowed();
    }
    verifyAllAreFollowed();
}

PICTEL_TEST_MAIN(tst_LayoutOrder)
#include "tst_layoutorder.moc"
