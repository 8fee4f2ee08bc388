#include <vtlpictel/shapes/RoundedRectangle.h>

#include <algorithm>

namespace Vantrel::Pictel {

namespace {

constexpr int maximumRoundness = 99;
constexpr double quarterTurn = 90.0;

/// The outline of \a rect, counter-clockwise from the top of its top-left corner; \a corner is the size of the
/// ellipses in the four corners.
QPainterPath roundedOutline(const QRectF &rect, const QSizeF &corner)
{
    QRectF ellipse(rect.topLeft(), corner);
    QPainterPath path;
    path.arcMoveTo(ellipse, quarterTurn);
    path.arcTo(ellipse, quarterTurn, quarterTurn);
    ellipse.moveBottom(rect.bottom());
    path.arcTo(ellipse, 2 * quarterTurn, quarterTurn);
    ellipse.moveRight(rect.right());
    path.arcTo(ellipse, 3 * quarterTurn, quarterTurn);
    ellipse.moveTop(rect.top());
    path.arcTo(ellipse, 0.0, quarterTurn);
    path.closeSubpath();
    return path;
}

QPainterPath plainOutline(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

/// Twice the radius that \a percent of \a length gives.
double cornerLength(int percent, double length)
{
    return 2 * (percent * length / 200);
}

} // namespace

RoundedRectangle::RoundedRectangle(QObject *parent)
    : Shape(parent)
{ }

RoundedRectangle::~RoundedRectangle() = default;

void RoundedRectangle::setXRnd(int percent)
{
    m_xRoundness = std::min(percent, maximumRoundness);
}

void RoundedRectangle::setYRnd(int percent)
{
    m_yRoundness = std::min(percent, maximumRoundness);
}

void RoundedRectangle::regeneratePath(const QRectF &bounds)
{
    const QRectF rect = bounds.normalized();
    const QSizeF corner(cornerLength(m_xRoundness, rect.width()), cornerLength(m_yRoundness, rect.height()));
    const bool isPlain = m_xRoundness < 1 || m_yRoundness < 1;
    painterPath() = isPlain ? plainOutline(bounds) : roundedOutline(rect, corner);
}

} // namespace Vantrel::Pictel
