// Filling the surface of one slice from the rows of a map.
#pragma once

#include "document/MapRows.h"

#include <utility>
#include <vector>

namespace diagram {
class Item;
class Surface;
} // namespace diagram

namespace document {

class MapWindow;
class MemoryWatch;
class PicturePool;

class SliceLoader {
public:
    // The surface must be empty. While the object lives, nodes keep their stored sizes whatever their texts
    // would need.
    SliceLoader(MapWindow &window, diagram::Surface &surface, MapRows &rows, PicturePool &pictures,
                MemoryWatch &memory);
    ~SliceLoader();
    SliceLoader(const SliceLoader &) = delete;
    SliceLoader &operator=(const SliceLoader &) = delete;

    // False when memory ran short: the nodes read so far stay.
    bool LoadNodes();
    void LoadLinks();
    // Brings all items to their stored positions in the stacking.
    void Stack();

private:
    diagram::Node &AddNode(NodeRow &row);
    diagram::Link &AddLink(LinkRow &row);
    diagram::Node &NodeOf(std::uint32_t key) const;
    void SetPoints(diagram::Link &link, std::uint32_t key);

    MapWindow &window_;
    diagram::Surface &surface_;
    MapRows &rows_;
    PicturePool &pictures_;
    MemoryWatch &memory_;
    std::unordered_map<std::uint32_t, diagram::Node *> nodes_; // by key
    std::vector<std::pair<diagram::Item *, int>> positions_;
};

} // namespace document
