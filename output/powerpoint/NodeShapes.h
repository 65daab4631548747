// Nodes as shapes of a slide.
#pragma once

#include "diagram/render/TextBlock.h"
#include "output/powerpoint/ShapeSlide.h"
#include "output/powerpoint/SlideFrame.h"

#include <unordered_map>

namespace diagram {
class Link;
class Node;
class Scene;
} // namespace diagram

namespace powerpoint {

// How a node is written: as which shape, and where links can be glued to it.
struct NodePlan {
    int id = 0;                   // of the shape that links are glued to
    const char *preset = nullptr; // null for a custom form
    double presetTextEdge = 0;    // between the preset's edge and its text: a fraction of width and height
    std::vector<QPointF> sites;   // twips; a site's number is its position
};

// What is shared while the shapes of one slide are written.
struct ShapeContext {
    package::Xml &xml;
    diagram::Scene &scene;
    SlideFrame frame;
    const AddPicture &addPicture;
    int nextId;
    std::unordered_map<const diagram::Node *, std::vector<QPointF>> ends = {}; // of links, twips
    std::unordered_map<const diagram::Node *, NodePlan> nodes = {};
    diagram::Faces faces = {};
    diagram::TextCache texts{faces};
};

// The slice's back colour, unless that is white, and its picture.
void WriteBackground(ShapeContext &context, const QRectF &area);

// Needs the ends of the links in the context.
NodePlan PlanNode(ShapeContext &context, const diagram::Node &node);
// Needs the node's plan in the context.
void WriteNode(ShapeContext &context, const diagram::Node &node);

// The site of the node at the end `at` of a link, in twips; -1 for none.
int SiteAt(const ShapeContext &context, const diagram::Node &node, const QPointF &at);

// The element that identifies a shape, such as p:cNvPr.
void WriteIdentity(ShapeContext &context, const char *element, int id, const QString &name,
                   const QString &description = QString());

} // namespace powerpoint
