#include "diagram/layout/Layout.h"

#include "diagram/layout/SpanningTree.h"
#include "diagram/layout/TidyTree.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/LinkStyles.h"

#include <QHash>
#include <QRectF>

namespace diagram {

namespace {

bool TakesPart(const Node &node, LayoutScope scope) {
    return node.Selectable() && !node.Hidden() && (scope == LayoutScope::All || node.Selected());
}

QRectF Box(const QPointF &centre, const QSizeF &size) {
    return {centre - QPointF(size.width(), size.height()) / 2, size};
}

// Where the left top corner of all boxes lies.
QPointF Corner(const std::vector<QSizeF> &sizes, const std::vector<QPointF> &centres) {
    QPointF corner = Box(centres.front(), sizes.front()).topLeft();
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        const QPointF at = Box(centres[i], sizes[i]).topLeft();
        corner = {qMin(corner.x(), at.x()), qMin(corner.y(), at.y())};
    }
    return corner;
}

// Styles with one, two and three pieces across, of layers below and beside each other.
constexpr int kAcrossStyles[2][3] = {{4, 8, 12}, {5, 9, 13}};

// The points between the ends, which are put onto the outlines when the way is read.
void GiveWay(Link &link, const std::vector<QPointF> &between, const QPointF &shift) {
    std::vector<Point> points{ToPoint(link.Source().Bounds().center())};
    for (const QPointF &point : between) points.push_back(ToPoint(point + shift));
    points.push_back(ToPoint(link.Destination().Bounds().center()));
    link.Points().Assign(std::move(points));
    link.Way();
    link.SetOwnBends(false);
}

void GiveCorners(Link &link, const std::vector<QPointF> &corners, const QPointF &shift, bool level) {
    const std::size_t across = std::max<std::size_t>(corners.size() / 2, 1);
    if (across > std::size(kAcrossStyles[0])) return link.SetStyle(kAcrossStyles[level][2]);
    link.SetStyle(kAcrossStyles[level][across - 1]);
    if (!corners.empty()) GiveWay(link, corners, shift);
}

// Where all nodes go so that the diagram's left top corner stays where it was.
QPointF ShiftOf(const LayoutGraph &graph, const std::vector<QPointF> &centres) {
    return Corner(graph.sizes, graph.centres) - Corner(graph.sizes, centres);
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
        if (from < 0 || to < 0 || link->Hidden()) continue;
        subject.links.push_back(link->Id());
        subject.graph.edges.push_back({from, to});
        subject.graph.labels.push_back(link->Text().isEmpty() ? QSizeF(0, 0) : LabelSize(*link, nullptr));
    }
    return subject;
}

void PlaceNodes(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres) {
    if (centres.empty()) return;
    for (const ItemId id : subject.links)
        if (Link *link = surface.FindLink(id)) link->SetOwnBends(false);
    const LayoutGraph &graph = subject.graph;
    const QPointF shift = ShiftOf(graph, centres);
    for (std::size_t i = 0; i < centres.size(); ++i) {
        Node *node = surface.FindNode(subject.nodes[i]);
        if (!node) continue;
        const QPointF corner = Box(centres[i] + shift, graph.sizes[i]).topLeft();
        node->SetLeft(float(corner.x()));
        node->SetTop(float(corner.y()));
    }
}

void PlaceLayers(Surface &surface, const LayoutSubject &subject, const LayeredDrawing &drawing,
                 LayoutOrientation orientation) {
    PlaceNodes(surface, subject, drawing.centres);
    const bool level = orientation == LayoutOrientation::Right || orientation == LayoutOrientation::Left;
    if (subject.links.empty()) return;
    const QPointF shift = ShiftOf(subject.graph, drawing.centres);
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
    return isForest;
}

} // namespace diagram
