#include "document/MapRows.h"

#include "storage/Database.h"
#include "tests/document/MapTest.h"

namespace document::testing {

using MapRowsTest = MapTest;

// A query for each link would be far too slow with a large map.
TEST_F(MapRowsTest, EachTableIsReadOnce) {
    const QString path = EmptyMap(QStringLiteral("a.map"));
    for (const QString &statement :
         {InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("n")),
          InsertNode(QStringLiteral("m"), 1),
          InsertLink(QStringLiteral("l"), QStringLiteral("n"), QStringLiteral("n")),
          InsertLink(QStringLiteral("k"), QStringLiteral("m"), QStringLiteral("m"), 1),
          QStringLiteral("INSERT INTO [LinkPoints] VALUES (0, 'l', 1, 2)"),
          QStringLiteral("INSERT INTO [LinkPoints] VALUES (0, 'k', 3, 4)")})
        Run(path, statement);
    const auto window = NewWindow();
    storage::Database database = storage::OpenDatabase(path);
    MapRows rows(database, window->clsSettings());
    EXPECT_EQ(rows.TakeNodes(0).size(), 1U);
    const std::vector<LinkRow> first = rows.TakeLinks(0);
    ASSERT_EQ(first.size(), 1U);
    const std::span<const PointRow> points = rows.PointsOf(first[0].key);
    for (const char *table : {"Nodes", "Links", "LinkPoints"})
        database.Execute(QStringLiteral("DELETE FROM [%1]").arg(QLatin1String(table)));
    EXPECT_EQ(rows.TakeNodes(1).size(), 1U);
    const std::vector<LinkRow> second = rows.TakeLinks(1);
    ASSERT_EQ(second.size(), 1U);
    ASSERT_EQ(rows.PointsOf(second[0].key).size(), 1U);
    EXPECT_EQ(rows.PointsOf(second[0].key)[0].x, 3);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].x, 1);
}

} // namespace document::testing
