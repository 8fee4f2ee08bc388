#pragma once

#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

/// An ellipse inscribed in its bounds, line included.
class VTLPICTEL_EXPORT Ellipse : public Shape
{
    Q_OBJECT

public:
    explicit Ellipse(QObject *parent = nullptr);
    ~Ellipse() override;

protected Q_SLOTS:
    void regeneratePath(const QRectF &bounds) override;
};

} // namespace Vantrel::Pictel
