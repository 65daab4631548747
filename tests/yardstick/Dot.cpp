#include "tests/yardstick/Dot.h"

#include "diagram/geometry/Units.h"

#include <gvc.h>
#include <QByteArray>
#include <QElapsedTimer>

extern "C" gvplugin_library_t gvplugin_dot_layout_LTX_library;
extern "C" gvplugin_library_t gvplugin_neato_layout_LTX_library;

namespace yardstick {

namespace {

// Graphviz takes its texts without const and copies them.
char *Text(const char *text) { return const_cast<char *>(text); }

void Set(void *object, const char *name, double twips) {
    agsafeset(object, Text(name), QByteArray::number(twips / diagram::kTwipsPerInch).data(), Text(""));
}

Agraph_t *Build(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options,
                const char *splines) {
    Agraph_t *built = agopen(Text("g"), Agdirected, nullptr);
    Set(built, "nodesep", options.neighbourDistance);
    Set(built, "ranksep", options.levelDistance);
    agsafeset(built, Text("splines"), Text(splines), Text(""));
    agattr(built, AGNODE, Text("shape"), Text("box"));
    agattr(built, AGNODE, Text("fixedsize"), Text("true"));
    agattr(built, AGNODE, Text("label"), Text(""));
    std::vector<Agnode_t *> boxes;
    for (const QSizeF &size : graph.sizes) {
        boxes.push_back(agnode(built, QByteArray::number(qulonglong(boxes.size())).data(), 1));
        Set(boxes.back(), "width", size.width());
        Set(boxes.back(), "height", size.height());
    }
    for (std::size_t i = 0; i < graph.edges.size(); ++i) {
        const diagram::LayoutEdge &edge = graph.edges[i];
        agedge(built, boxes[std::size_t(edge.from)], boxes[std::size_t(edge.to)],
               QByteArray::number(qulonglong(i)).data(), 1);
    }
    return built;
}

QPointF At(const pointf &point) {
    return {point.x * diagram::kTwipsPerPoint, -point.y * diagram::kTwipsPerPoint};
}

// A curve of the third degree as pieces, behind its first point.
void AddCurve(const pointf *points, std::vector<QPointF> &route) {
    constexpr int kPieces = 8;
    for (int i = 1; i <= kPieces; ++i) {
        const double t = double(i) / kPieces, u = 1 - t;
        route.push_back(At(points[0]) * (u * u * u) + At(points[1]) * (3 * u * u * t) +
                        At(points[2]) * (3 * u * t * t) + At(points[3]) * (t * t * t));
    }
}

std::vector<QPointF> RouteOf(Agedge_t *edge) {
    std::vector<QPointF> route;
    const splines *curves = ED_spl(edge);
    if (!curves || aghead(edge) == agtail(edge)) return route;
    const bezier &curve = curves->list[0];
    route.push_back(At(curve.list[0]));
    for (int i = 0; i + 3 < int(curve.size); i += 3) AddCurve(curve.list + i, route);
    return route;
}

// The engines alone: no other plug-in is looked for.
GVC_t *MakeContext() {
    static const lt_symlist_t builtins[] = {
        {"gvplugin_dot_layout_LTX_library", &gvplugin_dot_layout_LTX_library},
        {"gvplugin_neato_layout_LTX_library", &gvplugin_neato_layout_LTX_library},
        {nullptr, nullptr}};
    return gvContextPlugins(builtins, 0);
}

} // namespace

double TimeOfDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options) {
    GVC_t *context = MakeContext();
    Agraph_t *built = Build(graph, options, "none");
    QElapsedTimer timer;
    timer.start();
    gvLayout(context, built, "dot");
    const double time = double(timer.nsecsElapsed()) / 1e6;
    gvFreeLayout(context, built);
    agclose(built);
    gvFreeContext(context);
    return time;
}

namespace {

std::vector<std::vector<QPointF>> RoutesOf(Agraph_t *built, std::size_t edges) {
    std::vector<std::vector<QPointF>> routes(edges);
    for (Agnode_t *node = agfstnode(built); node; node = agnxtnode(built, node))
        for (Agedge_t *edge = agfstout(built, node); edge; edge = agnxtout(built, edge))
            routes[std::size_t(QByteArray(agnameof(edge)).toInt())] = RouteOf(edge);
    return routes;
}

} // namespace

DotDrawing DrawByDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options) {
    GVC_t *context = MakeContext();
    Agraph_t *built = Build(graph, options, "spline");
    gvLayout(context, built, "dot");
    DotDrawing drawing{std::vector<QPointF>(graph.sizes.size()), RoutesOf(built, graph.edges.size())};
    for (Agnode_t *node = agfstnode(built); node; node = agnxtnode(built, node))
        drawing.centres[std::size_t(QByteArray(agnameof(node)).toInt())] = At(ND_coord(node));
    gvFreeLayout(context, built);
    agclose(built);
    gvFreeContext(context);
    return drawing;
}

std::vector<std::vector<QPointF>> RouteByOrtho(const diagram::LayoutGraph &graph) {
    GVC_t *context = MakeContext();
    Agraph_t *built = Build(graph, {}, "ortho");
    for (Agnode_t *node = agfstnode(built); node; node = agnxtnode(built, node)) {
        const QPointF at =
            graph.centres[std::size_t(QByteArray(agnameof(node)).toInt())] / diagram::kTwipsPerPoint;
        const QByteArray place = QByteArray::number(at.x()) + "," + QByteArray::number(-at.y());
        agsafeset(node, Text("pos"), Text(place.constData()), Text(""));
    }
    gvLayout(context, built, "nop2");
    std::vector<std::vector<QPointF>> routes = RoutesOf(built, graph.edges.size());
    gvFreeLayout(context, built);
    agclose(built);
    gvFreeContext(context);
    return routes;
}

} // namespace yardstick
