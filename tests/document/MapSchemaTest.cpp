// The tables of a map that was written, column by column.
#include "document/MapSchema.h"

#include "diagram/model/Surface.h"
#include "storage/Database.h"
#include "tests/document/MapTest.h"

#include <gmock/gmock.h>

namespace document::testing {

namespace {

using storage::FieldType;

constexpr FieldType kText = FieldType::Text, kMemo = FieldType::Memo, kShort = FieldType::Integer,
                    kLong = FieldType::Long, kSingle = FieldType::Single, kYesNo = FieldType::Boolean,
                    kBytes = FieldType::LongBinary;

struct Column {
    const char *name;
    FieldType type;
};

const std::pair<const char *, std::vector<Column>> kTables[] = {
    {"Slices",
     {{"Index", kShort},
      {"Text", kText},
      {"BackColor", kLong},
      {"Picture", kText},
      {"GridLines", kYesNo},
      {"Timeline", kShort},
      {"IncMissing", kYesNo},
      {"xZoom", kLong},
      {"yZoom", kLong}}},
    {"Nodes",
     {{"Key", kText},
      {"Top", kSingle},
      {"Left", kSingle},
      {"Height", kSingle},
      {"Width", kSingle},
      {"Shape", kLong},
      {"ShapeOrientation", kShort},
      {"DrawStyle", kLong},
      {"DrawWidth", kSingle},
      {"xTextMargin", kLong},
      {"yTextMargin", kLong},
      {"TextPos", kLong},
      {"Shadow", kLong},
      {"PicturePos", kLong},
      {"Slice", kShort},
      {"Description", kMemo},
      {"Font", kText},
      {"BorderColor", kLong},
      {"FillColor", kLong},
      {"ForeColor", kLong},
      {"Hidden", kYesNo},
      {"Selectable", kYesNo},
      {"Picture", kText},
      {"Tag", kMemo},
      {"Group", kMemo},
      {"Level", FieldType::Double},
      {"Marked", kYesNo},
      {"AutoSize", kLong},
      {"Event", kMemo},
      {"Transparent", kYesNo},
      {"zOrder", kLong},
      {"Alignment", kLong}}},
    {"Links", {{"Key", kText},           {"KeySource", kText},
               {"KeyDest", kText},       {"Style", kLong},
               {"ArrowSource", kLong},   {"ArrowDest", kLong},
               {"ArrowMiddle", kLong},   {"ArrowSizeSource", kLong},
               {"ArrowSizeDest", kLong}, {"ArrowSizeMiddle", kLong},
               {"DrawStyle", kLong},     {"DrawWidth", kSingle},
               {"JumpStyle", kLong},     {"Slice", kShort},
               {"Text", kMemo},          {"Font", kText},
               {"ForeColor", kLong},     {"LineColor", kLong},
               {"Hidden", kYesNo},       {"Selectable", kYesNo},
               {"Rigid", kYesNo},        {"Oriented", kYesNo},
               {"Marked", kYesNo},       {"Zorder", kLong}}},
    {"LinkPoints", {{"Index", kLong}, {"Link", kText}, {"X", kSingle}, {"Y", kSingle}}},
    {"Fonts",
     {{"Key", kText},
      {"Name", kText},
      {"Size", FieldType::Currency},
      {"Bold", kYesNo},
      {"Italic", kYesNo},
      {"Underline", kYesNo},
      {"Strike", kYesNo}}},
    {"Pictures", {{"Key", kText}, {"Picture", kBytes}}},
    {"Groups", {{"Group", kText}, {"Selected", kYesNo}}},
    {"Levels", {{"Level", kText}, {"Selected", kYesNo}, {"Colour", kLong}}},
    {"Hyperlinks", {{"NodeKey", kText}, {"Filename", kMemo}, {"Slice", kShort}, {"Node", kText}}},
    {"Attachments",
     {{"Key", kText}, {"NodeKey", kText}, {"Filename", kMemo}, {"Embed", kYesNo}, {"Data", kBytes}}},
    {"Settings", {{"Author", kText}, {"CreateTime", kText}, {"Modified", kText}, {"ModifyTime", kText}}},
};

class MapSchemaTest : public MapTest {
protected:
    // The value that is stored for the only node.
    int OfNode(const QString &path, const char *column) {
        return Cell(path, QStringLiteral("SELECT [%1] FROM [Nodes]").arg(QLatin1String(column))).toInt();
    }
};

QStringList Described(const storage::TableDef &table) {
    QStringList columns;
    for (const storage::Field &field : table.fields)
        columns << QStringLiteral("%1 %2").arg(field.name).arg(int(field.type));
    return columns;
}

} // namespace

TEST_F(MapSchemaTest, ASavedMapHasTheseColumnsOfTheseTypes) {
    const auto window = NewWindow();
    const QString path = MapFile(QStringLiteral("a.map"));
    SaveAs(*window, path);
    storage::Database database = storage::OpenDatabase(path);
    for (const auto &[name, columns] : kTables) {
        storage::TableDef expected;
        for (const Column &column : columns)
            expected.fields.push_back({QLatin1String(column.name), column.type, 0});
        EXPECT_EQ(Described(database.Table(QLatin1String(name))), Described(expected)) << name;
    }
    EXPECT_EQ(database.TableDefs().size(), std::size(kTables));
}

TEST_F(MapSchemaTest, ColumnsThatAnOldMapLacksComeWithTheTypesOfTheOthers) {
    const QString path = EmptyMap(QStringLiteral("old.map"));
    for (const char *statement :
         {"ALTER TABLE [Nodes] DROP COLUMN [Alignment]", "ALTER TABLE [Slices] DROP COLUMN [xZoom]",
          "ALTER TABLE [Slices] DROP COLUMN [yZoom]"})
        Run(path, QLatin1String(statement));
    Loaded(path);
    storage::Database database = storage::OpenDatabase(path);
    EXPECT_EQ(database.Table(QStringLiteral("Nodes")).fields.back().type, kLong);
    const std::vector<storage::Field> slices = database.Table(QStringLiteral("Slices")).fields;
    EXPECT_EQ(slices.back().type, kLong);
    EXPECT_EQ(slices[slices.size() - 2].type, kLong);
}

TEST_F(MapSchemaTest, TextPosIsACopyOfTheAlignment) {
    for (int alignment = 0; alignment <= 8; ++alignment) {
        const auto window = NewWindow();
        window->AddFlow1()[0].Nodes().Add(0, 0, 100, 100).SetAlignment(alignment);
        const QString path = MapFile(QStringLiteral("%1.map").arg(alignment));
        SaveAs(*window, path);
        EXPECT_EQ(OfNode(path, "Alignment"), alignment);
        EXPECT_EQ(OfNode(path, "TextPos"), alignment);
    }
}

TEST_F(MapSchemaTest, TextPosIsNotRead) {
    const QString path = EmptyMap(QStringLiteral("a.map"));
    Run(path, InsertSlice(0, QStringLiteral("s")));
    Run(path,
        InsertNode(QStringLiteral("n"), 0, QStringLiteral("[Alignment], [TextPos]"), QStringLiteral("5, 2")));
    EXPECT_EQ(Loaded(path)->AddFlow1()[0].Nodes().Item(1).Alignment(), 5);
    Run(path, QStringLiteral("UPDATE [Nodes] SET [TextPos]='none'"));
    const auto window = Loaded(path);
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Item(1).Alignment(), 5);
    SaveAs(*window, path);
    EXPECT_EQ(OfNode(path, "TextPos"), 5);
}

} // namespace document::testing
