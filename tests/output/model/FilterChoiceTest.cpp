#include "output/model/FilterChoice.h"

#include "document/Tags.h"
#include "tests/document/MapTest.h"
#include "tests/document/Slices.h"
#include "timeline/TimelineNodes.h"

namespace output {
namespace {

class FilterChoiceTest : public document::testing::MapTest {
protected:
    FilterChoiceTest() {
        settings.Levels().Clear();
        settings.Groups().Clear();
        goal = settings.Levels().Create(QStringLiteral("Goal"), true, 0).Key;
        step = settings.Levels().Create(QStringLiteral("Step"), true, 0).Key;
        sales = settings.Groups().Create(QStringLiteral("Sales"), true).Key;
        staff = settings.Groups().Create(QStringLiteral("Staff"), false).Key;
    }
    diagram::Node &AddNode(diagram::Surface &surface, const QString &level, const QString &group) {
        diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
        document::SetTag(node, document::tags::kLevel, level);
        document::SetTag(node, document::tags::kGroup, group);
        return node;
    }

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    document::clsfrmMain &settings = window->clsSettings();
    diagram::Surface &first = window->AddFlow1()[0];
    QString goal, step, sales, staff;
};

TEST_F(FilterChoiceTest, WithoutAChoiceEverythingStaysAsItIs) {
    diagram::Node &node = AddNode(first, goal, staff);
    ShowOnly(*window, {});
    EXPECT_FALSE(node.Hidden());
}

TEST_F(FilterChoiceTest, TicksWhatIsNamedAndLeavesTheOtherListAsTheMapHasIt) {
    diagram::Node &shown = AddNode(first, step, sales), &otherLevel = AddNode(first, goal, sales),
                  &notTicked = AddNode(first, step, staff);
    ShowOnly(*window, {QStringList{QStringLiteral("Step")}, {}});
    EXPECT_FALSE(shown.Hidden());
    EXPECT_TRUE(otherLevel.Hidden());
    EXPECT_TRUE(notTicked.Hidden());
    EXPECT_FALSE(settings.Levels().Item(goal).Selected);
    EXPECT_TRUE(settings.Groups().Item(sales).Selected);
    ShowOnly(*window, {{}, QStringList{QStringLiteral("Staff")}});
    EXPECT_TRUE(shown.Hidden());
    EXPECT_FALSE(notTicked.Hidden());
}

TEST_F(FilterChoiceTest, FiltersEverySlice) {
    diagram::Node &second = AddNode(document::testing::AddSlice(*window), goal, sales);
    ShowOnly(*window, {QStringList{}, {}});
    EXPECT_TRUE(second.Hidden());
}

TEST_F(FilterChoiceTest, ANameThatTheMapDoesNotHaveChangesNothing) {
    diagram::Node &node = AddNode(first, goal, sales);
    const FilterChoice choice{QStringList{}, QStringList{QStringLiteral("sales")}};
    const support::Error error = document::testing::ErrorOf([&] { ShowOnly(*window, choice); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), QStringLiteral("There is no group 'sales'. The map has: Sales, Staff"));
    EXPECT_FALSE(node.Hidden());
    EXPECT_TRUE(settings.Levels().Item(goal).Selected);
}

TEST_F(FilterChoiceTest, AViewTicksBothListsAndNamesThatAreGivenGoFirst) {
    diagram::Node &plain = AddNode(first, step, sales), &other = AddNode(first, goal, staff);
    settings.Levels().Item(goal).Selected = false;
    document::KeepView(settings, QStringLiteral("Steps"));
    settings.Levels().Item(goal).Selected = true;
    EXPECT_EQ(ShowOnly(*window, {{}, {}, QStringLiteral("steps")}), QStringList());
    EXPECT_FALSE(plain.Hidden());
    EXPECT_TRUE(other.Hidden());
    EXPECT_FALSE(settings.Levels().Item(goal).Selected);
    ShowOnly(*window, {QStringList{QStringLiteral("Goal")}, QStringList{QStringLiteral("Staff")},
                       QStringLiteral("Steps")});
    EXPECT_TRUE(plain.Hidden());
    EXPECT_FALSE(other.Hidden());
}

TEST_F(FilterChoiceTest, AViewWhoseLevelIsGoneShowsTheRestAndSaysSo) {
    diagram::Node &node = AddNode(first, step, sales);
    document::KeepView(settings, QStringLiteral("Steps"));
    settings.Levels().Remove(goal);
    EXPECT_EQ(ShowOnly(*window, {{}, {}, QStringLiteral("Steps")}), QStringList{QStringLiteral("Goal")});
    EXPECT_FALSE(node.Hidden());
}

TEST_F(FilterChoiceTest, AViewThatTheMapDoesNotHaveIsAnErrorThatNamesThoseItHas) {
    document::KeepView(settings, QStringLiteral("Steps"));
    const support::Error error = document::testing::ErrorOf([&] {
        ShowOnly(*window, {{}, {}, QStringLiteral("Plan")});
    });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), QStringLiteral("There is no view 'Plan'. The map has: Steps"));
}

TEST_F(FilterChoiceTest, DateLinksStayWithTheirMonths) {
    diagram::Node &node = AddNode(first, goal, sales);
    timeline::LocateTimelineNode(first, QStringLiteral("17 May 2024"), true, &node);
    const diagram::Link &date = node.Links().Item(1);
    const FilterChoice choice{QStringList{QStringLiteral("Goal")}, {}};
    ShowOnly(*window, choice);
    EXPECT_FALSE(date.Hidden());
    timeline::ShowHideTimelineNodes(first, false);
    ShowOnly(*window, choice);
    EXPECT_FALSE(node.Hidden());
    EXPECT_TRUE(date.Hidden()) << "a month that isn't shown has no links to be seen";
}

} // namespace
} // namespace output
