// Which items of a surface are selected. Selecting is never recorded for undo.
#pragma once

#include "diagram/model/ItemSet.h"
#include "diagram/model/SurfaceKey.h"
#include "diagram/model/SurfaceObserver.h"

#include <vector>

namespace diagram {

class Selection {
public:
    // `observer` is told of each item that is selected or unselected.
    explicit Selection(SurfaceObserver &observer) : observer_(observer) {}

    const std::vector<Node *> &Nodes() const { return nodes_; } // in the order of selecting
    const std::vector<Link *> &Links() const { return links_; }
    // The item with the focus: of those that are selected, the one selected last; null for none.
    Node *LastNode() const { return nodes_.empty() ? nullptr : nodes_.back(); }
    Link *LastLink() const { return links_.empty() ? nullptr : links_.back(); }
    bool IsEmpty() const { return nodes_.empty() && links_.empty(); }
    bool Has(const Item &item) const { return selected_.Has(item.Id()); }
    // What isn't selectable can't be selected: no effect.
    void Select(Item &item, bool on);
    void Clear();

    // The items are about to go; nobody is told.
    void Forget(SurfaceKey, const ItemSet &gone);
    void ForgetAll(SurfaceKey);

private:
    SurfaceObserver &observer_;
    ItemSet selected_;
    std::vector<Node *> nodes_;
    std::vector<Link *> links_;
};

} // namespace diagram
