#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QPoint;

namespace Vantrel::Pictel {

/// Scales, then rotates, then translates single points.
///
/// Source and result may be in any coordinate systems. Results are rounded half away from zero; a result that no
/// integer can hold becomes the nearest one, not-a-number becomes 0.
class VTLPICTEL_EXPORT Transform : public QObject
{
    Q_OBJECT

public:
    /// Creates the identity.
    explicit Transform(QObject *parent = nullptr);
    ~Transform() override;

    /// Scales both axes by \a scale.
    void setScale(double scale);
    void setScale(double scaleX, double scaleY);
    void setTranslation(double dx, double dy);
    /// Rotates by \a angle radians, which turns the x axis towards the y axis.
    void setRotation(double angle);
    QPoint getTransformed(const QPoint &point) const;

private:
    double m_scaleX = 1.0;
    double m_scaleY = 1.0;
    double m_dx = 0.0;
    double m_dy = 0.0;
    double m_cos = 1.0;
    double m_sin = 0.0;
};

} // namespace Vantrel::Pictel
