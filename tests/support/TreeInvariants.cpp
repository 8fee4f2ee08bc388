#include "support/TreeInvariants.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/Layout.h>

#include <QSet>

using Vantrel::Pictel::Figure;
using Vantrel::Pictel::Layout;

namespace {

QString describe(const Figure *figure)
{
    return QStringLiteral("%1 \"%2\" (0x%3)")
        .arg(QString::fromLatin1(figure->metaObject()->className()), figure->objectName())
        .arg(reinterpret_cast<quintptr>(figure), 0, 16);
}

bool isNotified(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_NOTIFIED);
}

class Checker
{
public:
    explicit Checker(Figure *root)
        : m_root(root)
    { }

    void requireValid() { m_mustBeValid = true; }
    QString firstBreach(Figure *figure);

private:
    QString breachOfFigure(Figure *figure) const;
    QString breachOfContainer(Figure *figure) const;
    QString breachOfChild(const Figure *parent, Figure *child);

    Figure *m_root;
    bool m_mustBeValid = false;
    QSet<const Figure *> m_seen;
};

QString Checker::breachOfFigure(Figure *figure) const
{
    if (m_mustBeValid && !figure->getFlag(Figure::FLAG_VALID))
        return QStringLiteral("%1 is not valid").arg(describe(figure));
    const auto *expected = isNotified(figure) ? m_root->getUpdateManager() : nullptr;
    if (figure->getUpdateManager() != expected)
        return QStringLiteral("%1 reaches another update manager than the root").arg(describe(figure));
    return figure->getLayoutManager() ? breachOfContainer(figure) : QString();
}

QString Checker::breachOfContainer(Figure *figure) const
{
    if (figure->getLayoutManager()->getFigure() != figure)
        return QStringLiteral("the layout of %1 has another container").arg(describe(figure));
    if (figure->childFigureCount() != figure->childFigures().size())
        return QStringLiteral("%1 counts %2 children and lists %3")
            .arg(describe(figure))
            .arg(figure->childFigureCount())
            .arg(figure->childFigures().size());
    return QString();
}

QString Checker::breachOfChild(const Figure *parent, Figure *child)
{
    if (!child)
        return QStringLiteral("%1 lists null as a child").arg(describe(parent));
    if (m_seen.contains(child))
        return QStringLiteral("%1 lists %2, which was listed before").arg(describe(parent), describe(child));
    if (child->getParentFigure() != parent)
        return QStringLiteral("%1 lists %2, which has another parent").arg(describe(parent), describe(child));
    if (isNotified(child) != isNotified(parent))
        return QStringLiteral("%1 and its child %2 are not both notified").arg(describe(parent), describe(child));
    return firstBreach(child);
}

QString Checker::firstBreach(Figure *figure)
{
    m_seen.insert(figure);
    QString breach = breachOfFigure(figure);
    for (Figure *child : figure->childFigures()) {
        if (!breach.isEmpty())
            return breach;
        breach = breachOfChild(figure, child);
    }
    return breach;
}

} // namespace

QString brokenInvariant(Figure *root)
{
    return root ? Checker(root).firstBreach(root) : QString();
}

QString brokenInvariantOfValidTree(Figure *root)
{
    if (!root)
        return QString();
    Checker checker(root);
    checker.requireValid();
    return checker.firstBreach(root);
}
