#pragma once

#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/InterfacePointer.h>
#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

class ILocator;

/// A mark that belongs to another figure without being laid out by it: it follows its owner and asks its locator for
/// its place whenever it is validated.
///
/// Neither owner nor locator is owned; either may be deleted at any time. The decoration listens to its owner from
/// addNotify() to removeNotify(); without an owner both leave a warning. Its path stays empty until a subclass draws
/// one.
class VTLPICTEL_EXPORT Decoration : public Shape, public IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IAncestorListener)

public:
    Decoration(Figure *owner, ILocator *locator, QObject *parent = nullptr);
    explicit Decoration(QObject *parent = nullptr);
    ~Decoration() override;

    Figure *getOwner() const;
    /// Stores the owner; a decoration that is shown already keeps listening to the old one.
    void setOwner(Figure *owner);
    ILocator *getLocator() const;
    void setLocator(ILocator *locator);
    bool isManagedExternally() const { return m_managedExternally; }
    /// True leaves placing to the user: the locator is not asked on validation. False by default.
    void setManagedExternally(bool managed) { m_managedExternally = managed; }
    /// The locator as a constraint for a layout: a variant with an ILocator pointer.
    QVariant getConstraint() const;

    void addNotify() override;
    void removeNotify() override;
    /// Has the locator place an invalid decoration; it stays invalid, so that it is placed at every validation.
    void validate() override;

public Q_SLOTS:
    void ancestorAdded(Figure *pAncestor) override;
    void ancestorMoved(Figure *pAncestor) override;
    void ancestorRemoved(Figure *pAncestor) override;

protected Q_SLOTS:
    /// Leaves the path empty; subclasses draw.
    void regeneratePath(const QRectF &bounds) override;

private:
    QPointer<Figure> m_owner;
    InterfacePointer<ILocator> m_locator;
    bool m_managedExternally = false;
};

} // namespace Vantrel::Pictel
