#include "ShownTree.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>
#include <vtlpictel/shapes/LabelFigure.h>
#include <vtlpictel/shapes/PixmapFigure.h>
#include <vtlpictel/shapes/TextFigure.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <utility>

using namespace Vantrel::Pictel;

namespace {

const QString helloText = QStringLiteral("Hello");

QPixmap pixmapOf(const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::red);
    return pixmap;
}

PixmapFigure *pixmapFigureOf(LabelFigure &label)
{
    return label.findChild<PixmapFigure *>();
}

TextFigure *textFigureOf(LabelFigure &label)
{
    return label.findChild<TextFigure *>();
}

QList<Figure *> partsOf(LabelFigure &label)
{
    return {pixmapFigureOf(label), textFigureOf(label)};
}

} // namespace

class tst_LabelFigure : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void constructorTakesParentAndBackground();
    void metaObjectTellsTheClass();
    void childrenAreMadeOfPixmapAndText();
    void childrenBelongToTheLabel();
    void childrenAreTransparent();
    void orientationChoosesTheLayout_data();
    void orientationChoosesTheLayout();
    void newLabelExpandsNowhere();
    void textIsForwarded();
    void pixmapIsForwarded();

    void pixmapStandsLeftOfTheText();
    void pixmapStandsAboveTheText();
    void preferredSizeFollowsTheChildren();

    void otherOrientationReplacesAndDeletesTheLayout();
    void sameOrientationReplacesTheLayoutToo();
    void layoutOfTheUserIsReplacedAndDeleted();
    void childrenMoveAlongInTheirOrder();
    void childrenLeaveTheOldLayoutBeforeItIsReplaced();
    void otherChildrenMoveAlong();
    void childrenMoveAlongWhileShown();
    void labelDeletedWhileItsChildrenMoveIsSurvived_data();
    void labelDeletedWhileItsChildrenMoveIsSurvived();
    void orientationSetWhileTheChildrenMoveWins();
    void newLayoutTakesTheExpandingDirections();
    void expandingDirectionsReachTheLayout();

    void deletedTextChildIsLetGo();
    void deletedPixmapChildIsLetGo();
    void labelWithoutChildrenChangesItsOrientation();
    void deletedLabelTakesItsPartsAlong();
    void labelWithDeletedLayoutKeepsWorking();
    void shownLabelPaintsItsParts();

private:
    std::unique_ptr<LabelFigure> m_label;
};

void tst_LabelFigure::init()
{
    PictelTest::init();
    m_label = std::make_unique<LabelFigure>(helloText, pixmapOf(QSize(20, 10)), Qt::Horizontal);
}

void tst_LabelFigure::cleanup()
{
    m_label.reset();
}

void tst_LabelFigure::constructorTakesParentAndBackground()
{
    QObject owner;
    auto *label = new LabelFigure(helloText, QPixmap(), Qt::Horizontal, &owner, Qt::blue);
    QCOMPARE(label->parent(), &owner);
    QCOMPARE(label->getBackgroundColor(), QColor(Qt::blue));
    QCOMPARE(m_label->parent(), nullptr);
    QCOMPARE(m_label->getBackgroundColor(), QColor(Qt::white));
}

void tst_LabelFigure::metaObjectTellsTheClass()
{
    QCOMPARE(LabelFigure::staticMetaObject.className(), "Vantrel::Pictel::LabelFigure");
}

void tst_LabelFigure::childrenAreMadeOfPixmapAndText()
{
    QCOMPARE(m_label->childFigures(), partsOf(*m_label));
    QCOMPARE(m_label->getText(), helloText);
    QCOMPARE(textFigureOf(*m_label)->getText(), helloText);
    QCOMPARE(m_label->getPixmap().size(), QSize(20, 10));
    QCOMPARE(pixmapFigureOf(*m_label)->getPixmap().size(), QSize(20, 10));
}

void tst_LabelFigure::childrenBelongToTheLabel()
{
    QCOMPARE(pixmapFigureOf(*m_label)->parent(), m_label.get());
    QCOMPARE(textFigureOf(*m_label)->parent(), m_label.get());
    QCOMPARE(pixmapFigureOf(*m_label)->getParentFigure(), m_label.get());
    QCOMPARE(textFigureOf(*m_label)->getParentFigure(), m_label.get());
    QCOMPARE(m_label->getLayoutManager()->parent(), m_label.get());
    QCOMPARE(brokenInvariant(m_label.get()), QString());
}

