#include "diagram/model/Selection.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

#include <algorithm>
#include <utility>

namespace diagram {

namespace {

template <typename T>
void Put(std::vector<T *> &list, T &item, bool on) {
    if (on) {
        list.push_back(&item);
    } else {
        list.erase(std::ranges::find(list, &item));
    }
}

bool IsSelectable(const Item &item) {
    return item.AsNode() ? item.AsNode()->Selectable() : item.AsLink()->Selectable();
}

template <typename T>
void Unselect(ItemSet &selected, std::vector<T *> &list, const ItemSet &gone) {
    std::erase_if(list, [&](const T *item) { return gone.Has(item->Id()) && selected.Remove(item->Id()); });
}

} // namespace

void Selection::Select(Item &item, bool on) {
    if (Has(item) == on || (on && !IsSelectable(item))) return;
    on ? selected_.Add(item.Id()) : selected_.Remove(item.Id());
    if (Node *node = item.AsNode()) {
        Put(nodes_, *node, on);
    } else {
        Put(links_, *item.AsLink(), on);
    }
    observer_.ItemChanged(item, Change::Selection);
}

void Selection::Clear() {
    const auto nodes = std::exchange(nodes_, {});
    const auto links = std::exchange(links_, {});
    for (const Node *node : nodes) selected_.Remove(node->Id());
    for (const Link *link : links) selected_.Remove(link->Id());
    for (Node *node : nodes) observer_.ItemChanged(*node, Change::Selection);
    for (Link *link : links) observer_.ItemChanged(*link, Change::Selection);
}

void Selection::Forget(SurfaceKey, const ItemSet &gone) {
    Unselect(selected_, nodes_, gone);
    Unselect(selected_, links_, gone);
}

void Selection::ForgetAll(SurfaceKey) {
    nodes_.clear(), links_.clear();
    selected_.Clear();
}

} // namespace diagram
