#include "diagram/shapes/RouterDetour.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <QLineF>
#include <utility>

namespace diagram {

namespace {

constexpr double kHaste = 1.3; // see haste_

double Length(const QPointF &a, const QPointF &b) {
    const double x = b.x() - a.x(), y = b.y() - a.y();
    return std::sqrt(x * x + y * y);
}

QRectF Grown(const QRectF &box, double by) { return box.adjusted(-by, -by, by, by); }

} // namespace

// Compares a line with boxes by where their middles lie beside it.
class Detour::Line {
public:
    Line(const QPointF &from, const QPointF &to)
        : middle_((from + to) / 2),
          half_((to - from) / 2),
          reach_(std::abs(half_.x()), std::abs(half_.y())) {}

    bool RunsThrough(const Box &box) const {
        // Without branches, as these couldn't be predicted.
        const double x = box.middle.x() - middle_.x(), y = box.middle.y() - middle_.y();
        const bool sideways = std::abs(x) < box.half.x() + reach_.x();
        const bool upright = std::abs(y) < box.half.y() + reach_.y();
        const bool across =
            std::abs(x * half_.y() - y * half_.x()) < box.half.x() * reach_.y() + box.half.y() * reach_.x();
        return sideways & upright & across;
    }

private:
    QPointF middle_, half_, reach_;
};

Detour::Box::Box(const QRectF &box) : middle(box.center()), half(box.width() / 2, box.height() / 2) {}

Detour::Detour(const QRectF &source, const QRectF &destination) : source_(source), destination_(destination) {
    stops_.reserve(64), legs_.reserve(256);
}

FoundRoute Detour::Find(const std::vector<QRectF> &boxes, double margin, double most) {
    Prepare(boxes, margin);
    FoundRoute found;
    found.margin = margin;
    if (AlongCorners(most)) {
        found.cost = stops_[kEnd].costs;
        for (int at = kEnd; at != kStart; at = stops_[std::size_t(at)].before)
            found.route.push_back(stops_[std::size_t(at)].at);
        found.route.push_back(stops_[kStart].at);
        std::ranges::reverse(found.route);
    }
    if (boxes.size() <= kFewBoxes) BendOnce(found, std::min(most, found.cost));
    return found;
}

void Detour::Prepare(const std::vector<QRectF> &boxes, double margin) {
    grown_.clear(), insides_.clear(), stops_.clear(), legs_.clear();
    order_.clear();
    haste_ = boxes.size() > kFewBoxes ? kHaste : 1;
    const QPointF end = destination_.middle;
    const auto add = [&](const QPointF &at, int slope) { stops_.push_back({at, Length(at, end), slope}); };
    add(source_.middle, 0), add(end, 0);
    for (const QRectF &box : boxes) {
        const QRectF grown = Grown(box, margin), inside = Grown(grown, -kSlack);
        grown_.push_back(grown);
        insides_.emplace_back(inside);
        add(grown.topLeft(), 1), add(grown.topRight(), -1);
        add(grown.bottomRight(), 1), add(grown.bottomLeft(), -1);
    }
}

// The most promising leg is taken first, and only then is it found out whether it is free.
bool Detour::AlongCorners(double most) {
    Settle(kStart, kStart, most);
    while (!legs_.empty()) {
        std::ranges::pop_heap(legs_, std::greater());
        const Leg leg = legs_.back();
        legs_.pop_back();
        const int from = order_[std::size_t(leg.rank)];
        if (leg.to == kAny) {
            OfferAll(from, most);
        } else if (stops_[std::size_t(leg.to)].rank == kUnsettled &&
                   IsFree(stops_[std::size_t(from)].at, stops_[std::size_t(leg.to)].at, from == kStart,
                          leg.to == kEnd)) {
            Settle(from, leg.to, most);
            if (leg.to == kEnd) return true;
        }
    }
    return false;
}

void Detour::Settle(int from, int at, double most) {
    Stop &stop = stops_[std::size_t(at)];
    if (at != kStart) stop.costs = CostOver(from, at);
    stop.before = from, stop.rank = int(order_.size());
    order_.push_back(at);
    if (at == kEnd) return;
    if (SeesEnd(at)) Offer(at, kEnd, most);
    OfferMore(at, most);
}

double Detour::CostOver(int from, int to) const {
    const Stop &stop = stops_[std::size_t(from)];
    return stop.costs + Length(stop.at, stops_[std::size_t(to)].at) + (from == kStart ? 0 : kBendCosts);
}

// From a stop that doesn't see the end there is one more bend at least.
bool Detour::SeesEnd(int at) {
    Stop &stop = stops_[std::size_t(at)];
    if (stop.bends == 0) stop.bends = IsFree(stop.at, stops_[kEnd].at, at == kStart, true) ? 1 : 2;
    return stop.bends == 1;
}

void Detour::Offer(int from, int to, double most) {
    const double costs = CostOver(from, to);
    double beyond = stops_[std::size_t(to)].toEnd + (to == kEnd ? 0 : kBendCosts);
    if (!(costs + beyond < most)) return;
    if (to != kEnd && !SeesEnd(to)) beyond += kBendCosts;
    if (!(costs + beyond < most)) return;
    legs_.push_back(
        {costs + haste_ * beyond, std::int16_t(stops_[std::size_t(from)].rank), std::int16_t(to)});
    std::ranges::push_heap(legs_, std::greater());
}

void Detour::OfferMore(int from, double most) {
    const Stop &stop = stops_[std::size_t(from)];
    const double costs = stop.costs + (from == kStart ? 0 : kBendCosts);
    const double beyond = stop.toEnd + kBendCosts;
    if (!(costs + beyond < most)) return;
    legs_.push_back({costs + haste_ * beyond, std::int16_t(stop.rank), kAny});
    std::ranges::push_heap(legs_, std::greater());
}

// Whether the line from one to another runs into the box of neither.
bool Detour::IsTaut(const Stop &a, const Stop &b) {
    const QPointF way = b.at - a.at;
    const double slope = way.x() * way.y();
    return slope * a.slope <= 0 && slope * b.slope <= 0;
}

void Detour::OfferAll(int from, double most) {
    for (std::size_t to = kEnd + 1; to < stops_.size(); ++to)
        if (stops_[to].rank == kUnsettled && (haste_ <= 1 || IsTaut(stops_[std::size_t(from)], stops_[to])))
            Offer(from, int(to), most);
}

bool Detour::IsFree(const QPointF &from, const QPointF &to, bool first, bool last) {
    const Line line(from, to);
    if ((!first && line.RunsThrough(source_)) || (!last && line.RunsThrough(destination_))) return false;
    const auto blocking =
        std::ranges::find_if(insides_, [&](const Box &box) { return line.RunsThrough(box); });
    if (blocking == insides_.end()) return true;
    std::swap(*blocking, insides_.front()); // which is likely to block the next line as well
    return false;
}

// The corners that a line from the point can pass without running into their boxes.
std::vector<QPointF> Detour::Tangents(const QPointF &from) const {
    std::vector<QPointF> corners;
    const auto offer = [&](const QPointF &corner, double sign) {
        const QPointF way = corner - from;
        if (way.x() * way.y() * sign <= 0) corners.push_back(corner);
    };
    for (const QRectF &box : grown_) {
        offer(box.topLeft(), 1), offer(box.topRight(), -1);
        offer(box.bottomRight(), 1), offer(box.bottomLeft(), -1);
    }
    return corners;
}

// Where a line from the start past a corner meets one to the end past another.
void Detour::BendOnce(FoundRoute &found, double most) {
    const QPointF from = stops_[kStart].at, to = stops_[kEnd].at;
    const std::vector<QPointF> ones = Tangents(from), others = Tangents(to);
    for (const QPointF &one : ones) {
        for (const QPointF &other : others) {
            QPointF bend;
            if (QLineF(from, one).intersects(QLineF(to, other), &bend) == QLineF::NoIntersection) continue;
            if (!(QPointF::dotProduct(bend - from, one - from) > 0)) continue;
            const double costs = Length(from, bend) + Length(bend, to) + kBendCosts;
            if (!(costs < most) || !IsFree(from, bend, true, false) || !IsFree(bend, to, false, true))
                continue;
            found.route = {from, bend, to}, found.cost = most = costs;
        }
    }
}

} // namespace diagram
