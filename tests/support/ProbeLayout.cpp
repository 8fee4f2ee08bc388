#include "support/ProbeLayout.h"

#include <vtlpictel/figure/Figure.h>

namespace {

QString nameOf(const Vantrel::Pictel::Figure *figure)
{
    return figure ? figure->objectName() : QStringLiteral("null");
}

} // namespace

ProbeLayout::ProbeLayout(const QString &name, CallLog *log, QObject *parent)
    : Layout(parent)
    , m_log(log)
{
    setObjectName(name);
}

void ProbeLayout::note(const QString &call) const
{
    if (m_log)
        m_log->add(objectName(), call);
}

bool ProbeLayout::add(Figure *child, const QVariant &constraint, int index)
{
    note(QStringLiteral("add(%1,%2,%3)").arg(nameOf(child), constraint.toString()).arg(index));
    return Layout::add(child, constraint, index);
}

bool ProbeLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    note(QStringLiteral("add(%1,%2,%3,%4)").arg(nameOf(child)).arg(vStretch).arg(hStretch).arg(index));
    return Layout::add(child, vStretch, hStretch, index);
}

bool ProbeLayout::remove(Figure *child)
{
    note(QStringLiteral("remove(%1)").arg(nameOf(child)));
    return Layout::remove(child);
}

bool ProbeLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    note(QStringLiteral("setConstraint(%1)").arg(nameOf(child)));
    return Layout::setConstraint(child, constraint);
}

void ProbeLayout::invalidate()
{
    note(QStringLiteral("invalidate"));
    Layout::invalidate();
}

QSize ProbeLayout::calculatePreferredSize()
{
    note(QStringLiteral("calculatePreferredSize"));
    return preferredSize;
}

QSize ProbeLayout::calculateMinimumSize()
{
    note(QStringLiteral("calculateMinimumSize"));
    return minimumSize;
}

bool ProbeLayout::performLayout(const QRect &clientArea)
{
    note(QStringLiteral("performLayout(%1)").arg(CallLog::text(clientArea)));
    return layoutSucceeds;
}

bool ProbeLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    note(QStringLiteral("applyConstraint(%1)").arg(nameOf(child)));
    return Layout::applyConstraint(child, constraint);
}

LayoutListenerProbe::LayoutListenerProbe(const QString &name, CallLog &log, bool laysOut)
    : m_name(name)
    , m_log(log)
    , m_laysOut(laysOut)
{ }

void LayoutListenerProbe::note(const char *operation, const Figure *container)
{
    m_log.add(m_name, QStringLiteral("%1(%2)").arg(QLatin1String(operation), nameOf(container)));
}

void LayoutListenerProbe::invalidate(Figure *container)
{
    note("invalidate", container);
}

bool LayoutListenerProbe::layout(Figure *container)
{
    note("layout", container);
    return m_laysOut;
}

void LayoutListenerProbe::postLayout(Figure *container)
{
    note("postLayout", container);
}

void LayoutListenerProbe::remove(Figure *container)
{
    note("remove", container);
}

void LayoutListenerProbe::setConstraint(Figure *container, const QVariant &)
{
    note("setConstraint", container);
}
