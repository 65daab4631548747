// Values that both kinds of metafile share ([MS-WMF] 2.1.1, 2.1.2).
#pragma once

#include <cstdint>
#include <QColor>

namespace vector::metafile {

constexpr int kTextMode = 1, kIsotropic = 7, kAnisotropic = 8; // of mapping
constexpr int kTransparent = 1;                                // background
constexpr int kClipAnd = 1, kClipWithout = 4, kClipCopy = 5;   // how a clip joins the one before
constexpr int kLeaveAlone = 11, kCopyPen = 13;                 // how shapes join what is there
constexpr int kAlternate = 1, kWinding = 2;                    // fill modes
constexpr int kColourOnColour = 3;                             // of stretching
constexpr std::uint32_t kAlignLeft = 0, kAlignRight = 2, kAlignMiddle = 6, kAlignBottom = 8,
                        kAlignBaseLine = 24, kFromPosition = 1;
constexpr std::uint32_t kOpaqueBox = 2, kClippedToBox = 4, kGlyphNumbers = 0x10, kReadFromRight = 0x80;
constexpr int kNullPen = 5;
constexpr std::uint32_t kPenKind = 0xF0000, kGeometric = 0x10000, kSquareEnds = 0x100, kFlatEnds = 0x200,
                        kBevelJoin = 0x1000, kMiterJoin = 0x2000;
constexpr int kSolidBrush = 0, kNullBrush = 1, kHatchedBrush = 2;
// Operations on pixels.
constexpr std::uint32_t kCopyPixels = 0x00CC0020, kAndPixels = 0x008800C6, kOrPixels = 0x00EE0086,
                        kXorPixels = 0x00660046, kCopyPattern = 0x00F00021, kBlackness = 0x00000042,
                        kWhiteness = 0x00FF0062, kLeavePixels = 0x00AA0029;
constexpr int kPlainWeight = 400, kBoldWeight = 700;
constexpr int kDefaultCharacters = 1; // the character set of a font

constexpr std::uint32_t ColorRef(QRgb colour) {
    return std::uint32_t(qRed(colour) | qGreen(colour) << 8 | qBlue(colour) << 16);
}
constexpr QRgb FromColorRef(std::uint32_t value) {
    return qRgb(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

} // namespace vector::metafile
