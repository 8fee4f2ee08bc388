#pragma once

#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

/// A rectangle as large as its bounds, line included.
class VTLPICTEL_EXPORT Rectangle : public Shape
{
    Q_OBJECT

public:
    explicit Rectangle(QObject *parent = nullptr);
    ~Rectangle() override;

protected Q_SLOTS:
    void regeneratePath(const QRectF &bounds) override;
};

} // namespace Vantrel::Pictel
