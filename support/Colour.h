// Colours as maps store them: 32-bit values 0x00BBGGRR, or 0x800000NN for the platform's colour NN.
#pragma once

#include <cstdint>
#include <QColor>

namespace support {

using Colour = std::int32_t;

constexpr Colour kWhite = 0xFFFFFF;
constexpr Colour kBlack = 0;
// What a colour dialog gives when it was cancelled.
constexpr Colour kNoColour = -1;

constexpr Colour Rgb(int red, int green, int blue) { return red | green << 8 | blue << 16; }

// The plain value of a colour: a plain one as it is, a system colour (0x80000000 + index 0 to 24) by a fixed
// table of the classic desktop's colours, so that output never depends on the theme. Anything else:
// kNoColour.
Colour PlainColour(Colour colour);
// The colour to paint with; what is no colour paints black.
QColor ToQColor(Colour colour);
Colour FromQColor(const QColor &colour);

} // namespace support
