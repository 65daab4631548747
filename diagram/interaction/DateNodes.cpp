#include "diagram/interaction/DateNodes.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/Snap.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

// Whose date a drag from that node changes; null for none.
const Node *LeadOf(const DayStrip &days, const Node &pressed) {
    if (days.DateOf(pressed)) return &pressed;
    if (!days.KeepsNodesAtDates(pressed.Owner())) return nullptr;
    const std::vector<Node *> selected = pressed.Owner().SelectedNodes();
    const auto dated =
        std::ranges::find_if(selected, [&](const Node *node) { return days.DateOf(*node).has_value(); });
    return dated == selected.end() ? nullptr : *dated;
}

std::optional<QPointF> PlaceOfDate(const DayStrip &days, const Node &node) {
    const std::optional<QDate> date = days.DateOf(node);
    const std::optional<QLineF> place = date ? days.PlaceOf(node.Owner(), *date) : std::nullopt;
    return place ? std::optional(place->center()) : std::nullopt;
}

} // namespace

DateNodes::DateNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press)
    : scene_(scene),
      stage_(stage),
      surface_(scene.Model()),
      days_(stage.Days()),
      press_(press),
      pressed_(pressed.Id()),
      lead_(kNoItem),
      held_(surface_.SelectedNodes()),
      keeps_(days_.KeepsNodesAtDates(surface_)),
      place_(press.at),
      snapping_(scene, stage, &held_),
      extent_(held_.Extent()),
      corner_(pressed.Bounds().topLeft()) {
    const Node *lead = LeadOf(days_, pressed);
    if (!lead) return;
    lead_ = lead->Id();
    if (keeps_) place_ = PlaceOfDate(days_, *lead).value_or(press.at);
}

bool DateNodes::Begins(const Stage &stage, const Node &pressed, const PointerInput &input) {
    const DayStrip &days = stage.Days();
    if (input.Ctrl()) return false;
    const bool keeps = days.KeepsNodesAtDates(pressed.Owner());
    if (input.Alt() == keeps) return false;
    const Node *lead = LeadOf(days, pressed);
    if (!lead || !days.DayAt(pressed.Owner(), input.at)) return false;
    return !keeps || PlaceOfDate(days, *lead);
}

QPointF DateNodes::AlongTheStrip(const QPointF &way) const {
    return days_.RunsRightwards(surface_) ? QPointF(way.x(), 0) : QPointF(0, way.y());
}

QPointF DateNodes::Distance(const PointerInput &input) {
    const QPointF way = input.at - press_.at;
    const QPointF along = AlongTheStrip(way);
    if (!keeps_) return KeepOnSurface(extent_, along);
    const QPointF snapped = snapping_.Move(extent_, corner_, way, input);
    const QPointF across = snapped - AlongTheStrip(snapped);
    return KeepOnSurface(extent_, input.Shift() && !across.isNull() ? across : along + across);
}

// The days of a fold have one place: there the former day stays.
std::optional<QDate> DateNodes::DayFor(const QPointF &place) const {
    const std::optional<QDate> day = days_.DayAt(surface_, place);
    const Node *lead = surface_.FindNode(lead_);
    const std::optional<QDate> former = keeps_ && lead ? days_.DateOf(*lead) : std::nullopt;
    if (!day || !former || day == former) return day;
    return days_.PlaceOf(surface_, *former) == days_.PlaceOf(surface_, *day) ? former : day;
}

std::unique_ptr<Gesture> DateNodes::Move(const PointerInput &input) {
    Node *pressed = surface_.FindNode(pressed_);
    if (pressed && (input.Alt() == keeps_ || input.Ctrl())) {
        held_.Restore(surface_);
        return std::make_unique<MoveNodes>(scene_, stage_, *pressed, press_);
    }
    const QPointF distance = Distance(input);
    const bool goesAlong = !AlongTheStrip(distance).isNull() || !keeps_ || !input.Shift();
    day_ = DayFor(goesAlong ? place_ + AlongTheStrip(input.at - press_.at) : place_);
    following_ = days_.WhatFollows(surface_, NewDates());
    held_.MoveWithDateLinks(surface_, distance, AlongTheStrip(distance));
    return nullptr;
}

