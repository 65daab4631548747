#include "diagram/model/Stacking.h"

#include "diagram/model/AnyItem.h"

#include <algorithm>

namespace diagram {

const std::vector<Item *> &Stacking::Order() const {
    if (waiting_.empty()) return order_;
    std::erase_if(order_, [this](const Item *item) { return isWaiting_.Has(item->Id()); });
    std::ranges::sort(waiting_, LiesBelow);
    for (const Item *item : waiting_) isWaiting_.Remove(item->Id());
    const auto sorted = std::ptrdiff_t(order_.size());
    order_.insert(order_.end(), waiting_.begin(), waiting_.end());
    std::inplace_merge(order_.begin(), order_.begin() + sorted, order_.end(), LiesBelow);
    waiting_.clear();
    return order_;
}

void Stacking::Reach(StackKey key) {
    top_ = std::max(top_, key);
    bottom_ = std::min(bottom_, key);
}

void Stacking::Note(Item &item) {
    if (isWaiting_.Add(item.Id())) waiting_.push_back(&item);
    Reach(item.Stack());
}

void Stacking::Added(SurfaceKey, Item &item) {
    if (!waiting_.empty() || (!order_.empty() && !LiesBelow(order_.back(), &item))) return Note(item);
    order_.push_back(&item);
    Reach(item.Stack());
}

void Stacking::Restacked(SurfaceKey, Item &item) { Note(item); }

void Stacking::Forget(SurfaceKey, const ItemSet &gone) {
    std::erase_if(order_, [&](const Item *item) { return gone.Has(item->Id()); });
    std::erase_if(waiting_,
                  [&](const Item *item) { return gone.Has(item->Id()) && isWaiting_.Remove(item->Id()); });
}

void Stacking::ForgetAll(SurfaceKey) {
    order_.clear(), waiting_.clear();
    isWaiting_.Clear();
}

int Stacking::Position(const Item &item) const {
    const auto &order = Order();
    return int(std::lower_bound(order.begin(), order.end(), &item, LiesBelow) - order.begin());
}

void Stacking::Write(Item &item, StackKey key) {
    if (item.Stack() != key) write_(item, key);
}

// Gives every item a new key, with even gaps, so that they stand in this order.
void Stacking::SpreadKeys(const std::vector<Item *> &order) {
    StackKey key = 0;
    for (Item *item : order) Write(*item, key += kStackGap);
    top_ = key;
    order_ = order;
    for (const Item *item : std::exchange(waiting_, {})) isWaiting_.Remove(item->Id());
}

void Stacking::Move(Item &item, int position) {
    const auto &order = Order();
    const int last = int(order.size()) - 1;
    const int from = Position(item);
    const int to = std::clamp(position, 0, last);
    if (from == to) return;
    if (to == last) return BringToFront(item);
    if (to == 0) return SendToBack(item);
    const Item &below = *order[std::size_t(to < from ? to - 1 : to)];
    const Item &above = *order[std::size_t(to < from ? to : to + 1)];
    if (above.Stack() - below.Stack() < 2) SpreadKeys(std::vector<Item *>(order));
    Write(item, below.Stack() + (above.Stack() - below.Stack()) / 2);
}

// Whether it is worth looking into the order for the item at the end where keys reach `outermost`. While
// items wait, only an item with that very key is looked for: to write a key too many is cheaper than to sort.
bool Stacking::MayBeAtEnd(const Item &item, StackKey outermost) const {
    return waiting_.empty() || item.Stack() == outermost;
}

void Stacking::BringToFront(Item &item) {
    if (MayBeAtEnd(item, top_) && Order().back() == &item) return;
    Write(item, top_ + kStackGap);
}

void Stacking::SendToBack(Item &item) {
    if (MayBeAtEnd(item, bottom_) && Order().front() == &item) return;
    Write(item, bottom_ - kStackGap);
}

void Stacking::Restack(const std::vector<std::pair<Item *, int>> &positions) {
    std::vector<std::pair<Item *, int>> named = positions;
    std::ranges::stable_sort(named, {}, &std::pair<Item *, int>::second);
    ItemSet taken;
    std::erase_if(named,
                  [&](const auto &entry) { return !taken.Add(entry.first->Id()); }); // the first counts
    std::vector<Item *> rest;
    std::ranges::copy_if(Order(), std::back_inserter(rest),
                         [&](const Item *item) { return !taken.Has(item->Id()); });
    std::vector<Item *> order;
    order.reserve(order_.size());
    auto other = rest.begin();
    for (const auto &[item, position] : named) {
        while (other != rest.end() && int(order.size()) < position) order.push_back(*other++);
        order.push_back(item);
    }
    order.insert(order.end(), other, rest.end());
    if (order != order_) SpreadKeys(order);
}

} // namespace diagram
