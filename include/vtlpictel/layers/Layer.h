#pragma once

#include <vtlpictel/figure/Figure.h>

namespace Vantrel::Pictel {

/// One sheet of a drawing: a figure with a transparent background, so that the layers beneath it show through.
///
/// Layers are stacked in a LayeredPane, each under a key. A layer has no layout manager of its own; install one with
/// setLayoutManager(), or use a FreeformLayer, before adding figures to it.
class VTLPICTEL_EXPORT Layer : public Figure
{
    Q_OBJECT

public:
    explicit Layer(QObject *parent = nullptr);
    ~Layer() override;
};

} // namespace Vantrel::Pictel
