#include "layout/NotedScene.h"
#include "support/ProbeBorder.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/StackLayout.h>

#include <QImage>
#include <QTest>

#include <array>
#include <random>

using namespace Vantrel::Pictel;

namespace {

using Random = std::mt19937;

constexpr int FigureCount = 24;
constexpr int StepCount = 2000;
const QRect everything(0, 0, 300, 300);

QStringList *messages = nullptr;

void collectMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    messages->append(text);
}

/// Keeps the messages of the library from the test framework while it lives.
class MessageCollector
{
public:
    explicit MessageCollector(QStringList &log)
        : m_previous(qInstallMessageHandler(collectMessage))
    {
        messages = &log;
    }
    ~MessageCollector() { qInstallMessageHandler(m_previous); }
    MessageCollector(const MessageCollector &) = delete;
    MessageCollector &operator=(const MessageCollector &) = delete;

private:
    QtMessageHandler m_previous;
};

/// A figure that logs, under its number, how it is drawn and laid out.
class LoggingFigure : public Figure
{
public:
    LoggingFigure(int number, QStringList &log)
        : Figure(nullptr, number == 0 ? QColor(Qt::white) : QColor::fromHsv(number * 14, 200, 255))
        , m_number(number)
        , m_log(log)
    {
        connect(this, &Figure::figureMoved, this, [this] { note("moved"); });
    }
    using Figure::setValid;

    int number() const { return m_number; }

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override { note("draw"); }
    void layout() override
    {
        note("layout");
        Figure::layout();
    }

private:
    void note(const char *event) const { m_log << QStringLiteral("%1 %2").arg(event).arg(m_number); }

    int m_number;
    QStringList &m_log;
};

/// Overrides the first thing that is asked of a child, so that it has to be asked each time.
class AskedFigure : public LoggingFigure
{
public:
    using LoggingFigure::LoggingFigure;
    bool isVisible() const override { return LoggingFigure::isVisible(); }
};

/// Figures of one class, to which a random history happens. Equal histories have equal results, whatever the class.
template <typename Child>
class World
{
public:
    World();
    ~World();
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    /// Lets the next thing happen.
    void step(Random &random);
    QStringList takeLog() { return std::exchange(m_log, {}); }
    QImage picture;

private:
    using Event = void (World::*)(Child &figure);

    static const QList<Event> &events();
    int pick(int count) { return static_cast<int>((*m_random)() % static_cast<unsigned int>(count)); }
    bool isOneIn(int count) { return pick(count) == 0; }
    Child *any() { return m_figures[static_cast<std::size_t>(pick(FigureCount))]; }
    Child &root() { return *m_figures.front(); }
    bool isRoot(const Child &figure) const { return &figure == m_figures.front(); }
    QRect anyRootBounds() { return everything.translated(pick(20) - 10, pick(20) - 10); }
    QRect anyRect();
    QRect anyArea();
    Layout *makeLayout(Figure &container);
    void make(int number);
    void leaveAll(Figure &figure);
    void note(const char *what, const Figure *figure);
    void note(const char *what, const QList<Figure *> &figures);

    void move(Child &figure) { figure.setBounds(isRoot(figure) ? anyRootBounds() : anyRect()); }
    void shift(Child &figure) { figure.translate(pick(40) - 20, pick(40) - 20); }
    void changeVisibility(Child &figure) { figure.setVisible(isRoot(figure) || !figure.isVisible()); }
    void changeMargin(Child &figure) { figure.setMargin(pick(12)); }
    void changeBorder(Child &figure) { figure.setBorder(isOneIn(2) ? &m_border : nullptr); }
    void changeParent(Child &figure) { figure.setParentFigure(isOneIn(5) ? nullptr : any()); }
    void changeLayout(Child &figure);
    void changeConstraint(Child &figure);
    void addTo(Child &figure);
    void removeFrom(Child &figure);
    void replace(Child &figure);
    void invalidate(Child &figure) { figure.invalidate(); }
    void invalidateOnly(Child &figure) { figure.setValid(false); }
    void revalidate(Child &figure) { figure.revalidate(); }
    void validate(Child &figure) { figure.validate(); }
    void validateRoot(Child &) { root().validate(); }
    void paint(Child &);
    void paintAlone(Child &figure);
    void search(Child &);
    void hitTest(Child &);

