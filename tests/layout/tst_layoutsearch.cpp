#include "support/TestMain.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QTest>

#include <memory>
#include <optional>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

// Far more than the children that may have left before the layout forgets their addresses.
constexpr int Many = 300;

QRect placeOf(int index)
{
    return QRect(10 * index, 0, 8, 8);
}

} // namespace

/// A layout knows its children by their addresses, which the dead leave to others.
class tst_LayoutSearch : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyChildIsFound();
    void childAddedAfterASearchIsFound();
    void removedChildIsNotFound();
    void deletedChildIsNotFound();
    void slotOfARemovedChildIsNotFoundUnderItsAddress();
    void figureAtTheAddressOfADeletedChildIsNoChild();
    void figureAtTheAddressOfADeletedChildIsFoundOnceAdded();
    void childAddedAgainIsFoundWithItsNewConstraint();
    void remainingChildrenAreFoundAfterManyLeft();
    void childrenOfAnotherContainerAreFound();
    void nullIsNotFound();
    void childrenAreCountedWhileSomeLeave();

private:
    Figure *child(int index) const { return m_children[static_cast<std::size_t>(index)].get(); }
    QVariant constraintOf(int index) { return m_layout->getConstraint(child(index)); }
    void search() { QCOMPARE(constraintOf(1), QVariant(placeOf(1))); }

    std::unique_ptr<XYLayout> m_layout;
    std::unique_ptr<Figure> m_container;
    std::vector<std::unique_ptr<Figure>> m_children;
};

void tst_LayoutSearch::init()
{
    PictelTest::init();
    m_layout = std::make_unique<XYLayout>();
    m_container = std::make_unique<Figure>();
    m_container->setLayoutManager(m_layout.get());
    for (int i = 0; i < Many; ++i) {
        m_children.push_back(std::make_unique<Figure>());
        QVERIFY(m_container->add(child(i), placeOf(i)));
    }
}

void tst_LayoutSearch::cleanup()
{
    m_children.clear();
    m_container.reset();
    m_layout.reset();
}

void tst_LayoutSearch::everyChildIsFound()
{
    for (int i = 0; i < Many; ++i)
        QCOMPARE(constraintOf(i), QVariant(placeOf(i)));
}

void tst_LayoutSearch::childAddedAfterASearchIsFound()
{
    search();
    Figure late;
    QVERIFY(m_container->add(&late, placeOf(Many)));
    search();
    QCOMPARE(m_layout->getConstraint(&late), QVariant(placeOf(Many)));
}

void tst_LayoutSearch::removedChildIsNotFound()
{
    search();
    QVERIFY(m_container->remove(child(2)));
    QVERIFY(!constraintOf(2).isValid());
    QVERIFY(!m_container->remove(child(2)));
}

void tst_LayoutSearch::deletedChildIsNotFound()
{
    search();
    Figure *dead = child(2);
    m_children[2].reset();
    QVERIFY(!m_layout->getConstraint(dead).isValid());
    QVERIFY(!m_layout->Layout::remove(dead));
}

void tst_LayoutSearch::slotOfARemovedChildIsNotFoundUnderItsAddress()
{
    search();
    QVERIFY(m_container->remove(child(2)));
    Figure successor;
    QVERIFY(m_container->add(&successor, placeOf(Many)));
    search();
    QVERIFY(!constraintOf(2).isValid());
    QCOMPARE(m_layout->getConstraint(&successor), QVariant(placeOf(Many)));
}

void tst_LayoutSearch::figureAtTheAddressOfADeletedChildIsNoChild()
{
    std::optional<Figure> place(std::in_place);
    QVERIFY(m_container->add(&*place, placeOf(Many)));
    QCOMPARE(m_layout->getConstraint(&*place), QVariant(placeOf(Many)));
    place.emplace();
    QVERIFY(!m_layout->getConstraint(&*place).isValid());
    QVERIFY(!m_container->remove(&*place));
}

void tst_LayoutSearch::figureAtTheAddressOfADeletedChildIsFoundOnceAdded()
{
    std::optional<Figure> place(std::in_place);
    QVERIFY(m_container->add(&*place, placeOf(Many)));
    search();
    place.emplace();
    Figure inItsSlot;
    QVERIFY(m_container->add(&inItsSlot, placeOf(Many + 1)));
    QVERIFY(m_container->add(&*place, placeOf(Many + 2)));
    search();
    QCOMPARE(m_layout->getConstraint(&*place), QVariant(placeOf(Many + 2)));
    QCOMPARE(m_layout->getConstraint(&inItsSlot), QVariant(placeOf(Many + 1)));
}

void tst_LayoutSearch::childAddedAgainIsFoundWithItsNewConstraint()
{
    search();
    QVERIFY(m_container->remove(child(2)));
    QVERIFY(m_container->add(child(2), placeOf(Many)));
    search();
    QCOMPARE(constraintOf(2), QVariant(placeOf(Many)));
}

void tst_LayoutSearch::remainingChildrenAreFoundAfterManyLeft()
{
    search();
    for (int i = 10; i < Many; ++i) {
        QVERIFY(m_container->remove(child(i)));
        QVERIFY(!constraintOf(i).isValid());
        QCOMPARE(constraintOf(i % 10), QVariant(placeOf(i % 10)));
    }
}

void tst_LayoutSearch::childrenOfAnotherContainerAreFound()
{
    search();
    m_container.reset();
    QVERIFY(!constraintOf(1).isValid());
    m_container = std::make_unique<Figure>();
    m_container->setLayoutManager(m_layout.get());
    QVERIFY(m_container->add(child(2), placeOf(1)));
    QVERIFY(m_container->add(child(1), placeOf(2)));
    QCOMPARE(constraintOf(2), QVariant(placeOf(1)));
    QCOMPARE(constraintOf(1), QVariant(placeOf(2)));
    QVERIFY(!constraintOf(3).isValid());
}

void tst_LayoutSearch::nullIsNotFound()
{
    QVERIFY(m_container->remove(child(2)));
    QVERIFY(!m_layout->getConstraint(nullptr).isValid());
    QVERIFY(!m_layout->setConstraint(nullptr, placeOf(1)));
}

void tst_LayoutSearch::childrenAreCountedWhileSomeLeave()
{
    QVERIFY(m_container->remove(child(2)));
    QVERIFY(m_container->remove(child(Many - 1)));
    QCOMPARE(m_container->childFigureCount(), Many - 2);
    QVERIFY(m_container->remove(child(4)));
    QCOMPARE(m_container->childFigureCount(), Many - 3);
    QCOMPARE(m_container->childFigures().size(), Many - 3);
    QCOMPARE(m_container->childFigureCount(), Many - 3);
}

PICTEL_TEST_MAIN(tst_LayoutSearch)
#include "tst_layoutsearch.moc"
