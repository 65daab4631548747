// Making room for a node that comes into a tree.
#pragma once

#include <optional>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace diagram {

class Node;
class Scene;

constexpr double kKinGap = 750; // twips between nodes that are added beside each other

// What has to go aside, and how far (twips).
struct Aside {
    std::vector<Node *> nodes; // none: nothing has to
    QPointF distance;
    QRectF place; // for the new node
};

// What lets a child of `parent` stand at `place`: the children whose middle lies behind `after` (twips) with
// all that they lead to, and so for the parents of the parent. `behind` is the unit vector along which
// children follow each other. Where children of those before the parent are in the way, the parent and its
// children go behind them, and the place with them. None where something else is in the way, or would be met.
std::optional<Aside> MakeRoom(Scene &scene, Node &parent, const QRectF &place, const QPointF &after,
                              const QPointF &behind);

// Moves them: the links that lead away follow, AfterMove is raised with them as the selection.
void MoveAside(Scene &scene, const Aside &aside);

} // namespace diagram
