#include "widgets/ColourPalette.h"

#include "widgets/SwatchButton.h"

#include <QCoreApplication>

namespace widgets {

namespace {

using support::Rgb;

constexpr PaletteColour kPalette[] = {
    {Rgb(175, 213, 254), QT_TRANSLATE_NOOP("widgets::Palette", "sky")},
    {Rgb(149, 222, 220), QT_TRANSLATE_NOOP("widgets::Palette", "aqua")},
    {Rgb(180, 220, 175), QT_TRANSLATE_NOOP("widgets::Palette", "leaf")},
    {Rgb(237, 206, 146), QT_TRANSLATE_NOOP("widgets::Palette", "sand")},
    {Rgb(253, 195, 198), QT_TRANSLATE_NOOP("widgets::Palette", "rose")},
    {Rgb(225, 201, 243), QT_TRANSLATE_NOOP("widgets::Palette", "lilac")},
    {Rgb(3, 105, 158), QT_TRANSLATE_NOOP("widgets::Palette", "deep blue")},
    {Rgb(17, 111, 109), QT_TRANSLATE_NOOP("widgets::Palette", "deep teal")},
    {Rgb(50, 112, 50), QT_TRANSLATE_NOOP("widgets::Palette", "deep green")},
    {Rgb(124, 95, 14), QT_TRANSLATE_NOOP("widgets::Palette", "deep gold")},
    {Rgb(178, 53, 74), QT_TRANSLATE_NOOP("widgets::Palette", "deep red")},
    {Rgb(122, 80, 163), QT_TRANSLATE_NOOP("widgets::Palette", "deep purple")},
};

constexpr PaletteColour kPlain[] = {
    {support::kWhite, QT_TRANSLATE_NOOP("widgets::Palette", "white")},
    {Rgb(224, 224, 224), QT_TRANSLATE_NOOP("widgets::Palette", "pale grey")},
    {Rgb(160, 160, 160), QT_TRANSLATE_NOOP("widgets::Palette", "middle grey")},
    {Rgb(96, 96, 96), QT_TRANSLATE_NOOP("widgets::Palette", "dark grey")},
    {support::kBlack, QT_TRANSLATE_NOOP("widgets::Palette", "black")},
};

} // namespace

std::span<const PaletteColour> PaletteColours() { return kPalette; }
std::span<const PaletteColour> PlainColours() { return kPlain; }

QString NameInPalette(support::Colour colour) {
    for (const std::span<const PaletteColour> colours : {PaletteColours(), PlainColours()})
        for (const PaletteColour &row : colours)
            if (row.colour == colour) return QCoreApplication::translate("widgets::Palette", row.name);
    return ColourName(colour);
}

} // namespace widgets
