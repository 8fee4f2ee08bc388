#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QPixmap>

namespace Vantrel::Pictel {

/// A picture at its own size.
///
/// Setting a pixmap fixes minimum, preferred and maximum size at the pixmap's size plus margin, in logical pixels. A
/// parent that gives it other bounds all the same stretches the picture. Without a pixmap nothing is drawn; a null
/// pixmap measures (0, 0).
class VTLPICTEL_EXPORT PixmapFigure : public Figure
{
    Q_OBJECT

public:
    explicit PixmapFigure(const QPixmap &pixmap, QObject *parent = nullptr,
                          const QColor &background = QColor(Qt::white));
    /// A figure without a pixmap and without size limits.
    explicit PixmapFigure(QObject *parent = nullptr);
    ~PixmapFigure() override;

    QPixmap getPixmap() const { return m_pixmap; }
    /// Stores the pixmap, fixes the figure's size, asks for a new layout and repaints; always. Size limits set before
    /// are lost.
    void setPixmap(const QPixmap &pixmap);

protected:
    QSize calculateContentSize() override;
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void liftSizeLimits();

    QPixmap m_pixmap;
};

} // namespace Vantrel::Pictel