void tst_LabelFigure::childrenAreTransparent()
{
    QCOMPARE(pixmapFigureOf(*m_label)->getBackgroundColor(), QColor(Qt::transparent));
    QCOMPARE(textFigureOf(*m_label)->getBackgroundColor(), QColor(Qt::transparent));
}

void tst_LabelFigure::orientationChoosesTheLayout_data()
{
    QTest::addColumn<Qt::Orientations>("orientation");
    QTest::addColumn<QByteArray>("layout");

    const QByteArray horizontal = HBoxLayout::staticMetaObject.className();
    const QByteArray vertical = VBoxLayout::staticMetaObject.className();
    QTest::newRow("horizontal") << Qt::Orientations(Qt::Horizontal) << horizontal;
    QTest::newRow("vertical") << Qt::Orientations(Qt::Vertical) << vertical;
    QTest::newRow("both") << (Qt::Horizontal | Qt::Vertical) << vertical;
    QTest::newRow("none") << Qt::Orientations() << horizontal;
}

void tst_LabelFigure::orientationChoosesTheLayout()
{
    QFETCH(Qt::Orientations, orientation);
    QFETCH(QByteArray, layout);
    LabelFigure label(helloText, QPixmap(), orientation);
    QCOMPARE(QByteArray(label.getLayoutManager()->metaObject()->className()), layout);
    QCOMPARE(label.getOrientation(), orientation);
    m_label->setOrientation(orientation);
    QCOMPARE(QByteArray(m_label->getLayoutManager()->metaObject()->className()), layout);
    QCOMPARE(m_label->getOrientation(), orientation);
}

void tst_LabelFigure::newLabelExpandsNowhere()
{
    QCOMPARE(m_label->expandingDirections(), Qt::Orientations());
    QCOMPARE(m_label->getLayoutManager()->expandingDirections(), Qt::Orientations());
}

void tst_LabelFigure::textIsForwarded()
{
    m_label->setText(QStringLiteral("Good bye"));
    QCOMPARE(textFigureOf(*m_label)->getText(), QStringLiteral("Good bye"));
    QCOMPARE(m_label->getText(), QStringLiteral("Good bye"));
}

void tst_LabelFigure::pixmapIsForwarded()
{
    const QPixmap pixmap = pixmapOf(QSize(30, 40));
    m_label->setPixmap(pixmap);
    QCOMPARE(pixmapFigureOf(*m_label)->getPixmap().cacheKey(), pixmap.cacheKey());
    QCOMPARE(m_label->getPixmap().cacheKey(), pixmap.cacheKey());
}

void tst_LabelFigure::pixmapStandsLeftOfTheText()
{
    const QSize text = textFigureOf(*m_label)->getPreferredSize();
    m_label->setBounds(QRect(5, 6, 300, text.height()));
    m_label->validate();
    QCOMPARE(pixmapFigureOf(*m_label)->getBounds().left(), 0);
    QCOMPARE(pixmapFigureOf(*m_label)->getBounds().size(), QSize(20, 10));
    QCOMPARE(textFigureOf(*m_label)->getBounds(), QRect(QPoint(22, 0), text));
}

void tst_LabelFigure::pixmapStandsAboveTheText()
{
    m_label->setOrientation(Qt::Vertical);
    const QSize text = textFigureOf(*m_label)->getPreferredSize();
    m_label->setBounds(QRect(5, 6, 300, 200));
    m_label->validate();
    QCOMPARE(pixmapFigureOf(*m_label)->getBounds(), QRect(0, 0, 20, 10));
    QCOMPARE(textFigureOf(*m_label)->getBounds(), QRect(QPoint(0, 12), text));
}

void tst_LabelFigure::preferredSizeFollowsTheChildren()
{
    const QSize text = textFigureOf(*m_label)->getPreferredSize();
    QCOMPARE(m_label->getPreferredSize(), QSize(20 + 2 + text.width(), qMax(10, text.height())));
    m_label->setPixmap(pixmapOf(QSize(50, 60)));
    QCOMPARE(m_label->getPreferredSize(), QSize(50 + 2 + text.width(), 60));
}

