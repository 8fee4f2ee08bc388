#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

namespace Vantrel::Pictel {

class Figure;

/// Places a figure relative to something else: a connection, one of its ends, another figure.
///
/// A locator serves as the constraint of a child in the layouts that honour locators. It never owns the figure that
/// it places, and it must be called again whenever its reference has changed; the layouts do so while laying out.
class VTLPICTEL_EXPORT ILocator
{
public:
    virtual ~ILocator();

    /// Computes new bounds for \a target, in the coordinates of its parent, and sets them.
    virtual void relocate(Figure *target) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::ILocator, "ILocator.Pictel.Vantrel.vantrel.org")
