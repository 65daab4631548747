// The surface's unit of length, the twip, beside others.
#pragma once

#include "vector/player/Units.h"

namespace diagram {

constexpr double kTwipsPerInch = vector::kUnitsPerInch;
constexpr double kTwipsPerPoint = vector::kUnitsPerPoint;
constexpr double kTwipsPerPixel = vector::kUnitsPerPixel; // at zoom 100
constexpr double kMillimetresPerTwip = 25.4 / kTwipsPerInch;

} // namespace diagram
