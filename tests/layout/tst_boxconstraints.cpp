#include "layout/BoxLayoutTest.h"
#include "support/ProbeLocator.h"

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

// Counts validations; a valid figure is not laid out again.
class ValidatedFigure : public HintedFigure
{
public:
    using HintedFigure::HintedFigure;

    int validations = 0;

    void validate() override
    {
        ++validations;
        HintedFigure::validate();
    }
};

} // namespace

/// Sizes as constraints of the children of a box layout.
class tst_BoxConstraints : public BoxLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addOrientations(); }
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void sizeConstraintIsRaisedToTheMinimum_data();
    void sizeConstraintIsRaisedToTheMinimum();
    void realSizeConstraintIsRaisedAndStoredAsItIs_data();
    void realSizeConstraintIsRaisedAndStoredAsItIs();
    void sizeConstraintResizesTheChildInPlace();
    void sizeConstraintThatFitsChangesNothing();
    void otherConstraintsGoToTheBase();
    void applyConstraintAnswers();
    void nullOrUnknownChildIsRefused();
    void resizedChildMayDieAtOnce();
};

void tst_BoxConstraints::sizeConstraintIsRaisedToTheMinimum_data()
{
    QTest::addColumn<QSize>("constraint");
    QTest::addColumn<QSize>("stored");

    QTest::newRow("large enough") << QSize(30, 40) << QSize(30, 40);
    QTest::newRow("too small") << QSize(3, 4) << QSize(10, 11);
    QTest::newRow("too narrow") << QSize(3, 40) << QSize(10, 40);
    QTest::newRow("too low") << QSize(30, 4) << QSize(30, 11);
    QTest::newRow("zero") << QSize(0, 0) << QSize(10, 11);
    QTest::newRow("negative width") << QSize(-1, 4) << QSize(-1, 11);
    QTest::newRow("negative height") << QSize(3, -7) << QSize(10, -7);
}

void tst_BoxConstraints::sizeConstraintIsRaisedToTheMinimum()
{
    QFETCH(QSize, constraint);
    QFETCH(QSize, stored);
    HintedFigure child(QSize(20, 20), QSize(10, 11));
    QVERIFY(m_container->add(&child, constraint));
    QCOMPARE(m_layout->getConstraint(&child), QVariant(stored));
    QVERIFY(!m_layout->setConstraint(&child, constraint));
}

void tst_BoxConstraints::realSizeConstraintIsRaisedAndStoredAsItIs_data()
{
    QTest::addColumn<QSizeF>("constraint");
    QTest::addColumn<QSizeF>("stored");
    QTest::addColumn<QSize>("size");

    QTest::newRow("large enough") << QSizeF(30.5, 40.25) << QSizeF(30.5, 40.25) << QSize(31, 40);
    QTest::newRow("too small") << QSizeF(9.9, 10.9) << QSizeF(10, 11) << QSize(10, 11);
    QTest::newRow("negative width") << QSizeF(-0.5, 4) << QSizeF(-0.5, 11) << QSize(20, 11);
    QTest::newRow("negative height") << QSizeF(4, -7.25) << QSizeF(10, -7.25) << QSize(10, 20);
}

void tst_BoxConstraints::realSizeConstraintIsRaisedAndStoredAsItIs()
{
    QFETCH(QSizeF, constraint);
    QFETCH(QSizeF, stored);
    QFETCH(QSize, size);
    HintedFigure child(QSize(20, 20), QSize(10, 11));
    QVERIFY(m_container->add(&child, constraint));
    QCOMPARE(m_layout->getConstraint(&child).typeId(), int(QMetaType::QSizeF));
    QCOMPARE(m_layout->getConstraint(&child).toSizeF(), stored);
    QCOMPARE(child.getBounds().size(), size);
}

void tst_BoxConstraints::sizeConstraintResizesTheChildInPlace()
{
    ValidatedFigure child(QSize(20, 20));
    child.setBounds(QRect(5, 6, 7, 8));
    QVERIFY(m_container->add(&child, QSize(30, 40)));
    QCOMPARE(child.getBounds(), QRect(5, 6, 30, 40));
    QCOMPARE(child.validations, 1);
}

void tst_BoxConstraints::sizeConstraintThatFitsChangesNothing()
{
    ValidatedFigure child(QSize(20, 20));
    child.setBounds(QRect(5, 6, 30, 40));
    QVERIFY(m_container->add(&child, QSize(30, 40)));
    QCOMPARE(child.getBounds(), QRect(5, 6, 30, 40));
    QCOMPARE(child.validations, 0);
}

void tst_BoxConstraints::otherConstraintsGoToTheBase()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    ValidatedFigure child(QSize(20, 20));
    child.setBounds(QRect(5, 6, 30, 40));
    m_container->add(&child, QRect(1, 1, 1, 1));
    QCOMPARE(m_layout->getConstraint(&child), QVariant(QRect(1, 1, 1, 1)));
    QCOMPARE(child.getBounds(), QRect(5, 6, 30, 40));
    m_layout->setConstraint(&child, QVariant::fromValue(&locator));
    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
    QVERIFY(m_layout->setConstraint(&child, QVariant()));
    QCOMPARE(child.validations, 0);
}

void tst_BoxConstraints::applyConstraintAnswers()
{
    HintedFigure child(QSize(20, 20));
    QVERIFY(applyConstraint(&child, QSize(30, 40)));
    QCOMPARE(child.getBounds(), QRect(0, 0, 30, 40));
    QVERIFY(applyConstraint(&child, QSize(30, 40)));
    QVERIFY(applyConstraint(&child, QStringLiteral("west")));
    QVERIFY(!applyConstraint(&child, QVariant()));
    QVERIFY(!applyConstraint(nullptr, QSize(30, 40)));
}

void tst_BoxConstraints::nullOrUnknownChildIsRefused()
{
    HintedFigure stranger(QSize(20, 20));
    QVERIFY(!m_layout->setConstraint(nullptr, QSize(1, 2)));
    QVERIFY(!m_layout->setConstraint(nullptr, QSizeF(1, 2)));
    QVERIFY(!m_layout->setConstraint(&stranger, QSize(1, 2)));
    QCOMPARE(stranger.getBounds(), QRect());
}

void tst_BoxConstraints::resizedChildMayDieAtOnce()
{
    auto child = std::make_unique<ValidatedFigure>(QSize(20, 20));
    connect(child.get(), &Figure::figureMoved, this, [&] { child.reset(); });
    m_container->add(child.get(), QSize(30, 40));
    QCOMPARE(m_container->childFigureCount(), 0);
}

PICTEL_TEST_MAIN(tst_BoxConstraints)
#include "tst_boxconstraints.moc"
