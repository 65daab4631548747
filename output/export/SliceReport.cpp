#include "output/export/SliceReport.h"

namespace output {

bool BuildSlice(ReportBlocks &blocks, const SliceOutput &slice, const ReportOptions &options,
                ReportProgress &progress) {
    progress.Doing(QStringLiteral("Initialising..."));
    const int nodes = int(slice.nodes.size());
    int done = 0;
    progress.Nodes(done, nodes);
    for (const NodeOutput &node : slice.nodes) {
        progress.Doing(QStringLiteral("Processing Node (%1)...").arg(node.text));
        if (!node.hidden && options.nodes) AddNode(blocks, node, options.details);
        progress.Nodes(++done, nodes);
        if (!progress.GoOn()) return false;
    }
    if (options.map) {
        progress.Doing(QStringLiteral("Inserting picture..."));
        AddPicture(blocks, slice);
    }
    progress.Doing(QStringLiteral("Saving file..."));
    return progress.GoOn();
}

} // namespace output
