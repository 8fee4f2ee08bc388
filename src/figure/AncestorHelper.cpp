#include <vtlpictel/figure/AncestorHelper.h>

#include <vtlpictel/figure/Figure.h>

#include <QVariant>

#include <algorithm>

namespace Vantrel::Pictel {

AncestorHelper::AncestorHelper(Figure *figure, QObject *parent)
    : QObject(parent)
    , m_figure(figure)
{
    if (!figure)
        return;
    AncestorHelper::addAncestors(figure);
    connect(this, SIGNAL(ancestorAdded(Figure *)), figure, SIGNAL(ancestorAdded(Figure *)));
    connect(this, SIGNAL(ancestorMoved(Figure *)), figure, SIGNAL(ancestorMoved(Figure *)));
    connect(this, SIGNAL(ancestorRemoved(Figure *)), figure, SIGNAL(ancestorRemoved(Figure *)));
}

AncestorHelper::~AncestorHelper()
{
    cleanup();
}

void AncestorHelper::addAncestors(Figure *figure)
{
    for (Figure *ancestor = figure; ancestor; ancestor = ancestor->getParentFigure())
        observe(ancestor);
}

void AncestorHelper::removeAncestors(Figure *figure)
{
    if (!figure)
        return;
    const auto isFigure = [figure](const Observed &observed) { return observed.figure == figure; };
    releaseFrom(std::find_if(m_observed.cbegin(), m_observed.cend(), isFigure) - m_observed.cbegin());
}

void AncestorHelper::propertyChanged(const QString &propertyName, const QVariant &oldValue, const QVariant &newValue)
{
    if (propertyName != Figure::PROPERTY_PARENT)
        return;
    const QPointer<AncestorHelper> self(this);
    const QPointer<Figure> newParent = newValue.value<Figure *>();
    if (Figure *oldParent = oldValue.value<Figure *>()) {
        removeAncestors(oldParent);
        Q_EMIT ancestorRemoved(oldParent);
    }
    // Whoever heard of the removal may have destroyed a figure of the chain, which ends the observation for good.
    if (!self || !m_figure)
        return;
    if (newParent) {
        addAncestors(newParent);
        Q_EMIT ancestorAdded(newParent);
    }
    if (self && sender())
        catchUp();
}

// A listener that moves a figure of the chain again has this notification arrive after the one that it causes.
void AncestorHelper::catchUp()
{
    if (isChainObserved())
        return;
    releaseFrom(0);
    addAncestors(m_figure);
}

bool AncestorHelper::isChainObserved() const
{
    const Figure *expected = m_figure;
    for (const Observed &observed : m_observed) {
        if (observed.figure != expected)
            return false;
        expected = expected ? expected->getParentFigure() : nullptr;
    }
    return !expected;
}

void AncestorHelper::figureMoved(Figure *figure)
{
    if (figure)
        Q_EMIT ancestorMoved(figure);
}

void AncestorHelper::ancestorDestroyed(QObject *object)
{
    if (object)
        cleanup();
}

void AncestorHelper::cleanup()
{
    if (m_figure)
        removeAncestors(m_figure);
    releaseFrom(0);
    m_figure.clear();
}

void AncestorHelper::observe(Figure *figure)
{
    m_observed.append({figure, connect(figure, SIGNAL(figureMoved(Figure *)), this, SLOT(figureMoved(Figure *))),
                       connect(figure, SIGNAL(destroyed(QObject *)), this, SLOT(ancestorDestroyed(QObject *)))});
    figure->addPropertyChangeListener(this);
}

// By its handles, since a figure that carries a whole diagram has as many connections as there are helpers below it.
// A figure that is being destroyed is a null pointer by now and drops its connections itself.
void AncestorHelper::release(const Observed &observed)
{
    disconnect(observed.moves);
    disconnect(observed.destruction);
    if (observed.figure)
        observed.figure->removePropertyChangeListener(this);
}

void AncestorHelper::releaseFrom(qsizetype first)
{
    while (m_observed.size() > first)
        release(m_observed.takeLast());
}

} // namespace Vantrel::Pictel
