// Record functions and constants of Windows metafiles ([MS-WMF] 2.1.1.1).
#pragma once

#include <cstdint>

namespace vector::wmf {

enum Function : std::uint16_t {
    kEof = 0x0000,
    kSaveDc = 0x001E,
    kCreatePalette = 0x00F7,
    kSetBkMode = 0x0102,
    kSetMapMode = 0x0103,
    kSetRop2 = 0x0104,
    kSetPolyFillMode = 0x0106,
    kSetStretchBltMode = 0x0107,
    kRestoreDc = 0x0127,
    kPaintRegion = 0x012B,
    kSelectClipRegion = 0x012C,
    kSelectObject = 0x012D,
    kSetTextAlign = 0x012E,
    kDibCreateBrush = 0x0142,
    kDeleteObject = 0x01F0,
    kCreatePatternBrush = 0x01F9,
    kSetBkColour = 0x0201,
    kSetTextColour = 0x0209,
    kSetWindowOrg = 0x020B,
    kSetWindowExt = 0x020C,
    kOffsetWindowOrg = 0x020F,
    kLineTo = 0x0213,
    kMoveTo = 0x0214,
    kFillRegion = 0x0228,
    kCreatePen = 0x02FA,
    kCreateFont = 0x02FB,
    kCreateBrush = 0x02FC,
    kPolygon = 0x0324,
    kPolyline = 0x0325,
    kScaleWindowExt = 0x0410,
    kExcludeClipRect = 0x0415,
    kIntersectClipRect = 0x0416,
    kEllipse = 0x0418,
    kRectangle = 0x041B,
    kSetPixel = 0x041F,
    kTextOut = 0x0521,
    kPolyPolygon = 0x0538,
    kRoundRect = 0x061C,
    kPatBlt = 0x061D,
    kCreateRegion = 0x06FF,
    kArc = 0x0817,
    kPie = 0x081A,
    kChord = 0x0830,
    kDibBitBlt = 0x0940,
    kExtTextOut = 0x0A32,
    kDibStretchBlt = 0x0B41,
    kSetDibToDevice = 0x0D33,
    kStretchDib = 0x0F43,
};

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr int kPlaceableBytes = 22, kHeaderBytes = 18;

} // namespace vector::wmf
