#include "support/Colour.h"

#include <array>

namespace support {

namespace {
// The 25 system colours in the order of their indexes, from the scroll bar to the tool tip's background.
constexpr std::array<Colour, 25> kSystemColours = {
    Rgb(200, 200, 200), Rgb(0, 0, 0),       Rgb(153, 180, 209), Rgb(191, 205, 219), Rgb(240, 240, 240),
    Rgb(255, 255, 255), Rgb(100, 100, 100), Rgb(0, 0, 0),       Rgb(0, 0, 0),       Rgb(0, 0, 0),
    Rgb(180, 180, 180), Rgb(244, 247, 252), Rgb(171, 171, 171), Rgb(0, 120, 215),   Rgb(255, 255, 255),
    Rgb(240, 240, 240), Rgb(160, 160, 160), Rgb(109, 109, 109), Rgb(0, 0, 0),       Rgb(0, 0, 0),
    Rgb(255, 255, 255), Rgb(105, 105, 105), Rgb(227, 227, 227), Rgb(0, 0, 0),       Rgb(255, 255, 225)};
} // namespace

Colour PlainColour(Colour colour) {
    const auto bits = static_cast<std::uint32_t>(colour);
    if (bits <= 0xFFFFFF) return colour;
    const std::uint32_t index = bits & 0x7FFFFFFF;
    if ((bits & 0x80000000) != 0 && index < kSystemColours.size()) return kSystemColours[index];
    return kNoColour;
}

QColor ToQColor(Colour colour) {
    const Colour plain = PlainColour(colour);
    if (plain == kNoColour) return QColor(Qt::black);
    return QColor(plain & 0xFF, (plain >> 8) & 0xFF, (plain >> 16) & 0xFF);
}

Colour FromQColor(const QColor &colour) { return Rgb(colour.red(), colour.green(), colour.blue()); }

} // namespace support
