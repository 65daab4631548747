#include "diagram/interaction/Press.h"

#include "diagram/interaction/CopyNodes.h"
#include "diagram/interaction/DrawLink.h"
#include "diagram/interaction/DrawNode.h"
#include "diagram/interaction/MoveBend.h"
#include "diagram/interaction/MoveLinkEnd.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/RubberBand.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"

#include <array>

namespace diagram {

namespace {

constexpr double kTolerancePixels = 4;
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
    if (start.press.Shift() || surface.ShiftMode())
        return std::make_unique<RubberBand>(start.scene, start.press);
    return std::make_unique<DrawNode>(surface, start.press);
}

std::unique_ptr<Gesture> OnNode(const DragStart &start) {
    if (!start.node) return nullptr;
    if (start.press.Ctrl())
        return std::make_unique<CopyNodes>(start.scene, start.stage, *start.node, start.press);
    if (!start.node->Selected()) SelectToo(*start.node);
    return std::make_unique<MoveNodes>(start.scene, start.stage, *start.node, start.press);
}

std::unique_ptr<Gesture> OnLinkStart(const DragStart &start) {
    if (!start.node || start.press.Ctrl()) return OnNode(start);
    return std::make_unique<DrawLink>(start.scene, start.stage, *start.node);
}

std::unique_ptr<Gesture> OnHandle(const DragStart &start) {
    if (!start.node) return nullptr;
    return std::make_unique<ResizeNodes>(start.scene, start.stage, *start.node, start.index, start.press);
}

std::unique_ptr<Gesture> OnSegment(const DragStart &start) {
    if (!start.link) return nullptr;
    return std::make_unique<MoveBend>(start.scene.Model(), *start.link, MoveBend::Grip::Segment, start.index);
}

std::unique_ptr<Gesture> OnBend(const DragStart &start) {
    if (!start.link) return nullptr;
    const auto last = std::ssize(start.link->Way()) - 1;
    if (start.index == 0 || start.index == last)
        return std::make_unique<MoveLinkEnd>(start.scene, start.stage, *start.link, start.index == 0);
    return std::make_unique<MoveBend>(start.scene.Model(), *start.link, MoveBend::Grip::Bend, start.index);
}

std::unique_ptr<Gesture> OnLabel(const DragStart &) { return nullptr; }

struct HitRow {
    HitKind kind;
    Start drag;
    bool selects; // a click on it changes the selection
};

constexpr std::array<HitRow, 8> kRows{{
    {HitKind::Nothing, OnSurface, true},
    {HitKind::Node, OnNode, true},
    {HitKind::LinkStart, OnLinkStart, true},
    {HitKind::Handle, OnHandle, false},
    {HitKind::Link, OnSegment, true},
    {HitKind::LinkLabel, OnLabel, true},
    {HitKind::Bend, OnBend, false},
    {HitKind::SegmentHandle, OnSegment, false},
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

bool ShowsLinkStart(const Node &node, const PointerInput &input) {
    return node.Selectable() && qMin(node.Width(), node.Height()) > 3 * OptionsFor(input).handleSize;
}

HeldHit HitFor(Scene &scene, const PointerInput &input) {
    const Hit hit = HitTest(scene, input.at, OptionsFor(input));
    const Item *item = hit.node ? static_cast<const Item *>(hit.node) : hit.link;
    if (!item || !IsSelectable(*item)) return {};
    return {hit.kind, hit.node ? hit.node->Id() : kNoItem, hit.link ? hit.link->Id() : kNoItem, hit.index};
}

Press::Press(Scene &scene, Stage &stage, const PointerInput &press)
    : scene_(scene), stage_(stage), press_(press), hit_(HitFor(scene, press)) {
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

void Press::Commit(const PointerInput &) {
    Surface &surface = scene_.Model();
    if (RowOf(hit_.kind).selects) SelectByClick(surface, ItemOf(surface, hit_), press_);
    surface.Events().Click(surface);
}

} // namespace diagram
