#pragma once

#include <QApplication>
#include <QStyle>
#include <QStyleOption>

namespace Vantrel::Pictel {

/// Draws the application style's frame for keyboard focus around \a area; \a background is what the style takes the
/// frame to stand on.
inline void drawFocusFrame(QPainter *painter, const QStyleOption &option, const QRect &area,
                           const QColor &background = QColor())
{
    QStyleOptionFocusRect frame;
    static_cast<QStyleOption &>(frame).operator=(option);
    frame.type = QStyleOptionFocusRect::Type;
    frame.version = QStyleOptionFocusRect::Version;
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.rect = area;
    frame.backgroundColor = background;
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, nullptr);
}

} // namespace Vantrel::Pictel
