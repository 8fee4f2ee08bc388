#pragma once

#include <vtlpictel/figure/Figure.h>

#include <QPixmap>
#include <QString>

namespace Vantrel::Pictel {

class PixmapFigure;
class TextFigure;

/// A picture and a text, side by side or one above the other: the picture comes first.
///
/// Ownership: the label creates the two as its QObject children and keeps a box layout of its own, which it replaces
/// and deletes when the orientation changes. When one of the two is deleted the label goes on without it: its getter
/// returns an empty value, its setter does nothing.
///
/// Sizes follow from the children and their box layout, see PixmapFigure, TextFigure and Layout.
class VTLPICTEL_EXPORT LabelFigure : public Figure
{
    Q_OBJECT

public:
    LabelFigure(const QString &text, const QPixmap &pixmap, Qt::Orientations orientation, QObject *parent = nullptr,
                const QColor &background = QColor(Qt::white));
    ~LabelFigure() override;

    QString getText() const;
    void setText(const QString &text);
    QPixmap getPixmap() const;
    void setPixmap(const QPixmap &pixmap);
    Qt::Orientations getOrientation() const { return m_orientation; }
    /// Puts the picture above the text when \a orientation contains Qt::Vertical, else to its left. The previous layout
    /// manager is deleted; all children move to the new one in their order, without constraints and stretch factors.
    void setOrientation(Qt::Orientations orientation);

    /// As Figure::setExpandingDirections(); the box layout follows.
    void setExpandingDirections(Qt::Orientations directions) override;

private:
    Layout *createLayout();
    void removeChildren(const QList<QPointer<Figure>> &children);
    void addChildren(const QList<QPointer<Figure>> &children);

    Qt::Orientations m_orientation;
    QPointer<PixmapFigure> m_pixmapFigure;
    QPointer<TextFigure> m_textFigure;
};

} // namespace Vantrel::Pictel
