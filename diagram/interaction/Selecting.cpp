#include "diagram/interaction/Selecting.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>

namespace diagram {

namespace {

// Leaves an item that stays selected alone, so that it isn't painted again.
void UnselectAllBut(Surface &surface, const Item &kept) {
    if (surface.SelectedNodes().size() + surface.SelectedLinks().size() > 1 || !IsSelected(kept))
        surface.UnselectAll();
}

} // namespace

void ChangeSelection(Surface &surface, const std::function<void()> &change) {
    const std::vector<Node *> nodes = surface.SelectedNodes();
    const std::vector<Link *> links = surface.SelectedLinks();
    const ActionGroup group(surface);
    change();
    if (nodes != surface.SelectedNodes() || links != surface.SelectedLinks())
        surface.Events().AfterSelect(surface);
}

Item *FindItem(const Surface &surface, ItemId id) {
    if (Node *node = surface.FindNode(id)) return node;
    return surface.FindLink(id);
}

bool IsSelectable(const Item &item) {
    if (const Node *node = item.AsNode()) return node->Selectable() && !node->Hidden();
    return item.AsLink()->Selectable() && !item.AsLink()->Hidden();
}

bool IsSelected(const Item &item) {
    if (const Node *node = item.AsNode()) return node->Selected();
    return item.AsLink()->Selected();
}

void SetSelected(Item &item, bool on) {
    if (Node *node = item.AsNode()) node->SetSelected(on);
    if (Link *link = item.AsLink()) link->SetSelected(on);
}

bool LiesInside(const Item &item, const QRectF &area) {
    if (const Node *node = item.AsNode()) return area.contains(node->Bounds());
    const std::vector<Point> &route = item.AsLink()->Route();
    return std::all_of(route.begin(), route.end(),
                       [&](const Point &point) { return area.contains(ToQPointF(point)); });
}

void SelectOnly(Item &item) {
    if (!IsSelectable(item)) return;
    ChangeSelection(item.Owner(), [&] {
        UnselectAllBut(item.Owner(), item);
        SetSelected(item, true);
    });
}

void SelectToo(Item &item) {
    if (!IsSelectable(item)) return;
    ChangeSelection(item.Owner(), [&] { SetSelected(item, true); });
}

void ToggleSelected(Item &item) {
    if (!IsSelectable(item)) return;
    ChangeSelection(item.Owner(), [&] { SetSelected(item, !IsSelected(item)); });
}

void SelectNothing(Surface &surface) {
    ChangeSelection(surface, [&] { surface.UnselectAll(); });
}

std::vector<Node *> ReadingOrder(const Surface &surface) {
    std::vector<Node *> nodes;
    for (Node &node : surface.Nodes())
        if (IsSelectable(node)) nodes.push_back(&node);
    std::stable_sort(nodes.begin(), nodes.end(), [](Node *a, Node *b) { return a->Top() < b->Top(); });
    for (auto line = nodes.begin(); line != nodes.end();) {
        // The node that ends first ends the line: one around others isn't in one line with all of them.
        double bottom = (*line)->Bounds().bottom();
        auto below = line + 1;
        for (; below != nodes.end() && (*below)->Top() <= bottom; ++below)
            if ((*below)->Bounds().center().y() <= bottom)
                bottom = std::min(bottom, (*below)->Bounds().bottom());
        const auto next = std::stable_partition(
            line + 1, below, [&](Node *node) { return node->Bounds().center().y() <= bottom; });
        std::stable_sort(line, next, [](Node *a, Node *b) { return a->Left() < b->Left(); });
        line = next;
    }
    return nodes;
}

Node *NextInReadingOrder(const Surface &surface, const Node *from, int step) {
    const std::vector<Node *> order = ReadingOrder(surface);
    if (order.empty()) return nullptr;
    const auto at = std::find(order.begin(), order.end(), from);
    if (at == order.end()) return step > 0 ? order.front() : order.back();
    const auto next = (at - order.begin()) + step;
    return next >= 0 && next < std::ssize(order) ? order[size_t(next)] : nullptr;
}

} // namespace diagram
