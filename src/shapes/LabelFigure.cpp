#include <vtlpictel/shapes/LabelFigure.h>

#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>
#include <vtlpictel/shapes/PixmapFigure.h>
#include <vtlpictel/shapes/TextFigure.h>

namespace Vantrel::Pictel {

LabelFigure::LabelFigure(const QString &text, const QPixmap &pixmap, Qt::Orientations orientation, QObject *parent,
                         const QColor &background)
    : Figure(parent, background)
    , m_pixmapFigure(new PixmapFigure(pixmap, this, Qt::transparent))
    , m_textFigure(new TextFigure(text, this, Qt::transparent))
{
    setOrientation(orientation);
    addChildren({m_pixmapFigure.data(), m_textFigure.data()});
}

LabelFigure::~LabelFigure() = default;

QString LabelFigure::getText() const
{
    return m_textFigure ? m_textFigure->getText() : QString();
}

void LabelFigure::setText(const QString &text)
{
    if (m_textFigure)
        m_textFigure->setText(text);
}

QPixmap LabelFigure::getPixmap() const
{
    return m_pixmapFigure ? m_pixmapFigure->getPixmap() : QPixmap();
}

void LabelFigure::setPixmap(const QPixmap &pixmap)
{
    if (m_pixmapFigure)
        m_pixmapFigure->setPixmap(pixmap);
}

// Whoever hears of the children's moves may delete the label.
void LabelFigure::setOrientation(Qt::Orientations orientation)
{
    const QPointer<LabelFigure> self(this);
    m_orientation = orientation;
    const QList<Figure *> current = childFigures();
    const QList<QPointer<Figure>> children(current.begin(), current.end());
    removeChildren(children);
    if (self)
        delete setLayoutManager(createLayout());
    if (self)
        addChildren(children);
}

Layout *LabelFigure::createLayout()
{
    const bool isVertical = m_orientation.testFlag(Qt::Vertical);
    Layout *layout = isVertical ? static_cast<Layout *>(new VBoxLayout(this)) : new HBoxLayout(this);
    layout->setExpandingDirections(expandingDirections());
    return layout;
}

void LabelFigure::removeChildren(const QList<QPointer<Figure>> &children)
{
    const QPointer<LabelFigure> self(this);
    for (const QPointer<Figure> &child : children) {
        if (self)
            remove(child);
    }
}

void LabelFigure::addChildren(const QList<QPointer<Figure>> &children)
{
    const QPointer<LabelFigure> self(this);
    for (const QPointer<Figure> &child : children) {
        if (self)
            add(child, 0U, 0U, -1);
    }
}

void LabelFigure::setExpandingDirections(Qt::Orientations directions)
{
    Figure::setExpandingDirections(directions);
    if (Layout *layout = getLayoutManager())
        layout->setExpandingDirections(directions);
}

} // namespace Vantrel::Pictel
