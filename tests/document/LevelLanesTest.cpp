#include "document/LevelLanes.h"

#include "diagram/model/Surface.h"
#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/Tags.h"
#include "support/testing/ScriptedDesktop.h"

#include <gmock/gmock.h>

namespace document {
namespace {

TEST(LanesByLevel, FollowTheOrderOfTheList) {
    support::testing::ScriptedDesktop desktop; // keys are drawn from it
    cLevels levels;
    const QString high = levels.Create(QStringLiteral("High"), true, support::kWhite).Key;
    const QString low = levels.Create(QStringLiteral("Low"), true, support::kWhite).Key;
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
    const auto lane = LanesByLevel(levels);
    EXPECT_EQ(lane(node), -1);
    SetTag(node, tags::kLevel, low);
    EXPECT_EQ(lane(node), 1);
    SetTag(node, tags::kLevel, high);
    EXPECT_EQ(lane(node), 0);
    SetTag(node, tags::kLevel, QStringLiteral("L99"));
    EXPECT_EQ(lane(node), -1);
}

TEST(ClustersByGroup, TheFirstGroupOfTheListCounts) {
    support::testing::ScriptedDesktop desktop;
    cGroups groups;
    const QString east = groups.Create(QStringLiteral("East"), true).Key;
    const QString west = groups.Create(QStringLiteral("West"), true).Key;
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
    const auto cluster = ClustersByGroup(groups);
    EXPECT_EQ(cluster(node), -1);
    SetTag(node, tags::kGroup, west);
    EXPECT_EQ(cluster(node), 1);
    SetTag(node, tags::kGroup, QStringLiteral("G99,") + west + u',' + east);
    EXPECT_EQ(cluster(node), 1);
    SetTag(node, tags::kGroup, QStringLiteral("G99"));
    EXPECT_EQ(cluster(node), -1);
}

TEST(ClustersOf, AreThoseOfTheChoice) {
    support::testing::ScriptedDesktop desktop;
    cLevels levels;
    cGroups groups;
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
    SetTag(node, tags::kLevel, levels.Create(QStringLiteral("High"), true, support::kWhite).Key);
    EXPECT_FALSE(ClustersOf(Together::Nothing, levels, groups));
    EXPECT_EQ(ClustersOf(Together::Levels, levels, groups)(node), 0);
    EXPECT_EQ(ClustersOf(Together::Groups, levels, groups)(node), -1);
}

} // namespace
} // namespace document
