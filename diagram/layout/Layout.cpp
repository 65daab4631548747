#include "diagram/layout/Layout.h"

#include "diagram/layout/Layered.h"
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

bool BendsAnywhere(const Link &link) {
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return row && (row->form == LinkForm::Polyline || row->form == LinkForm::Spline);
}

// The ends are put onto the outlines when the way is read.
void GiveBends(Link &link, const std::vector<QPointF> &bends, const QPointF &shift) {
    std::vector<Point> points{ToPoint(link.Source().Bounds().center())};
    for (const QPointF &bend : bends) points.push_back(ToPoint(bend + shift));
    points.push_back(ToPoint(link.Destination().Bounds().center()));
    link.Points().Assign(std::move(points));
    link.Way();
    link.SetOwnBends(false);
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
        subject.graph.labels.push_back(link->Text().isEmpty() ? QSizeF(0, 0)
                                                              : LabelBox(*link, nullptr).size());
    }
    return subject;
}

void PlaceNodes(Surface &surface, const LayoutSubject &subject, const std::vector<QPointF> &centres,
                const std::vector<std::vector<QPointF>> &bends) {
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
    for (std::size_t i = 0; i < bends.size(); ++i) {
        Link *link = bends[i].empty() ? nullptr : surface.FindLink(subject.links[i]);
        if (link && BendsAnywhere(*link)) GiveBends(*link, bends[i], shift);
    }
}

bool LayOutInLayers(Surface &surface, LayoutScope scope, const LayoutOptions &options, const GoOn &goOn) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    const auto drawing = DrawInLayers(subject.graph, options, goOn);
    if (drawing) PlaceNodes(surface, subject, drawing->centres, drawing->bends);
    return drawing.has_value();
}

void LayOutAsTree(Surface &surface, LayoutScope scope, const LayoutOptions &options) {
    const LayoutSubject subject = SubjectOf(surface, scope);
    PlaceNodes(surface, subject, TidyTree(subject.graph, options));
}

} // namespace diagram
