#include "document/LooseSlice.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/Ranges.h"
#include "document/CellRules.h"
#include "document/ItemColumns.h"
#include "document/SurfaceArray.h"
#include "support/clsGUID.h"

#include <set>

namespace document {

namespace {

constexpr int kColumns = 8;
constexpr float kGap = 300, kNodeWidth = 2100, kNodeHeight = 900; // twips
constexpr float kLastTop = diagram::kLargestCoordinate / 2;

// The values of a row by column; the others are the usual ones.
using Values = std::vector<std::pair<int, QVariant>>;

void Insert(storage::Database &map, const TableLayout &table, const Values &values) {
    storage::PreparedStatement insert = map.Prepare(InsertInto(table));
    for (int i = 0; i < static_cast<int>(table.columns.size()); ++i) {
        QVariant value = MissingCell(table, i);
        for (const auto &[column, given] : values)
            if (column == i) value = given;
        if (!value.isValid())
            insert.BindNull(i);
        else if (value.typeId() == QMetaType::QString)
            insert.BindText(i, value.toString());
        else
            insert.BindDouble(i, value.toDouble());
    }
    insert.Run();
}

// The index behind all others, or the lowest that is free; -1 when all are taken.
int FreeIndex(storage::Database &map) {
    std::set<int> taken;
    for (storage::Recordset rows = map.OpenRecordset(QStringLiteral("SELECT [Index] FROM [Slices]"));
         !rows.EndOfFile(); rows.MoveNext())
        taken.insert(rows.Long(0));
    if (taken.empty()) return 0;
    if (*taken.rbegin() < SurfaceArray::kLargestIndex) return *taken.rbegin() + 1;
    int free = 0;
    while (taken.contains(free)) ++free;
    return free <= SurfaceArray::kLargestIndex ? free : -1;
}

} // namespace

QString MissingNodeText(const QString &key) {
    return key.isEmpty() ? QStringLiteral("A node without a key")
                         : QStringLiteral("The node %1, which is missing").arg(ShortText(key));
}

int LooseSlice::Index() {
    if (index_ >= 0) return index_;
    index_ = FreeIndex(map_);
    if (index_ < 0) return -1;
    using namespace schema::slice;
    Insert(map_, schema::kSlices,
           {{kIndex, index_},
            {kText, QStringLiteral("Loose items")},
            {kGridLines, 0},
            {kTimeline, 0},
            {kIncMissing, 0}});
    return index_;
}

// Below what stands on the slice already.
diagram::Point LooseSlice::NextPlace() {
    if (top_ < 0) {
        storage::Recordset rows = map_.OpenRecordset(
            QStringLiteral("SELECT MAX(ABS([Top])+ABS([Height])) FROM [Nodes] WHERE [Slice]=?"), {Index()});
        top_ = rows.IsNull(0) ? 0 : std::min(rows.Single(0), kLastTop);
    }
    const int column = nodes_ % kColumns, row = nodes_ / kColumns;
    ++nodes_;
    return {kGap + static_cast<float>(column) * (kNodeWidth + kGap),
            top_ + kGap + static_cast<float>(row) * (kNodeHeight + kGap)};
}

QString LooseSlice::AddNode(const QString &text, const diagram::Point *place, const QString &tag) {
    using namespace schema::node;
    const QString key = support::GetGUID();
    const diagram::Point at = place ? *place : NextPlace();
    Insert(map_, schema::kNodes,
           {{kKey, key},
            {kLeft, std::abs(at.x)},
            {kTop, std::abs(at.y)},
            {kWidth, kNodeWidth},
            {kHeight, kNodeHeight},
            {kSlice, Index()},
            {kDescription, text},
            {kTag, tag}});
    return key;
}

QString LooseSlice::StandInFor(const QString &key, const QString &text) {
    QString &standIn = standIns_[key];
    if (standIn.isEmpty()) standIn = AddNode(text.isEmpty() ? MissingNodeText(key) : text);
    return standIn;
}

QString LooseSlice::AddLink(const QString &source, const QString &destination) {
    using namespace schema::link;
    const QString key = support::GetGUID();
    Insert(
        map_, schema::kLinks,
        {{kKey, key}, {kKeySource, source}, {kKeyDest, destination}, {kSlice, Index()}, {kText, QString()}});
    return key;
}

} // namespace document
