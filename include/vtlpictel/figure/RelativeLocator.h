#pragma once

#include <vtlpictel/figure/ILocator.h>

#include <QObject>
#include <QPointer>

class QRect;

namespace Vantrel::Pictel {

class Figure;

/// Places a figure, centred, at a point of another figure's box that is given in fractions of its width and height.
///
/// The reference figure is not owned; once it is deleted nothing is placed any more.
class VTLPICTEL_EXPORT RelativeLocator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::ILocator)

public:
    /// \a position: an OR of POSITION_ codes, see setLocation().
    RelativeLocator(Figure *reference, int position, QObject *parent = nullptr);
    /// Fractions: (0, 0) is the top-left corner of the reference box, (1, 1) the bottom-right.
    RelativeLocator(Figure *reference, double relativeX, double relativeY, QObject *parent = nullptr);
    ~RelativeLocator() override;

    virtual void setReferenceFigure(Figure *reference);
    /// Sets the fractions from POSITION_ codes: a side gives 0 or 1, no side gives 0.5.
    virtual void setLocation(int position);

protected:
    /// The box of the reference figure in its parent's coordinates; empty without a reference figure.
    virtual QRect getReferenceBox();
    virtual Figure *getReferenceFigure() const;

public:
    double relativeX() const { return m_relativeX; }
    double relativeY() const { return m_relativeY; }
    void relocate(Figure *target) override;

private:
    QPointer<Figure> m_referenceFigure;
    double m_relativeX = 0.5;
    double m_relativeY = 0.5;
};

} // namespace Vantrel::Pictel
