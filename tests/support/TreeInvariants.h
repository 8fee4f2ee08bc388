#pragma once

#include <QString>

namespace Vantrel::Pictel {
class Figure;
}

/// Checks what must hold in every figure tree at any time; returns what is broken first, or an empty string.
///
/// - every child's parent is the figure whose layout lists it, and no figure is listed twice;
/// - childFigureCount() is the length of childFigures();
/// - the layout manager's container is the figure that holds it;
/// - a child is notified exactly when its parent is;
/// - all notified figures reach the root's update manager, the others none.
///
/// \code
/// QCOMPARE(brokenInvariant(root), QString());
/// \endcode
QString brokenInvariant(Vantrel::Pictel::Figure *root);

/// As brokenInvariant(); in addition every figure must be valid, as after validate() of the whole tree.
QString brokenInvariantOfValidTree(Vantrel::Pictel::Figure *root);
