#pragma once

#include "connections/PlainFigure.h"

#include <vtlpictel/figure/IRotatableDecoration.h>

/// A decoration that is no Figure and goes nowhere.
class PlainDecoration : public PlainFigure<Vantrel::Pictel::IRotatableDecoration>
{
public:
    void setLocation(const QPointF &) override { }
    void setLocation(const QPoint &) override { }
    void setReferencePoint(const QPointF &) override { }
    void setReferencePoint(const QPoint &) override { }
};
