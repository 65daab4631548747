#include "document/Filter.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "diagram/model/Sights.h"
#include "diagram/model/Surface.h"
#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/Tags.h"
#include "support/testing/ScriptedDesktop.h"

#include <gmock/gmock.h>

namespace document {
namespace {

// Groups "Sales" and "Staff", levels "Goal" and "Step".
struct FilterTest : ::testing::Test {
    support::testing::ScriptedDesktop desktop; // keys are drawn from it
    cGroups groups;
    cLevels levels;
    diagram::Surface surface;
    QString sales = groups.Create(QStringLiteral("Sales"), true).Key;
    QString staff = groups.Create(QStringLiteral("Staff"), true).Key;
    QString goal = levels.Create(QStringLiteral("Goal"), true, 0).Key;
    QString step = levels.Create(QStringLiteral("Step"), true, 0).Key;

    diagram::Node &AddNode(const QString &group, const QString &level) {
        diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
        SetTag(node, tags::kGroup, group);
        SetTag(node, tags::kLevel, level);
        return node;
    }
    void Apply(const char *groupNames, const char *levelNames) {
        ApplyFilter(surface, KeysForFilter(QString::fromUtf8(groupNames), QString::fromUtf8(levelNames),
                                           groups, levels));
    }
};

TEST_F(FilterTest, NamesBecomeKeysBetweenCommas) {
    const FilterKeys keys =
        KeysForFilter(QStringLiteral("Staff,Nobody"), QStringLiteral("Step"), groups, levels);
    EXPECT_EQ(keys.groups, QStringLiteral(",,%1,Nobody,").arg(staff));
    EXPECT_EQ(keys.levels, QStringLiteral(",,%1,").arg(step));
}

TEST_F(FilterTest, ANodeIsShownOnlyWithItsLevelAndOneOfItsGroupsTicked) {
    diagram::Node &both = AddNode(sales + QLatin1Char(',') + staff, goal), &other = AddNode(staff, step);
    Apply("Sales", "Goal");
    EXPECT_FALSE(both.Hidden());
    EXPECT_TRUE(other.Hidden());
    Apply("Staff", "Step");
    EXPECT_TRUE(both.Hidden());
    EXPECT_FALSE(other.Hidden());
    Apply("Sales,Staff", "Goal,Step");
    EXPECT_FALSE(both.Hidden());
    EXPECT_FALSE(other.Hidden());
}

TEST_F(FilterTest, APreviewIsWhatApplyingWouldMakeOfItAndWritesNothing) {
    std::vector<diagram::Node *> nodes{&AddNode(sales, goal), &AddNode(staff, step),
                                       &AddNode(sales + QLatin1Char(',') + staff, step), &AddNode({}, goal),
                                       &surface.Nodes().Add(0, 0, 9, 9)};
    nodes[4]->SetMarked(true);
    nodes[4]->SetHidden(true);
    std::vector<diagram::Link *> links;
    for (diagram::Node *from : nodes)
        for (diagram::Node *to : nodes) links.push_back(&from->Links().Add(*to));
    links[7]->SetHidden(true);
    const char *const lists[][2] = {
        {"Sales", "Goal"}, {"", ""}, {"Staff,Sales", "Step"}, {"Staff", "Goal,Step"}};
    for (const auto &[groupNames, levelNames] : lists) {
        const diagram::Revision before = surface.Actions().Revision();
        const diagram::Sights sights =
            PreviewFilter(surface, KeysForFilter(QString::fromUtf8(groupNames), QString::fromUtf8(levelNames),
                                                 groups, levels));
        EXPECT_EQ(surface.Actions().Revision(), before);
        std::vector<bool> foreseen;
        for (const diagram::Node *node : nodes) foreseen.push_back(sights.Hides(*node));
        for (const diagram::Link *link : links) foreseen.push_back(sights.Hides(*link));
        Apply(groupNames, levelNames);
        std::size_t at = 0;
        for (const diagram::Node *node : nodes) EXPECT_EQ(foreseen[at++], node->Hidden()) << groupNames;
        for (const diagram::Link *link : links) EXPECT_EQ(foreseen[at++], link->Hidden()) << groupNames;
    }
}

TEST_F(FilterTest, AnEmptyListHidesEveryNodeWithTags) {
    diagram::Node &node = AddNode(sales, goal);
    Apply("", "Goal,Step");
    EXPECT_TRUE(node.Hidden());
    Apply("Sales", "");
    EXPECT_TRUE(node.Hidden());
}

TEST_F(FilterTest, ANodeWithoutGroupOrLevelStaysAsItIsWithItsLinks) {
    diagram::Node &plain = surface.Nodes().Add(0, 0, 100, 100), &noLevel = AddNode(sales, QString());
    diagram::Node &tagged = AddNode(sales, goal);
    diagram::Link &link = plain.Links().Add(tagged);
    noLevel.SetHidden(true);
    Apply("", "");
    EXPECT_FALSE(plain.Hidden());
    EXPECT_TRUE(noLevel.Hidden());
    EXPECT_TRUE(tagged.Hidden());
    EXPECT_FALSE(link.Hidden());
}

TEST_F(FilterTest, ALinkGoesWithEitherEnd) {
    diagram::Node &first = AddNode(sales, goal), &second = AddNode(staff, goal);
    diagram::Link &there = first.Links().Add(second), &back = second.Links().Add(first);
    Apply("Sales", "Goal");
    EXPECT_TRUE(there.Hidden());
    EXPECT_TRUE(back.Hidden());
    Apply("Sales,Staff", "Goal");
    EXPECT_FALSE(there.Hidden());
    EXPECT_FALSE(back.Hidden());
}

TEST_F(FilterTest, ALinkToAMarkedNodeGoesWithItsOriginAlone) {
    diagram::Node &origin = AddNode(sales, goal), &day = surface.Nodes().Add(0, 0, 10, 10);
    day.SetMarked(true);
    day.SetHidden(true);
    diagram::Link &link = origin.Links().Add(day);
    Apply("Sales", "Goal");
    EXPECT_FALSE(link.Hidden());
    Apply("Staff", "Goal");
    EXPECT_TRUE(link.Hidden());
}

TEST_F(FilterTest, ARenamedGroupStillFilters) {
    diagram::Node &node = AddNode(sales, goal);
    groups.Item(sales).GroupName = QStringLiteral("Selling");
    Apply("Selling", "Goal");
    EXPECT_FALSE(node.Hidden());
    Apply("Sales", "Goal");
    EXPECT_TRUE(node.Hidden());
}

TEST_F(FilterTest, ANameWithACommaMatchesNoGroup) {
    groups.Item(sales).GroupName = QStringLiteral("Sales, north");
    diagram::Node &node = AddNode(sales, goal);
    Apply("Sales, north", "Goal");
    EXPECT_TRUE(node.Hidden());
}

TEST_F(FilterTest, KeysAreComparedWithoutCase) {
    diagram::Node &node = AddNode(sales.toLower(), goal.toLower());
    Apply("Sales", "Goal");
    EXPECT_FALSE(node.Hidden());
}

TEST(NodeInGroup, LooksBehindTheFirstCharacterAndPassesOverEmptyElements) {
    EXPECT_TRUE(NodeInGroup(QStringLiteral(",a,"), QStringLiteral(",A,")));
    EXPECT_FALSE(NodeInGroup(QStringLiteral(",a,"), QStringLiteral("a,,")));
    EXPECT_FALSE(NodeInGroup(QStringLiteral(",,"), QStringLiteral(",,a,")));
    EXPECT_TRUE(NodeInGroup(QStringLiteral(",b,a,"), QStringLiteral(",,a,")));
}

} // namespace
} // namespace document
