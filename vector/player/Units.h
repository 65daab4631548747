// The painter's unit: the twentieth of a point.
#pragma once

namespace vector {

constexpr double kUnitsPerInch = 1440; // of a page that isn't scaled down
constexpr double kUnitsPerPoint = kUnitsPerInch / 72;
constexpr double kUnitsPerPixel = kUnitsPerInch / 96; // of a screen at its usual size

} // namespace vector
