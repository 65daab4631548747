#include "document/CellRules.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/Ranges.h"
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

bool IsFontSize(double points) { return points > 0 && points <= kLargestFontSize; }
bool IsSliceIndex(double index) { return Between(index, 0, 32767); }

const NodeData kNode;
const LinkData kLink;
constexpr double kSmallestFont = 0.0001; // points
constexpr double kUsualFont = 8;
constexpr double kUsualSide = 900; // twips, of a node whose size cannot be read

// An index or a position that is refused says nothing: it becomes Null.
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

const CellRule kRules[] = {
    {&kSlices, slice::kIndex, IsSliceIndex, 0, 32767, kNone},
    {&kNodes, node::kSlice, IsSliceIndex, 0, 32767, kNone},
    {&kLinks, link::kSlice, IsSliceIndex, 0, 32767, kNone},
    {&kLinkPoints, point::kIndex, IsAnything, INT32_MIN, INT32_MAX, kNone},
    {&kHyperlinks, hyperlink::kSlice, IsAnything, INT16_MIN, INT16_MAX, 1},
    {&kSlices, slice::kBackColor, IsAnything, INT32_MIN, INT32_MAX, support::kWhite},
    {&kSlices, slice::kxZoom, IsZoom, 0, 10000, 0},
    {&kSlices, slice::kyZoom, IsZoom, 0, 10000, 0},
    {&kNodes, node::kTop, IsSize, 0, kLargestCoordinate, 0, true},
    {&kNodes, node::kLeft, IsSize, 0, kLargestCoordinate, 0, true},
    {&kNodes, node::kHeight, IsSize, 0, kLargestCoordinate, kUsualSide, true},
    {&kNodes, node::kWidth, IsSize, 0, kLargestCoordinate, kUsualSide, true},
    {&kNodes, node::kShape, IsShape, 0, 77, double(kNode.shape)},
    {&kNodes, node::kShapeOrientation, IsOrientation, 0, 3, double(kNode.shapeOrientation)},
    {&kNodes, node::kDrawStyle, IsDrawStyle, 0, 6, double(kNode.drawStyle)},
    {&kNodes, node::kDrawWidth, IsDrawWidth, 0, 32767, kNode.drawWidth},
    {&kNodes, node::kxTextMargin, IsMargin, -32768, 32767, double(kNode.xTextMargin)},
    {&kNodes, node::kyTextMargin, IsMargin, -32768, 32767, double(kNode.yTextMargin)},
    {&kNodes, node::kShadow, IsShadow, 0, 4, double(kNode.shadow)},
    {&kNodes, node::kPicturePos, IsPicturePos, 0, 9, double(kNode.picturePos)},
    {&kNodes, node::kBorderColor, IsAnything, INT32_MIN, INT32_MAX, double(kNode.borderColor)},
    {&kNodes, node::kFillColor, IsAnything, INT32_MIN, INT32_MAX, double(kNode.fillColor)},
    {&kNodes, node::kForeColor, IsAnything, INT32_MIN, INT32_MAX, double(kNode.foreColor)},
    {&kNodes, node::kSelectable, IsAnything, 0, 1, double(kNode.selectable)},
    {&kNodes, node::kAutoSize, IsAutoSize, 0, 3, double(kNode.autoSize)},
    {&kNodes, node::kAlignment, IsAlignment, 0, 8, double(kNode.alignment)},
    {&kLinks, link::kStyle, IsLinkStyle, 0, 14, double(kLink.style)},
    {&kLinks, link::kArrowSource, IsArrow, 0, 32, double(kLink.arrowSource)},
    {&kLinks, link::kArrowDest, IsArrow, 0, 32, double(kLink.arrowDest)},
    {&kLinks, link::kArrowMiddle, IsArrow, 0, 32, double(kLink.arrowMiddle)},
    {&kLinks, link::kArrowSizeSource, IsArrowSize, 0, 2, double(kLink.arrowSizeSource)},
    {&kLinks, link::kArrowSizeDest, IsArrowSize, 0, 2, double(kLink.arrowSizeDest)},
    {&kLinks, link::kArrowSizeMiddle, IsArrowSize, 0, 2, double(kLink.arrowSizeMiddle)},
    {&kLinks, link::kDrawStyle, IsDrawStyle, 0, 6, double(kLink.drawStyle)},
    {&kLinks, link::kDrawWidth, IsDrawWidth, 0, 32767, kLink.drawWidth},
    {&kLinks, link::kJumpStyle, IsJumpStyle, 0, 2, double(kLink.jumpStyle)},
    {&kLinks, link::kForeColor, IsAnything, INT32_MIN, INT32_MAX, double(kLink.foreColor)},
    {&kLinks, link::kLineColor, IsAnything, INT32_MIN, INT32_MAX, double(kLink.lineColor)},
    {&kLinks, link::kSelectable, IsAnything, 0, 1, double(kLink.selectable)},
    {&kLinks, link::kOriented, IsAnything, 0, 1, double(kLink.oriented)},
    {&kLinkPoints, point::kX, IsCoordinate, -kLargestCoordinate, kLargestCoordinate, 0},
    {&kLinkPoints, point::kY, IsCoordinate, -kLargestCoordinate, kLargestCoordinate, 0},
    {&kFonts, font::kSize, IsFontSize, kSmallestFont, kLargestFontSize, kUsualFont},
    {&kLevels, level::kSelected, IsAnything, 0, 1, 1},
    {&kGroups, group::kSelected, IsAnything, 0, 1, 1},
};

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

// Not a number stands for Null.
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
    if (sought < rule.lowest) return rule.lowest;
    if (sought > rule.highest) return rule.highest;
    return rule.fallback;
}

void MendNumber(MendedCell &cell, double number, const NumberRange &range, FieldType type,
                const CellRule *rule) {
    const double whole = IsWhole(type) ? std::nearbyint(number) : number;
    const QString text = QStringLiteral("%1 is out of range").arg(NumberText(number));
    if (rule && !rule->valid(rule->isMagnitude ? std::abs(whole) : whole))
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

} // namespace

std::span<const CellRule> CellRules() { return kRules; }

const CellRule *RuleFor(const TableLayout &table, int column) {
    for (const CellRule &rule : kRules)
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

// The two zooms came together, and opening looks at the first alone.
bool MayBeMissing(const storage::Recordset &rows, const TableLayout &table, int column) {
    if (&table == &kNodes) return column == node::kAlignment;
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
