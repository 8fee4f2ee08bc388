#pragma once

#include <vtlpictel/shapes/Polyline.h>

namespace Vantrel::Pictel {

/// A polyline whose last point is joined to its first.
///
/// It is not filled unless setFill() says so, but it is hit anywhere in its area, and nowhere beside it: there is no
/// tolerance around its outline.
class VTLPICTEL_EXPORT Polygon : public Polyline
{
    Q_OBJECT

public:
    explicit Polygon(QObject *parent = nullptr);
    ~Polygon() override;

    /// True when \a point (parent's coordinates) lies in the area of the polygon, or in a child.
    bool contains(const QPoint &point) const override;

protected Q_SLOTS:
    void regeneratePath(const QRectF &bounds) override;
};

} // namespace Vantrel::Pictel
