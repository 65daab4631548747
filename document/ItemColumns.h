// The columns of the tables of nodes and links: what they are called, what they hold, and which property of
// the item stands in which. Creating, reading, writing and repairing a map all go by these.
#pragma once

#include "diagram/model/PropertyTable.h"
#include "document/MapSchema.h"
#include "support/Error.h"
#include "support/Val.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace document {

namespace schema {

namespace node {
enum Column {
    kKey,
    kTop,
    kLeft,
    kHeight,
    kWidth,
    kShape,
    kShapeOrientation,
    kDrawStyle,
    kDrawWidth,
    kxTextMargin,
    kyTextMargin,
    kTextPos,
    kShadow,
    kPicturePos,
    kSlice,
    kDescription,
    kFont,
    kBorderColor,
    kFillColor,
    kForeColor,
    kHidden,
    kSelectable,
    kPicture,
    kTag,
    kGroup,
    kLevel,
    kMarked,
    kAutoSize,
    kEvent,
    kTransparent,
    kzOrder,
    kAlignment,
    kCount
};
}
namespace link {
enum Column {
    kKey,
    kKeySource,
    kKeyDest,
    kStyle,
    kArrowSource,
    kArrowDest,
    kArrowMiddle,
    kArrowSizeSource,
    kArrowSizeDest,
    kArrowSizeMiddle,
    kDrawStyle,
    kDrawWidth,
    kJumpStyle,
    kSlice,
    kText,
    kFont,
    kForeColor,
    kLineColor,
    kHidden,
    kSelectable,
    kRigid,
    kOriented,
    kMarked,
    kZorder,
    kCount
};
}
} // namespace schema

template <typename Data>
struct ItemColumn {
    int position; // in the table
    ColumnDef def;
    std::uint8_t property = 0;                          // its id among the item's; 0 for none
    const diagram::Range *range = &diagram::IsAnything; // of what is read
    bool isMagnitude = false;                           // negative numbers in a file count as positive ones
    bool isLater = false; // early maps lack it: it is added when they are opened, and the usual value with it
    // Whether the cell is read and written with the others, by `read` and `write`.
    bool isRead = false, isWritten = false;
    // Raises 6 "Overflow", 13 "Type mismatch" and 380 "Invalid property value".
    void (*read)(Data &, const storage::Recordset &, int at) = nullptr;
    void (*write)(storage::PreparedStatement &, int position, const Data &) = nullptr;
    // What stands in for a number that cannot be read; null for what is no number.
    double (*usual)() = nullptr;
    // Sets the property of a cell that is read, outside of a map: the one for what is a number or a boolean,
    // the other for what is a text. A number is taken as it is, with its sign. Raises 6 and 380.
    void (*setNumber)(Data &, double) = nullptr;
    void (*setText)(Data &, const QString &) = nullptr;
};

