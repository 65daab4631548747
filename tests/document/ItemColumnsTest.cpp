#include "document/ItemColumns.h"

#include "diagram/model/Properties.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

using namespace document;

namespace {

using Names = std::map<std::string, std::string>;

// The columns that each property stands in, by the property's name.
template <typename Columns, typename Rows>
std::multimap<std::string, std::string> ColumnsByProperty(const Columns &columns, Rows rows) {
    std::multimap<std::string, std::string> named;
    for (const auto &column : columns)
        if (column.property != 0) named.emplace(rows[column.property - 1U].name, column.def.name);
    return named;
}

template <typename Columns, typename Rows>
void ExpectColumnsFor(const Columns &columns, Rows rows, const Names &otherNames, const Names &second,
                      const std::vector<std::string> &notKept) {
    std::multimap<std::string, std::string> expected;
    for (const auto &row : rows) {
        if (std::find(notKept.begin(), notKept.end(), row.name) != notKept.end()) continue;
        const auto other = otherNames.find(row.name);
        expected.emplace(row.name, other == otherNames.end() ? row.name : other->second);
    }
    expected.insert(second.begin(), second.end());
    EXPECT_EQ(ColumnsByProperty(columns, rows), expected);
}

} // namespace

TEST(ItemColumns, EveryPropertyOfANodeHasItsColumn) {
    ExpectColumnsFor(kNodeColumns, diagram::NodeProperties(), {{"Text", "Description"}, {"ZOrder", "zOrder"}},
                     {{"Alignment", "TextPos"}}, {});
}

// Points have a table of their own, and none says whose the bends are: the router finds that out.
TEST(ItemColumns, EveryPropertyOfALinkHasItsColumn) {
    ExpectColumnsFor(kLinkColumns, diagram::LinkProperties(),
                     {{"Source", "KeySource"}, {"Destination", "KeyDest"}}, {},
                     {"Points", "AddPointsMode", "MovePointsMode", "OwnBends"});
}

TEST(ItemColumns, EachIsInTheTableInItsPosition) {
    const auto check = [](const auto &columns, const TableLayout &table) {
        ASSERT_EQ(columns.size(), table.columns.size());
        for (const auto &column : columns) {
            const ColumnDef &def = table.columns[static_cast<std::size_t>(column.position)];
            EXPECT_STREQ(def.name, column.def.name);
            EXPECT_EQ(def.type, column.def.type) << def.name;
        }
    };
    check(kNodeColumns, schema::kNodes);
    check(kLinkColumns, schema::kLinks);
}
