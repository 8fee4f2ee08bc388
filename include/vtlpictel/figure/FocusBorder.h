#pragma once

#include <vtlpictel/figure/SimpleBorder.h>

namespace Vantrel::Pictel {

/// A border of width 1 that shows the application style's frame for keyboard focus.
class VTLPICTEL_EXPORT FocusBorder : public SimpleBorder
{
    Q_OBJECT

public:
    explicit FocusBorder(QObject *parent = nullptr);
    ~FocusBorder() override;

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;
};

} // namespace Vantrel::Pictel
