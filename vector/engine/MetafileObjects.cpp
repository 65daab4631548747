#include "vector/engine/MetafileObjects.h"

#include <algorithm>

namespace vector {

int MetafileObjects::Find(const QByteArray &creation) {
    const auto found = slots_.constFind(creation);
    if (found == slots_.constEnd()) return -1;
    table_[std::size_t(*found)].used = ++uses_;
    return *found;
}

int MetafileObjects::Take(const QByteArray &creation) {
    auto free =
        std::find_if(table_.begin(), table_.end(), [](const Slot &s) { return s.creation.isEmpty(); });
    if (free == table_.end()) free = table_.emplace(table_.end());
    const int slot = int(free - table_.begin());
    *free = {creation, ++uses_};
    slots_.insert(creation, slot);
    return slot;
}

int MetafileObjects::Oldest(std::initializer_list<int> kept) const {
    int oldest = -1;
    for (const int slot : Taken()) {
        if (std::find(kept.begin(), kept.end(), slot) != kept.end()) continue;
        if (oldest < 0 || table_[std::size_t(slot)].used < table_[std::size_t(oldest)].used) oldest = slot;
    }
    return oldest;
}

void MetafileObjects::Free(int slot) {
    Slot &freed = table_[std::size_t(slot)];
    slots_.remove(freed.creation);
    freed = {};
}

std::vector<int> MetafileObjects::Taken() const {
    std::vector<int> taken;
    for (std::size_t i = 0; i < table_.size(); ++i)
        if (!table_[i].creation.isEmpty()) taken.push_back(int(i));
    return taken;
}

} // namespace vector
