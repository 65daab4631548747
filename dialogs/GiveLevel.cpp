#include "dialogs/GiveLevel.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"

namespace dialogs {

namespace {

using document::tags::kLevel;

std::vector<diagram::Node *> NodesWith(diagram::Surface &surface, const QSet<QString> &levels) {
    std::vector<diagram::Node *> nodes;
    for (diagram::Node &node : surface.Nodes())
        if (levels.contains(document::GetTag(node, kLevel))) nodes.push_back(&node);
    return nodes;
}

} // namespace

QHash<QString, int> NodesByLevel(document::MapWindow &window) {
    QHash<QString, int> counts;
    for (const int index : window.AddFlow1().Indices())
        for (const diagram::Node &node : window.AddFlow1()[index].Nodes())
            ++counts[document::GetTag(node, kLevel)];
    counts.remove(QString());
    return counts;
}

void GiveLevel(document::MapWindow &window, const QSet<QString> &from, const document::cLevel &to) {
    for (const int index : window.AddFlow1().Indices()) {
        diagram::Surface &surface = window.AddFlow1()[index];
        const std::vector<diagram::Node *> nodes = NodesWith(surface, from);
        if (nodes.empty()) continue;
        window.clsSettings().Dirty = true;
        const diagram::ActionGroup step(surface);
        for (diagram::Node *node : nodes) {
            document::SetTag(*node, kLevel, to.Key);
            node->SetFillColor(to.Color);
        }
    }
}

} // namespace dialogs
