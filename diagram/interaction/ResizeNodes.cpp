#include "diagram/interaction/ResizeNodes.h"

#include "diagram/edit/History.h"
#include "diagram/geometry/Units.h"
#include "diagram/interaction/GrowPage.h"
#include "diagram/interaction/Snap.h"
#include "diagram/scene/Scene.h"

#include <array>

namespace diagram {

namespace {

// The sides as in SidesOfHandle.
struct HandleRow {
    int x, y;
    Qt::CursorShape pointer;
};

constexpr std::array<HandleRow, 8> kHandles{{
    {-1, -1, Qt::SizeFDiagCursor},
    {0, -1, Qt::SizeVerCursor},
    {1, -1, Qt::SizeBDiagCursor},
    {1, 0, Qt::SizeHorCursor},
    {1, 1, Qt::SizeFDiagCursor},
    {0, 1, Qt::SizeVerCursor},
    {-1, 1, Qt::SizeBDiagCursor},
    {-1, 0, Qt::SizeHorCursor},
}};

const HandleRow &Row(int handle) { return kHandles.at(size_t(handle)); }

Moving SideOf(int side) { return side == 0 ? Moving::Nothing : (side < 0 ? Moving::Low : Moving::High); }

constexpr int kRightHandle = 3, kBottomHandle = 5;

double Factor(double after, double before) { return before > 0 ? after / before : 1; }

// A span along one axis whose length becomes `length`; `side` tells which end moves, 0 both.
struct Span {
    double start, length;
};
Span Resized(const Span &span, int side, double length) {
    const double grown = length - span.length;
    if (side > 0) return {span.start, length};
    return {span.start - (side < 0 ? grown : grown / 2), length};
}

// The length after the moving end went by `distance`, within what is allowed.
double DraggedLength(const Span &span, int side, double distance) {
    const double length = span.length + side * distance;
    return side == 0 ? span.length : qMax(length, qMin(kSmallestSide, span.length));
}

// The node that leads, and how its box changes by which handle.
struct Lead {
    ItemId node;
    int handle;
    QRectF before, after;
};

QRectF BoxBeside(const HeldNode &held, const Lead &lead) {
    if (held.id == lead.node) return lead.after;
    const NodeData &from = held.data;
    return ResizedInProportion({from.left, from.top, from.width, from.height}, lead.handle, lead.before,
                               lead.after);
}

void ResizeTo(Surface &surface, const HeldItems &items, const Lead &lead) {
    items.Try(surface, [&] {
        for (const HeldNode &held : items.Nodes()) {
            Node *node = surface.FindNode(held.id);
            const QRectF to = BoxBeside(held, lead);
            if (node)
                node->SetBounds(float(to.left()), float(to.top()), float(to.width()), float(to.height()));
        }
        return lead.after != lead.before;
    });
}

QRectF ExtentOf(const Surface &surface, const HeldItems &items) {
    QRectF all;
    for (const HeldNode &held : items.Nodes())
        if (const Node *node = surface.FindNode(held.id))
            all |= node->Bounds().united(QRectF(node->Bounds().topLeft(), QSizeF(1, 1)));
    return all;
}

} // namespace

QRectF ResizedBox(const QRectF &box, int handle, const QPointF &distance, bool keepAspect) {
    const HandleRow &row = Row(handle);
    const Span x{box.left(), box.width()};
    const Span y{box.top(), box.height()};
    double width = DraggedLength(x, row.x, distance.x());
    double height = DraggedLength(y, row.y, distance.y());
    if (keepAspect && box.width() > 0 && box.height() > 0) {
        const double fx = width / box.width();
        const double fy = height / box.height();
        const double factor = qAbs(fx - 1) >= qAbs(fy - 1) ? fx : fy;
        width = box.width() * factor;
        height = box.height() * factor;
    }
    const Span newX = row.x == 0 && width == x.length ? x : Resized(x, row.x, width);
    const Span newY = row.y == 0 && height == y.length ? y : Resized(y, row.y, height);
    return {newX.start, newY.start, newX.length, newY.length};
}

QRectF ResizedInProportion(const QRectF &box, int handle, const QRectF &before, const QRectF &after) {
    const HandleRow &row = Row(handle);
    const Span x =
        Resized({box.left(), box.width()}, row.x, box.width() * Factor(after.width(), before.width()));
    const Span y =
        Resized({box.top(), box.height()}, row.y, box.height() * Factor(after.height(), before.height()));
    return {x.start, y.start, x.length, y.length};
}

ResizeNodes::ResizeNodes(Scene &scene, const Stage &stage, Node &pressed, int handle,
                         const PointerInput &press)
    : surface_(scene.Model()),
      press_(press),
      held_(surface_.SelectedNodes()),
      pressed_(pressed.Id()),
      box_(pressed.Bounds()),
      snapping_(scene, stage, &held_),
      stage_(stage),
      handle_(handle) {}

QPointF ResizeNodes::OnGrid(const QPointF &distance) const {
    const HandleRow &row = Row(handle_);
    const QPointF side(row.x < 0 ? box_.left() : box_.right(), row.y < 0 ? box_.top() : box_.bottom());
    return SnapPoint(surface_, side + distance) - side;
}

QRectF ResizeNodes::Box(const PointerInput &input) {
    const Moving x = SideOf(Row(handle_).x);
    const Moving y = SideOf(Row(handle_).y);
    QPointF distance = input.at - press_.at;
    if (!input.Shift())
        distance = snapping_.Resize(box_, x, y, distance, input);
    else if (Snaps(surface_, input))
        distance = OnGrid(distance);
    const QRectF box = ResizedBox(box_, handle_, distance, input.Shift());
    snapping_.Note(box, x, y, input);
    return box;
}

void ResizeNodes::Apply(const QRectF &box) { ResizeTo(surface_, held_, {pressed_, handle_, box_, box}); }

std::unique_ptr<Gesture> ResizeNodes::Move(const PointerInput &input) {
    shown_ = Box(input);
    Apply(shown_);
    return nullptr;
}

void ResizeNodes::Commit(const PointerInput &input) {
    const QRectF box = Box(input);
    held_.Restore(surface_);
    if (box == box_) return;
    const ActionGroup group(surface_);
    Apply(box);
    GrowPage(surface_, stage_.Days(), ExtentOf(surface_, held_), held_.Extent());
    surface_.Events().AfterResize(surface_);
}

void ResizeNodes::Cancel() { held_.Restore(surface_); }

void ResizeNodes::Show(Overlay &overlay) const {
    overlay.size = SizeText(shown_.size());
    overlay.sizeUnder = shown_;
    snapping_.Show(overlay);
}

Qt::CursorShape ResizeNodes::Pointer() const { return HandlePointer(handle_); }

QPoint SidesOfHandle(int handle) { return {Row(handle).x, Row(handle).y}; }

Qt::CursorShape HandlePointer(int handle) { return Row(handle).pointer; }

bool ResizeSelection(Surface &surface, DayStrip &days, const QPointF &growth, bool goesOn) {
    const Node *lead = surface.SelectedNode();
    if (!lead) return false;
    const int handle = growth.x() != 0 ? kRightHandle : kBottomHandle;
    const QRectF box = lead->Bounds();
    const QRectF to = ResizedBox(box, handle, growth, false);
    if (to == box) return true;
    const HeldItems held(surface.SelectedNodes());
    const ActionGroup group(surface, goesOn);
    ResizeTo(surface, held, {lead->Id(), handle, box, to});
    GrowPage(surface, days, ExtentOf(surface, held), held.Extent());
    surface.Events().AfterResize(surface);
    return true;
}

QString SizeText(const QSizeF &twips) {
    return QStringLiteral("%1 \u00d7 %2")
        .arg(qRound(twips.width() / kTwipsPerPixel))
        .arg(qRound(twips.height() / kTwipsPerPixel));
}

} // namespace diagram
