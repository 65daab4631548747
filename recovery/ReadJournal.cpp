#include "recovery/ReadJournal.h"

#include "recovery/Records.h"
#include "support/Error.h"

namespace recovery {

namespace {

constexpr std::uint16_t kVersion = 1;

void Apply(KeptMap &map, SlicePart part) {
    if (part.whole) map.slices.erase(part.slice);
    KeptSlice &slice = map.slices[part.slice];
    if (part.surface) slice.surface = std::move(*part.surface);
    for (const diagram::ItemId id : part.gone) slice.nodes.erase(id), slice.links.erase(id);
    for (diagram::StoredNode &node : part.nodes) slice.nodes.insert_or_assign(node.id, std::move(node.data));
    for (diagram::StoredLink &link : part.links) slice.links.insert_or_assign(link.id, std::move(link.data));
}

void Apply(KeptMap &map, Commit commit) {
    map.begun = true;
    map.time = commit.time;
    map.changes = commit.changes;
    if (commit.frame) map.frame = std::move(*commit.frame);
}

// Slices that the last frame doesn't name: they were deleted, or their tab was not known yet.
void DropOthers(KeptMap &map) {
    if (map.frame.slices.empty()) return;
    std::erase_if(map.slices, [&map](const auto &entry) {
        return std::ranges::none_of(map.frame.slices,
                                    [&entry](const SlicePlace &place) { return place.id == entry.first; });
    });
}

// Links without one of their nodes, whose record was damaged.
void DropLooseLinks(KeptMap &map) {
    for (auto &[id, slice] : map.slices) {
        const auto &nodes = slice.nodes;
        const auto erased = std::erase_if(slice.links, [&nodes](const auto &entry) {
            return !nodes.contains(entry.second.source) || !nodes.contains(entry.second.destination);
        });
        map.damaged = map.damaged || erased > 0;
    }
}

class JournalReader {
public:
    KeptMap Read(QByteArrayView bytes) {
        RecordWalk walk(bytes);
        bool isFirst = true;
        for (auto record = walk.Next(); record; record = walk.Next()) {
            if (std::exchange(isFirst, false) && record->kind == RecordKind::Head) {
                if (record->content != QByteArrayView(HeadContent())) return {};
                continue;
            }
            Take(*record);
        }
        map_.readable = !isFirst;
        map_.damaged = map_.damaged || walk.IsDamaged();
        DropOthers(map_);
        DropLooseLinks(map_);
        return std::move(map_);
    }

private:
    // Content that can't be read although the record's sum is right was wrong when it was written.
    void Take(const SoundRecord &record) try {
        if (record.kind == RecordKind::Part) Apply(map_, parts_.Read(record.content));
        if (record.kind == RecordKind::Commit) Apply(map_, ReadCommit(record.content));
        if (record.kind == RecordKind::Files) map_.files = ReadFileNames(record.content);
    } catch (const support::Error &) {
        map_.damaged = true;
    }

    KeptMap map_;
    PartReader parts_;
};

} // namespace

QByteArray HeadContent() {
    diagram::ByteWriter head;
    head.Put(kVersion);
    return head.Bytes();
}

KeptMap ReadJournal(QByteArrayView bytes) { return JournalReader().Read(bytes); }

} // namespace recovery
