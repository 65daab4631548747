#include "document/MapRows.h"

#include "document/clsfrmMain.h"
#include "document/ItemColumns.h"
#include "document/RoutedRows.h"
#include "document/Tags.h"
#include "support/Val.h"

#include <algorithm>

namespace document {

using storage::Recordset;

namespace {
std::uint32_t HashOf(std::string_view key) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
}
} // namespace

// The slot that has the key, or the empty one where it belongs.
std::size_t KeyIndex::SlotOf(std::string_view key, std::uint32_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].number != kNone && (slots_[at].hash != hash || KeyOf(slots_[at].number) != key))
        at = (at + 1) & (slots_.size() - 1);
    return at;
}

void KeyIndex::Grow() {
    std::vector<Slot> former(slots_.size() * 2);
    former.swap(slots_);
    for (const Slot &slot : former) {
        if (slot.number == kNone) continue;
        std::size_t at = slot.hash & (slots_.size() - 1);
        while (slots_[at].number != kNone) at = (at + 1) & (slots_.size() - 1);
        slots_[at] = slot;
    }
}

std::uint32_t KeyIndex::Intern(std::string_view key) {
    const std::uint32_t hash = HashOf(key);
    if (const Slot &slot = slots_[SlotOf(key, hash)]; slot.number != kNone) return slot.number;
    if (ends_.size() * 2 >= slots_.size()) Grow();
    const auto number = static_cast<std::uint32_t>(ends_.size());
    slots_[SlotOf(key, hash)] = {hash, number};
    text_ += key;
    ends_.push_back(text_.size());
    return number;
}

std::uint32_t KeyIndex::Find(std::string_view key) const { return slots_[SlotOf(key, HashOf(key))].number; }

std::string_view KeyIndex::KeyOf(std::uint32_t number) const {
    const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
    return std::string_view(text_).substr(begin, ends_[number] - begin);
}

MapRows::MapRows(storage::Database &database, clsfrmMain &settings)
    : database_(database), settings_(settings) {}
MapRows::~MapRows() = default;

FontPool &MapRows::Fonts() {
    if (!fonts_) fonts_.emplace(database_);
    return *fonts_;
}

// The table's rows into the bucket of their slice. A row that cannot be read spoils its slice alone.
template <typename Row, typename Read>
void MapRows::ReadInto(Buckets<Row> &buckets, const Recordset &rows, int sliceColumn, Read read) {
    if (rows.IsNull(sliceColumn)) return;
    const double slice = rows.Double(sliceColumn);
    if (!diagram::Between(slice, -32768, 32767)) return;
    Bucket<Row> &bucket = buckets[static_cast<int>(slice)];
    if (bucket.failure) return;
    try {
        bucket.rows.push_back(read());
    } catch (const support::Error &) {
        bucket.failure = std::current_exception();
    }
}

template <typename Row>
std::vector<Row> MapRows::Take(Buckets<Row> &buckets, int slice) {
    Bucket<Row> &bucket = buckets[slice];
    if (bucket.failure) std::rethrow_exception(bucket.failure);
    return std::move(bucket.rows);
}

std::vector<NodeRow> MapRows::TakeNodes(int slice) {
    if (!nodesRead_) ReadNodes();
    std::vector<NodeRow> rows = Take(nodes_, slice);
    const auto isLower = [](const NodeRow &a, const NodeRow &b) { return a.zOrder < b.zOrder; };
    if (!std::is_sorted(rows.begin(), rows.end(), isLower))
        std::stable_sort(rows.begin(), rows.end(), isLower);
    return rows;
}

std::vector<LinkRow> MapRows::TakeLinks(int slice) {
    if (!linksRead_) ReadLinks();
    return Take(links_, slice);
}

std::span<const PointRow> MapRows::PointsOf(std::uint32_t link) {
    if (!pointsRead_) ReadPoints();
    if (const auto failure = pointFailures_.find(link); failure != pointFailures_.end())
        std::rethrow_exception(failure->second);
    return std::span(points_).subspan(firstPoint_[link], firstPoint_[link + 1] - firstPoint_[link]);
}

bool MapRows::AreRouted(std::uint32_t link, std::span<const diagram::Point> points) {
    if (!routed_) routed_ = ReadRouted(database_, linkKeys_);
    return std::ranges::binary_search(*routed_, std::pair(link, SumOf(points)));
}

void MapRows::ReadNodes() {
    nodesRead_ = true;
    Recordset rows = database_.OpenRecordset(SelectAll(schema::kNodes));
    if (rows.EndOfFile()) return;
    const Columns at(rows, schema::kNodes);
    for (; !rows.EndOfFile(); rows.MoveNext())
        ReadInto(nodes_, rows, at[schema::node::kSlice], [&] { return ReadNode(rows, at); });
}

