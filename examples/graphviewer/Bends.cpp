#include "Bends.h"

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/RelativeBendpoint.h>
#include <vtlpictel/figure/IConnection.h>

#include <QLineF>

#include <cmath>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

QSize offset(const QPoint &from, const QPoint &to)
{
    return {to.x() - from.x(), to.y() - from.y()};
}

// A bendpoint drops the fraction of its location. With such weights there is none while the ends stand still.
float exactWeight(double weight)
{
    constexpr double steps = 64;
    return float(std::round(qBound(0.0, weight, 1.0) * steps) / steps);
}

} // namespace

QVariant Bends::bendpoint(const QPoint &point, float weight) const
{
    QPoint place = point;
    m_connection->translateToAbsolute(place);
    RelativeBendpoint bend(m_connection);
    bend.setWeight(weight);
    bend.setRelativeDimensions(offset(m_connection->getSourceAnchor()->getReferencePoint(), place),
                               offset(m_connection->getTargetAnchor()->getReferencePoint(), place));
    return QVariant::fromValue(bend);
}

QPoint Bends::at(int index) const
{
    return m_bends.value(index).value<RelativeBendpoint>().getLocation();
}

int Bends::indexNear(const QPoint &point, double radius) const
{
    int nearest = -1;
    for (int i = 0; i < count(); ++i) {
        const double distance = QLineF(at(i), point).length();
        if (distance < radius) {
            radius = distance;
            nearest = i;
        }
    }
    return nearest;
}

void Bends::insert(int index, const QPoint &point, double weight)
{
    m_bends.insert(qBound(0, index, count()), bendpoint(point, exactWeight(weight)));
}

void Bends::move(int index, const QPoint &point)
{
    if (index >= 0 && index < count())
        m_bends[index] = bendpoint(point, m_bends.at(index).value<RelativeBendpoint>().getWeight());
}

void Bends::remove(int index)
{
    if (index >= 0 && index < count())
        m_bends.removeAt(index);
}

} // namespace GraphViewer
