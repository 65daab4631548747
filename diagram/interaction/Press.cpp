#include "diagram/interaction/Press.h"

#include "diagram/interaction/CopyNodes.h"
#include "diagram/interaction/DateEnds.h"
#include "diagram/interaction/DrawLink.h"
#include "diagram/interaction/DrawNode.h"
#include "diagram/interaction/MoveBend.h"
#include "diagram/interaction/MoveLinkEnd.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/PlacedNode.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/RubberBand.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/scene/Scene.h"

#include <array>

namespace diagram {

namespace {

constexpr double kTolerancePixels = 6;
constexpr double kHandlePixels = 10; // larger than they are drawn, for unsteady hands

// Everything that the start of a drag may look at.
struct DragStart {
    Scene &scene;
    Stage &stage;
    const PointerInput &press;
    Node *node;
    Link *link;
    int index;
};
using Start = std::unique_ptr<Gesture> (*)(const DragStart &);

std::unique_ptr<Gesture> OnSurface(const DragStart &start) {
    Surface &surface = start.scene.Model();
    if (DragsABand(surface, start.press)) return std::make_unique<RubberBand>(start.scene, start.press);
    return std::make_unique<DrawNode>(start.scene, start.stage, start.press);
}

std::unique_ptr<Gesture> OnNode(const DragStart &start) {
    if (!start.node) return nullptr;
    if (start.press.Ctrl())
        return std::make_unique<CopyNodes>(start.scene, start.stage, *start.node, start.press);
    if (!start.node->Selected()) SelectToo(*start.node);
    return std::make_unique<MoveNodes>(start.scene, start.stage, *start.node, start.press);
}

std::unique_ptr<Gesture> OnLinkStart(const DragStart &start) {
    if (!start.node) return nullptr;
    return std::make_unique<DrawLink>(start.scene, start.stage, *start.node, start.index, start.press);
}

std::unique_ptr<Gesture> OnHandle(const DragStart &start) {
    if (!start.node) return nullptr;
    if (DateEnds::Begins(start.stage, *start.node, start.index))
        return std::make_unique<DateEnds>(start.scene, start.stage, *start.node, start.index, start.press);
    return std::make_unique<ResizeNodes>(start.scene, start.stage, *start.node, start.index, start.press);
}

std::unique_ptr<Gesture> OnSegment(const DragStart &start) {
    if (!start.link) return nullptr;
    return std::make_unique<MoveBend>(start.scene.Model(), *start.link, MoveBend::Grip::Segment, start.index);
}

bool IsEnd(const Link &link, int point) { return point == 0 || point + 1 == std::ssize(link.Route()); }

std::unique_ptr<Gesture> OnBend(const DragStart &start) {
    if (!start.link) return nullptr;
    if (IsEnd(*start.link, start.index))
        return std::make_unique<MoveLinkEnd>(start.scene, start.stage, *start.link,
                                             start.index == 0 ? LinkSide::Source : LinkSide::Destination);
    return std::make_unique<MoveBend>(start.scene.Model(), *start.link, MoveBend::Grip::Bend, start.index);
}

std::unique_ptr<Gesture> OnLabel(const DragStart &) { return nullptr; }

struct HitRow {
    HitKind kind;
    Start drag;
    bool selects; // a click on it changes the selection
    Qt::CursorShape pointer;
    Hint hint;
};

constexpr std::array<HitRow, 8> kRows{{
    {HitKind::Nothing, OnSurface, true, Qt::CrossCursor, Hint::DragDrawsNode},
    {HitKind::Node, OnNode, true, Qt::SizeAllCursor, Hint::DragMovesNode},
    {HitKind::LinkStart, OnLinkStart, true, Qt::CrossCursor, Hint::DragDrawsLink},
    {HitKind::Handle, OnHandle, false, Qt::ArrowCursor, Hint::DragResizes}, // the pointer by its direction
    {HitKind::Link, OnSegment, true, Qt::PointingHandCursor, Hint::DragBendsLink},
    {HitKind::LinkLabel, OnLabel, true, Qt::PointingHandCursor, Hint::ClickSelectsLink},
    {HitKind::Bend, OnBend, false, Qt::SizeAllCursor, Hint::DragMovesBend},
    {HitKind::SegmentHandle, OnSegment, false, Qt::SizeAllCursor, Hint::DragMakesBend},
}};

constexpr bool InOrder() {
    for (size_t i = 0; i < kRows.size(); ++i)
        if (size_t(kRows[i].kind) != i) return false;
    return true;
}
static_assert(InOrder());

const HitRow &RowOf(HitKind kind) { return kRows[size_t(kind)]; }

Item *ItemOf(const Surface &surface, const HeldHit &hit) {
    if (hit.node != kNoItem) return surface.FindNode(hit.node);
    return hit.link != kNoItem ? surface.FindLink(hit.link) : nullptr;
}

HeldHit Held(const Hit &hit) {
    return {hit.kind, hit.node ? hit.node->Id() : kNoItem, hit.link ? hit.link->Id() : kNoItem, hit.index};
}

HeldHit Clicked(Scene &scene, const PointerInput &press, const HeldHit &hit) {
    if (hit.kind != HitKind::LinkStart) return hit;
    HitOptions options = OptionsFor(press);
    options.linkStarts = false;
    const HeldHit below = Held(HitTest(scene, press.at, options));
    return below.kind == HitKind::Nothing ? hit : below;
}

void SelectByClick(Surface &surface, Item *item, const PointerInput &press) {
    if (!item) {
        if (!press.Ctrl() && !press.Shift()) SelectNothing(surface);
    } else if (press.Ctrl()) {
        ToggleSelected(*item);
    } else if (press.Shift()) {
        SelectToo(*item);
    } else {
        SelectOnly(*item);
    }
}

} // namespace

HitOptions OptionsFor(const PointerInput &input) {
    const double pixel = (input.pixel.width() + input.pixel.height()) / 2;
    return {.tolerance = kTolerancePixels * pixel, .handleSize = kHandlePixels * pixel, .handles = true};
}

HeldHit HitFor(Scene &scene, const PointerInput &input) {
    return Held(HitTest(scene, input.at, OptionsFor(input)));
}

bool DragsABand(const Surface &surface, const PointerInput &input) {
    return input.Shift() || surface.Screen().ShiftMode();
}

Qt::CursorShape PointerOver(const HeldHit &hit, bool band) {
    if (hit.kind == HitKind::Nothing && band) return Qt::ArrowCursor;
    return hit.kind == HitKind::Handle ? HandlePointer(hit.index) : RowOf(hit.kind).pointer;
}

Hint HintOver(const HeldHit &hit, const Surface &surface, const Stage &stage) {
    const Node *node = hit.node == kNoItem ? nullptr : surface.FindNode(hit.node);
    if (node && hit.kind == HitKind::Node && stage.Days().DateOf(*node))
        return stage.Days().KeepsNodesAtDates(surface) ? Hint::DragDatesNode : Hint::DragMovesDatedNode;
    if (node && hit.kind == HitKind::Handle && DateEnds::Begins(stage, *node, hit.index))
        return Hint::DragDatesEnd;
    const Link *link = hit.kind == HitKind::Bend ? surface.FindLink(hit.link) : nullptr;
    return link && IsEnd(*link, hit.index) ? Hint::DragMovesEnd : RowOf(hit.kind).hint;
}

Press::Press(Scene &scene, Stage &stage, const PointerInput &press)
    : scene_(scene),
      stage_(stage),
      press_(press),
      hit_(HitFor(scene, press)),
      band_(DragsABand(scene.Model(), press)) {
    Item *item = ItemOf(scene_.Model(), hit_);
    const bool dragTakesIt = hit_.kind == HitKind::Node || hit_.kind == HitKind::Link;
    if (item && dragTakesIt && !IsSelected(*item) && !press.Ctrl() && !press.Shift()) SelectOnly(*item);
}

std::unique_ptr<Gesture> Press::Move(const PointerInput &input) {
    if (!IsDrag(press_, input)) return nullptr;
    const Surface &surface = scene_.Model();
    return RowOf(hit_.kind).drag(
        {scene_, stage_, press_, surface.FindNode(hit_.node), surface.FindLink(hit_.link), hit_.index});
}

bool Press::Places() const {
    const bool plain = !band_ && !press_.Ctrl();
    return plain && hit_.kind == HitKind::Nothing && stage_.ClickPlacesShape();
}

void Press::Commit(const PointerInput &) {
    Surface &surface = scene_.Model();
    if (Places())
        PlacedNode(scene_, stage_, press_).Add(*stage_.ShapeToDraw());
    else if (RowOf(hit_.kind).selects)
        SelectByClick(surface, ItemOf(surface, Clicked(scene_, press_, hit_)), press_);
    surface.Events().Click(surface);
}

} // namespace diagram
