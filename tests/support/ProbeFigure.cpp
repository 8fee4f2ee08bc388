#include "support/ProbeFigure.h"

ProbeFigure::ProbeFigure(const QString &name, CallLog *log, QObject *parent)
    : Figure(parent)
    , m_log(log)
{
    setObjectName(name);
}

void ProbeFigure::note(const QString &call) const
{
    if (m_log)
        m_log->add(objectName(), call);
}

void ProbeFigure::note(const char *operation, const QRect &rect) const
{
    note(QStringLiteral("%1(%2)").arg(QLatin1String(operation), CallLog::text(rect)));
}

void ProbeFigure::addNotify()
{
    note(QStringLiteral("addNotify"));
    Figure::addNotify();
}

void ProbeFigure::removeNotify()
{
    note(QStringLiteral("removeNotify"));
    Figure::removeNotify();
}

void ProbeFigure::setParentFigure(Figure *parent)
{
    note(QStringLiteral("setParentFigure(%1)").arg(parent ? parent->objectName() : QStringLiteral("null")));
    Figure::setParentFigure(parent);
}

void ProbeFigure::setEnabled(bool enabled)
{
    note(QStringLiteral("setEnabled(%1)").arg(enabled));
    Figure::setEnabled(enabled);
}

void ProbeFigure::invalidate()
{
    note(QStringLiteral("invalidate"));
    Figure::invalidate();
}

void ProbeFigure::validate()
{
    note(QStringLiteral("validate"));
    Figure::validate();
}

void ProbeFigure::translate(int dx, int dy)
{
    note(QStringLiteral("translate(%1,%2)").arg(dx).arg(dy));
    Figure::translate(dx, dy);
}

void ProbeFigure::erase()
{
    note(QStringLiteral("erase"));
    Figure::erase();
}

void ProbeFigure::revalidate()
{
    note(QStringLiteral("revalidate"));
    Figure::revalidate();
}

void ProbeFigure::repaint(const QRect &rect)
{
    note("repaint", rect);
    Figure::repaint(rect);
}

void ProbeFigure::repaint(int x, int y, int w, int h)
{
    note(QStringLiteral("repaint(%1,%2,%3,%4)").arg(x).arg(y).arg(w).arg(h));
    Figure::repaint(x, y, w, h);
}

void ProbeFigure::repaint()
{
    note(QStringLiteral("repaint"));
    Figure::repaint();
}

void ProbeFigure::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    note("render", option.rect);
    Figure::render(painter, option);
}

QRect ProbeFigure::getBoundingRect()
{
    return m_boundingRect ? *m_boundingRect : Figure::getBoundingRect();
}

Vantrel::Pictel::UpdateManager *ProbeFigure::getUpdateManager() const
{
    if (m_rootUpdateManager && getFlag(FLAG_NOTIFIED))
        return m_rootUpdateManager;
    return Figure::getUpdateManager();
}

void ProbeFigure::layout()
{
    note(QStringLiteral("layout"));
    Figure::layout();
}

QSize ProbeFigure::calculateContentSize()
{
    return m_contentSize ? *m_contentSize : Figure::calculateContentSize();
}

void ProbeFigure::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    note("drawBackground", option.rect);
    Figure::drawBackground(painter, option);
}

void ProbeFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    note("drawFigure", option.rect);
    Figure::drawFigure(painter, option);
}

void ProbeFigure::drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                             const Vantrel::Pictel::Border *border) const
{
    note("drawBorder", option.rect);
    Figure::drawBorder(painter, option, border);
}

void ProbeFigure::drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const
{
    note("drawChildren", option.rect);
    Figure::drawChildren(painter, option);
}

void ProbeFigure::primTranslate(int dx, int dy)
{
    note(QStringLiteral("primTranslate(%1,%2)").arg(dx).arg(dy));
    Figure::primTranslate(dx, dy);
}
