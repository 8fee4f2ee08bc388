#pragma once

#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QString>
#include <QWidget>

/// What is on screen, without painting anything for it.
inline QImage onScreen(const QWidget &window)
{
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

template <typename AnyDrawing>
QImage fullyRepainted(AnyDrawing &drawing)
{
    drawing.widget.repaint();
    return onScreen(drawing.viewer);
}

/// The first pixel that differs, for the message; empty when there is none.
inline QString difference(const QImage &actual, const QImage &expected)
{
    if (actual == expected)
        return QString();
    if (actual.size() != expected.size())
        return QStringLiteral("sizes differ");
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return QStringLiteral("pixel (%1, %2)").arg(x).arg(y);
        }
    }
    return QStringLiteral("formats differ");
}
