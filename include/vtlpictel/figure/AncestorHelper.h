#pragma once

#include <vtlpictel/figure/IPropertyChangeListener.h>

#include <QList>
#include <QPointer>

namespace Vantrel::Pictel {

class Figure;

/// Watches one figure and every figure above it, and lets that figure announce what happens to the chain.
///
/// A figure creates its helper with the first ancestor listener and deletes it with the last one; the helper owns no
/// figure. It observes the moves and the parent changes of the whole chain, the figure itself included, and what it
/// emits is emitted again by the figure.
///
/// Once any figure of the chain is destroyed the helper observes nothing any more; the chain is not built again.
class VTLPICTEL_EXPORT AncestorHelper : public QObject, public IPropertyChangeListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IPropertyChangeListener)
    Q_MOC_INCLUDE("vtlpictel/figure/Figure.h")

public:
    /// Starts to watch \a figure and its ancestors; a helper without a figure watches nothing.
    explicit AncestorHelper(Figure *figure, QObject *parent = nullptr);
    ~AncestorHelper() override;

protected:
    /// Observes \a figure and each figure above it.
    virtual void addAncestors(Figure *figure);
    /// Lets go of \a figure, if it is observed, and of every figure observed above it.
    virtual void removeAncestors(Figure *figure);

public Q_SLOTS:
    /// Follows an observed figure to its new parent; other properties than the parent are ignored.
    void propertyChanged(const QString &propertyName, const QVariant &oldValue, const QVariant &newValue) override;
    /// Announces that \a figure moved; null is ignored.
    void figureMoved(Figure *figure);
    /// Ends all observation; null is ignored.
    void ancestorDestroyed(QObject *object);

Q_SIGNALS:
    void ancestorAdded(Figure *pAncestor);
    void ancestorMoved(Figure *pAncestor);
    void ancestorRemoved(Figure *pAncestor);

protected:
    /// Lets go of every observed figure and of the figure served.
    void cleanup();

private:
    void catchUp();
    bool isChainObserved() const;
    void observe(Figure *figure);
    void releaseFrom(qsizetype first);

    QPointer<Figure> m_figure;
    // From the figure upwards. A chain with a dying figure in it cannot be walked, so it is remembered.
    struct Observed
    {
        QPointer<Figure> figure;
        QMetaObject::Connection moves;
        QMetaObject::Connection destruction;
    };
    void release(const Observed &observed);

    QList<Observed> m_observed;
};

} // namespace Vantrel::Pictel
