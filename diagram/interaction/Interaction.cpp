#include "diagram/interaction/Interaction.h"

#include "diagram/hit/Grips.h"
#include "diagram/interaction/MoveBend.h"
#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/Pan.h"
#include "diagram/interaction/PlacedNode.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Actions.h"
#include "diagram/scene/Scene.h"

#include <utility>

namespace diagram {

namespace {

// What stands on an item to be dragged by.
bool IsGrip(HitKind kind) {
    return kind == HitKind::Handle || kind == HitKind::Bend || kind == HitKind::SegmentHandle;
}

} // namespace

void Interaction::Hover(const HeldHit &hit, const PointerInput &input) {
    hover_ = hit;
    hoverInput_ = input;
    // The places where links start stay shown on the way from the node to one of them.
    if (hit.node != kNoItem)
        shown_ = hit.node;
    else if (!IsNear(shown_, input))
        shown_ = kNoItem;
    over_ = true;
}

Hint Interaction::HintHere() const {
    if (!over_) return Hint::Nothing;
    if (hover_.kind != HitKind::Nothing) return HintOver(hover_, scene_.Model(), stage_);
    if (DragsABand(scene_.Model(), hoverInput_)) return Hint::DragSelects;
    return stage_.ShapeToDraw() ? Hint::DragDrawsShape : HintOver(hover_, scene_.Model(), stage_);
}

void Interaction::NoteModifiers(Qt::KeyboardModifiers modifiers) {
    if (gesture_ || !over_) return;
    hoverInput_.modifiers = modifiers;
    stage_.Offer(told_ = HintHere());
}

void Interaction::Leave() {
    shown_ = kNoItem;
    Hover({}, {});
    over_ = false;
    told_ = Hint::Nothing;
    stage_.Tell(told_);
}

bool Interaction::IsNear(ItemId id, const PointerInput &input) const {
    const Node *node = scene_.Model().FindNode(id);
    if (!node) return false;
    const double side = OptionsFor(input).handleSize;
    const auto places = LinkStartPlaces(node->Bounds(), side);
    const double reach = LinkStartReach(side);
    const QRectF around(QPointF(places[3].x(), places[0].y()), QPointF(places[1].x(), places[2].y()));
    return around.adjusted(-reach, -reach, reach, reach).contains(input.at);
}

void Interaction::Press(const PointerInput &input) {
    const Uncounted preview(scene_.Model().Actions()); // only what is written in groups counts as a change
    held_ = TakesKeys();
    if (held_) gesture_->Move(input);
    if (!gesture_) gesture_ = std::make_unique<diagram::Press>(scene_, stage_, input);
}

bool Interaction::Begin(std::unique_ptr<Gesture> gesture) {
    if (gesture_ || !gesture) return false;
    gesture_ = std::move(gesture);
    held_ = false;
    return true;
}

void Interaction::Key(const KeyInput &input) {
    if (!TakesKeys()) return;
    const Uncounted preview(scene_.Model().Actions());
    if (input.IsEnter())
        Finish(hoverInput_);
    else
        gesture_->Key(input);
}

void Interaction::PressToPan(const PointerInput &input) {
    if (!gesture_) gesture_ = std::make_unique<Pan>(stage_, input);
}

void Interaction::Move(const PointerInput &input) {
    if (!gesture_) {
        Hover(HitFor(scene_, input), input);
        const Hint hint = HintHere();
        if (std::exchange(told_, hint) != hint)
            stage_.Tell(hint);
        else
            stage_.Offer(hint);
        return;
    }
    if (TakesKeys() && !held_) return;
    const Uncounted preview(scene_.Model().Actions());
    if (std::unique_ptr<Gesture> next = gesture_->Move(input)) {
        gesture_ = std::move(next);
        gesture_->Move(input);
    }
}

void Interaction::Release(const PointerInput &input) {
    if (TakesKeys() && !held_) return;
    Move(input);
    if (!gesture_) return;
    Finish(input);
    Hover(HitFor(scene_, input), input);
    stage_.Offer(told_ = HintHere()); // only offered: what the gesture told stays
}

void Interaction::Finish(const PointerInput &input) {
    if (TakesKeys()) stage_.Tell(Hint::Nothing);
    // Idle already when the handlers of events run: they may start something of their own.
    const Uncounted preview(scene_.Model().Actions());
    const std::unique_ptr<Gesture> ended = std::move(gesture_);
    ended->Commit(input);
}

// A node that can't be selected is no empty page either.
bool Interaction::OpensText(const HeldHit &hit, const PointerInput &input) {
    Surface &surface = scene_.Model();
    if (hit.kind == HitKind::Node) {
        const Node *node = surface.FindNode(hit.node);
        return node && node->Selected() && !surface.Events().LeadsElsewhere(*node);
    }
    if (hit.kind != HitKind::Nothing || NodeAtPoint(scene_, float(input.at.x()), float(input.at.y())))
        return false;
    return PlaceNode(surface, input) != nullptr;
}

bool Interaction::DoubleClick(const PointerInput &input) {
    Surface &surface = scene_.Model();
    const HeldHit hit = HitFor(scene_, input);
    Link *link = surface.FindLink(hit.link);
    if (link && hit.kind == HitKind::Bend) RemoveBend(*link, hit.index);
    if (IsGrip(hit.kind) || input.Ctrl() || input.Shift()) return false;
    surface.Events().DblClick(surface);
    return OpensText(hit, input);
}

bool Interaction::Cancel() {
    if (TakesKeys()) stage_.Tell(Hint::Nothing);
    const Uncounted preview(scene_.Model().Actions());
    const std::unique_ptr<Gesture> ended = std::move(gesture_);
    if (ended) ended->Cancel();
    return ended != nullptr;
}

// Where a click would place a node.
void Interaction::ShowPlace(Overlay &overlay) const {
    const bool page = over_ && hover_.kind == HitKind::Nothing && !DragsABand(scene_.Model(), hoverInput_);
    const std::optional<int> shape = stage_.ShapeToDraw();
    if (page && shape) PlacedNode(scene_, stage_, hoverInput_).Show(*shape, overlay);
}

Overlay Interaction::Show() const {
    Overlay overlay;
    if (gesture_) {
        gesture_->Show(overlay);
        return overlay;
    }
    if (const Node *sized = scene_.Model().FindNode(sized_)) {
        overlay.size = SizeText(sized->Bounds().size());
        overlay.sizeUnder = sized->Bounds();
    }
    const Node *node = scene_.Model().FindNode(shown_);
    const double side = OptionsFor(hoverInput_).handleSize;
    if (node && IsSelectable(*node) && HasLinkStarts(node->Bounds(), side))
        for (const QPointF &place : LinkStartPlaces(node->Bounds(), side))
            overlay.linkStarts.push_back(place);
    ShowPlace(overlay);
    overlay.litLinkStart = hover_.kind == HitKind::LinkStart ? hover_.index : -1;
    return overlay;
}

Qt::CursorShape Interaction::Pointer() const {
    return gesture_ ? gesture_->Pointer() : PointerOver(hover_, DragsABand(scene_.Model(), hoverInput_));
}

} // namespace diagram
