#include "benchmarks/RawDot.h"

#include <gvc.h>
#include <QByteArray>
#include <QElapsedTimer>
#include <vector>

extern "C" gvplugin_library_t gvplugin_dot_layout_LTX_library;

namespace bench {

namespace {

constexpr double kTwipsOfInch = 1440;

// Graphviz takes its texts without const and copies them.
char *Text(const char *text) { return const_cast<char *>(text); }

void Set(void *object, const char *name, double twips) {
    agsafeset(object, Text(name), QByteArray::number(twips / kTwipsOfInch).data(), Text(""));
}

Agraph_t *Build(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options) {
    Agraph_t *built = agopen(Text("g"), Agdirected, nullptr);
    Set(built, "nodesep", options.neighbourDistance);
    Set(built, "ranksep", options.levelDistance);
    agsafeset(built, Text("splines"), Text("none"), Text(""));
    agattr(built, AGNODE, Text("shape"), Text("box"));
    agattr(built, AGNODE, Text("fixedsize"), Text("true"));
    agattr(built, AGNODE, Text("label"), Text(""));
    std::vector<Agnode_t *> boxes;
    for (const QSizeF &size : graph.sizes) {
        boxes.push_back(agnode(built, QByteArray::number(qulonglong(boxes.size())).data(), 1));
        Set(boxes.back(), "width", size.width());
        Set(boxes.back(), "height", size.height());
    }
    for (const diagram::LayoutEdge &edge : graph.edges)
        agedge(built, boxes[std::size_t(edge.from)], boxes[std::size_t(edge.to)], nullptr, 1);
    return built;
}

} // namespace

double RawDot(const diagram::LayoutGraph &graph, const diagram::LayoutOptions &options) {
    static const lt_symlist_t builtins[] = {
        {"gvplugin_dot_layout_LTX_library", &gvplugin_dot_layout_LTX_library}, {nullptr, nullptr}};
    GVC_t *context = gvContextPlugins(builtins, 0);
    Agraph_t *built = Build(graph, options);
    QElapsedTimer timer;
    timer.start();
    gvLayout(context, built, "dot");
    const double time = double(timer.nsecsElapsed()) / 1e6;
    gvFreeLayout(context, built);
    agclose(built);
    gvFreeContext(context);
    return time;
}

} // namespace bench
