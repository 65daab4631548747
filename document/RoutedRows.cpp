#include "document/RoutedRows.h"

#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"
#include "document/MapRows.h"
#include "storage/Fields.h"

#include <algorithm>
#include <bit>

namespace document {

namespace {

using schema::kRoutedLinks;
using namespace schema::routed;

bool HasTable(const storage::Database &database) {
    return storage::TableExistsDB(database, NameOf(kRoutedLinks));
}

// Links of other styles have no bends, or the style alone says where they are.
bool HasBendsOfChoice(const diagram::Link &link) {
    const diagram::LinkStyleRow *row = diagram::FindLinkStyle(link.Style());
    return row && (row->form == diagram::LinkForm::Orthogonal || row->form == diagram::LinkForm::Polyline);
}

// Another program may have a table of this name.
bool HasColumns(const storage::Recordset &rows) {
    return rows.FindColumn(NameOf(kRoutedLinks, kLink)) >= 0 &&
           rows.FindColumn(NameOf(kRoutedLinks, kSum)) >= 0;
}

} // namespace

// FNV-1a over the bits of the coordinates; -0 counts as 0.
std::int32_t SumOf(std::span<const diagram::Point> points) {
    std::uint32_t sum = 0x811c9dc5;
    for (const diagram::Point &point : points)
        for (const float value : {point.x, point.y})
            sum = (sum ^ std::bit_cast<std::uint32_t>(value == 0 ? 0.0F : value)) * 0x01000193;
    return std::bit_cast<std::int32_t>(sum);
}

RoutedWriter::RoutedWriter(storage::Database &database) : database_(database) {
    if (HasTable(database))
        database.Execute(QStringLiteral("DELETE FROM [%1]").arg(NameOf(kRoutedLinks)), storage::kFailOnError);
}

void RoutedWriter::Write(const diagram::Link &link, std::string_view key) {
    if (!HasBendsOfChoice(link) || !link.Owner().Routes().AreBendsRouted(link)) return;
    if (!row_) {
        if (!HasTable(database_)) CreateTable(database_, kRoutedLinks);
        row_.emplace(database_.Prepare(InsertInto(kRoutedLinks)));
    }
    row_->BindUtf8(kLink, key);
    row_->BindLong(kSum, SumOf(link.Route()));
    row_->Run();
}

std::vector<std::pair<std::uint32_t, std::int32_t>> ReadRouted(storage::Database &database,
                                                               const KeyIndex &keys) {
    std::vector<std::pair<std::uint32_t, std::int32_t>> routed;
    if (!HasTable(database)) return routed;
    storage::Recordset rows = database.OpenRecordset(SelectAll(kRoutedLinks));
    if (!HasColumns(rows)) return routed;
    const Columns at(rows, kRoutedLinks);
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        const std::uint32_t link = keys.Find(rows.Utf8(at[kLink]));
        bool isSum = false;
        const int sum = rows.Text(at[kSum]).toInt(&isSum);
        if (link != KeyIndex::kNone && isSum) routed.emplace_back(link, sum);
    }
    std::ranges::sort(routed);
    return routed;
}

} // namespace document
