#include "document/FindText.h"

#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "support/testing/ScriptedDesktop.h"

#include <gmock/gmock.h>

namespace document {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct FindTextTest : ::testing::Test {
    support::testing::ScriptedDesktop desktop; // keys are drawn from it
    SurfaceArray surfaces;
    cGroups groups;
    cLevels levels;

    diagram::Node &AddNode(int slice, float top, const char *text) {
        if (!surfaces.Exists(slice)) surfaces.Load(slice);
        diagram::Node &node = surfaces[slice].Nodes().Add(0, top, 100, 100);
        node.SetText(QString::fromUtf8(text));
        return node;
    }
    std::vector<FindHit> Find(const char *text, const FindOptions &options = {}) const {
        return FindText(surfaces, groups, levels, QString::fromUtf8(text), options);
    }
    int Replace(const char *text, const char *with, const FindOptions &options = {}) const {
        return ReplaceText(surfaces, Find(text, options), QString::fromUtf8(text), QString::fromUtf8(with),
                           options);
    }
    static FindHit HitOf(const diagram::Node &node, int slice) {
        return {slice, diagram::ItemKind::Node, node.Id()};
    }
};

TEST_F(FindTextTest, HitsComeSliceBySliceFromTheTopDown) {
    diagram::Node &low = AddNode(0, 900, "plan"), &high = AddNode(0, 100, "The Plan");
    diagram::Node &next = AddNode(1, 0, "replanned");
    EXPECT_THAT(Find("PLAN"), ElementsAre(HitOf(high, 0), HitOf(low, 0), HitOf(next, 1)));
}

TEST_F(FindTextTest, CaseAndWholeWordsCountWhenAskedFor) {
    diagram::Node &first = AddNode(0, 0, "Plan"), &second = AddNode(0, 500, "plans, übermorgen");
    EXPECT_THAT(Find("Plan", {.matchCase = true}), ElementsAre(HitOf(first, 0)));
    EXPECT_THAT(Find("plan", {.wholeWords = true}), ElementsAre(HitOf(first, 0)));
    EXPECT_THAT(Find("bermorgen", {.wholeWords = true}), IsEmpty());
    EXPECT_THAT(Find("Übermorgen", {.wholeWords = true}), ElementsAre(HitOf(second, 0)));
}

TEST_F(FindTextTest, SecondTextsLabelsAndNamesAreSearched) {
    diagram::Node &node = AddNode(0, 0, "a"), &other = AddNode(0, 500, "b"), &plain = AddNode(0, 900, "c");
    node.SetEvent(QStringLiteral("fair"));
    SetTag(other, tags::kGroup, groups.Create(QStringLiteral("Trade fair"), true).Key);
    SetTag(plain, tags::kLevel, levels.Create(QStringLiteral("Affair"), true, 0).Key);
    diagram::Link &link = plain.Links().Add(node);
    link.SetText(QStringLiteral("fairly"));
    EXPECT_EQ(Find("fair").size(), 4U);
}

TEST_F(FindTextTest, WhatIsHiddenOrCannotBeSelectedIsPassedOver) {
    AddNode(0, 0, "March 2026").SetSelectable(false);
    AddNode(0, 0, "March").SetHidden(true);
    EXPECT_THAT(Find("March"), IsEmpty());
    EXPECT_THAT(Find(""), IsEmpty());
}

TEST_F(FindTextTest, ReplacingIsOneStepASliceAndLeavesNamesAlone) {
    diagram::Node &first = AddNode(0, 0, "old and Old"), &second = AddNode(0, 500, "older");
    diagram::Node &third = AddNode(1, 0, "c");
    third.SetEvent(QStringLiteral("old"));
    cGroup &group = groups.Create(QStringLiteral("old"), true);
    SetTag(third, tags::kGroup, group.Key);
    EXPECT_EQ(Replace("old", "new"), 4);
    EXPECT_EQ(first.Text(), QStringLiteral("new and new"));
    EXPECT_EQ(second.Text(), QStringLiteral("newer"));
    EXPECT_EQ(third.Event(), QStringLiteral("new"));
    EXPECT_EQ(group.GroupName, QStringLiteral("old"));
    surfaces[0].Undo();
    EXPECT_EQ(first.Text(), QStringLiteral("old and Old"));
    EXPECT_EQ(second.Text(), QStringLiteral("older"));
    EXPECT_EQ(third.Event(), QStringLiteral("new"));
}

TEST_F(FindTextTest, SignsOfPatternsAreJustSigns) {
    diagram::Node &node = AddNode(0, 0, "cost (\\1.50)");
    EXPECT_EQ(Replace("(\\1.50)", "\\0", {.wholeWords = true}), 1);
    EXPECT_EQ(node.Text(), QStringLiteral("cost \\0"));
}

TEST_F(FindTextTest, AnEmptyTextIsFoundAndReplacedNowhere) {
    EXPECT_TRUE(Find("").empty());
    EXPECT_EQ(Replace("", "new"), 0);
    EXPECT_EQ(ReplaceText(surfaces, Find("old"), QString(), QStringLiteral("new"), {}), 0);
}

TEST_F(FindTextTest, WhatIsPutInIsNotSearchedAgain) {
    diagram::Node &node = AddNode(0, 0, "aa");
    EXPECT_EQ(Replace("a", "aa"), 2);
    EXPECT_EQ(node.Text(), QStringLiteral("aaaa"));
}

} // namespace
} // namespace document
