// Lays out the nodes of a surface by their links.
#pragma once

#include "diagram/layout/Layered.h"
#include "diagram/layout/LayoutGraph.h"
#include "diagram/layout/Patience.h"
#include "diagram/model/Item.h"

#include <QRectF>

namespace diagram {

class Surface;

// What of a surface takes part.
enum class LayoutScope { All, Selection };

// The nodes that take part, and the links between them with room for their labels. Hidden nodes and those
// that the user cannot select (the months of a timeline) stay where they are. With LayoutScope::Selection
// only selected nodes take part.
struct LayoutSubject {
    LayoutGraph graph;
    std::vector<ItemId> nodes;        // of the boxes
    std::vector<ItemId> links;        // of the edges
    bool isPart = false;              // only a selection takes part; what follows is filled only then
    std::vector<QRectF> held = {};    // other nodes that are seen, but for those that a selected node lies on
    std::vector<ItemId> leaving = {}; // the links between the selection and other nodes
};
LayoutSubject SubjectOf(const Surface &surface, LayoutScope scope);

// Moves the nodes to the centres, all of them shifted so that the diagram's left top corner stays where it
// was. A selection keeps its middle where it was, or goes to the nearest place where it lies on no held node;
// a single node stays where it is. Bends of the links go: they belonged to the old places. Opens no group of
// its own.
void PlaceNodes(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres);

// Links with level and upright pieces get the style that suits their new places best, once their nodes stand
// there. Of a diagram so large that it would take long they keep theirs.
void ChooseStyles(Surface &surface, const LayoutSubject &subject);

// Places them as drawn in layers, with the bends of the links that pass others. Links with level and upright
// pieces get the style that fits. What is written counts as the router's: a link is routed anew when one of
// its nodes moves.
void PlaceLayers(Surface &surface, const LayoutSubject &subject, const LayeredDrawing &drawing,
                 LayoutOrientation orientation);

// The layered layout; false when it was given up, with nothing changed.
bool LayOutInLayers(Surface &surface, LayoutScope scope, const LayoutOptions &options, const GoOn &goOn);
// The tree; false for a diagram that is none, which is laid out by a spanning tree of it.
bool LayOutAsTree(Surface &surface, LayoutScope scope, const LayoutOptions &options);

} // namespace diagram
