// Record types and constants of enhanced metafiles ([MS-EMF] 2.1).
#pragma once

#include <cstdint>

namespace vector::emf {

enum RecordType : std::uint32_t {
    kHeader = 1,
    kPolyBezier = 2,
    kPolygon = 3,
    kPolyline = 4,
    kPolyBezierTo = 5,
    kPolylineTo = 6,
    kPolyPolyline = 7,
    kPolyPolygon = 8,
    kSetWindowExt = 9,
    kSetWindowOrg = 10,
    kSetViewportExt = 11,
    kSetViewportOrg = 12,
    kEof = 14,
    kSetPixel = 15,
    kSetMapMode = 17,
    kSetBkMode = 18,
    kSetPolyFillMode = 19,
    kSetRop2 = 20,
    kSetStretchBltMode = 21,
    kSetTextAlign = 22,
    kSetTextColour = 24,
    kSetBkColour = 25,
    kMoveTo = 27,
    kExcludeClipRect = 29,
    kIntersectClipRect = 30,
    kScaleViewportExt = 31,
    kScaleWindowExt = 32,
    kSaveDc = 33,
    kRestoreDc = 34,
    kSetWorldTransform = 35,
    kModifyWorldTransform = 36,
    kSelectObject = 37,
    kCreatePen = 38,
    kCreateBrush = 39,
    kDeleteObject = 40,
    kAngleArc = 41,
    kEllipse = 42,
    kRectangle = 43,
    kRoundRect = 44,
    kArc = 45,
    kChord = 46,
    kPie = 47,
    kLineTo = 54,
    kArcTo = 55,
    kSetArcDirection = 57,
    kBeginPath = 59,
    kEndPath = 60,
    kCloseFigure = 61,
    kFillPath = 62,
    kStrokeAndFillPath = 63,
    kStrokePath = 64,
    kSelectClipPath = 67,
    kAbortPath = 68,
    kFillRegion = 71,
    kPaintRegion = 74,
    kSelectClipRegion = 75,
    kBitBlt = 76,
    kStretchBlt = 77,
    kMaskBlt = 78,
    kSetDiBitsToDevice = 80,
    kStretchDiBits = 81,
    kExtCreateFont = 82,
    kExtTextOutA = 83,
    kExtTextOut = 84,
    kCreateMonoBrush = 93,
    kCreateDibBrush = 94,
    kExtCreatePen = 95,
    kSmallTextOut = 108,
    kAlphaBlend = 114,
    kTransparentBlt = 116,
    kGradientFill = 118,
};
// Added to the types with points from kPolyBezier on: coordinates of sixteen bits.
constexpr std::uint32_t kShort = 83;

constexpr std::uint32_t kSignature = 0x464D4520; // " EMF"
constexpr std::uint32_t kStock = 0x80000000;     // of objects that every player has
constexpr std::uint32_t kNullBrush = kStock + 5, kNullPen = kStock + 8;

} // namespace vector::emf
