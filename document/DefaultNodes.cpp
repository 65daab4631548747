#include "document/DefaultNodes.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <vector>

namespace document {

namespace {

constexpr int kGridOfLines = 2;
constexpr support::Colour kGridColour = 0xE0E0E0;

// Tells the user that the file is passed over. Every new slice reads the file, so this is told only once
// until the file changes.
void TellBroken(const QString &path, const support::Error &error) {
    static QHash<QString, QDateTime> told;
    const QDateTime written = QFileInfo(path).lastModified();
    if (told.value(path) == written) return;
    told[path] = written;
    support::CurrentDesktop().messageBoxes.Show(
        QStringLiteral("%1 can't be read and is passed over.\r\n\r\n%2").arg(path, error.Description()),
        support::Buttons::Ok, support::Icon::Exclamation, settings::Terms().TITLE);
}

// Loads the file if it is there and can be read, and tells whether it was.
bool LoadIfThere(diagram::Surface &Flow, const QString &name) {
    const QString path = settings::PathToRead(name);
    if (!support::FileExists(path)) return false;
    try {
        diagram::LoadFile(Flow, path);
        return true;
    } catch (const support::Error &error) {
        TellBroken(path, error);
        return false;
    }
}

std::vector<diagram::NodeData> HiddenNodes(const diagram::Surface &Flow) {
    std::vector<diagram::NodeData> nodes;
    for (const diagram::Node &node : Flow.Nodes())
        if (node.Hidden()) nodes.push_back(node.Data());
    return nodes;
}

// Adds those whose texts no hidden node of the surface has.
void AddMissing(diagram::Surface &Flow, const std::vector<diagram::NodeData> &nodes) {
    for (diagram::NodeData node : nodes) {
        if (FindHiddenNode(Flow, node.text)) continue;
        if (Flow.Nodes().Find(node.key)) node.key.clear();
        Flow.Restore(Flow.NextId(), std::move(node));
    }
}

} // namespace

diagram::Node *FindHiddenNode(diagram::Surface &Flow, const QString &text) {
    for (diagram::Node &node : Flow.Nodes())
        if (node.Hidden() && node.Text() == text) return &node;
    return nullptr;
}

diagram::Node &AddHiddenNode(diagram::Surface &Flow, const QString &text) {
    diagram::Node &node = Flow.Nodes().Add(0, 0, 0, 0);
    node.SetText(text);
    node.SetHidden(true);
    node.SetSelectable(false);
    return node;
}

diagram::Node *LocateTemplateNode(diagram::Surface &Flow, bool Create) {
    return support::PassOn("LocateTemplateNode", [&] {
        diagram::Node *found = FindHiddenNode(Flow, kTemplateNodeText);
        if (found || !Create) return found;
        CreateTemplateNode(Flow);
        return LocateTemplateNode(Flow, false);
    });
}

void CreateTemplateNode(diagram::Surface &Flow) {
    support::PassOn("CreateTemplateNode", [&] {
        if (!FindHiddenNode(Flow, kTemplateNodeText)) AddHiddenNode(Flow, kTemplateNodeText);
    });
}

void ApplyDefaults(diagram::Surface &Flow) {
    support::PassOn("ApplyDefaults", [&] {
        if (const diagram::Node *node = LocateTemplateNode(Flow, false)) Flow.SetDefaults(node->Look());
    });
}

void LoadDefaults(diagram::Surface &Flow) {
    support::PassOn("LoadDefaults", [&] {
        std::vector<diagram::NodeData> timeline;
        if (LoadIfThere(Flow, kTimelineTemplateNodeFile)) timeline = HiddenNodes(Flow);
        if (LoadIfThere(Flow, kTemplateNodeFile)) { // replaces the nodes of the first file
            AddMissing(Flow, timeline);
            ApplyDefaults(Flow);
        }
        Flow.Screen().SetGridStyle(kGridOfLines);
        Flow.Screen().SetGridColor(kGridColour);
    });
}

} // namespace document
