// The table of a metafile's drawing objects: which pen, brush or font stands in which slot.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <QByteArray>
#include <QHash>
#include <vector>

namespace vector {

// An object is known by the record that creates it. Slots count from 0.
class MetafileObjects {
public:
    // The slot of the object, or -1. Counts as a use.
    int Find(const QByteArray &creation);
    // Puts an object that isn't there into the lowest free slot, as every player of metafiles does.
    int Take(const QByteArray &creation);
    // The slot that was used longest ago and is none of `kept`, or -1.
    int Oldest(std::initializer_list<int> kept) const;
    void Free(int slot);

    int Count() const { return int(slots_.size()); } // objects now
    int Most() const { return int(table_.size()); }  // slots ever needed at a time
    std::vector<int> Taken() const;                  // slots, ascending

private:
    struct Slot {
        QByteArray creation; // empty when free
        std::uint64_t used = 0;
    };

    std::vector<Slot> table_;
    QHash<QByteArray, int> slots_;
    std::uint64_t uses_ = 0;
};

} // namespace vector