namespace columns {

using storage::FieldType;

constexpr const char *SourceOf(const diagram::NodeLook *) { return "Node"; } // and NodeData
constexpr const char *SourceOf(const diagram::LinkData *) { return "Link"; }

template <auto Member>
using DataOf = std::conditional_t<std::is_same_v<typename diagram::MemberOf<Member>::Data, diagram::NodeLook>,
                                  diagram::NodeData, typename diagram::MemberOf<Member>::Data>;

// Error 6 "Overflow".
inline float SingleOf(double number) {
    if (!(std::abs(number) <= double(std::numeric_limits<float>::max())))
        support::Raise(support::kErrOverflow, QStringLiteral("Columns"));
    return float(number);
}

template <auto Member>
void Read(DataOf<Member> &data, const storage::Recordset &rows, int at) {
    using Value = typename diagram::MemberOf<Member>::Value;
    constexpr const char *kSource = SourceOf(static_cast<const DataOf<Member> *>(nullptr));
    if constexpr (std::is_same_v<Value, QString>)
        data.*Member = rows.Text(at);
    else if constexpr (std::is_same_v<Value, bool>)
        data.*Member = rows.Boolean(at);
    else if constexpr (std::is_same_v<Value, float>)
        data.*Member = diagram::Fitting<Member>(rows.Single(at), kSource);
    else
        data.*Member = diagram::Fitting<Member>(rows.Long(at), kSource);
}

template <auto Member>
void ReadMagnitude(diagram::NodeData &data, const storage::Recordset &rows, int at) {
    data.*Member = diagram::Checked(diagram::IsSize, std::abs(rows.Single(at)), "Nodes");
}

template <auto Member>
void SetNumber(DataOf<Member> &data, double number) {
    using Value = typename diagram::MemberOf<Member>::Value;
    constexpr const char *kSource = SourceOf(static_cast<const DataOf<Member> *>(nullptr));
    if constexpr (std::is_same_v<Value, bool>)
        data.*Member = number != 0;
    else if constexpr (std::is_same_v<Value, float>)
        data.*Member = diagram::Fitting<Member>(SingleOf(number), kSource);
    else
        data.*Member = diagram::Fitting<Member>(support::CLng(number), kSource);
}

template <auto Member>
void SetText(DataOf<Member> &data, const QString &text) {
    data.*Member = text;
}

template <auto Member>
void Write(storage::PreparedStatement &row, int position, const DataOf<Member> &data) {
    using Value = typename diagram::MemberOf<Member>::Value;
    if constexpr (std::is_same_v<Value, QString>)
        row.BindText(position, data.*Member);
    else if constexpr (std::is_same_v<Value, bool>)
        row.BindBoolean(position, data.*Member);
    else if constexpr (std::is_same_v<Value, float>)
        row.BindDouble(position, data.*Member);
    else
        row.BindLong(position, data.*Member);
}

// What an item has that nobody has set.
template <auto Member>
double Usual() {
    return double(DataOf<Member>().*Member);
}

template <auto Member>
constexpr ItemColumn<DataOf<Member>> ByHand(int position, ColumnDef def) {
    return {position, def, diagram::PropertyOf<Member>().id};
}

template <auto Member>
constexpr ItemColumn<DataOf<Member>> WriteOnly(int position, ColumnDef def) {
    ItemColumn<DataOf<Member>> column = ByHand<Member>(position, def);
    column.isWritten = true;
    column.write = Write<Member>;
    return column;
}

template <auto Member>
constexpr ItemColumn<DataOf<Member>> Stored(int position, ColumnDef def) {
    ItemColumn<DataOf<Member>> column = WriteOnly<Member>(position, def);
    column.range = &diagram::PropertyOf<Member>().kValid;
    column.isRead = true;
    column.read = Read<Member>;
    if constexpr (std::is_arithmetic_v<typename diagram::MemberOf<Member>::Value>) {
        column.usual = Usual<Member>;
        column.setNumber = SetNumber<Member>;
    } else {
        column.setText = SetText<Member>;
    }
    return column;
}

template <auto Member, int kUsual = 0>
constexpr ItemColumn<diagram::NodeData> Magnitude(int position, ColumnDef def) {
    ItemColumn<diagram::NodeData> column = Stored<Member>(position, def);
    column.range = &diagram::IsSize;
    column.isMagnitude = true;
    column.read = ReadMagnitude<Member>;
    column.usual = [] { return double(kUsual); };
    return column;
}

template <typename Data>
constexpr ItemColumn<Data> Later(ItemColumn<Data> column) {
    column.isLater = true;
    return column;
}

constexpr int kUsualSide = 900; // twips, of a node whose size cannot be read

using N = diagram::NodeData;
using L = diagram::LinkData;
using namespace schema;

} // namespace columns

// In the order in which a load reads the cells of a row: the first that cannot be read is its error. Level is
// a double so that a name such as 1.5 comes back as well as 1 does.
inline constexpr auto kNodeColumns = [] {
    using namespace columns;
    return std::to_array<ItemColumn<N>>({
        Magnitude<&N::left>(node::kLeft, {"Left", FieldType::Single}),
        Magnitude<&N::top>(node::kTop, {"Top", FieldType::Single}),
        Magnitude<&N::width, kUsualSide>(node::kWidth, {"Width", FieldType::Single}),
        Magnitude<&N::height, kUsualSide>(node::kHeight, {"Height", FieldType::Single}),
        Stored<&N::text>(node::kDescription, {"Description", FieldType::Memo}),
        Stored<&N::event>(node::kEvent, {"Event", FieldType::Memo}),
        Stored<&N::shape>(node::kShape, {"Shape", FieldType::Long}),
        Stored<&N::fillColor>(node::kFillColor, {"FillColor", FieldType::Long}),
        Stored<&N::borderColor>(node::kBorderColor, {"BorderColor", FieldType::Long}),
        Stored<&N::foreColor>(node::kForeColor, {"ForeColor", FieldType::Long}),
        Stored<&N::picturePos>(node::kPicturePos, {"PicturePos", FieldType::Long}),
        Stored<&N::drawStyle>(node::kDrawStyle, {"DrawStyle", FieldType::Long}),
        Stored<&N::drawWidth>(node::kDrawWidth, {"DrawWidth", FieldType::Single}),
        Stored<&N::shadow>(node::kShadow, {"Shadow", FieldType::Long}),
        Stored<&N::shapeOrientation>(node::kShapeOrientation, {"ShapeOrientation", FieldType::Integer}),
        Stored<&N::xTextMargin>(node::kxTextMargin, {"xTextMargin", FieldType::Long}),
        Stored<&N::yTextMargin>(node::kyTextMargin, {"yTextMargin", FieldType::Long}),
        Stored<&N::hidden>(node::kHidden, {"Hidden", FieldType::Boolean}),
        Stored<&N::selectable>(node::kSelectable, {"Selectable", FieldType::Boolean}),
        Stored<&N::marked>(node::kMarked, {"Marked", FieldType::Boolean}),
        Stored<&N::autoSize>(node::kAutoSize, {"AutoSize", FieldType::Long}),
        Stored<&N::transparent>(node::kTransparent, {"Transparent", FieldType::Boolean}),
        Later(Stored<&N::alignment>(node::kAlignment, {"Alignment", FieldType::Long})),
        WriteOnly<&N::alignment>(node::kTextPos, {"TextPos", FieldType::Long}),
        ByHand<&N::key>(node::kKey, {"Key", FieldType::Text}),
        ByHand<&N::font>(node::kFont, {"Font", FieldType::Text}),
        ByHand<&N::picture>(node::kPicture, {"Picture", FieldType::Text}),
        ByHand<&N::tag>(node::kTag, {"Tag", FieldType::Memo}),
        ByHand<&N::stack>(node::kzOrder, {"zOrder", FieldType::Long}),
        {node::kSlice, {"Slice", FieldType::Integer}},
        {node::kGroup, {"Group", FieldType::Memo}},
        {node::kLevel, {"Level", FieldType::Double}},
    });
}();

