#include <vtlpictel/shapes/PixmapFigure.h>

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Vantrel::Pictel {

namespace {

constexpr QSize noMinimum(-1, -1);
constexpr QSize noMaximum(0x7ffffff, 0x7ffffff);

} // namespace

PixmapFigure::PixmapFigure(const QPixmap &pixmap, QObject *parent, const QColor &background)
    : Figure(parent, background)
{
    setPixmap(pixmap);
}

PixmapFigure::PixmapFigure(QObject *parent)
    : Figure(parent)
{ }

PixmapFigure::~PixmapFigure() = default;

// Between its old limits the figure would refuse a pixmap of another size.
void PixmapFigure::liftSizeLimits()
{
    setMinimumSize(noMinimum);
    setMaximumSize(noMaximum);
}

void PixmapFigure::setPixmap(const QPixmap &pixmap)
{
    m_pixmap = pixmap;
    const QSize size = applyMargin(calculateContentSize());
    liftSizeLimits();
    setPreferredSize(size);
    setMinimumSize(size);
    setMaximumSize(size);
    revalidate();
    repaint();
}

QSize PixmapFigure::calculateContentSize()
{
    return m_pixmap.size();
}

void PixmapFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (painter)
        painter->drawPixmap(option.rect, m_pixmap);
}

} // namespace Vantrel::Pictel
