#pragma once

#include <vtlpictel/layers/FreeformLayeredPane.h>

namespace GraphViewer {

/// The pane of a drawing: chooses how smoothly its layers are painted, and can paint the paper beneath them.
class SheetPane : public Vantrel::Pictel::FreeformLayeredPane
{
public:
    using FreeformLayeredPane::FreeformLayeredPane;

    /// On by default.
    void setAntialiasing(bool on);
    /// Paints \a paper (absolute coordinates) in \a color first; a null rectangle, the default, paints none.
    void setPaper(const QRect &paper, const QColor &color);
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

protected:
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    bool m_antialiasing = true;
    QRect m_paper;
    QColor m_paperColor;
};

} // namespace GraphViewer
