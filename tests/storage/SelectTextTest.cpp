#include "storage/SelectText.h"

#include <gtest/gtest.h>

namespace storage::testing {

namespace {

struct Split {
    const char *sql, *columns, *table, *rest;
};

TEST(SelectText, QueriesOfOneTableAreSplit) {
    const Split splits[] = {
        {"SELECT * FROM [Nodes]", "*", "Nodes", ""},
        {"SELECT * FROM Nodes;", "*", "Nodes", ""},
        {" \tselect\n[Key] , \"Left\",Top from \"My Nodes\" ; \n", "[Key] , \"Left\",Top", "My Nodes", ""},
        {"SELECT Nodes.Key FROM Nodes WHERE Slice=?", "Nodes.Key", "Nodes", "WHERE Slice=?"},
        {"SELECT *,* FROM [A]where 1", "*,*", "A", "where 1"},
        {"SELECT a, [b c] FROM [T] ORDER BY a", "a, [b c]", "T", "ORDER BY a"},
        {"SELECT FROM FROM T", "FROM", "T", ""},
        {"SELECT Distinction, Allowed FROM T", "Distinction, Allowed", "T", ""},
        {"SELECT a FROM T WHERE b='UNION'", "a", "T", "WHERE b='UNION'"},
        {"SELECT a FROM T WHERE [GROUP BY]=1", "a", "T", "WHERE [GROUP BY]=1"},
    };
    for (const Split &split : splits) {
        const auto parts = SplitSelect(QString::fromLatin1(split.sql));
        ASSERT_TRUE(parts) << split.sql;
        EXPECT_EQ(parts->columns, QLatin1String(split.columns)) << split.sql;
        EXPECT_EQ(parts->table, QLatin1String(split.table)) << split.sql;
        EXPECT_EQ(parts->rest, QLatin1String(split.rest)) << split.sql;
    }
}

TEST(SelectText, OtherQueriesAreNot) {
    for (const char *sql : {"",
                            "SELECT",
                            "SELECT *",
                            "SELECT * FROM",
                            "SELECT * FROM ;",
                            "SELECT FROM T",
                            "SELECTa FROM T",
                            "SELECT [] FROM T",
                            "SELECT [a FROM T",
                            "SELECT a, FROM T",
                            "SELECT *FROM T",
                            "SELECT a b FROM T",
                            "SELECT DISTINCT a FROM T",
                            "SELECT  all a FROM T",
                            "SELECT COUNT(*) FROM T",
                            "SELECT a FROM T, U",
                            "SELECT a FROM T u",
                            "SELECT a FROM tWHERE x",
                            "SELECT a FROM T WHEREx",
                            "SELECT a FROM [T] LIMIT 1",
                            "SELECT a FROM T WHERE b GROUP  BY a",
                            "SELECT a FROM T WHERE 1 UNION SELECT 2",
                            "SELECT a FROM T ORDER BY b INTERSECT SELECT 2",
                            "DELETE FROM T"})
        EXPECT_FALSE(SplitSelect(QLatin1String(sql))) << sql;
}

} // namespace

} // namespace storage::testing
