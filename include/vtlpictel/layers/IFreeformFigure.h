#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>
#include <QRect>

namespace Vantrel::Pictel {

/// A figure without fixed borders: it reports how far its content reaches and takes its bounds from above.
///
/// An implementer declares extentChanged() as a signal, so that those who watch the extent can connect to it.
class VTLPICTEL_EXPORT IFreeformFigure
{
public:
    virtual ~IFreeformFigure();

    /// The rectangle that the content covers, in the coordinates of the figure's bounds; null without content.
    virtual QRect getFreeformExtent() = 0;
    /// Gives the figure the bounds \a bounds, in its parent's coordinates.
    virtual void setFreeformBounds(const QRect &bounds) = 0;
    /// Announces that getFreeformExtent() has a new answer.
    virtual void extentChanged() = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IFreeformFigure, "IFreeformFigure.Pictel.Vantrel.vantrel.org")
