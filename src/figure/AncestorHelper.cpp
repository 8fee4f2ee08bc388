#include <vtlpictel/figure/AncestorHelper.h>

#include <vtlpictel/figure/Figure.h>

#include <QVariant>

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
    const qsizetype first = figure ? m_observed.indexOf(figure) : -1;
    if (first >= 0)
        releaseFrom(first);
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
    if (self && newParent) {
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
    for (const QPointer<Figure> &observed : m_observed) {
        if (observed != expected)
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
    m_observed.append(figure);
    connect(figure, SIGNAL(figureMoved(Figure *)), this, SLOT(figureMoved(Figure *)));
    connect(figure, SIGNAL(destroyed(QObject *)), this, SLOT(ancestorDestroyed(QObject *)));
    figure->addPropertyChangeListener(this);
}

void AncestorHelper::release(Figure *figure)
{
    disconnect(figure, SIGNAL(figureMoved(Figure *)), this, SLOT(figureMoved(Figure *)));
    disconnect(figure, SIGNAL(destroyed(QObject *)), this, SLOT(ancestorDestroyed(QObject *)));
    figure->removePropertyChangeListener(this);
}

// A figure that is being destroyed is a null pointer by now and drops its connections itself.
void AncestorHelper::releaseFrom(qsizetype first)
{
    while (m_observed.size() > first) {
        if (Figure *figure = m_observed.takeLast())
            release(figure);
    }
}

} // namespace Vantrel::Pictel
