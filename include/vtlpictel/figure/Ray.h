#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QPoint;

namespace Vantrel::Pictel {

/// A vector of two integers, the difference of two points of one coordinate system.
///
/// Although a QObject it is used as a value: results are new rays without a parent. Integer arithmetic wraps silently.
class VTLPICTEL_EXPORT Ray : public QObject
{
    Q_OBJECT

public:
    /// The vector (0, 0).
    explicit Ray(QObject *parent = nullptr);
    Ray(int x, int y, QObject *parent = nullptr);
    /// The vector from the origin to \a point.
    explicit Ray(const QPoint &point, QObject *parent = nullptr);
    /// The vector leading from \a from to \a to.
    Ray(const QPoint &from, const QPoint &to, QObject *parent = nullptr);
    /// The difference \a to - \a from.
    Ray(const Ray &from, const Ray &to, QObject *parent = nullptr);
    /// Copies the vector and belongs to the same QObject parent as \a other.
    Ray(const Ray &other);
    ~Ray() override;
    /// Copies the vector only; the QObject parent stays.
    Ray &operator=(const Ray &other);

    int x() const { return m_x; }
    int y() const { return m_y; }

    int dotProduct(const Ray &other) const;
    /// The absolute value of the dot product: 0 for perpendicular rays.
    int similarity(const Ray &other) const;
    /// The absolute value of the cross product: 0 for parallel rays.
    int assimilarity(const Ray &other) const;
    Ray getAdded(const Ray &other) const;
    /// Half the sum, truncated toward zero.
    Ray getAveraged(const Ray &other) const;
    Ray getScaled(int factor) const;
    /// The length. The squares are summed as integers: not a number when that sum wraps below zero.
    double length() const;
    /// True whenever the ray has a horizontal component, also when it is mostly vertical.
    bool isHorizontal() const { return m_x != 0; }
    bool operator==(const Ray &other) const;

private:
    int m_x = 0;
    int m_y = 0;
};

} // namespace Vantrel::Pictel
