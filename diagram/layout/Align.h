// Lines nodes up with each other. Nothing here touches links, which the router takes along, or opens a group.
#pragma once

#include <vector>

namespace diagram {

class Node;

enum class AlignTo { Left, Centre, Right, Top, Middle, Bottom };

// Moves the nodes to one line: their outermost edge, or the middle of the box that holds them all.
void AlignNodes(const std::vector<Node *> &nodes, AlignTo line);

enum class Spread { Across, Down };

// Moves all nodes but the two outermost, so that the gaps between neighbours are the same; gaps below 0 where
// there is no room. Fewer than three nodes stay as they are.
void DistributeNodes(std::vector<Node *> nodes, Spread direction);

enum class SameSize { Width, Height, Both };

// Gives the nodes the size of `model`, around their centres.
void MakeSameSize(const std::vector<Node *> &nodes, const Node &model, SameSize what);

} // namespace diagram
