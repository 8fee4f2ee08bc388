#pragma once

#include <vtlpictel/figure/BendpointLocator.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/MidpointLocator.h>
#include <vtlpictel/layout/XYLayout.h>

#include <memory>

class OpenConnectionLocator : public Vantrel::Pictel::ConnectionLocator
{
public:
    using ConnectionLocator::ConnectionLocator;
    using ConnectionLocator::getConnection;
    using ConnectionLocator::getLocation;
    using ConnectionLocator::getReferencePoint;
    using ConnectionLocator::setConnection;
};

class OpenMidpointLocator : public Vantrel::Pictel::MidpointLocator
{
public:
    using MidpointLocator::getReferencePoint;
    using MidpointLocator::MidpointLocator;
};

class OpenBendpointLocator : public Vantrel::Pictel::BendpointLocator
{
public:
    using BendpointLocator::BendpointLocator;
    using BendpointLocator::getReferencePoint;
};

inline std::unique_ptr<Vantrel::Pictel::Figure> figureOfSize(const QSize &size)
{
    auto figure = std::make_unique<Vantrel::Pictel::Figure>();
    figure->setPreferredSize(size);
    return figure;
}

/// A container at (100, 50) whose children are relative to it.
struct RelativeParent
{
    RelativeParent()
    {
        container.setLayoutManager(&layout);
        container.setBounds(QRect(100, 50, 400, 400));
    }

    Vantrel::Pictel::Figure container;
    Vantrel::Pictel::XYLayout layout {nullptr};
};
