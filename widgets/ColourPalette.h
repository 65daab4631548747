// Colours to choose from that go together.
#pragma once

#include "support/Colour.h"

#include <QString>
#include <span>

namespace widgets {

struct PaletteColour {
    support::Colour colour;
    const char *name; // translated by NameInPalette
};

// Twelve: six hues, first light, then deep, in the same order. In CIELAB the light ones all have the
// lightness 84 and the deep ones 42, so that none outshines its neighbours; black text stands on every light
// one with a contrast of more than 13 to 1, white text on every deep one, and a deep one on white, with 6 to
// 1.
std::span<const PaletteColour> PaletteColours();
// White, three greys and black.
std::span<const PaletteColour> PlainColours();

// How a colour is spoken of: as the palette calls it, else as ColourName does.
QString NameInPalette(support::Colour colour);

} // namespace widgets
