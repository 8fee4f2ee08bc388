#pragma once

#include <vtlpictel/connections/ManhattanConnectionRouter.h>

/// A router whose protected operations can be called.
class OpenManhattanRouter : public Vantrel::Pictel::ManhattanConnectionRouter
{
public:
    using ManhattanConnectionRouter::colUsable;
    using ManhattanConnectionRouter::getDirection;
    using ManhattanConnectionRouter::getEndDirection;
    using ManhattanConnectionRouter::getStartDirection;
    using ManhattanConnectionRouter::isColumnReservedBy;
    using ManhattanConnectionRouter::isRowReservedBy;
    using ManhattanConnectionRouter::processPositions;
    using ManhattanConnectionRouter::removeReservedLines;
    using ManhattanConnectionRouter::reserveColumn;
    using ManhattanConnectionRouter::reserveRow;
    using ManhattanConnectionRouter::rowUsable;
};
