#include "document/CellRules.h"

#include "document/ItemColumns.h"
#include "document/SurfaceArray.h"
#include "support/Error.h"
#include "support/Val.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace document {

namespace {

using namespace diagram;
using namespace schema;
using storage::FieldType;

constexpr Range IsFontSize{0.0001, kLargestFontSize}; // points
constexpr Range IsSliceIndex{0, SurfaceArray::kLargestIndex};
constexpr double kUsualFont = 8;

// The fallback of indexes and positions: one that a load refuses becomes Null.
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

const CellRule kOtherRules[] = {
    {&kSlices, slice::kIndex, IsSliceIndex, kNone},
    {&kNodes, node::kSlice, IsSliceIndex, kNone},
    {&kLinks, link::kSlice, IsSliceIndex, kNone},
    {&kLinkPoints, point::kIndex, IsAnything, kNone},
    {&kHyperlinks, hyperlink::kSlice, IsAnything, 1},
    {&kSlices, slice::kBackColor, IsAnything, support::kWhite},
    {&kSlices, slice::kxZoom, IsZoom, 0},
    {&kSlices, slice::kyZoom, IsZoom, 0},
    {&kLinkPoints, point::kX, IsCoordinate, 0},
    {&kLinkPoints, point::kY, IsCoordinate, 0},
    {&kFonts, font::kSize, IsFontSize, kUsualFont},
    {&kLevels, level::kSelected, IsAnything, 1},
    {&kGroups, group::kSelected, IsAnything, 1},
};

// For the columns of numbers, and for those of booleans that are usually True. Without a rule a boolean that
// cannot be read becomes False.
template <typename Columns>
void AddRules(std::vector<CellRule> &rules, const TableLayout &table, const Columns &columns) {
    for (const auto &column : columns) {
        if (!column.usual || (column.def.type == FieldType::Boolean && column.usual() == 0)) continue;
        rules.push_back({&table, column.position, *column.range, column.usual(), column.isMagnitude});
    }
}

std::vector<CellRule> AllRules() {
    std::vector<CellRule> rules(std::begin(kOtherRules), std::end(kOtherRules));
    AddRules(rules, kNodes, kNodeColumns);
    AddRules(rules, kLinks, kLinkColumns);
    return rules;
}

struct NumberRange {
    FieldType type;
    double lowest, highest;
};
constexpr NumberRange kRanges[] = {
    {FieldType::Integer, INT16_MIN, INT16_MAX},
    {FieldType::Long, INT32_MIN, INT32_MAX},
    {FieldType::Single, -double(std::numeric_limits<float>::max()),
     double(std::numeric_limits<float>::max())},
    {FieldType::Double, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()},
    {FieldType::Currency, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()},
};

const NumberRange *RangeOf(FieldType type) {
    for (const NumberRange &range : kRanges)
        if (range.type == type) return &range;
    return nullptr;
}

bool IsWhole(FieldType type) { return type == FieldType::Integer || type == FieldType::Long; }

FieldType TypeOf(const TableLayout &table, int column) {
    return table.columns[static_cast<std::size_t>(column)].type;
}

double FallbackOf(const CellRule *rule) { return rule ? rule->fallback : 0; }

QString NumberText(double number) { return QString::number(number, 'g', 10); }

// NaN is written as Null.
void Write(MendedCell &cell, FieldType type, double number) {
    if (std::isnan(number)) {
        cell.value = {};
        cell.written = QStringLiteral("none");
    } else if (IsWhole(type)) {
        cell.value = static_cast<qlonglong>(number);
        cell.written = NumberText(number);
    } else {
        cell.value = number;
        cell.written = NumberText(number);
    }
}

void Replace(MendedCell &cell, FieldType type, const QString &wrong, double number) {
    cell.wrong = wrong;
    Write(cell, type, number);
}

// The nearest number that the rule allows.
double Nearest(const CellRule &rule, double number) {
    const double sought = rule.isMagnitude ? std::abs(number) : number;
    if (std::isnan(rule.fallback)) return rule.fallback;
    if (sought < rule.range.lowest) return rule.range.lowest;
    if (sought > rule.range.Highest()) return rule.range.Highest();
    return rule.fallback;
}

void MendNumber(MendedCell &cell, double number, const NumberRange &range, FieldType type,
                const CellRule *rule) {
    const double whole = IsWhole(type) ? std::nearbyint(number) : number;
    const QString text = QStringLiteral("%1 is out of range").arg(NumberText(number));
    if (rule && !rule->range(rule->isMagnitude ? std::abs(whole) : whole))
        return Replace(cell, type, text, Nearest(*rule, whole));
    if (!Between(whole, range.lowest, range.highest))
        return Replace(cell, type, text, std::clamp(whole, range.lowest, range.highest));
    Write(cell, type, whole);
}

// What is no number, by the error that reading it raises: a text, or more than a number can be.
void ReadNumber(MendedCell &cell, const storage::Recordset &rows, int at, FieldType type,
                const CellRule *rule) {
    try {
        MendNumber(cell, rows.Double(at), *RangeOf(type), type, rule);
    } catch (const support::Error &) {
        Replace(cell, type, QStringLiteral("'%1' is no number").arg(ShortText(rows.Text(at))),
                FallbackOf(rule));
    }
}

void ReadBoolean(MendedCell &cell, const storage::Recordset &rows, int at, const CellRule *rule) {
    try {
        cell.value = rows.Boolean(at);
    } catch (const support::Error &) {
        cell.value = FallbackOf(rule) != 0;
        cell.wrong = QStringLiteral("'%1' is neither True nor False").arg(ShortText(rows.Text(at)));
        cell.written = cell.value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    }
}

void ReadText(MendedCell &cell, const storage::Recordset &rows, int at) {
    const QString text = rows.Text(at);
    const std::string_view stored = rows.Utf8(at);
    cell.value = text;
    if (text.toUtf8() == QByteArrayView(stored.data(), static_cast<qsizetype>(stored.size()))) return;
    cell.wrong = QStringLiteral("'%1' is no text").arg(ShortText(text));
    cell.written = QStringLiteral("what can be read of it");
}

template <typename ItemColumns>
bool IsLater(const ItemColumns &columns, int position) {
    return std::ranges::any_of(
        columns, [position](const auto &column) { return column.position == position && column.isLater; });
}

} // namespace

