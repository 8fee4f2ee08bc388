#include <vtlpictel/layout/PageLayout.h>

#include <QPaintDevice>
#include <QPainter>
#include <QRectF>

#include <cmath>

namespace Vantrel::Pictel {

namespace {

// 20 millimetres in inches
constexpr double PageMargin = 0.7874015748031495;

} // namespace

PageLayout::PageLayout(QObject *parent)
    : QObject(parent)
{ }

PageLayout::~PageLayout() = default;

QRectF PageLayout::getContentRect(QPainter *painter) const
{
    const QPaintDevice *device = painter ? painter->device() : nullptr;
    if (!device)
        return QRectF();
    const double margin = std::trunc(device->logicalDpiY() * PageMargin);
    return QRectF(0, 0, device->width(), device->height()).adjusted(margin, margin, -margin, -margin);
}

void PageLayout::paintPageDecoration(QPainter *, const QVariant &) { }

} // namespace Vantrel::Pictel
