// The ranges of the values of a surface and its items: setters, files and undo all go by these. A range is
// called like a predicate: IsShape(value).
#pragma once

#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Shapes.h"
#include "support/Error.h"

#include <limits>
#include <QString>

namespace diagram {

constexpr float kLargestCoordinate = 1e8F; // twips

// The numbers from the lowest to the highest, but for a gap in between. Not-a-number is in no range. Where
// the values are the rows of a table, the range ends with its last row.
struct Range {
    double lowest, highest;
    double belowGap = 0, aboveGap = 0; // the last number before the gap, the first behind it
    int (*lastRow)() = nullptr;        // the value of the table's last row, not above `highest`
    constexpr bool operator()(double value) const {
        return value >= lowest && value <= highest && !(value > belowGap && value < aboveGap) &&
               (!lastRow || value <= lastRow());
    }
    double Highest() const { return lastRow ? lastRow() : highest; }
};

constexpr bool Between(double value, double lowest, double highest) { return Range{lowest, highest}(value); }

// Whatever its type can hold.
inline constexpr Range IsAnything{-std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::infinity()};
inline constexpr Range IsCoordinate{-kLargestCoordinate, kLargestCoordinate};
inline constexpr Range IsSize{0, kLargestCoordinate};
inline constexpr Range IsDrawWidth{0, 32767};
inline constexpr Range IsMargin{-32768, 32767};
constexpr double kHighestRow = 254; // 255 stands for no value, where a byte holds it
inline constexpr Range IsShape{0, kHighestRow, kLastPlainShape, kFirstFlowchartShape, LastShape};
inline constexpr Range IsOrientation{0, 3};
inline constexpr Range IsDrawStyle{0, 6};
inline constexpr Range IsAlignment{0, 8};
inline constexpr Range IsPicturePos{0, 9};
inline constexpr Range IsShadow{0, 4};
inline constexpr Range IsAutoSize{0, 3};
inline constexpr Range IsLinkStyle{0, kHighestRow, 0, 0, LastLinkStyle};
inline constexpr Range IsArrow{0, kHighestRow, 0, 0, LastArrow};
inline constexpr Range IsArrowSize{0, 2};
inline constexpr Range IsJumpStyle{0, 2};
inline constexpr Range IsZoom{0, 10000};
inline constexpr Range IsGridStyle{0, 2};

[[noreturn]] inline void RaiseInvalidValue(const char *source) {
    support::Raise(support::kErrInvalidPropertyValue, QString::fromLatin1(source));
}

// The value itself, or error 380 "Invalid property value".
template <typename T>
T Checked(const Range &valid, T value, const char *source) {
    if (!valid(double(value))) RaiseInvalidValue(source);
    return value;
}

} // namespace diagram