    QStringList m_log;
    ProbeBorder m_border {Insets(1, 2, 3, 4)};
    std::array<Child *, FigureCount> m_figures {};
    Random *m_random = nullptr;
};

template <typename Child>
World<Child>::World()
    : picture(everything.size(), QImage::Format_RGB32)
{
    for (int number = 0; number < FigureCount; ++number)
        make(number);
    root().setLayoutManager(new XYLayout(&root()));
    for (Child *figure : m_figures) {
        figure->setBounds(QRect(figure->number() * 10, figure->number() * 7, 60, 50));
        root().add(figure);
    }
    root().setBounds(everything);
    picture.fill(Qt::black);
}

template <typename Child>
World<Child>::~World()
{
    const MessageCollector collector(m_log);
    for (Child *figure : m_figures)
        delete figure;
}

template <typename Child>
const QList<typename World<Child>::Event> &World<Child>::events()
{
    static const QList<Event> all {
        &World::move,
        &World::move,
        &World::move,
        &World::shift,
        &World::shift,
        &World::addTo,
        &World::addTo,
        &World::addTo,
        &World::addTo,
        &World::removeFrom,
        &World::changeMargin,
        &World::changeBorder,
        &World::changeParent,
        &World::changeLayout,
        &World::changeVisibility,
        &World::changeVisibility,
        &World::replace,
        &World::invalidate,
        &World::invalidateOnly,
        &World::revalidate,
        &World::validate,
        &World::validateRoot,
        &World::validateRoot,
        &World::changeConstraint,
        &World::paint,
        &World::paint,
        &World::paint,
        &World::paintAlone,
        &World::search,
        &World::search,
        &World::search,
        &World::hitTest,
        &World::hitTest,
        &World::hitTest,
        &World::hitTest,
        &World::changeConstraint,
    };
    return all;
}

template <typename Child>
void World<Child>::step(Random &random)
{
    m_random = &random;
    const MessageCollector collector(m_log);
    const Event event = events().at(pick(static_cast<int>(events().size())));
    (this->*event)(*any());
}

template <typename Child>
QRect World<Child>::anyRect()
{
    const QPoint topLeft(pick(260) - 30, pick(260) - 30);
    return isOneIn(30) ? QRect(topLeft, QSize(pick(40) - 30, pick(40) - 30))
                       : QRect(topLeft, QSize(1 + pick(90), 1 + pick(90)));
}

template <typename Child>
QRect World<Child>::anyArea()
{
    return isOneIn(6) ? everything : isOneIn(10) ? anyRect() : QRect(pick(300), pick(300), 1 + pick(90), 1 + pick(90));
}

template <typename Child>
Layout *World<Child>::makeLayout(Figure &container)
{
    switch (pick(5)) {
    case 0:
        return new StackLayout(&container);
    case 1:
        return new HBoxLayout(&container);
    case 2:
        return new FreeformLayout(&container, isOneIn(2));
    default:
        return new XYLayout(&container);
    }
}

template <typename Child>
void World<Child>::make(int number)
{
    m_figures[static_cast<std::size_t>(number)] = new Child(number, m_log);
}

template <typename Child>
void World<Child>::leaveAll(Figure &figure)
{
    for (Child *container : m_figures) {
        if (container->getLayoutManager())
            container->remove(&figure);
    }
}

template <typename Child>
void World<Child>::note(const char *what, const Figure *figure)
{
    m_log << QStringLiteral("%1 %2").arg(what).arg(figure ? static_cast<const Child *>(figure)->number() : -1);
}

template <typename Child>
void World<Child>::note(const char *what, const QList<Figure *> &figures)
{
    for (const Figure *figure : figures)
        note(what, figure);
}

