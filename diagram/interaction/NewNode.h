// Adding a node, with a link to it if wanted, as one step.
#pragma once

#include "diagram/model/Item.h"

#include <optional>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace diagram {

class DayStrip;
class Node;
class Scene;
class Surface;
struct PointerInput;

// How large a node is that nobody drew, twips.
constexpr QSizeF kUsualSize{1500, 900};

struct NewNode {
    QRectF place;                // twips
    std::optional<int> shape;    // of the table of shapes; none: the surface's default
    ItemId like = kNoItem;       // a node whose look, level and groups it takes over
    ItemId linkedFrom = kNoItem; // the start of a link to it
    int linkStyle = 0;           // or kAutomaticStyle
    DayStrip *days = nullptr;    // if set, the place may lie left of the page or above: the page grows
};

// The node becomes the selection. One step, with AfterAddNode, AfterAddLink for a link, and AfterSelect. Null
// when a handler took the node away.
Node *AddNewNode(Surface &surface, const NewNode &node);

// Whether no node that is seen reaches into the box (twips).
bool IsFree(Scene &scene, const QRectF &box);

// The box of the size with its middle at the point (twips), moved onto the surface, and with its corner on
// the grid where positions snap.
QRectF PlaceAround(const Surface &surface, const QPointF &middle, const QSizeF &size,
                   const PointerInput &input);

// Adds a node of the usual size with its middle at the pointer, as AddNewNode; it is drawn to no guides.
Node *PlaceNode(Surface &surface, const PointerInput &input, std::optional<int> shape = std::nullopt);

} // namespace diagram
