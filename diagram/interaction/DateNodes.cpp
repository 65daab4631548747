#include "diagram/interaction/DateNodes.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/Snap.h"
#include "diagram/scene/Scene.h"

namespace diagram {

DateNodes::DateNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press)
    : scene_(scene),
      stage_(stage),
      surface_(scene.Model()),
      days_(stage.Days()),
      press_(press),
      pressed_(pressed.Id()),
      held_(surface_.SelectedNodes()) {}

bool DateNodes::Begins(const Stage &stage, const Node &pressed, const PointerInput &input) {
    return input.Alt() && !input.Ctrl() && stage.Days().DateOf(pressed) &&
           stage.Days().DayAt(pressed.Owner(), input.at);
}

QPointF DateNodes::Distance(const PointerInput &input) const {
    const QPointF way = input.at - press_.at;
    const QPointF along = days_.RunsRightwards(surface_) ? QPointF(way.x(), 0) : QPointF(0, way.y());
    return KeepOnSurface(held_.Extent(), along);
}

std::unique_ptr<Gesture> DateNodes::Move(const PointerInput &input) {
    Node *pressed = surface_.FindNode(pressed_);
    if (pressed && (!input.Alt() || input.Ctrl())) {
        held_.Restore(surface_);
        return std::make_unique<MoveNodes>(scene_, stage_, *pressed, press_);
    }
    day_ = days_.DayAt(surface_, input.at);
    held_.MoveBy(surface_, Distance(input));
    return nullptr;
}

std::vector<DayStrip::Dated> DateNodes::NewDates() const {
    std::vector<DayStrip::Dated> dates;
    const Node *pressed = surface_.FindNode(pressed_);
    const std::optional<QDate> former = pressed && day_ ? days_.DateOf(*pressed) : std::nullopt;
    const qint64 by = former ? former->daysTo(*day_) : 0;
    if (by == 0) return dates;
    for (const HeldNode &held : held_.Nodes()) {
        Node *node = surface_.FindNode(held.id);
        const std::optional<QDate> date = node ? days_.DateOf(*node) : std::nullopt;
        if (date) dates.push_back({node, date->addDays(by)});
    }
    return dates;
}

void DateNodes::Commit(const PointerInput &input) {
    const QPointF distance = Distance(input);
    held_.Restore(surface_);
    const std::vector<DayStrip::Dated> dates = NewDates();
    if (distance.isNull() && dates.empty()) return;
    const ActionGroup group(surface_);
    held_.MoveBy(surface_, distance);
    if (!dates.empty()) days_.SetDates(surface_, dates);
    surface_.Events().AfterMove(surface_);
}

void DateNodes::Show(Overlay &overlay) const {
    const Node *pressed = surface_.FindNode(pressed_);
    if (!pressed || !day_) return;
    overlay.size = days_.Written(*day_);
    overlay.sizeUnder = pressed->Bounds();
    if (const std::optional<QLineF> place = days_.PlaceOf(surface_, *day_)) overlay.guides.push_back(*place);
}

Qt::CursorShape DateNodes::Pointer() const {
    return days_.RunsRightwards(surface_) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace diagram
