// Painting of Figure.

#include <vtlpictel/figure/Figure.h>

#include "figure/FocusFrame_p.h"
#include "figure/PassOption_p.h"
#include "support/LifeGuard.h"
#include "support/RectOverlap.h"

#include <vtlpictel/figure/Border.h>
#include <vtlpictel/layout/Layout.h>

#include <QApplication>
#include <QMessageLogger>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace Vantrel::Pictel {

namespace {

void drawRubberBand(QPainter *painter, const QStyleOptionViewItem &option, const QRect &area)
{
    QStyleOptionRubberBand band;
    static_cast<QStyleOption &>(band).operator=(option);
    band.type = QStyleOptionRubberBand::Type;
    band.version = QStyleOptionRubberBand::Version;
    band.shape = QRubberBand::Rectangle;
    band.opaque = false;
    band.rect = area;
    QApplication::style()->drawControl(QStyle::CE_RubberBand, &band, painter, nullptr);
}

} // namespace

void Figure::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter)
        return;
    QRect bounds = getBoundingRect();
    if (!bounds.isValid()) {
        QMessageLogger().debug("Figure::render(): invalid figure bounds");
        return;
    }
    translateToAbsolute(bounds);
    const QRect area = option.rect;
    if (!overlap(bounds, area))
        return;
    const LifeGuard<Figure> self(this);
    PassOption pass(option);
    pass.setRect(bounds);
    paintOwn(painter, pass.option());
    if (self.isAlive())
        paintClientArea(painter, pass, calculateContentRect(bounds), area);
}

void Figure::paintOwn(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (onlyFills()) {
        drawBackground(painter, option);
        return;
    }
    const LifeGuard<Figure> self(this);
    painter->save();
    drawBackground(painter, option);
    if (self.isAlive())
        drawFigure(painter, option);
    if (self.isAlive())
        drawBorder(painter, option, getBorder());
    painter->restore();
}

void Figure::paintClientArea(QPainter *painter, PassOption &pass, const QRect &clientArea, const QRect &area)
{
    if (!clientArea.isValid())
        return;
    const LifeGuard<Figure> self(this);
    if (area.intersects(clientArea)) {
        pass.setRect(area.intersected(clientArea));
        drawChildren(painter, pass.option());
    }
    if (self.isAlive() && m_clientAreaHighlighted)
        paintHighlight(painter, pass.option(), clientArea);
}

void Figure::paintHighlight(QPainter *painter, const QStyleOptionViewItem &option, const QRect &clientArea) const
{
    if (m_highlightStyle != 0)
        drawRubberBand(painter, option, clientArea);
    else
        drawFocusFrame(painter, option, clientArea);
}

void Figure::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_backgroundColor != QColor(Qt::transparent))
        painter->fillRect(option.rect, m_backgroundColor);
}

void Figure::drawFigure(QPainter *, const QStyleOptionViewItem &) const { }

void Figure::drawBorder(QPainter *painter, const QStyleOptionViewItem &option, const Border *border) const
{
    if (border)
        border->render(painter, option);
}

void Figure::drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_layout && option.rect.isValid())
        m_layout->render(painter, option);
}

} // namespace Vantrel::Pictel
