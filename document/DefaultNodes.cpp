#include "document/DefaultNodes.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "support/Error.h"
#include "support/Files.h"

namespace document {

namespace {

constexpr int kGridOfLines = 2;
constexpr support::Colour kGridColour = 0xE0E0E0;

// Loads the file if it exists, and tells whether it does.
bool LoadIfThere(diagram::Surface &Flow, const QString &name) {
    const QString path = support::AddBackslash(support::ProgramPath()) + name;
    if (!support::FileExists(path)) return false;
    diagram::LoadFile(Flow, path);
    return true;
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
        const diagram::Node *node = LocateTemplateNode(Flow, false);
        if (!node) return;
        diagram::NodeDefaults defaults = Flow.Defaults();
        defaults.shape = node->Shape();
        defaults.shapeOrientation = node->ShapeOrientation();
        defaults.shadow = node->Shadow();
        defaults.drawStyle = node->DrawStyle();
        defaults.borderColor = node->BorderColor();
        defaults.fillColor = node->FillColor();
        defaults.font = node->Font();
        defaults.foreColor = node->ForeColor();
        defaults.alignment = node->Alignment();
        defaults.autoSize = node->AutoSize();
        defaults.drawWidth = node->DrawWidth();
        defaults.picturePos = node->PicturePos();
        Flow.SetDefaults(defaults);
    });
}

void LoadDefaults(diagram::Surface &Flow) {
    support::PassOn("LoadDefaults", [&] {
        LoadIfThere(Flow, kTimelineTemplateNodeFile);
        if (LoadIfThere(Flow, kTemplateNodeFile)) ApplyDefaults(Flow);
        Flow.SetGridStyle(kGridOfLines);
        Flow.SetGridColor(kGridColour);
    });
}

} // namespace document