void MapRows::ReadLinks() {
    linksRead_ = true;
    Recordset rows = database_.OpenRecordset(SelectAll(schema::kLinks));
    if (rows.EndOfFile()) return;
    const Columns at(rows, schema::kLinks);
    for (; !rows.EndOfFile(); rows.MoveNext())
        ReadInto(links_, rows, at[schema::link::kSlice], [&] { return ReadLink(rows, at); });
}

NodeRow MapRows::ReadNode(const Recordset &rows, const Columns &at) {
    using namespace schema::node;
    NodeRow row;
    ReadCells<kNodeColumns>(row.data, rows, at);
    row.data.key = rows.Text(at[kKey]);
    row.data.tag = TagOf(rows, at);
    row.data.font = Fonts().Load(rows.Utf8(at[kFont]));
    row.picture = rows.Text(at[kPicture]);
    row.key = nodeKeys_.Intern(rows.Utf8(at[kKey]));
    row.zOrder = rows.Long(at[kzOrder]);
    return row;
}

LinkRow MapRows::ReadLink(const Recordset &rows, const Columns &at) {
    using namespace schema::link;
    LinkRow row;
    row.source = nodeKeys_.Intern(rows.Utf8(at[kKeySource]));
    row.destination = nodeKeys_.Intern(rows.Utf8(at[kKeyDest]));
    row.key = linkKeys_.Intern(rows.Utf8(at[kKey]));
    ReadCells<kLinkColumns>(row.data, rows, at);
    row.data.font = Fonts().Load(rows.Utf8(at[kFont]));
    row.zOrder = rows.Long(at[kZorder]);
    return row;
}

// The stored tag with the keys that the row's group names and level name have in this run. Rows with the same
// three share one text. A level is stored as a number, and the number's text is its name.
const QString &MapRows::TagOf(const Recordset &rows, const Columns &at) {
    using namespace schema::node;
    constexpr char kBetween = '\0';
    const bool hasLevel = !rows.IsNull(at[kLevel]);
    const double number = hasLevel ? rows.Double(at[kLevel]) : 0;
    tagKey_.assign(rows.Utf8(at[kTag]));
    (tagKey_ += kBetween) += rows.Utf8(at[kGroup]);
    if (hasLevel) (tagKey_ += kBetween).append(reinterpret_cast<const char *>(&number), sizeof number);
    if (const auto known = tags_.find(tagKey_); known != tags_.end()) return known->second;
    const QString level = hasLevel ? support::CStr(number) : QString();
    QString tag = TagWithEntry(rows.Text(at[kTag]), tags::kGroup,
                               settings_.Groups().KeyForGroupName(rows.Text(at[kGroup])));
    tag = TagWithEntry(tag, tags::kLevel, settings_.Levels().KeyForLevelName(level));
    return tags_.emplace(tagKey_, tag).first->second;
}

namespace {

struct LinkedPoint {
    std::uint32_t link = KeyIndex::kNone;
    PointRow point;
};

// The points by link, and within a link by index; `first` gets the position of each link's first point and of
// the end.
std::vector<PointRow> GroupByLink(std::vector<LinkedPoint> &read, std::size_t links,
                                  std::vector<std::uint32_t> &first) {
    const auto isBefore = [](const LinkedPoint &a, const LinkedPoint &b) {
        return a.link != b.link ? a.link < b.link : a.point.index < b.point.index;
    };
    if (!std::is_sorted(read.begin(), read.end(), isBefore))
        std::stable_sort(read.begin(), read.end(), isBefore);
    first.assign(links + 1, 0);
    std::vector<PointRow> points;
    points.reserve(read.size());
    for (const LinkedPoint &row : read) {
        ++first[row.link + 1];
        points.push_back(row.point);
    }
    for (std::size_t i = 1; i < first.size(); ++i) first[i] += first[i - 1];
    return points;
}

} // namespace

// As a rule the points of a link stand together, and links in the order of their rows.
std::uint32_t MapRows::LinkOfPoint(std::string_view key, std::uint32_t former) const {
    const std::uint32_t next = former + 1; // 0 behind none
    if (former != KeyIndex::kNone && linkKeys_.KeyOf(former) == key) return former;
    if (next < linkKeys_.Count() && linkKeys_.KeyOf(next) == key) return next;
    return linkKeys_.Find(key);
}

void MapRows::ReadPoints() {
    pointsRead_ = true;
    std::vector<LinkedPoint> read;
    Recordset rows = database_.OpenRecordset(SelectAll(schema::kLinkPoints));
    const Columns at(rows, schema::kLinkPoints);
    using namespace schema::point;
    std::uint32_t link = KeyIndex::kNone;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        link = LinkOfPoint(rows.Utf8(at[kLink]), link);
        if (link == KeyIndex::kNone) continue;
        try {
            read.push_back({link, {rows.Long(at[kIndex]), rows.Single(at[kX]), rows.Single(at[kY])}});
        } catch (const support::Error &) {
            pointFailures_.emplace(link, std::current_exception());
        }
    }
    points_ = GroupByLink(read, linkKeys_.Count(), firstPoint_);
}

} // namespace document
