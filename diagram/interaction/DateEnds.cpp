#include "diagram/interaction/DateEnds.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/DateNodes.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

// Which end of a bar the handle moves: -1 its beginning, 1 its end, 0 none.
int EndOfHandle(const DayStrip &days, const Surface &surface, int handle) {
    const QPoint sides = SidesOfHandle(handle);
    return days.RunsRightwards(surface) ? sides.x() : sides.y();
}

QPointF SideOf(const QRectF &box, bool rightwards, bool isEnd) {
    if (rightwards) return {isEnd ? box.right() : box.left(), box.center().y()};
    return {box.center().x(), isEnd ? box.bottom() : box.top()};
}

} // namespace

DateEnds::DateEnds(Scene &scene, const Stage &stage, Node &pressed, int handle, const PointerInput &press)
    : ResizeNodes(scene, stage, pressed, handle, press),
      days_(stage.Days()),
      rightwards_(days_.RunsRightwards(surface_)),
      isEnd_(EndOfHandle(days_, surface_, handle) > 0),
      place_(SideOf(pressed.Bounds(), rightwards_, isEnd_)) {
    const std::optional<QDate> day = isEnd_ ? days_.EndOf(pressed) : days_.DateOf(pressed);
    if (const std::optional<QLineF> place = day ? days_.PlaceOf(surface_, *day) : std::nullopt)
        place_ = place->center();
}

bool DateEnds::Begins(const Stage &stage, const Node &pressed, int handle) {
    const DayStrip &days = stage.Days();
    const Surface &surface = pressed.Owner();
    return days.KeepsNodesAtDates(surface) && days.EndOf(pressed) &&
           EndOfHandle(days, surface, handle) != 0 && days.DayAt(surface, pressed.Bounds().center());
}

void DateEnds::FindDay(const PointerInput &input) {
    const QPointF way = input.at - press_.at;
    day_ = days_.DayAt(surface_, place_ + (rightwards_ ? QPointF(way.x(), 0) : QPointF(0, way.y())));
    const Node *pressed = surface_.FindNode(pressed_);
    const std::optional<QDate> first = pressed ? days_.DateOf(*pressed) : std::nullopt;
    const std::optional<QDate> last = pressed ? days_.EndOf(*pressed) : std::nullopt;
    if (day_ && first && last) day_ = isEnd_ ? std::max(*day_, *first) : std::min(*day_, *last);
}

std::unique_ptr<Gesture> DateEnds::Move(const PointerInput &input) {
    FindDay(input);
    following_ = days_.WhatFollows(surface_, NewDates());
    return ResizeNodes::Move(input);
}

std::optional<DayStrip::Dated> DateEnds::Changed(Node &node, qint64 days) const {
    const std::optional<QDate> first = days_.DateOf(node), last = days_.EndOf(node);
    if (!first || !last) return std::nullopt;
    if (isEnd_) return DayStrip::Dated{&node, *first, std::max(*first, last->addDays(days))};
    return DayStrip::Dated{&node, std::min(*last, first->addDays(days)), *last};
}

std::vector<DayStrip::Dated> DateEnds::NewDates() const {
    std::vector<DayStrip::Dated> dates;
    const Node *pressed = surface_.FindNode(pressed_);
    const std::optional<QDate> former = !pressed || !day_ ? std::nullopt
                                        : isEnd_          ? days_.EndOf(*pressed)
                                                          : days_.DateOf(*pressed);
    const qint64 by = former ? former->daysTo(*day_) : 0;
    if (by == 0) return dates;
    for (const HeldNode &held : held_.Nodes())
        if (Node *node = surface_.FindNode(held.id))
            if (const auto dated = Changed(*node, by)) dates.push_back(*dated);
    return dates;
}

QRectF DateEnds::AcrossOnly(const QRectF &box) const {
    if (rightwards_) return {box_.left(), box.top(), box_.width(), box.height()};
    return {box.left(), box_.top(), box.width(), box_.height()};
}

void DateEnds::Commit(const PointerInput &input) {
    const QRectF box = AcrossOnly(Box(input));
    held_.Restore(surface_);
    FindDay(input);
    const std::vector<DayStrip::Dated> dates = NewDates();
    if (box == box_ && dates.empty()) return;
    const ActionGroup group(surface_);
    if (box != box_) Apply(box);
    if (dates.empty()) return surface_.Events().AfterResize(surface_);
    days_.SetDates(surface_, dates, surface_.SelectedNodes());
    surface_.Events().AfterMove(surface_);
}

void DateEnds::Show(Overlay &overlay) const {
    ResizeNodes::Show(overlay);
    if (!day_) return;
    overlay.size = days_.Written(*day_);
    overlay.gaps.clear();
    overlay.sizes.clear();
    overlay.guides.clear();
    if (const std::optional<QLineF> place = days_.PlaceOf(surface_, *day_)) overlay.guides.push_back(*place);
    ShowFollowing(following_, overlay);
}

bool MoveEndsByDays(Surface &surface, DayStrip &strip, const QPointF &direction, int days, bool goesOn) {
    const int by = DaysTowards(surface, strip, direction, days);
    if (by == 0) return false;
    std::vector<DayStrip::Dated> dates;
    for (Node *node : surface.SelectedNodes()) {
        const std::optional<QDate> first = strip.DateOf(*node), last = strip.EndOf(*node);
        if (first && last) dates.push_back({node, *first, std::max(*first, last->addDays(by))});
    }
    if (dates.empty()) return false;
    const ActionGroup group(surface, goesOn);
    strip.SetDates(surface, dates);
    surface.Events().AfterMove(surface);
    return true;
}

} // namespace diagram
