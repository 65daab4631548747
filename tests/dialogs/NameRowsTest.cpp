#include "dialogs/NameRows.h"

#include "document/cGroups.h"
#include "document/cLevels.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>

using namespace dialogs;

namespace {

// Levels "A" and "B".
struct NameRowsTest : ::testing::Test {
    NameRowsTest() {
        levels.Create(QStringLiteral("A"), true, 1);
        levels.Create(QStringLiteral("B"), false, 2);
        former = rows = RowsOf(levels);
    }
    std::optional<NameFault> Fault() const { return FindFault(former, rows); }
    support::testing::ScriptedDesktop desktop;
    document::cLevels levels;
    NameRows former, rows;
};

} // namespace

TEST_F(NameRowsTest, RowsOf_TellsEveryValue) {
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].key, levels.Item(2).Key);
    EXPECT_EQ(rows[1].name, QStringLiteral("B"));
    EXPECT_FALSE(rows[1].selected);
    EXPECT_EQ(rows[1].colour, 2);
}

TEST_F(NameRowsTest, StoreRows_GivesNewRowsTheirKeysAndLeavesWhatNoRowNames) {
    rows.erase(rows.begin());
    rows.push_back({{}, QStringLiteral("C"), false, 3});
    StoreRows(rows, levels);
    ASSERT_EQ(levels.count(), 3);
    EXPECT_EQ(levels.Item(1).LevelName, QStringLiteral("A"));
    EXPECT_EQ(levels.Item(3).Key, rows[1].key);
    EXPECT_EQ(levels.Item(3).LevelName, QStringLiteral("C"));
    EXPECT_FALSE(levels.Item(3).Selected);
    EXPECT_EQ(levels.Item(3).Color, 3);
}

TEST_F(NameRowsTest, StoreRows_TwiceMakesANewRowOnce) {
    rows.push_back({{}, QStringLiteral("C"), true, 3});
    StoreRows(rows, levels);
    StoreRows(rows, levels);
    EXPECT_EQ(levels.count(), 3);
}

TEST_F(NameRowsTest, FindFault_FindsNoneInNoRows) {
    rows.clear();
    EXPECT_EQ(Fault(), std::nullopt);
}

TEST_F(NameRowsTest, FindFault_FindsTheFirst) {
    EXPECT_EQ(Fault(), std::nullopt);
    rows[1].name = QStringLiteral(" ");
    rows.push_back({{}, QStringLiteral("A"), true, 0});
    EXPECT_EQ(Fault()->row, 1u);
    EXPECT_EQ(Fault()->kind, NameFault::Kind::Empty);
    rows[1].name = QStringLiteral("b");
    EXPECT_EQ(Fault()->row, 2u);
    EXPECT_EQ(Fault()->kind, NameFault::Kind::Double);
}

TEST_F(NameRowsTest, FindFault_NamesMayBeSwapped) {
    std::swap(rows[0].name, rows[1].name);
    EXPECT_EQ(Fault(), std::nullopt);
}

// It stays in the map, so a save would write the name twice.
TEST_F(NameRowsTest, FindFault_TheNameOfADeletedRowIsTaken) {
    rows.erase(rows.begin());
    rows.push_back({{}, QStringLiteral("A"), true, 0});
    ASSERT_NE(Fault(), std::nullopt);
    EXPECT_EQ(Fault()->kind, NameFault::Kind::Deleted);
    rows.pop_back();
    rows[0].name = QStringLiteral("A");
    EXPECT_EQ(Fault()->kind, NameFault::Kind::Deleted);
}

TEST_F(NameRowsTest, FindFault_OfTwoThatHadOneNameOneMayBeDeleted) {
    former[1].name = rows[1].name = QStringLiteral("A");
    EXPECT_EQ(Fault()->kind, NameFault::Kind::Double);
    rows.pop_back();
    EXPECT_EQ(Fault(), std::nullopt);
}

TEST_F(NameRowsTest, DeletedRows_AreThoseWhoseKeysAreGone) {
    EXPECT_TRUE(DeletedRows(former, rows).empty());
    rows.erase(rows.begin());
    ASSERT_EQ(DeletedRows(former, rows).size(), 1u);
    EXPECT_EQ(DeletedRows(former, rows)[0].name, QStringLiteral("A"));
}
