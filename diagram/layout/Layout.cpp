#include "diagram/layout/Layout.h"

#include "diagram/layout/SpanningTree.h"
#include "diagram/layout/TidyTree.h"
#include "diagram/model/Surface.h"

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
    }
    return subject;
}

void PlaceNodes(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres) {
    if (centres.empty()) return;
    for (const ItemId id : subject.links)
        if (Link *link = surface.FindLink(id)) link->SetOwnBends(false);
    const LayoutGraph &graph = subject.graph;
    const QPointF shift = Corner(graph.sizes, graph.centres) - Corner(graph.sizes, centres);
    for (std::size_t i = 0; i < centres.size(); ++i) {
        Node *node = surface.FindNode(subject.nodes[i]);
        if (!node) continue;
        const QPointF corner = Box(centres[i] + shift, graph.sizes[i]).topLeft();
        node->SetLeft(float(corner.x()));
        node->SetTop(float(corner.y()));
    }
}

bool LayOutInLayers(Surface &surface, LayoutScope scope, const LayoutOptions &options, const GoOn &goOn) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    const auto centres = LayeredElsewhere(subject.graph, options, goOn);
    if (centres) PlaceNodes(surface, subject, *centres);
    return centres.has_value();
}

bool LayOutAsTree(Surface &surface, LayoutScope scope, const LayoutOptions &options) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    const bool isForest = IsForest(subject.graph);
    PlaceNodes(surface, subject, TidyTree(isForest ? subject.graph : SpanningForest(subject.graph), options));
    return isForest;
}

} // namespace diagram
