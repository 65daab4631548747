#include "widgets/ColourPalette.h"

#include "support/Contrast.h"

#include <cmath>
#include <gtest/gtest.h>
#include <QSet>

namespace widgets::testing {

namespace {

double Luminance(support::Colour colour) { return support::Luminance(support::ToQColor(colour)); }

double Contrast(support::Colour a, support::Colour b) {
    return support::Contrast(support::ToQColor(a), support::ToQColor(b));
}

// L* of CIELAB.
double Lightness(support::Colour colour) { return 116 * std::cbrt(Luminance(colour)) - 16; }

} // namespace

TEST(ColourPalette, HasTwelveColoursThatAreAllDifferentAndNamed) {
    QSet<support::Colour> colours;
    QSet<QString> names;
    for (const PaletteColour &row : PaletteColours()) {
        colours.insert(row.colour);
        names.insert(NameInPalette(row.colour));
    }
    EXPECT_EQ(colours.size(), 12);
    EXPECT_EQ(names.size(), 12);
}

TEST(ColourPalette, TheLightHalfIsEvenAndBlackTextIsReadOnIt) {
    for (const PaletteColour &row : PaletteColours().first(6)) {
        EXPECT_NEAR(Lightness(row.colour), 84, 0.6) << row.name;
        EXPECT_GT(Contrast(row.colour, support::kBlack), 13) << row.name;
    }
}

TEST(ColourPalette, TheDeepHalfIsEvenAndReadsWithWhite) {
    for (const PaletteColour &row : PaletteColours().last(6)) {
        EXPECT_NEAR(Lightness(row.colour), 42, 0.6) << row.name;
        EXPECT_GT(Contrast(row.colour, support::kWhite), 5.9) << row.name;
    }
}

TEST(ColourPalette, EachLightColourHasADeepOneOfItsHue) {
    for (std::size_t i = 0; i < 6; ++i) {
        const int light = support::ToQColor(PaletteColours()[i].colour).hue();
        const int deep = support::ToQColor(PaletteColours()[i + 6].colour).hue();
        const int apart = std::abs(light - deep);
        EXPECT_LE(std::min(apart, 360 - apart), 20) << PaletteColours()[i].name;
    }
}

TEST(ColourPalette, OtherColoursAreSpokenOfAsElsewhere) {
    EXPECT_EQ(NameInPalette(PaletteColours()[0].colour), QStringLiteral("sky"));
    EXPECT_EQ(NameInPalette(support::Rgb(1, 2, 3)), QStringLiteral("red 1, green 2, blue 3"));
}

} // namespace widgets::testing
