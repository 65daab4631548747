// Where the items of a surface lie, for finding those of an area.
#pragma once

#include "diagram/model/BoxIndex.h"

#include <functional>
#include <vector>

namespace diagram {

class Surface;

// The box of each item that isn't hidden. It stands at the item's identity in a vector: identities are dense
// enough. An item that moves leaves its tree for a list of loose items, which is searched item by item: what
// has moved once will move again with the next step of the drag, and the list is changed faster.
class ItemBoxes {
public:
    void Clear();
    // Replaces everything by what `boxOf` says of the surface's items.
    void Build(const Surface &surface, const std::function<FloatBox(const Item &)> &boxOf);
    // The item's box is this now. Says whether that is news of an item that can be seen.
    bool Put(Item &item, const FloatBox &box);
    void Remove(Item &item);
    // Brings the loose items back to their trees, if they have become many.
    void BindLoose();

    std::size_t Size() const { return nodes_.Size() + links_.Size() + loose_.size(); }
    // Null for an item that isn't there.
    const FloatBox *Find(ItemId id) const { return Is(id, kIndexed) ? &boxes_[id] : nullptr; }
    QRectF Extent() const; // of all boxes; null without any

    // Calls `visit` with each item whose box touches this one, in any order.
    template <typename Visit>
    void Query(const FloatBox &box, Visit visit) const {
        QueryNodes(box, visit);
        links_.Visit(box, [&](const BoxIndex::Entry &entry) { visit(*items_[entry.second]); });
        for (Item *item : loose_)
            if (item->AsLink() && boxes_[item->Id()].Touches(box)) visit(*item);
    }
    template <typename Visit>
    void QueryNodes(const FloatBox &box, Visit visit) const {
        nodes_.Visit(box, [&](const BoxIndex::Entry &entry) { visit(*items_[entry.second]); });
        for (Item *item : loose_)
            if (item->AsNode() && boxes_[item->Id()].Touches(box)) visit(*item);
    }

private:
    enum Flag : std::uint8_t { kIndexed = 1, kLoose = 2 };

    BoxIndex &TreeOf(const Item &item) { return item.AsNode() ? nodes_ : links_; }
    bool Is(ItemId id, Flag flag) const { return id < flags_.size() && (flags_[id] & flag); }
    void Reserve(ItemId id);
    void MakeLoose(Item &item);

    BoxIndex nodes_, links_;
    std::vector<Item *> loose_;
    std::vector<Item *> items_;   // in a tree, or loose
    std::vector<FloatBox> boxes_; // of those
    std::vector<std::uint8_t> flags_;
};

} // namespace diagram