std::vector<DayStrip::Dated> DateNodes::NewDates() const {
    std::vector<DayStrip::Dated> dates;
    const Node *lead = surface_.FindNode(lead_);
    const std::optional<QDate> former = lead && day_ ? days_.DateOf(*lead) : std::nullopt;
    const qint64 by = former ? former->daysTo(*day_) : 0;
    if (by == 0) return dates;
    for (Node *node : HeldNow())
        if (const std::optional<QDate> date = days_.DateOf(*node)) dates.push_back({node, date->addDays(by)});
    return dates;
}

std::vector<Node *> DateNodes::HeldNow() const {
    std::vector<Node *> nodes;
    for (const HeldNode &held : held_.Nodes())
        if (Node *node = surface_.FindNode(held.id)) nodes.push_back(node);
    return nodes;
}

void DateNodes::Commit(const PointerInput &input) {
    const QPointF distance = Distance(input);
    held_.Restore(surface_);
    const std::vector<DayStrip::Dated> dates = NewDates();
    if ((keeps_ ? distance - AlongTheStrip(distance) : distance).isNull() && dates.empty()) return;
    const ActionGroup group(surface_);
    held_.MoveBy(surface_, distance);
    dates.empty() ? days_.Settle(surface_, HeldNow()) : days_.SetDates(surface_, dates, HeldNow());
    surface_.Events().AfterMove(surface_);
}

void DateNodes::Show(Overlay &overlay) const {
    const Node *pressed = surface_.FindNode(pressed_);
    if (!pressed || !day_) return;
    if (keeps_) ShowRows(overlay);
    overlay.size = days_.Written(*day_);
    overlay.sizeUnder = pressed->Bounds();
    if (const std::optional<QLineF> place = days_.PlaceOf(surface_, *day_)) overlay.guides.push_back(*place);
    ShowFollowing(following_, overlay);
}

// Without the guides that run across the strip: along it a node stands by its date.
void DateNodes::ShowRows(Overlay &overlay) const {
    snapping_.Show(overlay);
    overlay.gaps.clear();
    overlay.sizes.clear();
    std::erase_if(overlay.guides,
                  [this](const QLineF &line) { return AlongTheStrip(line.p2() - line.p1()).isNull(); });
}

Qt::CursorShape DateNodes::Pointer() const {
    if (keeps_) return Qt::SizeAllCursor;
    return days_.RunsRightwards(surface_) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

void ShowFollowing(const DayStrip::Following &following, Overlay &overlay) {
    if (following.count == 0) return;
    overlay.size += QStringLiteral(", ") + following.told;
    for (const QRectF &box : following.boxes) overlay.ghost.addRect(box);
}

int DaysTowards(const Surface &surface, const DayStrip &strip, const QPointF &direction, int days) {
    if (!strip.KeepsNodesAtDates(surface)) return 0;
    const double along = strip.RunsRightwards(surface) ? direction.x() : direction.y();
    return along == 0 ? 0 : along < 0 ? -days : days;
}

bool MoveSelectionByDays(Surface &surface, DayStrip &strip, const QPointF &direction, int days) {
    const int by = DaysTowards(surface, strip, direction, days);
    if (by == 0) return false;
    std::vector<DayStrip::Dated> dates;
    for (Node *node : surface.SelectedNodes())
        if (const std::optional<QDate> date = strip.DateOf(*node)) dates.push_back({node, date->addDays(by)});
    if (dates.empty()) return false;
    const ActionGroup group(surface);
    strip.SetDates(surface, dates);
    surface.Events().AfterMove(surface);
    return true;
}

} // namespace diagram
