// The painter's unit, the twentieth of a point, beside others; for readers and writers.
#pragma once

namespace vector {

constexpr double kUnitsPerInch = 1440; // of a page that isn't scaled down
constexpr double kUnitsPerPoint = kUnitsPerInch / 72;
constexpr double kUnitsPerPixel = kUnitsPerInch / 96; // of a screen at its usual size

// How many pixels of a picture are written in each direction for one of a screen.
constexpr double kFinerThanScreen = 3;

} // namespace vector
