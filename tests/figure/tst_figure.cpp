#include "support/CallLog.h"
#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IPropertyChangeListener.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <climits>

using namespace Vantrel::Pictel;

namespace {

constexpr int unbounded = 0x7ffffff;

QMetaMethod signalNamed(const QMetaObject &meta, const char *signature)
{
    return meta.method(meta.indexOfSignal(signature));
}

class PropertyListener : public QObject, public IPropertyChangeListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IPropertyChangeListener)

public:
    QStringList names;

public Q_SLOTS:
    void propertyChanged(const QString &name, const QVariant &, const QVariant &) override { names << name; }
};

/// Implements the interface without being a QObject.
class DetachedListener : public IPropertyChangeListener
{
public:
    void propertyChanged(const QString &, const QVariant &, const QVariant &) override { called = true; }
    bool called = false;
};

} // namespace

class tst_Figure : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newFigureHasItsDefaults();
    void constructorTakesParentAndBackground();
    void metaObjectNamesSignalsSlotsAndParameters();
    void castsToItsInterface();
    void flagsAreTestedByAnyBitOfTheMask();
    void setFlagChangesOnlyTheMask();
    void flagConstantsHaveTheirValues();

    void hideErasesBeforeItTakesTheFlag();
    void showRepaintsAfterItSetTheFlag();
    void sameVisibilityDoesNothing();
    void setEnabledIsAPlainStore();
    void setChildrenEnabledIsNotRecursive();
    void backgroundIsStoredThenRepainted();
    void borderAndTooltipArePlainStores();
    void marginIsNeverNegative();
    void expandingDirectionsKeepTwoBits();
    void expandingDirectionsComeFromTheLayout();
    void highlightRepaintsAlways();
    void highlightStyleRepaintsOnlyWhenHighlighted();
    void localCoordinatesFollowTheLayout();

    void propertyListenerHearsUntilRemoved();
    void propertyListenerAddedTwiceHearsTwice();
    void listenerThatIsNoObjectIsIgnored();
    void nullListenersAreIgnored();
};

void tst_Figure::newFigureHasItsDefaults()
{
    ProbeFigure figure;
    QCOMPARE(figure.getBounds(), QRect());
    QCOMPARE(figure.getBoundingRect(), QRect());
    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
    QCOMPARE(figure.getMaximumSize(), QSize(unbounded, unbounded));
    QCOMPARE(figure.getMargin(), 0);
    QVERIFY(figure.isVisible());
    QVERIFY(figure.isEnabled());
    QVERIFY(!figure.isValid());
    QVERIFY(!figure.getFlag(~(Figure::FLAG_VISIBLE | Figure::FLAG_ENABLED)));
    QCOMPARE(figure.getBackgroundColor(), QColor(Qt::white));
    QCOMPARE(figure.getParentFigure(), nullptr);
    QCOMPARE(figure.getLayoutManager(), nullptr);
    QCOMPARE(figure.getBorder(), nullptr);
    QCOMPARE(figure.getTooltip(), nullptr);
    QCOMPARE(figure.getUpdateManager(), nullptr);
    QCOMPARE(figure.expandingDirections(), Qt::Orientations());
    QVERIFY(!figure.isClientAreaHighlighted());
    QCOMPARE(figure.getHighlightStyle(), 1);
    QVERIFY(figure.useLocalCoordinates());
}

void tst_Figure::constructorTakesParentAndBackground()
{
    QObject parent;
    const auto *figure = new Figure(&parent, Qt::red);
    QCOMPARE(figure->parent(), &parent);
    QCOMPARE(figure->getParentFigure(), nullptr);
    QCOMPARE(Figure(nullptr, Qt::red).getBackgroundColor(), QColor(Qt::red));
}