void tst_LabelFigure::otherOrientationReplacesAndDeletesTheLayout()
{
    const QPointer<Layout> old = m_label->getLayoutManager();
    m_label->setOrientation(Qt::Vertical);
    QVERIFY(old.isNull());
    QCOMPARE(m_label->getLayoutManager()->getFigure(), m_label.get());
}

void tst_LabelFigure::sameOrientationReplacesTheLayoutToo()
{
    const QPointer<Layout> old = m_label->getLayoutManager();
    m_label->setOrientation(Qt::Horizontal);
    QVERIFY(old.isNull());
    QCOMPARE(m_label->childFigures(), partsOf(*m_label));
}

void tst_LabelFigure::layoutOfTheUserIsReplacedAndDeleted()
{
    const QPointer<Layout> own = new ProbeLayout;
    delete m_label->setLayoutManager(own);
    m_label->setOrientation(Qt::Vertical);
    QVERIFY(own.isNull());
}

void tst_LabelFigure::childrenMoveAlongInTheirOrder()
{
    const QList<Figure *> parts = partsOf(*m_label);
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), parts);
    QCOMPARE(parts.at(0)->getParentFigure(), m_label.get());
    QCOMPARE(parts.at(1)->getParentFigure(), m_label.get());
    QCOMPARE(brokenInvariant(m_label.get()), QString());
}

void tst_LabelFigure::childrenLeaveTheOldLayoutBeforeItIsReplaced()
{
    CallLog log;
    LayoutListenerProbe listener(QStringLiteral("listener"), log);
    m_label->setObjectName(QStringLiteral("label"));
    m_label->getLayoutManager()->addListener(&listener);
    m_label->setOrientation(Qt::Vertical);
    // Each is told by a layout that still has its figure.
    QCOMPARE(log.only({QStringLiteral("remove")}), QStringList({"listener.remove(label)", "listener.remove(label)"}));
}

void tst_LabelFigure::otherChildrenMoveAlong()
{
    ProbeFigure other;
    m_label->add(&other, 0, 0, 1);
    const QList<Figure *> children = m_label->childFigures();
    QCOMPARE(children.at(1), &other);
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), children);
}

void tst_LabelFigure::childrenMoveAlongWhileShown()
{
    ShownTree tree;
    tree.show(*m_label);
    m_label->setBounds(QRect(5, 6, 300, 200));
    m_label->validate();
    tree.forget();
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), partsOf(*m_label));
    QCOMPARE(brokenInvariant(&tree.root()), QString());
    QVERIFY(textFigureOf(*m_label)->getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(!m_label->getFlag(Figure::FLAG_VALID));
    QVERIFY(!tree.takeRepaints().isEmpty());
    tree.root().remove(m_label.get());
}

void tst_LabelFigure::labelDeletedWhileItsChildrenMoveIsSurvived_data()
{
    QTest::addColumn<int>("call");
    QTest::newRow("first child leaves") << 1;
    QTest::newRow("second child leaves") << 2;
    QTest::newRow("first child enters") << 3;
    QTest::newRow("second child enters") << 4;
}

// The children change their parent figure four times.
void tst_LabelFigure::labelDeletedWhileItsChildrenMoveIsSurvived()
{
    QFETCH(int, call);
    auto *label = new LabelFigure(helloText, pixmapOf(QSize(20, 10)), Qt::Horizontal);
    const QPointer<LabelFigure> guard(label);
    // Deleting the label now must not take the child along whose signal is being heard.
    const QList<Figure *> parts = partsOf(*label);
    int calls = 0;
    for (Figure *part : parts) {
        part->setParent(nullptr);
        connect(part, &Figure::propertyChanged, this, [&] {
            if (++calls == call)
                delete guard.data();
        });
    }
    label->setOrientation(Qt::Vertical);
    QVERIFY(guard.isNull());
    QCOMPARE(calls, call);
    qDeleteAll(parts);
}

