// Walking over the items of a surface by keys: from node to node, along links, and back.
#pragma once

#include "diagram/model/Item.h"

#include <functional>
#include <QPointF>

class QRectF;

namespace diagram {

class Scene;
class Surface;
struct KeyInput;

// All that moves is the selection. False for each step when there is nowhere to go.
class KeyWalk {
public:
    // `show` brings an area (twips) into sight. The scene must live longer.
    KeyWalk(Scene &scene, std::function<void(const QRectF &area)> show);

    // In a direction of the arrow keys; with Shift what is reached is selected too.
    bool Towards(const QPointF &direction, const KeyInput &input);
    // To the next link around the node from which the keys started, or the former one with -1.
    bool AlongLinks(int step);
    // To the next node in reading order, or what else the key stands for.
    bool ByTab(const KeyInput &input);

    // In which the user went last, a unit vector.
    QPointF Direction() const { return direction_; }

private:
    // Selects the item alone and brings it into sight; false for none.
    bool GoTo(Item *item);
    // Takes the node into the selection, or goes back to it along what is selected; false for none.
    bool ReachTo(Node *node);
    // The selected node, or that around which the keys go from link to link; null for none.
    Node *Anchor() const;

    Scene &scene_;
    Surface &surface_;
    std::function<void(const QRectF &)> show_;
    QPointF direction_{1, 0};
    ItemId around_ = kNoItem; // the node whose links the keys go through
};

} // namespace diagram
