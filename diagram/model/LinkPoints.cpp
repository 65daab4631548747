#include "diagram/model/Link.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Router.h"

namespace diagram {

namespace {

void CheckPosition(int position, int count) {
    if (position >= 0 && position < count) return;
    support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("Points"));
}

void CheckPoint(const Point &point) {
    Checked(IsCoordinate, point.x, "Points"), Checked(IsCoordinate, point.y, "Points");
}

[[noreturn]] void RaiseTooFew() {
    support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Points"));
}

} // namespace

// With a point-edit switch on the points stay as given. Without, their bends are the user's from now on, and
// the two ends come back to the outlines when the route is read.
void Link::WritePoints(std::vector<Point> points) {
    if (!stale_ && points == data_.points) return;
    Surface &surface = Owner();
    surface.Record(*this);
    surface.routing_->RouteChanges(*this);
    data_.points = std::move(points);
    stale_ = !KeepsPoints();
    unjudged_ = !stale_;
    if (unjudged_) surface.routing_->NoteUnjudged();
    data_.ownBends = data_.ownBends || stale_;
    surface.Notify(*this, Change::Geometry);
}

int LinkPoints::Count() const { return int(link_->Route().size()); }

Point LinkPoints::Item(int position) const {
    CheckPosition(position, Count());
    return link_->Route()[std::size_t(position)];
}

void LinkPoints::SetItem(int position, const Point &point) {
    CheckPosition(position, Count());
    CheckPoint(point);
    if (link_->Route()[std::size_t(position)] == point) return;
    std::vector<Point> points = link_->Route();
    if (link_->KeepsPoints()) {
        points[std::size_t(position)] = point;
    } else {
        points = WithBendMoved(link_->Style(), points, position, point);
    }
    link_->WritePoints(std::move(points));
}

void LinkPoints::Add(float x, float y) {
    CheckPoint({x, y});
    std::vector<Point> points = link_->Route();
    points.push_back({x, y});
    link_->WritePoints(std::move(points));
}

void LinkPoints::Insert(int position, const Point &point) {
    CheckPosition(position, Count() + 1);
    CheckPoint(point);
    std::vector<Point> points = link_->Route();
    points.insert(points.begin() + position, point);
    link_->WritePoints(std::move(points));
}

void LinkPoints::Remove(int position) {
    CheckPosition(position, Count());
    if (Count() <= 2) RaiseTooFew();
    std::vector<Point> points = link_->Route();
    points.erase(points.begin() + position);
    link_->WritePoints(std::move(points));
}

void LinkPoints::Assign(std::vector<Point> points) {
    if (points.size() < 2) RaiseTooFew();
    for (const Point &point : points) CheckPoint(point);
    link_->WritePoints(std::move(points));
}

const std::vector<Point> &LinkPoints::All() const { return link_->Route(); }

} // namespace diagram
