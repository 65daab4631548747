#include "timeline/setup/Lists.h"

namespace timeline {

namespace {

template <std::size_t Size>
QStringList Listed(const char *const (&entries)[Size]) {
    QStringList list;
    for (const char *entry : entries) list << QString::fromLatin1(entry);
    return list;
}

// The third one ends with a blank.
constexpr const char *kAutoSizes[] = {"None", "Adjust Picture Size to Node", "Adjust Node Size to Picture ",
                                      "Adjust Node Size to Text"};
constexpr const char *kDrawStyles[] = {"Solid",        "Dash",        "Dot",         "Dash-Dot",
                                       "Dash-Dot-Dot", "Transparent", "Inside Solid"};
constexpr const char *kShadows[] = {"No Shadow", "Right Bottom Shadow", "Right Top Shadow", "Left Top Shadow",
                                    "Left Bottom Shadow"};
constexpr const char *kOrientations[] = {"Angle 0", "Angle 90", "Angle 180", "Angle 270"};
constexpr const char *kPlacements[] = {
    "Left Justify - Top",   "Left Justify - Middle",   "Left Justify - Bottom",
    "Right Justify - Top",  "Right Justify - Middle",  "Right Justify - Bottom",
    "Center Justify - Top", "Center Justify - Middle", "Center Justify - Bottom"};
constexpr const char *kArrangements[] = {"Left", "Right", "Top", "Bottom", "Center"};

} // namespace

QStringList AutoSizes() { return Listed(kAutoSizes); }
QStringList DrawStyles() { return Listed(kDrawStyles); }
QStringList Shadows() { return Listed(kShadows); }
QStringList Orientations() { return Listed(kOrientations); }
QStringList Placements() { return Listed(kPlacements); }
QStringList Arrangements() { return Listed(kArrangements); }

QStringList Numbers(int last) {
    QStringList numbers;
    for (int number = 0; number <= last; ++number) numbers << QString::number(number);
    return numbers;
}

} // namespace timeline
