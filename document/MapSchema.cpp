#include "document/MapSchema.h"

#include "document/ItemColumns.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QStringList>

namespace document {

namespace schema {

namespace {

using storage::FieldType;

constexpr ColumnDef kSliceColumns[] = {
    {"Index", FieldType::Integer},      {"Text", FieldType::Text},         {"BackColor", FieldType::Long},
    {"Picture", FieldType::Text},       {"GridLines", FieldType::Boolean}, {"Timeline", FieldType::Integer},
    {"IncMissing", FieldType::Boolean}, {"xZoom", FieldType::Long},        {"yZoom", FieldType::Long},
};
constexpr ColumnDef kPointColumns[] = {{"Index", FieldType::Long},
                                       {"Link", FieldType::Text},
                                       {"X", FieldType::Single},
                                       {"Y", FieldType::Single}};
constexpr ColumnDef kFontColumns[] = {
    {"Key", FieldType::Text},       {"Name", FieldType::Text},      {"Size", FieldType::Currency},
    {"Bold", FieldType::Boolean},   {"Italic", FieldType::Boolean}, {"Underline", FieldType::Boolean},
    {"Strike", FieldType::Boolean},
};
constexpr ColumnDef kPictureColumns[] = {{"Key", FieldType::Text}, {"Picture", FieldType::LongBinary}};
constexpr ColumnDef kGroupColumns[] = {{"Group", FieldType::Text}, {"Selected", FieldType::Boolean}};
constexpr ColumnDef kLevelColumns[] = {
    {"Level", FieldType::Text}, {"Selected", FieldType::Boolean}, {"Colour", FieldType::Long}};
constexpr ColumnDef kHyperlinkColumns[] = {{"NodeKey", FieldType::Text},
                                           {"Filename", FieldType::Memo},
                                           {"Slice", FieldType::Integer},
                                           {"Node", FieldType::Text}};
constexpr ColumnDef kAttachmentColumns[] = {{"Key", FieldType::Text},
                                            {"NodeKey", FieldType::Text},
                                            {"Filename", FieldType::Memo},
                                            {"Embed", FieldType::Boolean},
                                            {"Data", FieldType::LongBinary}};
constexpr ColumnDef kSettingColumns[] = {{"Author", FieldType::Text},
                                         {"CreateTime", FieldType::Text},
                                         {"Modified", FieldType::Text},
                                         {"ModifyTime", FieldType::Text}};

constexpr ColumnDef kViewColumns[] = {
    {"View", FieldType::Text}, {"Level", FieldType::Text}, {"Group", FieldType::Text}};
constexpr ColumnDef kRoutedColumns[] = {{"Link", FieldType::Text}, {"Sum", FieldType::Long}};

static_assert(std::size(kSliceColumns) == slice::kCount);
static_assert(std::size(kPointColumns) == point::kCount);
static_assert(std::size(kFontColumns) == font::kCount);
static_assert(std::size(kPictureColumns) == picture::kCount);
static_assert(std::size(kGroupColumns) == group::kCount);
static_assert(std::size(kLevelColumns) == level::kCount);
static_assert(std::size(kHyperlinkColumns) == hyperlink::kCount);
static_assert(std::size(kAttachmentColumns) == attachment::kCount);
static_assert(std::size(kSettingColumns) == setting::kCount);
static_assert(std::size(kViewColumns) == view::kCount);
static_assert(std::size(kRoutedColumns) == routed::kCount);

// The definitions in the order of their positions. Two columns with one position don't compile.
template <typename Column, std::size_t kCount>
consteval auto LayoutOf(const std::array<Column, kCount> &columns) {
    std::array<ColumnDef, kCount> layout{};
    std::array<bool, kCount> taken{};
    for (const Column &column : columns) {
        const auto position = static_cast<std::size_t>(column.position);
        if (taken[position]) throw "two columns in one position";
        taken[position] = true;
        layout[position] = column.def;
    }
    return layout;
}

constexpr auto kNodeLayout = LayoutOf(kNodeColumns);
constexpr auto kLinkLayout = LayoutOf(kLinkColumns);

} // namespace

const TableLayout kSlices{"Slices", kSliceColumns};
const TableLayout kNodes{"Nodes", kNodeLayout};
const TableLayout kLinks{"Links", kLinkLayout};
const TableLayout kLinkPoints{"LinkPoints", kPointColumns};
const TableLayout kFonts{"Fonts", kFontColumns};
const TableLayout kPictures{"Pictures", kPictureColumns};
const TableLayout kGroups{"Groups", kGroupColumns};
const TableLayout kLevels{"Levels", kLevelColumns};
const TableLayout kHyperlinks{"Hyperlinks", kHyperlinkColumns};
const TableLayout kAttachments{"Attachments", kAttachmentColumns};
const TableLayout kSettings{"Settings", kSettingColumns};
const TableLayout kFilterViews{"FilterViews", kViewColumns};
const TableLayout kRoutedLinks{"RoutedLinks", kRoutedColumns};

std::span<const TableLayout *const> Tables() {
    static constexpr const TableLayout *kTables[] = {&kSlices,     &kNodes,       &kLinks,   &kLinkPoints,
                                                     &kFonts,      &kPictures,    &kGroups,  &kLevels,
                                                     &kHyperlinks, &kAttachments, &kSettings};
    return kTables;
}

std::span<const TableLayout *const> OptionalTables() {
    static constexpr const TableLayout *kTables[] = {&kFilterViews, &kRoutedLinks};
    return kTables;
}

} // namespace schema

namespace {

storage::TableDef DefinitionOf(const TableLayout &table) {
    storage::TableDef definition{NameOf(table), {}};
    for (const ColumnDef &column : table.columns)
        definition.fields.push_back({QString::fromLatin1(column.name), column.type, 0});
    return definition;
}

} // namespace

QString NameOf(const TableLayout &table) { return QString::fromLatin1(table.name); }

QString NameOf(const TableLayout &table, int column) {
    return QString::fromLatin1(table.columns[static_cast<std::size_t>(column)].name);
}

QString Bracketed(const TableLayout &table, int column) {
    return QLatin1Char('[') + NameOf(table, column) + QLatin1Char(']');
}

QString SelectAll(const TableLayout &table) {
    return QStringLiteral("SELECT * FROM [%1]").arg(NameOf(table));
}

QString InsertInto(const TableLayout &table) {
    QStringList names, marks;
    for (int i = 0; i < static_cast<int>(table.columns.size()); ++i) {
        names.append(Bracketed(table, i));
        marks.append(QStringLiteral("?"));
    }
    return QStringLiteral("INSERT INTO [%1] (%2) VALUES (%3)")
        .arg(NameOf(table), names.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
}

Columns::Columns(const storage::Recordset &rows, const TableLayout &table) {
    at_.reserve(table.columns.size());
    for (const ColumnDef &column : table.columns)
        at_.push_back(rows.FindColumn(QString::fromLatin1(column.name)));
}

int Columns::Missing() {
    throw support::Error(storage::kErrFieldNotFound, QStringLiteral("Storage.Database"),
                         QStringLiteral("Item not found in this collection."));
}

void CreateTable(storage::Database &database, const TableLayout &table) {
    database.CreateTable(DefinitionOf(table));
}

void CreateEmptyMap(const QString &path) {
    storage::Database database = storage::CreateDatabase(path);
    database.BeginTrans();
    for (const TableLayout *table : schema::Tables()) CreateTable(database, *table);
    database.CommitTrans();
}

void WriteTemplate(const QString &path, std::span<const LevelRow> levels, std::span<const GroupRow> groups) {
    support::AtomicFile file(path);
    support::Kill(file.Path());
    CreateEmptyMap(file.Path());
    {
        storage::Database database = storage::OpenForBuilding(file.Path());
        database.BeginTrans();
        for (const LevelRow &level : levels)
            database.Execute(InsertInto(schema::kLevels), storage::kFailOnError,
                             {level.name, level.selected, level.colour});
        for (const GroupRow &group : groups)
            database.Execute(InsertInto(schema::kGroups), storage::kFailOnError,
                             {group.name, group.selected});
        database.CommitTrans();
    }
    file.Commit();
}

} // namespace document