inline constexpr auto kLinkColumns = [] {
    using namespace columns;
    return std::to_array<ItemColumn<L>>({
        Stored<&L::arrowDest>(link::kArrowDest, {"ArrowDest", FieldType::Long}),
        Stored<&L::arrowMiddle>(link::kArrowMiddle, {"ArrowMiddle", FieldType::Long}),
        Stored<&L::arrowSource>(link::kArrowSource, {"ArrowSource", FieldType::Long}),
        Stored<&L::foreColor>(link::kForeColor, {"ForeColor", FieldType::Long}),
        Stored<&L::lineColor>(link::kLineColor, {"LineColor", FieldType::Long}),
        Stored<&L::drawStyle>(link::kDrawStyle, {"DrawStyle", FieldType::Long}),
        Stored<&L::drawWidth>(link::kDrawWidth, {"DrawWidth", FieldType::Single}),
        Stored<&L::style>(link::kStyle, {"Style", FieldType::Long}),
        Stored<&L::jumpStyle>(link::kJumpStyle, {"JumpStyle", FieldType::Long}),
        Stored<&L::arrowSizeDest>(link::kArrowSizeDest, {"ArrowSizeDest", FieldType::Long}),
        Stored<&L::arrowSizeMiddle>(link::kArrowSizeMiddle, {"ArrowSizeMiddle", FieldType::Long}),
        Stored<&L::arrowSizeSource>(link::kArrowSizeSource, {"ArrowSizeSource", FieldType::Long}),
        Stored<&L::hidden>(link::kHidden, {"Hidden", FieldType::Boolean}),
        Stored<&L::oriented>(link::kOriented, {"Oriented", FieldType::Boolean}),
        Stored<&L::marked>(link::kMarked, {"Marked", FieldType::Boolean}),
        Stored<&L::selectable>(link::kSelectable, {"Selectable", FieldType::Boolean}),
        Stored<&L::text>(link::kText, {"Text", FieldType::Memo}),
        WriteOnly<&L::rigid>(link::kRigid, {"Rigid", FieldType::Boolean}),
        ByHand<&L::key>(link::kKey, {"Key", FieldType::Text}),
        ByHand<&L::source>(link::kKeySource, {"KeySource", FieldType::Text}),
        ByHand<&L::destination>(link::kKeyDest, {"KeyDest", FieldType::Text}),
        ByHand<&L::font>(link::kFont, {"Font", FieldType::Text}),
        ByHand<&L::stack>(link::kZorder, {"Zorder", FieldType::Long}),
        {link::kSlice, {"Slice", FieldType::Integer}},
    });
}();

// The cells of a row that are read or written by the table. Unrolled, as rows come by the hundred thousand.
template <const auto &kColumns, typename Data, typename Positions>
void ReadCells(Data &data, const storage::Recordset &rows, const Positions &at) {
    const auto read = [&]<std::size_t kEach>() {
        constexpr const ItemColumn<Data> &kColumn = kColumns[kEach];
        if constexpr (kColumn.isRead) kColumn.read(data, rows, at[kColumn.position]);
    };
    [&read]<std::size_t... kEach>(std::index_sequence<kEach...>) { (read.template operator()<kEach>(), ...); }
    (std::make_index_sequence<kColumns.size()>());
}

template <const auto &kColumns, typename Data>
void WriteCells(storage::PreparedStatement &row, const Data &data) {
    const auto write = [&]<std::size_t kEach>() {
        constexpr const ItemColumn<Data> &kColumn = kColumns[kEach];
        if constexpr (kColumn.isWritten) kColumn.write(row, kColumn.position, data);
    };
    [&write]<std::size_t... kEach>(std::index_sequence<kEach...>) {
        (write.template operator()<kEach>(), ...);
    }
    (std::make_index_sequence<kColumns.size()>());
}

static_assert(kNodeColumns.size() == schema::node::kCount && kLinkColumns.size() == schema::link::kCount);

} // namespace document
