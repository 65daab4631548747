// Every property of nodes, links and the surface as one row each: undo, files and tests walk over these
// tables. The rows are made from PropertyTable.h.
#pragma once

#include "diagram/model/Surface.h"

#include <memory>
#include <span>
#include <variant>
#include <vector>

namespace diagram {

using PropertyValue =
    std::variant<bool, std::uint8_t, std::int32_t, std::uint32_t, std::int64_t, float, QString, Font, Picture,
                 std::vector<Point>, std::shared_ptr<const NodeLook>>;

template <typename Data>
struct PropertyRow {
    std::uint8_t id; // stored in files: never given to another property
    const char *name;
    Change what; // what a change of it touches
    PropertyValue (*get)(const Data &);
    // The alternative of the value must be that of `get`.
    void (*set)(Data &, const PropertyValue &);
    bool (*same)(const Data &, const Data &);
    bool (*holds)(const Data &, const PropertyValue &); // whether it has that value
    bool (*valid)(const Data &);                        // whether the value is one that the setters accept
};

std::span<const PropertyRow<NodeData>> NodeProperties();
std::span<const PropertyRow<LinkData>> LinkProperties();
std::span<const PropertyRow<SurfaceData>> SurfaceProperties();
std::span<const PropertyRow<NodeLook>> LookProperties();

inline auto PropertiesOf(const NodeData &) { return NodeProperties(); }
inline auto PropertiesOf(const LinkData &) { return LinkProperties(); }
inline auto PropertiesOf(const SurfaceData &) { return SurfaceProperties(); }
inline auto PropertiesOf(const NodeLook &) { return LookProperties(); }

// Whether the property belongs to the map's content, so that a change of it is work to be saved: not zoom,
// grid or defaults.
bool IsContent(const PropertyRow<SurfaceData> &row);
// Whether the two differ in such a property.
bool DifferInContent(const SurfaceData &a, const SurfaceData &b);

// What of the item differs between the two.
template <typename Data>
Change Difference(const Data &a, const Data &b) {
    Change what = Change::None;
    for (const auto &row : PropertiesOf(a)) {
        if (!row.same(a, b)) what = what | row.what;
    }
    return what;
}

// True when every value is in its range.
template <typename Data>
bool IsValid(const Data &data) {
    for (const auto &row : PropertiesOf(data)) {
        if (!row.valid(data)) return false;
    }
    return true;
}

} // namespace diagram
