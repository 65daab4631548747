// A set of items by their identities, which are dense: a look-up and a change take constant time.
#pragma once

#include "diagram/model/Item.h"

#include <utility>
#include <vector>

namespace diagram {

class ItemSet {
public:
    bool Has(ItemId id) const { return id < present_.size() && present_[id] != 0; }
    // False when it is in the set already.
    bool Add(ItemId id) {
        if (present_.size() <= id) present_.resize(std::size_t(id) + 1);
        return std::exchange(present_[id], std::uint8_t(1)) == 0;
    }
    // False when it isn't in the set.
    bool Remove(ItemId id) {
        return id < present_.size() && std::exchange(present_[id], std::uint8_t(0)) != 0;
    }
    void Clear() { present_.clear(); }

private:
    std::vector<std::uint8_t> present_;
};

} // namespace diagram
