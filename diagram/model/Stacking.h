// The stacking of a surface. Each item has a key, with gaps between the keys, so that moving one item writes
// one item.
#pragma once

#include "diagram/model/ItemSet.h"
#include "diagram/model/SurfaceKey.h"

#include <functional>
#include <utility>
#include <vector>

namespace diagram {

// Distance of the stacking keys of two items added one after the other.
constexpr StackKey kStackGap = 1 << 20;

// Positions count nodes and links together, 0 lowest.
class Stacking {
public:
    // `write` gives an item another key and then calls Restacked.
    using WriteKey = std::function<void(Item &, StackKey)>;
    explicit Stacking(WriteKey write) : write_(std::move(write)) {}

    // All items from the lowest to the highest. The first call after changes of stacking puts the items that
    // changed in their places.
    const std::vector<Item *> &Order() const;
    int Position(const Item &item) const;
    StackKey KeyOnTop() const { return top_ + kStackGap; } // for one more item above all others
    // Moves the item to the position, counted without itself; beyond the last it comes to the top.
    void Move(Item &item, int position);
    void BringToFront(Item &item);
    void SendToBack(Item &item);
    // Restacks many at once: each item named comes to its position, or to the next one that is free and that
    // there are enough items for; the others keep their order around them.
    void Restack(const std::vector<std::pair<Item *, int>> &positions);

    void Added(SurfaceKey, Item &item);     // it has come into the collections
    void Restacked(SurfaceKey, Item &item); // its key was written
    void Forget(SurfaceKey, const ItemSet &gone);
    void ForgetAll(SurfaceKey); // later keys still lie above all that there were

private:
    void Note(Item &item);
    void Reach(StackKey key);
    bool MayBeAtEnd(const Item &item, StackKey outermost) const;
    void Write(Item &item, StackKey key);
    void SpreadKeys(const std::vector<Item *> &order);

    WriteKey write_;
    mutable std::vector<Item *> order_;   // sorted, but for items that wait, which may stand anywhere in it
    mutable std::vector<Item *> waiting_; // added or given another key since the order was read last
    mutable ItemSet isWaiting_;           // the same as a set
    StackKey top_ = 0, bottom_ = 0;       // no key was ever above the one or below the other
};

} // namespace diagram
