#pragma once

#include <QList>
#include <QPointF>

namespace Vantrel::Pictel {

inline QList<QPointF> toPointsF(const QList<QPoint> &points)
{
    return QList<QPointF>(points.cbegin(), points.cend());
}

} // namespace Vantrel::Pictel
