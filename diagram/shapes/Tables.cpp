#include "diagram/shapes/Tables.h"

#include <array>
#include <string_view>

namespace diagram {

namespace {

constexpr std::array kOrientations{
    NamedValue{0, "Angle 0"},
    NamedValue{1, "Angle 90"},
    NamedValue{2, "Angle 180"},
    NamedValue{3, "Angle 270"},
};

constexpr std::array kLineStyles{
    NamedValue{0, "Solid"},        NamedValue{1, "Dash"},         NamedValue{2, "Dot"},
    NamedValue{3, "Dash-Dot"},     NamedValue{4, "Dash-Dot-Dot"}, NamedValue{5, "Transparent"},
    NamedValue{6, "Inside Solid"},
};

constexpr std::array kAlignments{
    NamedValue{0, "Left Justify - Top"},      NamedValue{1, "Left Justify - Middle"},
    NamedValue{2, "Left Justify - Bottom"},   NamedValue{3, "Right Justify - Top"},
    NamedValue{4, "Right Justify - Middle"},  NamedValue{5, "Right Justify - Bottom"},
    NamedValue{6, "Center Justify - Top"},    NamedValue{7, "Center Justify - Middle"},
    NamedValue{8, "Center Justify - Bottom"},
};

constexpr std::array kPicturePositions{
    NamedValue{0, "Left - Top"},       NamedValue{1, "Left - Middle"},   NamedValue{2, "Left - Bottom"},
    NamedValue{3, "Right - Top"},      NamedValue{4, "Right - Middle"},  NamedValue{5, "Right - Bottom"},
    NamedValue{6, "Center - Top"},     NamedValue{7, "Center - Middle"}, NamedValue{8, "Center - Bottom"},
    NamedValue{9, "Relative to Text"},
};

constexpr std::array kShadows{
    NamedValue{0, "No Shadow"},       NamedValue{1, "Right Bottom Shadow"}, NamedValue{2, "Right Top Shadow"},
    NamedValue{3, "Left Top Shadow"}, NamedValue{4, "Left Bottom Shadow"},
};

// The third name ends in a blank; lists are compared with it letter for letter.
constexpr std::array kAutoSizes{
    NamedValue{0, "None"},
    NamedValue{1, "Adjust Picture Size to Node"},
    NamedValue{2, "Adjust Node Size to Picture "},
    NamedValue{3, "Adjust Node Size to Text"},
};

constexpr std::array kArrowSizes{
    NamedValue{0, "Small"},
    NamedValue{1, "Medium"},
    NamedValue{2, "Big"},
};

constexpr std::array kJumpStyles{
    NamedValue{0, "No Jump"},
    NamedValue{1, "Arch Jump"},
    NamedValue{2, "Break in the line"},
};

// Every row names its value, values count up from 0, no two names are equal.
template <std::size_t N>
constexpr bool IsWhole(const std::array<NamedValue, N> &table, std::size_t count) {
    if (N != count) return false;
    for (std::size_t i = 0; i < N; ++i) {
        if (table[i].value != int(i) || !table[i].name || !*table[i].name) return false;
        for (std::size_t k = 0; k < i; ++k)
            if (std::string_view(table[i].name) == table[k].name) return false;
    }
    return true;
}

static_assert(IsWhole(kOrientations, 4));
static_assert(IsWhole(kLineStyles, 7));
static_assert(IsWhole(kAlignments, 9));
static_assert(IsWhole(kPicturePositions, 10));
static_assert(IsWhole(kShadows, 5));
static_assert(IsWhole(kAutoSizes, 4));
static_assert(IsWhole(kArrowSizes, 3));
static_assert(IsWhole(kJumpStyles, 3));

} // namespace

std::span<const NamedValue> OrientationTable() { return kOrientations; }
std::span<const NamedValue> LineStyleTable() { return kLineStyles; }
std::span<const NamedValue> AlignmentTable() { return kAlignments; }
std::span<const NamedValue> PicturePosTable() { return kPicturePositions; }
std::span<const NamedValue> ShadowTable() { return kShadows; }
std::span<const NamedValue> AutoSizeTable() { return kAutoSizes; }
std::span<const NamedValue> ArrowSizeTable() { return kArrowSizes; }
std::span<const NamedValue> JumpStyleTable() { return kJumpStyles; }

} // namespace diagram
