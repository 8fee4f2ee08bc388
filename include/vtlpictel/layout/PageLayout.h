#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QPainter;
class QRectF;
class QVariant;

namespace Vantrel::Pictel {

/// The page of a printout: where the content goes on the paper and what is printed around it.
///
/// Not a layout manager. A viewer that was given one prints into its content rectangle and then calls
/// paintPageDecoration(). All rectangles are in device pixels. Subclass it for another margin, a header or a frame.
class VTLPICTEL_EXPORT PageLayout : public QObject
{
    Q_OBJECT

public:
    explicit PageLayout(QObject *parent = nullptr);
    ~PageLayout() override;

    /// The area of the painter's device within a margin of 20 millimetres, in whole pixels of its vertical
    /// resolution; null when \a painter is null or paints on nothing.
    virtual QRectF getContentRect(QPainter *painter) const;
    /// Called once per page after the content was painted, with a painter in device pixels; \a pageInfo is invalid
    /// when there is nothing to tell. Does nothing here.
    virtual void paintPageDecoration(QPainter *painter, const QVariant &pageInfo);
};

} // namespace Vantrel::Pictel
