// One step of undo: which items came and went, and which properties of which items changed from what to what.
#pragma once

#include "diagram/model/Properties.h"

#include <map>
#include <optional>
#include <vector>

namespace diagram {

// Items as they were when a group first touched them; empty for those that it added.
template <typename Data>
using Touched = std::map<ItemId, std::optional<Data>>;

struct PropertyChange {
    std::size_t row; // in the table of properties
    PropertyValue before, after;
};

template <typename Data>
struct ItemChange {
    ItemId id;
    std::vector<PropertyChange> changes;
};

// An item that a step added or removed, with its values.
template <typename Data>
struct Presence {
    ItemId id;
    bool added;
    Data data;
};

// The properties in which two states of an item differ.
template <typename Data>
std::vector<PropertyChange> ChangesBetween(const Data &before, const Data &after) {
    std::vector<PropertyChange> changes;
    const auto rows = PropertiesOf(before);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].same(before, after)) continue;
        changes.push_back({row, rows[row].get(before), rows[row].get(after)});
    }
    return changes;
}

class Step {
public:
    std::vector<Presence<NodeData>> nodesPresent; // by id
    std::vector<Presence<LinkData>> linksPresent;
    std::vector<ItemChange<NodeData>> nodes;
    std::vector<ItemChange<LinkData>> links;
    std::vector<PropertyChange> surface;

    bool IsEmpty() const;
    // Whether it changes what a map file keeps; a step of zoom and grid alone doesn't.
    bool ChangesContent() const;
    // Takes the step back, or repeats it when `forward`. A property whose value is no longer that which the
    // step left, and an item that isn't there any more, are passed over. Keeps the values of the items that
    // it takes away, so that those come back as they were last.
    void Apply(Surface &target, bool forward);
    // Adds what the step, the last one on `target`, began with, as the log has it while the group is open.
    void PutBefore(const Surface &target, Touched<NodeData> &nodesBefore, Touched<LinkData> &linksBefore,
                   std::optional<SurfaceData> &before) const;

private:
    struct KeyToSet {
        ItemId id;
        QString key;
    };
    void ApplyToNodes(Surface &target, bool forward, std::vector<KeyToSet> &keys) const;
    void ApplyToLinks(Surface &target, bool forward) const;
    void KeepValues(const Surface &target, bool forward);
    void TakeAway(Surface &target, bool forward) const;
};

} // namespace diagram