void tst_Figure::metaObjectNamesSignalsSlotsAndParameters()
{
    const QMetaObject &meta = Figure::staticMetaObject;
    QCOMPARE(meta.className(), "Vantrel::Pictel::Figure");
    QCOMPARE(signalNamed(meta, "ancestorAdded(Figure*)").parameterNames(), QList<QByteArray>({"pAncestor"}));
    QCOMPARE(signalNamed(meta, "ancestorMoved(Figure*)").parameterNames(), QList<QByteArray>({"pAncsetor"}));
    QCOMPARE(signalNamed(meta, "ancestorRemoved(Figure*)").parameterNames(), QList<QByteArray>({"pAncestor"}));
    QCOMPARE(signalNamed(meta, "figureMoved(Figure*)").parameterNames(), QList<QByteArray>({"pFigure"}));
    QCOMPARE(signalNamed(meta, "propertyChanged(QString,QVariant,QVariant)").parameterNames(),
             QList<QByteArray>({"propertyName", "oldValue", "newValue"}));
    for (const char *slot : {"erase()", "revalidate()", "repaint()", "repaint(int,int,int,int)", "repaint(QRect)"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    QCOMPARE(Figure::PROPERTY_PARENT, QStringLiteral("parent"));
}

void tst_Figure::castsToItsInterface()
{
    Figure figure;
    IFigure *interface = &figure;
    QCOMPARE(qobject_interface_iid<IFigure *>(), "IFigure.Pictel.Vantrel.vantrel.org");
    QCOMPARE(qobject_cast<IFigure *>(static_cast<QObject *>(&figure)), interface);
    QCOMPARE(figure.qt_metacast("IFigure.Pictel.Vantrel.vantrel.org"), static_cast<void *>(interface));
    QCOMPARE(figure.qt_metacast("Vantrel::Pictel::Figure"), static_cast<void *>(&figure));
    QCOMPARE(figure.qt_metacast("IConnection.Pictel.Vantrel.vantrel.org"), nullptr);
}

void tst_Figure::flagsAreTestedByAnyBitOfTheMask()
{
    const Figure figure;
    QVERIFY(figure.getFlag(Figure::FLAG_VISIBLE | Figure::FLAG_VALID));
    QVERIFY(!figure.getFlag(Figure::FLAG_VALID | Figure::FLAG_CONTENT_SIZED));
    QVERIFY(!figure.getFlag(0));
}

void tst_Figure::setFlagChangesOnlyTheMask()
{
    ProbeFigure figure;
    figure.setFlag(Figure::FLAG_CONTENT_SIZED | Figure::FLAG_VALID, true);
    QVERIFY(figure.getFlag(Figure::FLAG_CONTENT_SIZED));
    QVERIFY(figure.isValid());
    QVERIFY(figure.isVisible());
    figure.setFlag(Figure::FLAG_CONTENT_SIZED | Figure::FLAG_VISIBLE, false);
    QVERIFY(!figure.getFlag(Figure::FLAG_CONTENT_SIZED));
    QVERIFY(!figure.isVisible());
    QVERIFY(figure.isValid());
    QVERIFY(figure.isEnabled());
    figure.setValid(false);
    QVERIFY(!figure.isValid());
}

void tst_Figure::flagConstantsHaveTheirValues()
{
    static_assert(Figure::FLAG_VALID == 0x1 && Figure::FLAG_VISIBLE == 0x4);
    static_assert(Figure::FLAG_ENABLED == 0x10 && Figure::FLAG_CONTENT_SIZED == 0x40);
    QCOMPARE(static_cast<unsigned int>(Figure::FLAG_NOTIFIED), 0x80000000U);
    Figure figure;
    figure.addNotify();
    QVERIFY(figure.getFlag(INT_MIN));
}

void tst_Figure::hideErasesBeforeItTakesTheFlag()
{
    CallLog log;
    ProbeFigure parent("parent", &log);
    ProbeFigure figure("figure", &log);
    figure.setParentFigure(&parent);
    figure.setBounds(QRect(1, 2, 3, 4));
    log.clear();
    figure.setVisible(false);
    QVERIFY(!figure.isVisible());
    QCOMPARE(log.calls(),
             QStringList({"figure.erase", "parent.repaint(1,2 3x4)", "figure.revalidate", "figure.invalidate",
                          "parent.revalidate", "parent.invalidate"}));
}

void tst_Figure::showRepaintsAfterItSetTheFlag()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(1, 2, 3, 4));
    figure.setVisible(false);
    log.clear();
    figure.setVisible(true);
    QVERIFY(figure.isVisible());
    QCOMPARE(log.calls(),
             QStringList({"figure.repaint", "figure.repaint(1,2 3x4)", "figure.revalidate", "figure.invalidate"}));
}

void tst_Figure::sameVisibilityDoesNothing()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setVisible(true);
    QCOMPARE(log.calls(), QStringList());
    figure.setVisible(false);
    log.clear();
    figure.setVisible(false);
    QCOMPARE(log.calls(), QStringList());
}

void tst_Figure::setEnabledIsAPlainStore()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    QSignalSpy spy(&figure, &Figure::propertyChanged);
    figure.setEnabled(false);
    QVERIFY(!figure.isEnabled());
    QVERIFY(figure.isVisible());
    figure.setEnabled(true);
    QVERIFY(figure.isEnabled());
    QCOMPARE(log.calls(), QStringList({"figure.setEnabled(0)", "figure.setEnabled(1)"}));
    QCOMPARE(spy.size(), 0);
}

void tst_Figure::setChildrenEnabledIsNotRecursive()
{
    ProbeLayout layout;
    ProbeLayout innerLayout;
    CallLog log;
    ProbeFigure root("root", &log);
    ProbeFigure first("first", &log);
    ProbeFigure second("second", &log);
    ProbeFigure grandchild("grandchild", &log);
    root.setLayoutManager(&layout);
    first.setLayoutManager(&innerLayout);
    root.add(&first);
    root.add(&second);
    first.add(&grandchild);
    log.clear();
    root.setChildrenEnabled(false);
    QCOMPARE(log.calls(), QStringList({"first.setEnabled(0)", "second.setEnabled(0)"}));
    QVERIFY(root.isEnabled());
    QVERIFY(grandchild.isEnabled());
    root.setChildrenEnabled(true);
    QVERIFY(first.isEnabled());
}

