#include "diagram/layout/Circular.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/Parts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace diagram {

namespace {

// What a box takes of a circle where it stands at that angle.
double Along(const QSizeF &size, double angle) {
    return size.width() * std::abs(std::sin(angle)) + size.height() * std::abs(std::cos(angle));
}

// The circle, and around it a second one for guests: boxes with a single neighbour, their host, in front of
// which they stand.
class Circles {
public:
    Circles(const LayoutGraph &part, const std::vector<int> &order, double gap)
        : part_(part),
          gap_(gap),
          hosts_(part.sizes.size(), -1),
          guests_(part.sizes.size()),
          angles_(part.sizes.size()) {
        for (const QSizeF &size : part.sizes)
            step_ = std::max(step_, std::hypot(size.width(), size.height()) + gap);
        FindGuests(order);
        for (const int box : order)
            if (hosts_[std::size_t(box)] < 0) circle_.push_back(box);
        Turn();
    }

    std::vector<QPointF> Centres() const {
        const double radius = circle_.size() == 1 ? 0 : Radius();
        std::vector<QPointF> centres(angles_.size());
        for (std::size_t box = 0; box < centres.size(); ++box) {
            const double out = hosts_[box] < 0 ? radius : radius + step_;
            centres[box] = out * QPointF(std::cos(angles_[box]), std::sin(angles_[box]));
        }
        return centres;
    }

private:
    // Of two boxes that have nobody else the first is no guest.
    void FindGuests(const std::vector<int> &order) {
        const Adjacency neighbours = NeighboursOf(part_);
        for (const int box : order) {
            const auto &list = neighbours[std::size_t(box)];
            if (list.size() != 1 || (part_.sizes.size() == 2 && box == order.front())) continue;
            hosts_[std::size_t(box)] = list.front();
            guests_[std::size_t(list.front())].push_back(box);
        }
    }

    // On the circle: of the box itself or, if that is more, of its guests, which have more room further out.
    double RoomOf(int box) const {
        const auto at = std::size_t(box);
        double outside = 0;
        for (const int guest : guests_[at])
            outside += Along(part_.sizes[std::size_t(guest)], angles_[std::size_t(guest)]) + gap_;
        const double inside = Along(part_.sizes[at], angles_[at]) + gap_;
        const double radius = Radius();
        return std::max(inside, outside * radius / (radius + step_));
    }
    double Radius() const { return std::max(step_ / 2, length_ / (2 * std::numbers::pi)); }

    // The room that a box needs and its angle depend on each other: a few rounds bring them together.
    void Turn() {
        constexpr int kRounds = 12;
        std::vector<double> room(circle_.size(), 1);
        Spread(room);
        for (int round = 0; round < kRounds; ++round) {
            for (std::size_t i = 0; i < room.size(); ++i) room[i] = (room[i] + RoomOf(circle_[i])) / 2;
            Spread(room);
        }
    }

    void Spread(const std::vector<double> &room) {
        constexpr double kTop = -std::numbers::pi / 2;
        length_ = 0;
        for (const double part : room) length_ += part;
        double past = -room.front() / 2;
        for (std::size_t i = 0; i < circle_.size(); ++i) {
            const double turn = 2 * std::numbers::pi / length_;
            const auto box = std::size_t(circle_[i]);
            angles_[box] = kTop + turn * (past + room[i] / 2);
            const double each = turn * room[i] / double(std::max<std::size_t>(1, guests_[box].size()));
            double at = kTop + turn * past + each / 2;
            for (const int guest : guests_[box]) angles_[std::size_t(guest)] = at, at += each;
            past += room[i];
        }
    }

    const LayoutGraph &part_;
    double gap_, step_ = 0; // twips; the step from one circle to the next
    std::vector<int> hosts_;
    std::vector<std::vector<int>> guests_;
    std::vector<double> angles_;
    std::vector<int> circle_; // in its order
    double length_ = 0;       // of the circle
};

std::vector<QPointF> PlaceOne(const LayoutGraph &part, const LayoutOptions &options, Progress &progress) {
    const double gap = std::max(1.0, options.neighbourDistance);
    std::vector<QPointF> centres = Circles(part, CircularOrder(part, progress), gap).Centres();
    const double factor = TightestScale(part.sizes, centres, gap);
    for (QPointF &centre : centres) centre *= std::max(1.0, factor);
    return centres;
}

} // namespace

std::vector<QPointF> Circular(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress) {
    return PlaceParts(graph, options.levelDistance, progress, [&](const LayoutGraph &part, Progress &inPart) {
        return PlaceOne(part, options, inPart);
    });
}

} // namespace diagram
