// The tables of a map file: every table and column name with its type stands here, or for nodes and links in
// ItemColumns.h, and nowhere else.
#pragma once

#include "storage/Database.h"

#include <array>
#include <span>
#include <vector>

namespace document {

class cLevels;
class cGroups;

struct ColumnDef {
    const char *name;
    storage::FieldType type;
};

struct TableLayout {
    const char *name;
    std::span<const ColumnDef> columns;
};

namespace schema {

// Positions in the layouts below; those of nodes and links stand in ItemColumns.h.
namespace slice {
enum Column {
    kIndex,
    kText,
    kBackColor,
    kPicture,
    kGridLines,
    kTimeline,
    kIncMissing,
    kxZoom,
    kyZoom,
    kCount
};
}
namespace point {
enum Column { kIndex, kLink, kX, kY, kCount };
}
namespace font {
enum Column { kKey, kName, kSize, kBold, kItalic, kUnderline, kStrike, kCount };
}
namespace picture {
enum Column { kKey, kPicture, kCount };
}
namespace group {
enum Column { kGroup, kSelected, kCount };
}
namespace level {
enum Column { kLevel, kSelected, kColour, kCount };
}
namespace hyperlink {
enum Column { kNodeKey, kFilename, kSlice, kNode, kCount };
}
namespace attachment {
enum Column { kKey, kNodeKey, kFilename, kEmbed, kData, kCount };
}
namespace view {
enum Column { kView, kLevel, kGroup, kCount };
}
namespace routed {
enum Column { kLink, kSum, kCount };
}
namespace setting {
enum Column { kAuthor, kCreateTime, kModified, kModifyTime, kCount };
}

extern const TableLayout kSlices, kNodes, kLinks, kLinkPoints, kFonts, kPictures, kGroups, kLevels,
    kHyperlinks, kAttachments, kSettings;
// The tables above, which every map has.
std::span<const TableLayout *const> Tables();

// One row for each level or group that a named view ticks, the other column being Null, and a row with both
// Null in front of them, so that a view may tick nothing.
extern const TableLayout kFilterViews;
// One row for each link whose bends are the router's, with a sum of its points. Where the sum is another,
// somebody else has written to the points, and the row says nothing.
extern const TableLayout kRoutedLinks;
// Both of them. A map has them only when there is something to write into them, and readers that don't know
// them pass over them.
std::span<const TableLayout *const> OptionalTables();

} // namespace schema

QString NameOf(const TableLayout &table);
QString NameOf(const TableLayout &table, int column);
// "[name]" of a column, for SQL text.
QString Bracketed(const TableLayout &table, int column);
// "SELECT * FROM [table]"
QString SelectAll(const TableLayout &table);
// An INSERT with a ? for each column, in the order of the layout.
QString InsertInto(const TableLayout &table);

// Where the columns of a layout stand in a recordset, found once. A column that the recordset lacks is error
// 3265 "Item not found in this collection." when it is asked for, so that a file may lack what nobody reads.
class Columns {
public:
    Columns(const storage::Recordset &rows, const TableLayout &table);
    int operator[](int column) const {
        const int position = at_[static_cast<std::size_t>(column)];
        return position >= 0 ? position : Missing();
    }

private:
    [[noreturn]] static int Missing();
    std::vector<int> at_;
};

void CreateTable(storage::Database &database, const TableLayout &table);

// Makes the database with all tables, empty. Error 3204 when the file exists.
void CreateEmptyMap(const QString &path);

struct LevelRow {
    QString name;
    bool selected = false;
    std::int32_t colour = 0;
};
struct GroupRow {
    QString name;
    bool selected = false;
};
// Makes the empty map with default levels and groups in it, in the order given. Replaces a file of that name.
void WriteTemplate(const QString &path, std::span<const LevelRow> levels, std::span<const GroupRow> groups);

} // namespace document
