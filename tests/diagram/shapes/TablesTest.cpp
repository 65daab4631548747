#include "diagram/shapes/Tables.h"
#include "diagram/shapes/LinkStyles.h"

#include <gmock/gmock.h>
#include <QPainterPath>
#include <string>
#include <vector>

namespace diagram {

namespace {

std::vector<std::string> Names(std::span<const NamedValue> table) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i].value, int(i));
        names.emplace_back(table[i].name);
    }
    return names;
}

} // namespace

using testing::ElementsAre;

TEST(Tables, Orientations) {
    EXPECT_THAT(Names(OrientationTable()), ElementsAre("Angle 0", "Angle 90", "Angle 180", "Angle 270"));
}

TEST(Tables, LineStyles) {
    EXPECT_THAT(Names(LineStyleTable()), ElementsAre("Solid", "Dash", "Dot", "Dash-Dot", "Dash-Dot-Dot",
                                                     "Transparent", "Inside Solid"));
}

TEST(Tables, Alignments) {
    EXPECT_THAT(Names(AlignmentTable()),
                ElementsAre("Left Justify - Top", "Left Justify - Middle", "Left Justify - Bottom",
                            "Right Justify - Top", "Right Justify - Middle", "Right Justify - Bottom",
                            "Center Justify - Top", "Center Justify - Middle", "Center Justify - Bottom"));
}

TEST(Tables, PicturePositions) {
    EXPECT_THAT(Names(PicturePosTable()),
                ElementsAre("Left - Top", "Left - Middle", "Left - Bottom", "Right - Top", "Right - Middle",
                            "Right - Bottom", "Center - Top", "Center - Middle", "Center - Bottom",
                            "Relative to Text"));
}

TEST(Tables, Shadows) {
    EXPECT_THAT(Names(ShadowTable()), ElementsAre("No Shadow", "Right Bottom Shadow", "Right Top Shadow",
                                                  "Left Top Shadow", "Left Bottom Shadow"));
}

TEST(Tables, AutoSizes_KeepTheTrailingBlankOfTheThird) {
    EXPECT_THAT(Names(AutoSizeTable()),
                ElementsAre("None", "Adjust Picture Size to Node", "Adjust Node Size to Picture ",
                            "Adjust Node Size to Text"));
}

TEST(Tables, ArrowSizesAndJumps) {
    EXPECT_THAT(Names(ArrowSizeTable()), ElementsAre("Small", "Medium", "Big"));
    EXPECT_THAT(Names(JumpStyleTable()), ElementsAre("No Jump", "Arch Jump", "Break in the line"));
}

TEST(LinkStyles, NamesInOrder) {
    std::vector<std::string> names;
    for (const LinkStyleRow &row : LinkStyleTable()) {
        EXPECT_EQ(FindLinkStyle(row.value), &row);
        names.emplace_back(row.name);
    }
    EXPECT_THAT(names, ElementsAre("Polyline", "Bezier", "V H", "H V", "V H V", "H V H", "V H V H", "H V H V",
                                   "V H V H V", "H V H V H", "V H V H V H", "H V H V H V", "V H V H V H V",
                                   "H V H V H V H", "Spline"));
    EXPECT_EQ(FindLinkStyle(-1), nullptr);
    EXPECT_EQ(FindLinkStyle(15), nullptr);
}

TEST(LinkStyles, RoutedPointCount_IsOneMoreThanTheDirections) {
    EXPECT_EQ(RoutedPointCount(0), 2);
    EXPECT_EQ(RoutedPointCount(1), 4);
    EXPECT_EQ(RoutedPointCount(2), 3);
    EXPECT_EQ(RoutedPointCount(4), 4);
    EXPECT_EQ(RoutedPointCount(13), 8);
    EXPECT_EQ(RoutedPointCount(14), 2);
}

} // namespace diagram
