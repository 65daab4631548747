#include "diagram/shapes/RouterAvoid.h"

#include "diagram/shapes/KnownBoxes.h"
#include "diagram/shapes/RouterGrid.h"
#include "diagram/shapes/RouterSearch.h"

#include <algorithm>
#include <array>

namespace diagram {

namespace {

constexpr int kMostRounds = 16;        // of searching among ever more boxes
constexpr int kBlockedRounds = 2;      // more of them, once it is known that no route is free
constexpr std::size_t kFew = 12;       // boxes that are told apart by comparing each with each
constexpr std::size_t kMostBoxes = 64; // with more known ones the search is given up
constexpr double kRanksTried[] = {-1, -0.5, 0, 0.5, 1}; // that stand for all links side by side

bool IsUnderHead(const RouteEnd &end, const QPointF &tip, const QPointF &bend) {
    return end.head > 0 && std::abs(tip.x() - bend.x()) + std::abs(tip.y() - bend.y()) < end.head + kHeadRoom;
}

bool HidesBend(const RouteRequest &request, const Track &track) {
    return IsUnderHead(request.source, track.points[0], track.points[1]) ||
           IsUnderHead(request.destination, track.points[track.count - 1], track.points[track.count - 2]);
}

// The routes of all links between the two nodes, as lanes beside those that one alone would take.
class Bundle {
public:
    Bundle(const RouteRequest &request, std::string_view directions, const Coordinates &lanes)
        : request_(request),
          directions_(directions),
          lanes_(lanes),
          track_(TrackOf(request, directions, lanes)),
          met_(CountMet(request, track_, 0)),
          hides_(HidesBend(request, track_)) {}

    // Rooms are found segment by segment. Where all segments moved together aren't free, all links come
    // nearer to each other.
    Coordinates Aside() const {
        const Rooms rooms = FindRooms();
        for (double share = 1; share > 0.1; share /= 2)
            if (AreFree(rooms, share)) return At(rooms, request_.aside / MostAside(), share);
        return lanes_;
    }

private:
    // How far from its lane each segment may lie, to the lower and to the higher side.
    using Rooms = std::array<Span, kMostSegments>;

    double MostAside() const { return std::max(request_.mostAside, 1.0); }

    Rooms FindRooms() const {
        const double most = std::min(request_.mostAside, RoomAtEnds());
        Rooms rooms{};
        for (std::size_t i = 0; i < directions_.size(); ++i) rooms[i] = RoomFor(i, most);
        return rooms;
    }

    // The lanes of a link of that rank, -1 to 1, with a share of the room.
    Coordinates At(const Rooms &rooms, double rank, double share) const {
        Coordinates moved = lanes_;
        for (std::size_t i = 0; i < directions_.size(); ++i) moved[i] += share * rooms[i].Middle();
        const Track middle = TrackOf(request_, directions_, moved);
        for (std::size_t i = 0; i < directions_.size(); ++i)
            moved[i] += share * rank * Left(middle, i) * (rooms[i].high - rooms[i].low) / 2;
        return moved;
    }

    bool AreFree(const Rooms &rooms, double share) const {
        const double own = request_.aside / MostAside();
        const auto isFree = [&](double rank) { return IsFree(At(rooms, rank, share)); };
        return isFree(own) && std::ranges::all_of(kRanksTried, isFree);
    }

    // 1 when the left of the segment of a track lies at higher coordinates, -1 at lower; 0 without length.
    double Left(const Track &track, std::size_t segment) const {
        const QPointF way = track.points[segment + 1] - track.points[segment];
        const double along = IsHorizontal(directions_[segment]) ? -way.x() : way.y();
        return along > 0 ? 1 : along < 0 ? -1 : 0;
    }

    double RoomAtEnds() const {
        const std::size_t last = directions_.size() - 1;
        const auto room = [this](const QRectF &box, std::size_t segment) {
            const Span span = LanesThrough(SpanOf(box, !IsHorizontal(directions_[segment])));
            return std::max(0.0, std::min(span.high - lanes_[segment], lanes_[segment] - span.low));
        };
        return std::min(room(request_.source.box, 0), room(request_.destination.box, last));
    }