std::span<const CellRule> CellRules() {
    static const std::vector<CellRule> rules = AllRules();
    return rules;
}

const CellRule *RuleFor(const TableLayout &table, int column) {
    for (const CellRule &rule : CellRules())
        if (rule.table == &table && rule.column == column) return &rule;
    return nullptr;
}

MendedCell MendCell(const storage::Recordset &rows, int at, FieldType type, const CellRule *rule) {
    MendedCell cell;
    if (rows.IsNull(at)) return cell;
    if (type == FieldType::Boolean)
        ReadBoolean(cell, rows, at, rule);
    else if (RangeOf(type))
        ReadNumber(cell, rows, at, type, rule);
    else if (type == FieldType::LongBinary)
        cell.value = rows.Bytes(at);
    else
        ReadText(cell, rows, at);
    return cell;
}

// xZoom and yZoom came with the same version. Opening a map adds both when it lacks xZoom, and neither when
// it lacks yZoom alone.
bool MayBeMissing(const storage::Recordset &rows, const TableLayout &table, int column) {
    if (&table == &kNodes) return IsLater(kNodeColumns, column);
    if (&table == &kLinks) return IsLater(kLinkColumns, column);
    if (&table != &kSlices) return false;
    return column == slice::kxZoom ||
           (column == slice::kyZoom && rows.FindColumn(NameOf(kSlices, slice::kxZoom)) < 0);
}

QVariant MissingCell(const TableLayout &table, int column) {
    const FieldType type = TypeOf(table, column);
    const CellRule *rule = RuleFor(table, column);
    if (!rule || std::isnan(rule->fallback)) return {};
    if (type == FieldType::Boolean) return rule->fallback != 0;
    MendedCell cell;
    Write(cell, type, rule->fallback);
    return cell.value;
}

QString ShortText(const QString &value) {
    constexpr qsizetype kLongest = 60;
    const QString line = value.left(4 * kLongest).simplified();
    return line.size() > kLongest ? line.left(kLongest) + QChar(0x2026) : line;
}

} // namespace document
