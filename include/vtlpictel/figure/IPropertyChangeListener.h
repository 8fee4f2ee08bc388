#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QString;
class QVariant;

namespace Vantrel::Pictel {

/// Hears the property changes that a figure announces.
///
/// Registered with IFigure::addPropertyChangeListener(), which connects the figure's signal `propertyChanged` to the
/// listener; an implementer is therefore a QObject that declares the operation as a slot. The figure does not own its
/// listeners; a deleted listener is simply disconnected.
class VTLPICTEL_EXPORT IPropertyChangeListener
{
public:
    virtual ~IPropertyChangeListener();

    /// The property \a propertyName went from \a oldValue to \a newValue.
    virtual void propertyChanged(const QString &propertyName, const QVariant &oldValue, const QVariant &newValue) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IPropertyChangeListener, "IPropertyChangeListener.Pictel.Vantrel.vantrel.org")
