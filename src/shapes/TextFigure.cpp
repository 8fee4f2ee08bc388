#include <vtlpictel/shapes/TextFigure.h>

#include <vtlpictel/figure/Border.h>

#include "support/Rounding.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <cmath>

namespace Vantrel::Pictel {

namespace {

constexpr int gridSize = 5;

/// Stores \a value in \a field; true when that changed something.
template <typename Value>
bool replace(Value &field, const Value &value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

/// The smallest multiple of the grid size that \a length fits into.
int snapped(int length)
{
    return roundToInt(std::ceil(double(length) / gridSize) * gridSize);
}

} // namespace

TextFigure::TextFigure(const QString &text, QObject *parent, const QColor &background)
    : Figure(parent, background)
{
    setText(text);
}

TextFigure::TextFigure(QObject *parent)
    : Figure(parent)
{ }

TextFigure::~TextFigure() = default;

void TextFigure::fitToText()
{
    const QSize size = applyMargin(calculateContentSize());
    setMinimumSize(size);
    setPreferredSize(size);
    revalidate();
    repaint();
}

void TextFigure::setText(const QString &text)
{
    if (replace(m_text, text))
        fitToText();
}

void TextFigure::setFont(const QFont &font)
{
    if (replace(m_font, font))
        fitToText();
}

// Compares what was asked for, so that a negative indent measures anew even when there is none.
void TextFigure::setIndent(int indent)
{
    if (indent == m_indent)
        return;
    m_indent = std::max(indent, 0);
    fitToText();
}

void TextFigure::setTextColor(const QColor &color)
{
    if (replace(m_textColor, color))
        repaint();
}

void TextFigure::setAlignment(Qt::Alignment alignment)
{
    if (replace(m_alignment, alignment))
        repaint();
}

void TextFigure::setSnapToGrid(bool snap)
{
    m_snapToGrid = snap;
}

QSize TextFigure::calculateContentSize()
{
    const QFontMetrics metrics(m_font);
    const QSize size(boundedSum(m_indent, metrics.horizontalAdvance(m_text)), metrics.lineSpacing());
    if (!m_snapToGrid)
        return size;
    return withoutFrame(QSize(snapped(size.width()), snapped(size.height())));
}

/// What margin and border leave of \a total.
QSize TextFigure::withoutFrame(const QSize &total) const
{
    QSize grown = applyMargin(total);
    if (const Border *border = getBorder())
        border->getInsets().addTo(grown);
    return total - (grown - total);
}

void TextFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->save();
    painter->setPen(m_textColor);
    painter->setFont(m_font);
    QRect area = option.rect;
    area.setLeft(boundedSum(area.left(), m_indent));
    painter->drawText(area, static_cast<int>(m_alignment.toInt()), m_text);
    painter->restore();
}

} // namespace Vantrel::Pictel
