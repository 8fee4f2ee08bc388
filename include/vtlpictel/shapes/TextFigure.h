#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QFont>
#include <QString>

namespace Vantrel::Pictel {

/// One line of text.
///
/// Text, font and indent decide the figure's minimum and preferred size; a change of one of them sets both, asks for a
/// new layout and repaints. The bounds stay the business of the parent's layout. All units are logical pixels.
///
/// A text colour that is not set is black; a negative indent becomes 0. A size beyond the figure's maximum size is
/// refused with Figure's message.
class VTLPICTEL_EXPORT TextFigure : public Figure
{
    Q_OBJECT

public:
    explicit TextFigure(const QString &text, QObject *parent = nullptr, const QColor &background = QColor(Qt::white));
    explicit TextFigure(QObject *parent = nullptr);
    ~TextFigure() override;

    QString getText() const { return m_text; }
    void setText(const QString &text);
    QFont getFont() const { return m_font; }
    void setFont(const QFont &font);
    int getIndent() const { return m_indent; }
    /// The space before the text (default 0).
    void setIndent(int indent);
    QColor getTextColor() const { return m_textColor; }
    /// Stores the colour and repaints, when it differs.
    void setTextColor(const QColor &color);
    Qt::Alignment getAlignment() const { return m_alignment; }
    /// Places the text in the figure's bounds (default Qt::AlignLeft) and repaints, when it differs.
    void setAlignment(Qt::Alignment alignment);
    /// When on, the figure with margin and border is sized to whole cells of a 5 pixel grid (default off). Takes
    /// effect with the next change of text, font or indent.
    void setSnapToGrid(bool snap);

protected:
    QSize calculateContentSize() override;
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void fitToText();
    QSize withoutFrame(const QSize &total) const;

    Qt::Alignment m_alignment = Qt::AlignLeft;
    QString m_text;
    QFont m_font;
    int m_indent = 0;
    QColor m_textColor;
    bool m_snapToGrid = false;
};

} // namespace Vantrel::Pictel
