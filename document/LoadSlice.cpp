#include "document/LoadSlice.h"

#include "diagram/model/Routing.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "document/BusyWindow.h"
#include "document/MemoryGuard.h"
#include "document/PicturePool.h"
#include "support/Error.h"

namespace document {

SliceLoader::SliceLoader(MapWindow &window, diagram::Surface &surface, MapRows &rows, PicturePool &pictures,
                         MemoryWatch &memory)
    : window_(window), surface_(surface), rows_(rows), pictures_(pictures), memory_(memory) {
    surface_.SetLoading(true);
}

SliceLoader::~SliceLoader() { surface_.SetLoading(false); }

diagram::Node &SliceLoader::AddNode(NodeRow &row) {
    if (surface_.Nodes().Find(row.data.key)) support::Raise(support::kErrKeyInUse, QStringLiteral("Nodes"));
    if (!row.picture.isEmpty()) row.data.picture = pictures_.Load(row.picture);
    return surface_.Restore(surface_.NextId(), std::move(row.data));
}

bool SliceLoader::LoadNodes() {
    window_.DoStatus(QStringLiteral("Loading Nodes..."));
    std::vector<NodeRow> rows = rows_.TakeNodes(surface_.Index());
    nodes_.reserve(rows.size());
    Progress progress(window_, rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (memory_.IsShortForNode()) return false;
        progress.Show(i);
        diagram::Node &node = AddNode(rows[i]);
        nodes_.emplace(rows[i].key, &node);
        positions_.emplace_back(&node, rows[i].zOrder);
    }
    return true;
}

// An unknown key raises the error of the collection of nodes.
diagram::Node &SliceLoader::NodeOf(std::uint32_t key) const {
    if (const auto found = nodes_.find(key); found != nodes_.end()) return *found->second;
    const std::string_view text = rows_.NodeKeys().KeyOf(key);
    return surface_.Nodes().Item(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

diagram::Link &SliceLoader::AddLink(LinkRow &row) {
    row.data.destination = NodeOf(row.destination).Id();
    row.data.source = NodeOf(row.source).Id();
    return surface_.Restore(surface_.NextId(), std::move(row.data));
}

void SliceLoader::LoadLinks() {
    window_.DoStatus(QStringLiteral("Loading Links..."));
    std::vector<LinkRow> rows = rows_.TakeLinks(surface_.Index());
    Progress progress(window_, rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        progress.Show(i);
        diagram::Link &link = AddLink(rows[i]);
        SetPoints(link, rows[i].key);
        positions_.emplace_back(&link, rows[i].zOrder);
    }
}

namespace {

constexpr int kLargestGap = 1024; // points that a position may lie behind the last one

bool CountUpFromZero(std::span<const PointRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].index != static_cast<std::int32_t>(i)) return false;
    return true;
}

// Puts each row at its position. Rows behind the last point are added and the pass repeated, until every
// position that the rows name exists and holds what its row says.
void PlaceOneByOne(std::vector<diagram::Point> &points, std::span<const PointRow> rows) {
    for (bool added = true; added;) {
        added = false;
        for (const PointRow &row : rows) {
            const auto position = static_cast<std::size_t>(row.index);
            if (row.index < 0 || position > points.size() + kLargestGap)
                support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("Points"));
            added = added || position >= points.size();
            if (position < points.size())
                points[position] = {row.x, row.y};
            else
                points.push_back({row.x, row.y});
        }
    }
}

} // namespace

void SliceLoader::SetPoints(diagram::Link &link, std::uint32_t key) {
    const std::span<const PointRow> rows = rows_.PointsOf(key);
    if (rows.empty()) return;
    std::vector<diagram::Point> points;
    // As a rule the rows hold the whole route. Otherwise they replace points of the route that the router has
    // given the link.
    if (rows.size() < 2 || !CountUpFromZero(rows)) points = link.Route();
    PlaceOneByOne(points, rows);
    link.SetAddPointsMode(true);
    link.SetMovePointsMode(true);
    link.Points().Assign(std::move(points));
    link.SetAddPointsMode(false);
    link.SetMovePointsMode(false);
    if (rows_.AreRouted(key, link.Data().points)) surface_.Routes().TakeBendsAsRouted(link);
}

void SliceLoader::Stack() { surface_.Stacking().Restack(positions_); }

} // namespace document
