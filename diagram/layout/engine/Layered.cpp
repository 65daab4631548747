#include "diagram/layout/engine/Layered.h"

#include "diagram/geometry/Units.h"
#include "diagram/layout/LayeredElsewhere.h"
#include "diagram/layout/Orientation.h"
#include "support/Error.h"

#include <gvc.h>
#include <memory>

extern "C" gvplugin_library_t gvplugin_dot_layout_LTX_library;

namespace diagram {

namespace {

struct FreeContext {
    void operator()(GVC_t *context) const { gvFreeContext(context); }
};
struct FreeGraph {
    void operator()(Agraph_t *graph) const { agclose(graph); }
};

// The engine alone: no other plug-in is looked for, so none that happens to be installed changes the result.
std::unique_ptr<GVC_t, FreeContext> MakeContext() {
    static const lt_symlist_t builtins[] = {
        {"gvplugin_dot_layout_LTX_library", &gvplugin_dot_layout_LTX_library}, {nullptr, nullptr}};
    return std::unique_ptr<GVC_t, FreeContext>(gvContextPlugins(builtins, 0));
}

// Graphviz takes its texts without const and copies them.
char *Text(const char *text) { return const_cast<char *>(text); }
void Set(void *object, const char *name, const QByteArray &value) {
    agsafeset(object, Text(name), Text(value.constData()), Text(""));
}
QByteArray Inches(double twips) { return QByteArray::number(twips / kTwipsPerInch, 'g', 12); }

class Drawing {
public:
    Drawing(const LayoutGraph &graph, const LayoutOptions &options)
        : context_(MakeContext()), graph_(agopen(Text("g"), Agdirected, nullptr)) {
        SetDefaults(options);
        for (const QSizeF &size : graph.sizes) AddBox(size);
        for (const LayoutEdge &edge : graph.edges)
            agedge(graph_.get(), boxes_[std::size_t(edge.from)], boxes_[std::size_t(edge.to)], nullptr, 1);
    }

    std::vector<QPointF> Centres() {
        if (gvLayout(context_.get(), graph_.get(), "dot") != 0)
            throw support::Error(kErrNotLaidOut, QStringLiteral("Layered"),
                                 QStringLiteral("The diagram could not be laid out"));
        std::vector<QPointF> centres;
        centres.reserve(boxes_.size());
        // The engine's y goes upwards.
        for (Agnode_t *box : boxes_)
            centres.emplace_back(ND_coord(box).x * kTwipsPerPoint, -ND_coord(box).y * kTwipsPerPoint);
        gvFreeLayout(context_.get(), graph_.get());
        return centres;
    }

private:
    void SetDefaults(const LayoutOptions &options) {
        Set(graph_.get(), "nodesep", Inches(options.neighbourDistance));
        Set(graph_.get(), "ranksep", Inches(options.levelDistance));
        Set(graph_.get(), "splines", "none"); // links are routed by the diagram's own router
        agattr(graph_.get(), AGNODE, Text("shape"), Text("box"));
        agattr(graph_.get(), AGNODE, Text("fixedsize"), Text("true"));
        agattr(graph_.get(), AGNODE, Text("label"), Text(""));
    }

    void AddBox(const QSizeF &size) {
        Agnode_t *box = agnode(graph_.get(), QByteArray::number(qulonglong(boxes_.size())).data(), 1);
        Set(box, "width", Inches(size.width()));
        Set(box, "height", Inches(size.height()));
        boxes_.push_back(box);
    }

    std::unique_ptr<GVC_t, FreeContext> context_;
    std::unique_ptr<Agraph_t, FreeGraph> graph_;
    std::vector<Agnode_t *> boxes_;
};

} // namespace

std::vector<QPointF> Layered(const LayoutGraph &graph, const LayoutOptions &options) {
    if (graph.sizes.empty()) return {};
    const LayoutGraph turned = TurnedDown(graph, options.orientation);
    return TurnedBack(Drawing(turned, options).Centres(), options.orientation);
}

} // namespace diagram
