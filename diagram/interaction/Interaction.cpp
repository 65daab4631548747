#include "diagram/interaction/Interaction.h"

#include "diagram/interaction/MoveBend.h"
#include "diagram/interaction/Pan.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/scene/Scene.h"

#include <array>

namespace diagram {

namespace {

// By HitKind, while nothing is pressed.
constexpr std::array<Qt::CursorShape, 8> kPointers{
    Qt::ArrowCursor,        // empty surface
    Qt::SizeAllCursor,      // node
    Qt::CrossCursor,        // the place where a link starts
    Qt::ArrowCursor,        // handle: by its direction
    Qt::PointingHandCursor, // link
    Qt::PointingHandCursor, // label
    Qt::SizeAllCursor,      // bend
    Qt::SizeAllCursor,      // middle of a segment
};

} // namespace

void Interaction::Press(const PointerInput &input) {
    if (!gesture_) gesture_ = std::make_unique<diagram::Press>(scene_, stage_, input);
}

void Interaction::PressToPan(const PointerInput &input) {
    if (!gesture_) gesture_ = std::make_unique<Pan>(stage_, input);
}

void Interaction::Move(const PointerInput &input) {
    if (!gesture_) {
        hover_ = HitFor(scene_, input);
        hoverInput_ = input;
        return;
    }
    if (std::unique_ptr<Gesture> next = gesture_->Move(input)) {
        gesture_ = std::move(next);
        gesture_->Move(input);
    }
}

void Interaction::Release(const PointerInput &input) {
    Move(input);
    // Idle already when the handlers of events run: they may start something of their own.
    const std::unique_ptr<Gesture> ended = std::move(gesture_);
    if (ended) ended->Commit(input);
}

void Interaction::DoubleClick(const PointerInput &input) {
    Surface &surface = scene_.Model();
    const HeldHit hit = HitFor(scene_, input);
    Link *link = surface.FindLink(hit.link);
    if (link && hit.kind == HitKind::Bend) RemoveBend(*link, hit.index);
    surface.Events().DblClick(surface);
}

bool Interaction::Cancel() {
    const std::unique_ptr<Gesture> ended = std::move(gesture_);
    if (ended) ended->Cancel();
    return ended != nullptr;
}

Overlay Interaction::Show() const {
    Overlay overlay;
    if (gesture_) {
        gesture_->Show(overlay);
        return overlay;
    }
    const bool onNode = hover_.kind == HitKind::Node || hover_.kind == HitKind::LinkStart;
    const Node *node = onNode ? scene_.Model().FindNode(hover_.node) : nullptr;
    if (node && ShowsLinkStart(*node, hoverInput_)) overlay.linkStart = node->Bounds().center();
    overlay.onLinkStart = hover_.kind == HitKind::LinkStart;
    return overlay;
}

Qt::CursorShape Interaction::Pointer() const {
    if (gesture_) return gesture_->Pointer();
    return hover_.kind == HitKind::Handle ? HandlePointer(hover_.index) : kPointers[size_t(hover_.kind)];
}

} // namespace diagram
