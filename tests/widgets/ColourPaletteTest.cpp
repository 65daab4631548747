#include "widgets/ColourPalette.h"

#include <cmath>
#include <gtest/gtest.h>
#include <QSet>

namespace widgets::testing {

namespace {

double Linear(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

// Relative luminance, as contrasts are measured by.
double Luminance(support::Colour colour) {
    const QColor shown = support::ToQColor(colour);
    return 0.2126 * Linear(shown.redF()) + 0.7152 * Linear(shown.greenF()) + 0.0722 * Linear(shown.blueF());
}

double Contrast(support::Colour a, support::Colour b) {
    const double one = Luminance(a) + 0.05, other = Luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
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
