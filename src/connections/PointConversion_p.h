#pragma once

#include "support/Rounding.h"

#include <QList>

namespace Vantrel::Pictel {

inline QList<QPoint> integerPoints(const QList<QPoint> &points)
{
    return points;
}

/// Rounds each coordinate half away from zero.
inline QList<QPoint> integerPoints(const QList<QPointF> &points)
{
    QList<QPoint> rounded;
    rounded.reserve(points.size());
    for (const QPointF &point : points)
        rounded.append(roundedPoint(point));
    return rounded;
}

inline QList<QPointF> realPoints(const QList<QPointF> &points)
{
    return points;
}

inline QList<QPointF> realPoints(const QList<QPoint> &points)
{
    return QList<QPointF>(points.begin(), points.end());
}

} // namespace Vantrel::Pictel
