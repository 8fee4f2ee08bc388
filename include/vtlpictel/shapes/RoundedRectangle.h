#pragma once

#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

/// A rectangle with elliptic corners, as large as its bounds, line included.
///
/// The two roundness values are percentages of width and height: 0 is a plain rectangle, 99 nearly an ellipse.
/// A new roundness shows when the bounds change next.
class VTLPICTEL_EXPORT RoundedRectangle : public Shape
{
    Q_OBJECT

public:
    explicit RoundedRectangle(QObject *parent = nullptr);
    ~RoundedRectangle() override;

    int getXRnd() const { return m_xRoundness; }
    /// Stores the part of the width that is rounded, in percent (default 25); 100 and more become 99, and less than 1
    /// gives plain corners. Neither rebuilds nor repaints.
    void setXRnd(int percent);
    int getYRnd() const { return m_yRoundness; }
    /// Stores the part of the height that is rounded; otherwise as setXRnd().
    void setYRnd(int percent);

protected Q_SLOTS:
    void regeneratePath(const QRectF &bounds) override;

private:
    int m_xRoundness = 25;
    int m_yRoundness = 25;
};

} // namespace Vantrel::Pictel
