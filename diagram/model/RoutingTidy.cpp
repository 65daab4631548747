// Nudging routes apart when a group of changes closes.
#include "diagram/model/Actions.h"
#include "diagram/model/RouteRequests.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Nudging.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace diagram {

namespace {

constexpr double kBeside = 2 * kApart; // twips; routes that near share a channel
constexpr double kTouch = 60;          // twips between two pieces on one line that count as touching
constexpr int kManyMates = 150;        // at nodes with more links these aren't nudged for sharing a side
constexpr std::size_t kMost = 2500;    // links that are nudged at once; more would take too long
constexpr double kInReach = 1200;      // twips; farther away nothing is in the way of a nudge

enum class Side { None, Left, Top, Right, Bottom };

// The side of the node by which the route leaves it, its end there given and the point next to it. None for a
// piece that is slanted or has no length.
Side SideOf(const Point &end, const Point &next) {
    if (end.y == next.y) return end.x == next.x ? Side::None : end.x < next.x ? Side::Right : Side::Left;
    return end.x != next.x ? Side::None : end.y < next.y ? Side::Bottom : Side::Top;
}

bool EndsAt(const Link &link, const Node &node, Side side) {
    const std::vector<Point> &route = link.Data().points;
    return (&link.Source() == &node && SideOf(route[0], route[1]) == side) ||
           (&link.Destination() == &node && SideOf(route.back(), route[route.size() - 2]) == side);
}

// Whether two pieces run beside each other, nearer than `reach`.
bool AreBeside(const Point &a, const Point &b, const Point &c, const Point &d, double reach) {
    const auto share = [](float p, float q, float r, float s) {
        return std::min(std::max(p, q), std::max(r, s)) - std::max(std::min(p, q), std::min(r, s)) > -kTouch;
    };
    const bool level = a.y == b.y && c.y == d.y && std::abs(a.y - c.y) < reach;
    const bool upright = a.x == b.x && c.x == d.x && std::abs(a.x - c.x) < reach;
    return (level && share(a.x, b.x, c.x, d.x)) || (upright && share(a.y, b.y, c.y, d.y));
}

bool AreBeside(const Link &link, const Link &other, double reach) {
    const std::vector<Point> &one = link.Data().points, &two = other.Data().points;
    for (std::size_t i = 1; i < one.size(); ++i)
        for (std::size_t j = 1; j < two.size(); ++j)
            if (AreBeside(one[i - 1], one[i], two[j - 1], two[j], reach)) return true;
    return false;
}

// A hash, the same for links whose lines can't be told apart at their source.
std::uint64_t LookOf(const LinkData &link) {
    std::uint64_t look = 0;
    for (const std::uint64_t part : {std::uint64_t(link.lineColor), std::uint64_t(link.drawStyle),
                                     std::uint64_t(std::bit_cast<std::uint32_t>(link.drawWidth)),
                                     std::uint64_t(link.arrowSource), std::uint64_t(link.arrowSizeSource)})
        look = (look ^ part) * 0x100000001b3 + 1;
    return look;
}

// A hash of style and points, by which a route is known again.
std::uint64_t SumOf(const Link &link) {
    std::uint64_t sum = std::uint64_t(link.Style());
    for (const Point &point : link.Data().points)
        for (const float part : {point.x, point.y})
            sum = (sum ^ std::bit_cast<std::uint32_t>(part)) * 0x9E3779B97F4A7C15 + (sum >> 29);
    return sum;
}

void KeepEachOnce(std::vector<Link *> &links) {
    std::ranges::sort(links, {}, [](const Link *link) { return link->Id(); });
    links.erase(std::unique(links.begin(), links.end()), links.end());
}

} // namespace

void Routing::Tidy(const std::vector<ItemId> &touched) {
    if (IsQuiet()) return;
    for (const ItemId id : touched)
        if (Link *link = surface_.FindLink(id)) RouteOf(*link);
    std::vector<ItemId> untidy = std::exchange(untidy_, {});
    if (untidy.empty()) return;
    std::ranges::sort(untidy);
    untidy.erase(std::unique(untidy.begin(), untidy.end()), untidy.end());
    UpdateNodes(), NeedNodes(), UpdateRoutes();
    std::map<ItemId, std::uint64_t> routed;
    std::erase_if(untidy, [&](ItemId id) {
        Link *link = surface_.FindLink(id);
        if (!link || !MayNudge(*link) || TakeFormerRoute(*link)) return true;
        routed[id] = SumOf(*link);
        return false;
    });
    former_.clear();
    if (!untidy.empty()) {
        UpdateRoutes();
        NudgeApart(LinksToNudge(untidy), routed);
    }
    untidy_.clear();
}

// A link that the router gave the same route as before the group has its former nudged route back, unless
// that meets a node now.
bool Routing::TakeFormerRoute(Link &link) {
    const auto former = former_.find(link.Id());
    const auto nudged = nudged_.find(link.Id());
    if (former == former_.end() || nudged == nudged_.end() || nudged->second.routed != SumOf(link))
        return false;
    std::vector<Point> &points = DataOf(link).points;
    std::vector<Point> route = std::exchange(points, former->second);
    const bool isSame = nudged->second.route == SumOf(link);
    points.swap(route);
    if (!isSame) return false;
    const LinkDraft draft(link);
    const RouteRequest request = RequestFor(draft);
    const NodesAround around(nodes_, draft, request);
    if (IsMet(around, route) && !IsMet(around, points)) return false;
    if (route != points) TakeRoute(link, std::move(route));
    return true;
}