    // `most` to both sides, or else what is free, as nearly even as it goes.
    Span RoomFor(std::size_t segment, double most) const {
        if (IsFree(segment, most) && IsFree(segment, -most)) return {-most, most};
        const double above = Room(segment, most), below = Room(segment, -most);
        const double half = std::min(most, (above + below) / 2);
        const double middle = above < half ? above - half : below < half ? half - below : 0;
        return {middle - half, middle + half};
    }

    double Room(std::size_t segment, double most) const {
        const bool isEnd = segment == 0 || segment + 1 == directions_.size();
        for (const double share : {2.0, 1.5, 1.0, 0.75, 0.5, 0.35, 0.25, 0.15, 0.1, 0.05})
            if (!(isEnd && share > 1) && IsFree(segment, share * most)) return share * std::abs(most);
        return 0;
    }

    bool IsFree(std::size_t segment, double distance) const {
        Coordinates lanes = lanes_;
        lanes[segment] += distance;
        return IsFree(lanes);
    }

    bool IsFree(const Coordinates &lanes) const {
        const Track track = TrackOf(request_, directions_, lanes);
        if (!hides_ && HidesBend(request_, track)) return false;
        for (std::size_t i = 1; i + 2 < track.count; ++i) {
            for (const QRectF &box : {request_.source.box, request_.destination.box}) {
                if (Meets(box, track.points[i], track.points[i + 1], kNearness) &&
                    !Meets(box, track_.points[i], track_.points[i + 1], kNearness))
                    return false;
            }
        }
        // A route that runs through many boxes anyway may run through one more.
        return met_ > kFew || CountMet(request_, track, 0, met_) <= met_;
    }

    const RouteRequest &request_;
    std::string_view directions_;
    const Coordinates &lanes_;
    Track track_; // of the lanes
    std::size_t met_;
    bool hides_;
};

} // namespace

std::vector<QRectF> BoxesMet(const RouteRequest &request, const Track &track, double nearness) {
    std::vector<QRectF> near, met;
    if (!request.obstacles) return met;
    for (std::size_t i = 1; i < track.count; ++i) {
        const QPointF &from = track.points[i - 1], &to = track.points[i];
        near.clear();
        request.obstacles->In(Neighbourhood(from, to, nearness), near);
        for (const QRectF &box : near)
            if (Meets(box, from, to, nearness)) AddBox(met, box);
    }
    return met;
}

std::size_t CountMet(const RouteRequest &request, const Track &track, double nearness, std::size_t most) {
    if (most > kFew) return std::min(BoxesMet(request, track, nearness).size(), most + 1);
    std::vector<QRectF> near;
    std::array<QRectF, kFew + 1> met;
    std::size_t count = 0;
    for (std::size_t i = 1; i < track.count && request.obstacles; ++i) {
        const QPointF &from = track.points[i - 1], &to = track.points[i];
        near.clear();
        request.obstacles->In(Neighbourhood(from, to, nearness), near);
        for (const QRectF &box : near) {
            const auto known = met.begin() + std::ptrdiff_t(count);
            if (!Meets(box, from, to, nearness) || std::find(met.begin(), known, box) != known) continue;
            met[count++] = box;
            if (count > most) return count;
        }
    }
    return count;
}

Coordinates LanesAround(const RouteRequest &request, std::string_view directions,
                        const Coordinates &preferred) {
    if (Overlap(request.source.box, request.destination.box)) return preferred;
    Track track = TrackOf(request, directions, preferred);
    std::vector<QRectF> known = BoxesMet(request, track, kNearness);
    const bool hides = directions.size() > 2 && HidesBend(request, track);
    if (known.empty() && !hides) return preferred;
    Coordinates best = preferred;
    std::size_t fewest = CountMet(request, track, 0);
    SearchBound bound;
    int blocked = 0; // rounds since there has been no free route
    for (int round = 0; round < kMostRounds && known.size() <= kMostBoxes; ++round) {
        const Coordinates lanes = SearchLanes(request, directions, preferred, known, bound);
        track = TrackOf(request, directions, lanes);
        const std::size_t met = CountMet(request, track, 0, fewest);
        if (met < fewest || met == 0 || (hides && met == fewest)) best = lanes, fewest = met;
        if (bound.runsThrough && ++blocked > kBlockedRounds) break;
        if (!Learn(BoxesMet(request, track, kCareful), known)) break;
    }
    return best;
}

Coordinates LanesAside(const RouteRequest &request, std::string_view directions, const Coordinates &lanes) {
    return Bundle(request, directions, lanes).Aside();
}

} // namespace diagram