void tst_LabelFigure::orientationSetWhileTheChildrenMoveWins()
{
    LabelFigure label(helloText, pixmapOf(QSize(20, 10)), Qt::Horizontal);
    const QList<Figure *> parts = partsOf(label);
    bool isFirst = true;
    connect(parts.first(), &Figure::propertyChanged, this, [&] {
        if (std::exchange(isFirst, false))
            label.setOrientation(Qt::Horizontal);
    });
    label.setOrientation(Qt::Vertical);
    QVERIFY(qobject_cast<HBoxLayout *>(label.getLayoutManager()));
    QCOMPARE(label.childFigures(), parts);
    QCOMPARE(label.findChildren<Layout *>().size(), 1);
    QCOMPARE(brokenInvariant(&label), QString());
}

void tst_LabelFigure::newLayoutTakesTheExpandingDirections()
{
    m_label->setExpandingDirections(Qt::Horizontal);
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->getLayoutManager()->expandingDirections(), Qt::Orientations(Qt::Horizontal));
}

void tst_LabelFigure::expandingDirectionsReachTheLayout()
{
    m_label->setExpandingDirections(Qt::Vertical);
    QCOMPARE(m_label->getLayoutManager()->expandingDirections(), Qt::Orientations(Qt::Vertical));
    QCOMPARE(m_label->expandingDirections(), Qt::Orientations(Qt::Vertical));
    // The label's own value shows when there is no layout manager to ask.
    delete m_label->getLayoutManager();
    QCOMPARE(m_label->expandingDirections(), Qt::Orientations(Qt::Vertical));
    m_label->setExpandingDirections(Qt::Horizontal);
    QCOMPARE(m_label->expandingDirections(), Qt::Orientations(Qt::Horizontal));
}

void tst_LabelFigure::deletedTextChildIsLetGo()
{
    delete textFigureOf(*m_label);
    m_label->setText(QStringLiteral("lost"));
    QCOMPARE(m_label->getText(), QString());
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), QList<Figure *>({pixmapFigureOf(*m_label)}));
    QCOMPARE(m_label->getPixmap().size(), QSize(20, 10));
}

void tst_LabelFigure::deletedPixmapChildIsLetGo()
{
    delete pixmapFigureOf(*m_label);
    m_label->setPixmap(pixmapOf(QSize(1, 1)));
    QVERIFY(m_label->getPixmap().isNull());
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), QList<Figure *>({textFigureOf(*m_label)}));
    QCOMPARE(m_label->getText(), helloText);
}

void tst_LabelFigure::labelWithoutChildrenChangesItsOrientation()
{
    qDeleteAll(partsOf(*m_label));
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->childFigures(), QList<Figure *>());
    QCOMPARE(m_label->getLayoutManager()->metaObject()->className(), "Vantrel::Pictel::VBoxLayout");
}

void tst_LabelFigure::deletedLabelTakesItsPartsAlong()
{
    ShownTree tree;
    tree.show(*m_label);
    const QPointer<Layout> layout = m_label->getLayoutManager();
    const QPointer<QObject> pixmap = pixmapFigureOf(*m_label);
    const QPointer<QObject> text = textFigureOf(*m_label);
    m_label.reset();
    QVERIFY(layout.isNull());
    QVERIFY(pixmap.isNull());
    QVERIFY(text.isNull());
    QCOMPARE(tree.root().childFigures(), QList<Figure *>());
}

void tst_LabelFigure::labelWithDeletedLayoutKeepsWorking()
{
    delete m_label->getLayoutManager();
    m_label->setText(QStringLiteral("alone"));
    QCOMPARE(m_label->getText(), QStringLiteral("alone"));
    m_label->setOrientation(Qt::Vertical);
    QCOMPARE(m_label->getLayoutManager()->metaObject()->className(), "Vantrel::Pictel::VBoxLayout");
}

void tst_LabelFigure::shownLabelPaintsItsParts()
{
    ShownTree tree;
    tree.show(*m_label);
    m_label->setBounds(QRect(5, 6, 300, 40));
    m_label->validate();
    RecordingPaintDevice device;
    paint(*m_label, device);
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Rects, PaintCall::Pixmap, PaintCall::Text}));
    QCOMPARE(device.first(PaintCall::Pixmap).rect().topLeft(), QPointF(105, 206 + 15));
    QCOMPARE(device.texts(), QStringList({helloText}));
    tree.root().remove(m_label.get());
}

PICTEL_TEST_MAIN(tst_LabelFigure)

#include "tst_labelfigure.moc"
