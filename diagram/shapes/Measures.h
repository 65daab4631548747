// Sizes, in twips, of what is painted besides the forms of the tables. Painting and bounds go by them.
#pragma once

#include "diagram/geometry/Units.h"

#include <QPointF>

namespace diagram {

constexpr double kShadowOffset = 75; // of a shadow, both ways
// The direction in which a shadow falls, by the value of the shadow table.
constexpr QPointF kShadowWays[] = {{0, 0}, {1, 1}, {1, -1}, {-1, -1}, {-1, 1}};
constexpr double kJumpRadius = 75;   // of the arch over a crossing, half of the break
constexpr double kLabelPadding = 30; // around the text of a link

} // namespace diagram
