#include "diagram/interaction/MoveBend.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/BendEdit.h"
#include "diagram/interaction/Snap.h"
#include "diagram/interaction/Snapping.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>

namespace diagram {

namespace {

// The bends are the user's from then on.
void Stretch(Link &link, std::vector<Point> route) { link.Points().Assign(std::move(route)); }

} // namespace

MoveBend::MoveBend(Surface &surface, Link &link, Grip grip, int index)
    : surface_(surface), held_(link), grip_(grip), index_(index) {}

std::vector<Point> MoveBend::Route(const PointerInput &input) const {
    const LinkData &data = held_.Links().front().data;
    const QPointF to = Snaps(surface_, input) ? SnapPoint(surface_, input.at) : input.at;
    const QPointF kept(qMax(0.0, to.x()), qMax(0.0, to.y()));
    std::vector<Point> route = grip_ == Grip::Bend ? BendDragged(data.points, index_, kept, data.style)
                                                   : SegmentDragged(data.points, index_, kept, data.style);
    const int bend = grip_ == Grip::Bend ? index_ : index_ + 1;
    const double reach = kSnapPixels * std::max(input.pixel.width(), input.pixel.height());
    if (HasFreeBends(data.style) && !input.Alt() && IsInLine(route, bend, reach))
        route.erase(route.begin() + bend);
    return route;
}

std::unique_ptr<Gesture> MoveBend::Move(const PointerInput &input) {
    held_.RestoreLinks(surface_);
    if (Link *link = surface_.FindLink(held_.Links().front().id)) Stretch(*link, Route(input));
    return nullptr;
}

void MoveBend::Commit(const PointerInput &input) {
    const HeldLink &held = held_.Links().front();
    std::vector<Point> route = Route(input);
    held_.RestoreLinks(surface_);
    Link *link = surface_.FindLink(held.id);
    if (!link || route == held.data.points) return;
    const ActionGroup group(surface_);
    Stretch(*link, std::move(route));
    surface_.Events().AfterStretch(surface_);
}

void MoveBend::Cancel() { held_.RestoreLinks(surface_); }

// Without points the link is routed when it is looked at next.
void GiveBendsToRouter(Link &link) {
    LinkData data = link.Data();
    data.ownBends = false;
    data.points.clear();
    link.Owner().Overwrite(link, std::move(data));
}

void RemoveBend(Link &link, int index) {
    const auto count = std::ssize(link.Route());
    if (index <= 0 || index + 1 >= count) return;
    Surface &surface = link.Owner();
    const ActionGroup group(surface);
    if (HasFreeBends(link.Style()))
        link.Points().Remove(index);
    else
        GiveBendsToRouter(link);
    surface.Events().AfterStretch(surface);
}

} // namespace diagram