void Routing::TidyAll() {
    for (const auto &link : surface_.Links())
        if (MayNudge(*link)) GiveWay(*link);
    Recalculate();
    UpdateNodes(), NeedNodes(), UpdateRoutes();
    std::vector<Link *> links;
    for (const auto &link : surface_.Links())
        if (MayNudge(*link)) links.push_back(link.get());
    KeepEachOnce(links);
    std::map<ItemId, std::uint64_t> routed;
    for (const Link *link : links) routed[link->Id()] = SumOf(*link);
    for (Link *link : links) DrawStraight(*link);
    UpdateRoutes();
    NudgeApart(links, routed);
}

bool Routing::MayNudge(Link &link) {
    if (IsStale(link) || link.KeepsPoints() || link.Hidden()) return false;
    if (!HasForm(link.Style(), LinkForm::Orthogonal)) return false;
    if (link.Data().ownBends || IsCrowded(LinkDraft(link))) return false;
    Judge(link);
    return !link.Data().ownBends;
}

std::vector<Link *> Routing::LinksToNudge(const std::vector<ItemId> &untidy) {
    std::vector<Link *> links;
    for (const ItemId id : untidy)
        if (Link *link = surface_.FindLink(id); link && MayNudge(*link)) links.push_back(link);
    KeepEachOnce(links);
    for (Link *link : links) DrawStraight(*link);
    UpdateRoutes();
    if (links.size() > kMost) return links;
    std::vector<Link *> found;
    for (const Link *link : links) AddSideMates(*link, found), AddNear(*link, kBeside, found);
    KeepEachOnce(found);
    std::erase_if(found, [this](Link *link) { return !MayNudge(*link); });
    links.insert(links.end(), found.begin(), found.end());
    KeepEachOnce(links);
    return links;
}

void Routing::DrawStraight(Link &link) {
    const LinkDraft draft(link);
    RouteRequest request = RequestFor(draft);
    const NodesAround around(nodes_, draft, request);
    request.obstacles = &around;
    std::vector<Point> route = WithoutStairs(request);
    if (route != link.Data().points) TakeRoute(link, std::move(route));
}

void Routing::AddSideMates(const Link &link, std::vector<Link *> &found) {
    const std::vector<Point> &route = link.Data().points;
    const auto add = [&](Node &node, Side side) {
        if (side == Side::None || node.Links().Count() > kManyMates) return;
        for (Link *other : node.Links())
            if (!IsStale(*other) && EndsAt(*other, node, side)) found.push_back(other);
    };
    add(link.Source(), SideOf(route[0], route[1]));
    add(link.Destination(), SideOf(route.back(), route[route.size() - 2]));
}

void Routing::AddNear(const Link &link, double reach, std::vector<Link *> &found) {
    std::vector<BoxIndex::Entry> entries;
    const std::vector<Point> &route = link.Data().points;
    for (std::size_t i = 1; i < route.size(); ++i)
        routes_.Find(Neighbourhood(ToQPointF(route[i - 1]), ToQPointF(route[i]), reach), entries);
    std::ranges::sort(entries, {}, &BoxIndex::Entry::second);
    ItemId last = link.Id();
    for (const BoxIndex::Entry &entry : entries) {
        if (std::exchange(last, entry.second) == entry.second || entry.second == link.Id()) continue;
        Link *other = surface_.FindLink(entry.second);
        if (other && !IsStale(*other) && !other->Hidden() && AreBeside(link, *other, reach))
            found.push_back(other);
    }
}

void Routing::NudgeApart(const std::vector<Link *> &links, const std::map<ItemId, std::uint64_t> &routed) {
    if (links.size() > kMost) return NoteNudged(routed, links);
    std::vector<Link *> all;
    for (const Link *link : links) AddNear(*link, kInReach, all);
    all.insert(all.end(), links.begin(), links.end());
    KeepEachOnce(all);
    std::vector<NudgedLink> nudged(all.size());
    std::vector<std::unique_ptr<NodesAround>> around;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const LinkDraft draft(*all[i]);
        nudged[i] = {RequestFor(draft), all[i]->Source().Id(), all[i]->Destination().Id(),
                     LookOf(all[i]->Data()), !std::ranges::binary_search(links, all[i]->Id(), {}, &Link::Id)};
        if (nudged[i].stays) continue;
        around.push_back(std::make_unique<NodesAround>(nodes_, draft, nudged[i].request));
        nudged[i].request.obstacles = around.back().get();
    }
    std::vector<std::vector<Point>> routes = Nudge(nudged);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!nudged[i].stays && routes[i] != all[i]->Data().points) TakeRoute(*all[i], std::move(routes[i]));
    NoteNudged(routed, links);
}

void Routing::NoteNudged(const std::map<ItemId, std::uint64_t> &routed, const std::vector<Link *> &links) {
    for (const auto &[id, sum] : routed) nudged_[id].routed = sum;
    for (const Link *link : links)
        if (const auto found = nudged_.find(link->Id()); found != nudged_.end())
            found->second.route = SumOf(*link);
}

void Routing::TakeRoute(Link &link, std::vector<Point> route) {
    const Uncounted derived(surface_.Actions());
    surface_.WriteTo(link, Change::Geometry, [&] {
        DropRoute(link);
        DataOf(link).points = std::move(route);
        NoteRoute(link);
    });
}

} // namespace diagram
