// Long edges go straight on through the layers that they pass.
#pragma once

#include "diagram/layout/EdgeLists.h"
#include "diagram/layout/LayeredColumns.h"

namespace diagram {

// A lane is what keeps one column: a box, or an edge through all layers that it passes, as far as it doesn't
// cross another such edge.
class LayerLanes {
public:
    // Both must outlive it.
    LayerLanes(const LayerGraph &graph, const LayerGaps &gaps);

    // Puts each lane to the mean column of its vertices, and lanes apart from there as far as needed.
    void Straighten(std::vector<double> &columns) const;
    // Puts lanes of edges, one after the other, to the middle of their ends, as far as there is room.
    void Relax(std::vector<double> &columns) const;
    // Puts lanes of edges into the column of one of their ends, the nearer one first, where there is room.
    void Snap(std::vector<double> &columns) const;

private:
    struct Step { // from a lane to one beside it
        int from, to;
        double distance;
    };
    struct Room {
        double least, most;
    };

    void FindLanes();
    void JoinBelow(int layer, const EdgeLists &out);
    void FindSteps();
    void FindOrder();
    Room RoomOf(std::size_t lane, const std::vector<double> &columns) const;
    void MoveTo(std::size_t lane, double column, std::vector<double> &columns) const;
    bool IsEdge(std::size_t lane) const;

    const LayerGraph &graph_;
    LayerGaps gaps_;
    std::vector<int> laneOf_;             // of the vertices
    std::vector<std::vector<int>> lanes_; // vertices downwards
    std::vector<std::size_t> position_;
    std::vector<Step> steps_;
    std::vector<int> order_; // of the lanes: each behind those on its left
    EdgeLists above_, below_;
};

} // namespace diagram
