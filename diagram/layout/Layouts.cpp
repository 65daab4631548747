#include "diagram/layout/Layouts.h"

#include "diagram/layout/Circular.h"
#include "diagram/layout/Lanes.h"
#include "diagram/layout/Organic.h"
#include "diagram/layout/Radial.h"
#include "diagram/layout/SpanningTree.h"
#include "diagram/model/Surface.h"

namespace diagram {

namespace {

using Places = std::vector<QPointF> (*)(const LayoutGraph &, const LayoutOptions &, Progress &);

std::vector<int> NumbersOf(const Surface &surface, const LayoutSubject &subject,
                           const std::function<int(const Node &node)> &number) {
    std::vector<int> numbers;
    if (!number) return numbers;
    for (const ItemId id : subject.nodes) numbers.push_back(number(*surface.FindNode(id)));
    return numbers;
}

template <Places kPlaces>
LayoutResult ByPlaces(Surface &surface, const LayoutOrder &order) {
    LayoutSubject subject = SubjectOf(surface, order.scope);
    subject.graph.lanes = NumbersOf(surface, subject, order.lane);
    Progress progress(order.advance);
    try {
        PlaceNodes(surface, subject, kPlaces(subject.graph, order.options, progress));
        ChooseStyles(surface, subject);
    } catch (const Progress::GivenUp &) {
        return LayoutResult::GivenUp;
    }
    return LayoutResult::LaidOut;
}

LayoutResult Hierarchical(Surface &surface, const LayoutOrder &order) {
    const auto goOn = [&] { return !order.advance || order.advance(0); };
    LayoutSubject subject = SubjectOf(surface, order.scope);
    subject.graph.clusters = NumbersOf(surface, subject, order.cluster);
    const auto drawing = DrawInLayers(subject.graph, order.options, goOn);
    if (!drawing) return LayoutResult::GivenUp;
    PlaceLayers(surface, subject, *drawing, order.options.orientation);
    return LayoutResult::LaidOut;
}

LayoutResult Tree(Surface &surface, const LayoutOrder &order) {
    return LayOutAsTree(surface, order.scope, order.options) ? LayoutResult::LaidOut
                                                             : LayoutResult::AsSpanningTree;
}

constexpr LayoutRow kLayouts[] = {
    {"hierarchical", Hierarchical},   {"tree", Tree},
    {"radial", ByPlaces<Radial>},     {"organic", ByPlaces<Organic>},
    {"circular", ByPlaces<Circular>}, {"levels", ByPlaces<InLanes>},
};

} // namespace

std::span<const LayoutRow> LayoutTable() { return kLayouts; }

const LayoutRow *FindLayout(const QString &name) {
    for (const LayoutRow &row : kLayouts)
        if (name == QLatin1String(row.name)) return &row;
    return nullptr;
}

} // namespace diagram
