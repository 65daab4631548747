// What nodes and links have in common: identity, stacking, and the surface that they live on.
#pragma once

#include <cstdint>

namespace diagram {

class Surface;
class Node;
class Link;

// Identity of an item within its surface: increasing, never used again, kept through undo and redo.
using ItemId = std::uint32_t;
constexpr ItemId kNoItem = 0;

// Stacking key: the larger is painted later. Positions (ZOrder) are the order of these keys over nodes and
// links together.
using StackKey = std::int64_t;

enum class ItemKind : std::uint8_t { Node, Link };

// What of an item a change touched; several may be set.
enum class Change : std::uint32_t {
    None = 0,
    Geometry = 1,    // place, size, shape, orientation, points: bounds may differ
    Look = 2,        // colours, line, picture, shadow, marks: must be painted again
    Text = 4,        // text, font, alignment, margins
    Stacking = 8,    // z-order
    Selection = 16,  // selected or not
    Visibility = 32, // hidden or not
    Data = 64,       // key, tag, second text and others that aren't painted
    All = 127
};
constexpr Change operator|(Change a, Change b) { return Change(std::uint32_t(a) | std::uint32_t(b)); }
constexpr bool Has(Change set, Change flag) { return (std::uint32_t(set) & std::uint32_t(flag)) != 0; }

class Item {
public:
    ItemKind Kind() const { return kind_; }
    ItemId Id() const { return id_; }
    Surface &Owner() const { return *surface_; }
    Node *AsNode();
    const Node *AsNode() const;
    Link *AsLink();
    const Link *AsLink() const;
    // The items of a surface are stacked by this key, and by their identity where two have the same.
    StackKey Stack() const;

protected:
    Item(Surface &surface, ItemId id, ItemKind kind) : surface_(&surface), id_(id), kind_(kind) {}
    ~Item() = default;
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;

private:
    Surface *surface_;
    ItemId id_;
    ItemKind kind_;
};

} // namespace diagram