template <typename Child>
void World<Child>::changeLayout(Child &figure)
{
    if (isRoot(figure) && !isOneIn(4))
        return;
    Layout *old = figure.setLayoutManager(makeLayout(figure));
    const QList<Figure *> children = old ? old->childFigures() : QList<Figure *>();
    // Otherwise the children stay those of a layout without a container.
    if (isOneIn(2))
        delete old;
    for (Figure *child : children)
        figure.add(child);
}

template <typename Child>
void World<Child>::changeConstraint(Child &figure)
{
    Figure *parent = figure.getParentFigure();
    Layout *layout = parent ? parent->getLayoutManager() : nullptr;
    if (layout)
        layout->setConstraint(&figure, isOneIn(3) ? QVariant() : QVariant(anyRect()));
}

template <typename Child>
void World<Child>::addTo(Child &figure)
{
    Child *container = isOneIn(2) ? &root() : any();
    if (!container->getLayoutManager() && isOneIn(3))
        container->setLayoutManager(makeLayout(*container));
    // Otherwise a figure is a child of several containers.
    if (container->getLayoutManager() && !isOneIn(8))
        leaveAll(figure);
    const QVariant constraint = isOneIn(4) ? QVariant(anyRect()) : QVariant();
    const int index = pick(8) - 1;
    m_log << QString::number(container->add(&figure, constraint, index));
}

template <typename Child>
void World<Child>::removeFrom(Child &figure)
{
    Figure *parent = figure.getParentFigure();
    m_log << QString::number(parent && parent->remove(&figure));
}

template <typename Child>
void World<Child>::replace(Child &figure)
{
    if (isRoot(figure))
        return;
    const int number = figure.number();
    delete &figure;
    make(number);
    Child &made = *m_figures[static_cast<std::size_t>(number)];
    made.setBounds(anyRect());
    root().add(&made, QVariant(), pick(8) - 1);
}

template <typename Child>
void World<Child>::paint(Child &)
{
    QPainter painter(&picture);
    QStyleOptionViewItem option;
    option.rect = anyArea();
    root().render(&painter, option);
}

template <typename Child>
void World<Child>::paintAlone(Child &figure)
{
    QPainter painter(&picture);
    QStyleOptionViewItem option;
    option.rect = anyArea();
    figure.render(&painter, option);
}

template <typename Child>
void World<Child>::search(Child &)
{
    note("found", root().findFigures(anyArea(), isOneIn(3)));
}

template <typename Child>
void World<Child>::hitTest(Child &)
{
    note("hit", root().findFigureAt(pick(300), pick(300)));
}

} // namespace

/// Whatever happens to figures that a layout knows also happens to figures that it has to ask each time.
class tst_ChildNotesOracle : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void knownFiguresFareAsAskedOnes_data();
    void knownFiguresFareAsAskedOnes();
};

void tst_ChildNotesOracle::knownFiguresFareAsAskedOnes_data()
{
    // More of them to search for longer.
    const int seedCount = qEnvironmentVariableIntValue("CHILD_NOTES_SEEDS");
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= qMax(seedCount, 10); ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

void tst_ChildNotesOracle::knownFiguresFareAsAskedOnes()
{
    QFETCH(int, seed);
    World<LoggingFigure> known;
    World<AskedFigure> asked;
    Random random(static_cast<Random::result_type>(seed));
    for (int number = 0; number < StepCount; ++number) {
        Random same = random;
        known.step(random);
        asked.step(same);
        const QByteArray where = QByteArray("step ") + QByteArray::number(number);
        const QStringList knownLog = known.takeLog();
        const QStringList askedLog = asked.takeLog();
        QVERIFY2(knownLog == askedLog,
                 where + "\n" + knownLog.join(", ").toUtf8() + "\n" + askedLog.join(", ").toUtf8());
        QVERIFY2(random == same, where);
        QVERIFY2(known.picture == asked.picture, where);
    }
}

PICTEL_TEST_MAIN(tst_ChildNotesOracle)
#include "tst_childnotesoracle.moc"
