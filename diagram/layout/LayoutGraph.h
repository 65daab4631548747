// A diagram as the layouts see it: boxes and who points to whom.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <vector>

namespace diagram {

struct LayoutEdge {
    int from = 0, to = 0; // indexes into the boxes
    friend bool operator==(const LayoutEdge &, const LayoutEdge &) = default;
};

struct LayoutGraph {
    std::vector<QSizeF> sizes;    // twips
    std::vector<QPointF> centres; // where the boxes stand now
    std::vector<LayoutEdge> edges;
    // In which lane each box belongs, from 0; below 0 for none. May be empty: only InLanes asks.
    std::vector<int> lanes;
    // Which boxes are kept together: those with the same number; below 0 for none. May be empty: only the
    // layered layout asks.
    std::vector<int> clusters;
    std::vector<QSizeF> labels; // of the edges, empty sizes for none; or empty: no edge has one
};

// Where the levels go as they get deeper.
enum class LayoutOrientation { Down, Up, Right, Left };

struct LayoutOptions {
    LayoutOrientation orientation = LayoutOrientation::Down;
    double levelDistance = 750;     // twips between the boxes of neighbouring levels
    double neighbourDistance = 450; // twips between neighbours of one level
    friend bool operator==(const LayoutOptions &, const LayoutOptions &) = default;
};

} // namespace diagram
