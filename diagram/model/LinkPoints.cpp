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

void Write(Link &link, std::vector<Point> points) {
    link.Owner().Routes().SetPoints(link, std::move(points));
}

[[noreturn]] void RaiseTooFew() {
    support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Points"));
}

} // namespace

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
    Write(*link_, std::move(points));
}

void LinkPoints::Add(float x, float y) {
    CheckPoint({x, y});
    std::vector<Point> points = link_->Route();
    points.push_back({x, y});
    Write(*link_, std::move(points));
}

void LinkPoints::Insert(int position, const Point &point) {
    CheckPosition(position, Count() + 1);
    CheckPoint(point);
    std::vector<Point> points = link_->Route();
    points.insert(points.begin() + position, point);
    Write(*link_, std::move(points));
}

void LinkPoints::Remove(int position) {
    CheckPosition(position, Count());
    if (Count() <= 2) RaiseTooFew();
    std::vector<Point> points = link_->Route();
    points.erase(points.begin() + position);
    Write(*link_, std::move(points));
}

void LinkPoints::Assign(std::vector<Point> points) {
    if (points.size() < 2) RaiseTooFew();
    for (const Point &point : points) CheckPoint(point);
    Write(*link_, std::move(points));
}

const std::vector<Point> &LinkPoints::All() const { return link_->Route(); }

} // namespace diagram