void tst_Figure::backgroundIsStoredThenRepainted()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(0, 0, 5, 5));
    log.clear();
    figure.setBackgroundColor(Qt::green);
    QCOMPARE(figure.getBackgroundColor(), QColor(Qt::green));
    QCOMPARE(log.calls(), QStringList({"figure.repaint", "figure.repaint(0,0 5x5)"}));
}

void tst_Figure::borderAndTooltipArePlainStores()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    ProbeBorder border(Insets(1, 1, 1, 1));
    Figure tooltip;
    figure.setBorder(&border);
    figure.setTooltip(&tooltip);
    QCOMPARE(figure.getBorder(), &border);
    QCOMPARE(figure.getTooltip(), &tooltip);
    QCOMPARE(log.calls(), QStringList());
    figure.setBorder(nullptr);
    figure.setTooltip(nullptr);
    QCOMPARE(figure.getBorder(), nullptr);
    QCOMPARE(figure.getTooltip(), nullptr);
}

void tst_Figure::marginIsNeverNegative()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setMargin(3);
    QCOMPARE(figure.getMargin(), 3);
    figure.setMargin(-5);
    QCOMPARE(figure.getMargin(), 0);
    QCOMPARE(log.calls(), QStringList());
}

void tst_Figure::expandingDirectionsKeepTwoBits()
{
    Figure figure;
    figure.setExpandingDirections(Qt::Orientations(0x7e));
    QCOMPARE(figure.expandingDirections().toInt(), 2);
    figure.setExpandingDirections(Qt::Horizontal);
    QCOMPARE(figure.expandingDirections(), Qt::Orientations(Qt::Horizontal));
}

void tst_Figure::expandingDirectionsComeFromTheLayout()
{
    ProbeLayout layout;
    layout.setExpandingDirections(Qt::Vertical);
    Figure figure;
    figure.setExpandingDirections(Qt::Horizontal);
    figure.setLayoutManager(&layout);
    QCOMPARE(figure.expandingDirections(), Qt::Orientations(Qt::Vertical));
    figure.setExpandingDirections(Qt::Orientations());
    QCOMPARE(layout.expandingDirections(), Qt::Orientations(Qt::Vertical));
}

void tst_Figure::highlightRepaintsAlways()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setBounds(QRect(0, 0, 5, 5));
    log.clear();
    figure.highlightClientArea(true);
    QVERIFY(figure.isClientAreaHighlighted());
    figure.highlightClientArea(true);
    figure.highlightClientArea(false);
    QVERIFY(!figure.isClientAreaHighlighted());
    QCOMPARE(log.calls().filter("figure.repaint(").size(), 3);
}

void tst_Figure::highlightStyleRepaintsOnlyWhenHighlighted()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    figure.setHighlightStyle(0);
    QCOMPARE(figure.getHighlightStyle(), 0);
    QCOMPARE(log.calls(), QStringList());
    figure.highlightClientArea(true);
    log.clear();
    figure.setHighlightStyle(7);
    QCOMPARE(figure.getHighlightStyle(), 7);
    QCOMPARE(log.calls(), QStringList({"figure.repaint", "figure.repaint(0,0 0x0)"}));
}

void tst_Figure::localCoordinatesFollowTheLayout()
{
    ProbeLayout layout;
    Figure figure;
    QVERIFY(figure.useLocalCoordinates());
    figure.setLayoutManager(&layout);
    QVERIFY(figure.useLocalCoordinates());
    layout.isRelative = false;
    QVERIFY(!figure.useLocalCoordinates());
}

void tst_Figure::propertyListenerHearsUntilRemoved()
{
    Figure figure;
    PropertyListener listener;
    figure.addPropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    QCOMPARE(listener.names, QStringList({"parent"}));
    figure.removePropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    QCOMPARE(listener.names, QStringList({"parent"}));
}

void tst_Figure::propertyListenerAddedTwiceHearsTwice()
{
    Figure figure;
    PropertyListener listener;
    figure.addPropertyChangeListener(&listener);
    figure.addPropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    QCOMPARE(listener.names, QStringList({"parent", "parent"}));
}

void tst_Figure::listenerThatIsNoObjectIsIgnored()
{
    Figure figure;
    DetachedListener listener;
    figure.addPropertyChangeListener(&listener);
    figure.setParentFigure(nullptr);
    figure.removePropertyChangeListener(&listener);
    QVERIFY(!listener.called);
}

void tst_Figure::nullListenersAreIgnored()
{
    Figure figure;
    figure.addPropertyChangeListener(nullptr);
    figure.removePropertyChangeListener(nullptr);
    figure.addAncestorListener(nullptr);
    figure.removeAncestorListener(nullptr);
    figure.setParentFigure(nullptr);
    QCOMPARE(figure.getParentFigure(), nullptr);
}

PICTEL_TEST_MAIN(tst_Figure)
#include "tst_figure.moc"
