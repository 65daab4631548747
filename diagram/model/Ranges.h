// The ranges of the values of a surface and its items: setters, files and undo all go by these.
#pragma once

#include "support/Error.h"

#include <QString>

namespace diagram {

constexpr float kLargestCoordinate = 1e8F; // twips

// True for a value of the range. All of them refuse what is no number.
constexpr bool Between(double value, double lowest, double highest) {
    return value >= lowest && value <= highest;
}
constexpr bool IsAnything(double) { return true; }
constexpr bool IsCoordinate(double value) { return Between(value, -kLargestCoordinate, kLargestCoordinate); }
constexpr bool IsSize(double value) { return Between(value, 0, kLargestCoordinate); }
constexpr bool IsDrawWidth(double value) { return Between(value, 0, 32767); }
constexpr bool IsMargin(double value) { return Between(value, -32768, 32767); }
constexpr bool IsShape(double value) { return Between(value, 0, 15) || Between(value, 50, 77); }
constexpr bool IsOrientation(double value) { return Between(value, 0, 3); }
constexpr bool IsDrawStyle(double value) { return Between(value, 0, 6); }
constexpr bool IsAlignment(double value) { return Between(value, 0, 8); }
constexpr bool IsPicturePos(double value) { return Between(value, 0, 9); }
constexpr bool IsShadow(double value) { return Between(value, 0, 4); }
constexpr bool IsAutoSize(double value) { return Between(value, 0, 3); }
constexpr bool IsLinkStyle(double value) { return Between(value, 0, 14); }
constexpr bool IsArrow(double value) { return Between(value, 0, 32); }
constexpr bool IsArrowSize(double value) { return Between(value, 0, 2); }
constexpr bool IsJumpStyle(double value) { return Between(value, 0, 2); }
constexpr bool IsZoom(double value) { return Between(value, 0, 10000); }
constexpr bool IsGridStyle(double value) { return Between(value, 0, 2); }

constexpr long kErrInvalidPropertyValue = 380;
[[noreturn]] inline void RaiseInvalidValue(const char *source) {
    throw support::Error(kErrInvalidPropertyValue, QString::fromLatin1(source),
                         QStringLiteral("Invalid property value"));
}

// The value itself, or error 380 "Invalid property value".
template <typename T>
T Checked(bool (*valid)(double), T value, const char *source) {
    if (!valid(double(value))) RaiseInvalidValue(source);
    return value;
}

} // namespace diagram
