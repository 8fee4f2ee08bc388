#pragma once

#include <vtlpictel/layers/FreeformLayeredPane.h>

/// A pane that paints all its layers antialiased. By themselves only connection layers can.
class SmoothPane : public Vantrel::Pictel::FreeformLayeredPane
{
    Q_OBJECT

public:
    explicit SmoothPane(QObject *parent = nullptr);

    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
};
