#include "diagram/layout/Layout.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/FreePlace.h"
#include "diagram/layout/Orientation.h"
#include "diagram/layout/SpanningTree.h"
#include "diagram/layout/TidyTree.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>
#include <QHash>

namespace diagram {

namespace {

constexpr double kMargin = 150;   // twips from the page's edge
constexpr double kFromHeld = 300; // twips that a selection keeps from what isn't selected

bool TakesPart(const Node &node, LayoutScope scope) {
    return node.Selectable() && !node.Hidden() && (scope == LayoutScope::All || node.Selected());
}

// What stands on a node that stays is its content, not in its way.
bool IsInTheWay(const Node &node, const std::vector<QRectF> &boxes) {
    if (node.Hidden()) return false;
    return std::ranges::none_of(boxes, [&](const QRectF &box) { return node.Bounds().contains(box); });
}

std::vector<QRectF> BoxesOf(const LayoutGraph &graph) {
    std::vector<QRectF> boxes;
    for (std::size_t i = 0; i < graph.sizes.size(); ++i)
        boxes.push_back(BoxAround(graph.centres[i], graph.sizes[i]));
    return boxes;
}

// Styles with one, two and three pieces across, for layers below each other and beside each other.
constexpr int kAcrossStyles[2][3] = {{4, 8, 12}, {5, 9, 13}};

// The points between the ends, which are put onto the outlines when the route is read.
void GiveWay(Link &link, const std::vector<QPointF> &between, const QPointF &shift) {
    std::vector<Point> points{ToPoint(link.Source().Bounds().center())};
    for (const QPointF &point : between) points.push_back(ToPoint(point + shift));
    points.push_back(ToPoint(link.Destination().Bounds().center()));
    link.Points().Assign(std::move(points));
    link.Route();
    link.SetOwnBends(false);
}

void GiveCorners(Link &link, const std::vector<QPointF> &corners, const QPointF &shift, bool level) {
    const std::size_t across = std::max<std::size_t>(corners.size() / 2, 1);
    if (across > std::size(kAcrossStyles[0])) return link.SetStyle(kAcrossStyles[level][2]);
    link.SetStyle(kAcrossStyles[level][across - 1]);
    if (!corners.empty()) GiveWay(link, corners, shift);
}

// The extent of the drawing with all bends.
QRectF CoveredBy(const LayoutSubject &subject, const LayeredDrawing &drawing) {
    QRectF extent = ExtentOf(subject.graph.sizes, drawing.centres);
    for (const auto *routes : {&drawing.bends, &drawing.corners})
        for (const auto &route : *routes)
            for (const QPointF &point : route)
                extent.setCoords(std::min(extent.left(), point.x()), std::min(extent.top(), point.y()),
                                 std::max(extent.right(), point.x()), std::max(extent.bottom(), point.y()));
    return extent;
}

// How far the drawing is shifted from where the layout has put it, where it covers `extent`.
QPointF ShiftOf(const LayoutSubject &subject, const std::vector<QPointF> &centres, const QRectF &extent) {
    const QRectF before = ExtentOf(subject.graph.sizes, subject.graph.centres);
    if (!subject.isPart) return before.topLeft() - ExtentOf(subject.graph.sizes, centres).topLeft();
    const QPointF least(std::min(0.0, before.left()), std::min(0.0, before.top()));
    const QRectF there = extent.translated(before.center() - extent.center());
    return NearestFree(there, subject.held, kFromHeld, least) - extent.center();
}

// The shift that brings a kept drawing, which may have grown beyond the page's left or upper edge, back onto
// it.
QPointF BackOntoPage(const LayoutSubject &subject, const LayeredDrawing &drawing) {
    const QPointF before = ExtentOf(subject.graph.sizes, subject.graph.centres).topLeft();
    const QPointF after = ExtentOf(subject.graph.sizes, drawing.centres).topLeft();
    return {std::max(0.0, std::min(kMargin, before.x()) - after.x()),
            std::max(0.0, std::min(kMargin, before.y()) - after.y())};
}

void Move(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres,
          const QPointF &shift) {
    for (const auto *links : {&subject.links, &subject.leaving})
        for (const ItemId id : *links)
            if (Link *link = surface.FindLink(id)) link->SetOwnBends(false);
    for (std::size_t i = 0; i < centres.size(); ++i) {
        Node *node = surface.FindNode(subject.nodes[i]);
        if (!node) continue;
        const QPointF corner = BoxAround(centres[i] + shift, subject.graph.sizes[i]).topLeft();
        node->SetLeft(float(corner.x()));
        node->SetTop(float(corner.y()));
    }
}

bool HasNothingToDo(const LayoutSubject &subject) {
    return subject.nodes.empty() || (subject.isPart && subject.nodes.size() < 2);
}

void Hold(LayoutSubject &subject, const Surface &surface) {
    subject.isPart = true;
    const std::vector<QRectF> boxes = BoxesOf(subject.graph);
    for (const Node &node : surface.Nodes())
        if (!TakesPart(node, LayoutScope::Selection) && IsInTheWay(node, boxes))
            subject.held.push_back(node.Bounds());
}

} // namespace

LayoutSubject SubjectOf(const Surface &surface, LayoutScope scope) {
    LayoutSubject subject;
    QHash<ItemId, int> boxes;
    for (const Node &node : surface.Nodes()) {
        if (!TakesPart(node, scope)) continue;
        boxes.insert(node.Id(), int(subject.nodes.size()));
        subject.nodes.push_back(node.Id());
        subject.graph.sizes.push_back(node.Bounds().size());
        subject.graph.centres.push_back(node.Bounds().center());
    }
    for (const auto &link : surface.Links()) {
        const int from = boxes.value(link->Source().Id(), -1), to = boxes.value(link->Destination().Id(), -1);
        if (link->Hidden()) continue;
        if (scope == LayoutScope::Selection && (from < 0) != (to < 0)) subject.leaving.push_back(link->Id());
        if (from < 0 || to < 0) continue;
        subject.links.push_back(link->Id());
        subject.graph.edges.push_back({from, to});
        subject.graph.labels.push_back(link->Text().isEmpty() ? QSizeF(0, 0) : LabelSize(*link, nullptr));
    }
    if (scope == LayoutScope::Selection) Hold(subject, surface);
    return subject;
}

void PlaceNodes(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres) {
    if (HasNothingToDo(subject)) return;
    const QRectF extent = ExtentOf(subject.graph.sizes, centres);
    Move(surface, subject, centres, ShiftOf(subject, centres, extent));
}

void ChooseStyles(Surface &surface, const LayoutSubject &subject) {
    std::vector<Link *> links;
    for (const ItemId id : subject.links)
        if (Link *link = surface.FindLink(id)) links.push_back(link);
    GiveBestStyles(surface, links);
}

void PlaceLayers(Surface &surface, const LayoutSubject &subject, const LayeredDrawing &drawing,
                 LayoutOrientation orientation) {
    if (HasNothingToDo(subject)) return;
    const QPointF shift = drawing.kept && !subject.isPart
                              ? BackOntoPage(subject, drawing)
                              : ShiftOf(subject, drawing.centres, CoveredBy(subject, drawing));
    Move(surface, subject, drawing.centres, shift);
    const bool level = IsLevel(orientation);
    for (std::size_t i = 0; i < subject.links.size(); ++i) {
        Link *link = surface.FindLink(subject.links[i]);
        if (!link || &link->Source() == &link->Destination()) continue;
        const LinkStyleRow *row = FindLinkStyle(link->Style());
        const LinkForm form = row ? row->form : LinkForm::Bezier;
        if (form == LinkForm::Orthogonal) {
            GiveCorners(*link, drawing.corners[i], shift, level);
        } else if (form != LinkForm::Bezier && !drawing.bends[i].empty()) {
            GiveWay(*link, drawing.bends[i], shift);
        }
    }
}

bool LayOutInLayers(Surface &surface, LayoutScope scope, const LayoutOptions &options, const GoOn &goOn) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    const auto drawing = DrawInLayers(subject.graph, options, goOn);
    if (drawing) PlaceLayers(surface, subject, *drawing, options.orientation);
    return drawing.has_value();
}

bool LayOutAsTree(Surface &surface, LayoutScope scope, const LayoutOptions &options) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    const bool isForest = IsForest(subject.graph);
    PlaceNodes(surface, subject, TidyTree(isForest ? subject.graph : SpanningForest(subject.graph), options));
    if (!isForest) ChooseStyles(surface, subject); // the links beside the tree have other routes to go
    return isForest;
}

} // namespace diagram
