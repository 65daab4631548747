// The menu Arrange: commands that stack and line up what is selected.
#include "diagram/layout/Align.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"

namespace mainwindow {

namespace {

// One step; dated nodes take the ends of their links along, and those that stay at their dates settle there.
template <typename Change>
void Arrange(frmMain &window, Change change) {
    diagram::Surface &surface = window.CurrentSurface();
    const HandlerStep step(surface);
    change(surface.SelectedNodes());
    window.AddFlow1_AfterResize(surface.Index());
}

template <diagram::AlignTo kLine>
void Align(frmMain &window) {
    Arrange(window, [](const auto &nodes) { diagram::AlignNodes(nodes, kLine); });
}

template <diagram::Spread kDirection>
void Distribute(frmMain &window) {
    Arrange(window, [](const auto &nodes) { diagram::DistributeNodes(nodes, kDirection); });
}

// As large as the node that was selected last.
template <diagram::SameSize kWhat>
void MakeSame(frmMain &window) {
    const diagram::Node *model = window.CurrentSurface().SelectedNode();
    if (!model) return;
    Arrange(window, [&](const auto &nodes) { diagram::MakeSameSize(nodes, *model, kWhat); });
}

using diagram::AlignTo;
using diagram::SameSize;
using diagram::Spread;
constexpr EntryKind kCommand = EntryKind::Command;
constexpr EntryKind kMenu = EntryKind::Menu;

constexpr CommandRow Row(const char *menu, const char *key, const char *caption, Routine routine,
                         const char *image, const char *tip) {
    return {menu, key, caption, kCommand, routine, image, "", "", Needs::Selection, false, tip};
}

// What stacks is put in front of the first separator (FormatMenu.h).
constexpr CommandRow kRows[] = {
    {"", "mnuArrange", "&Arrange", kMenu},
    Separator("mnuArrange", "mnuArrangeSep1"),
    {"mnuArrange", "mnuArrangeAlign", "&Align", kMenu},
    Row("mnuArrangeAlign", "keyAlignLeft", "Align &left", Align<AlignTo::Left>, "alignleft",
        "Lines up left edges"),
    Row("mnuArrangeAlign", "keyAlignCentre", "Align &centre", Align<AlignTo::Centre>, "aligncentre",
        "Lines up centers across"),
    Row("mnuArrangeAlign", "keyAlignRight", "Align &right", Align<AlignTo::Right>, "alignright",
        "Lines up right edges"),
    Separator("mnuArrangeAlign"),
    Row("mnuArrangeAlign", "keyAlignTop", "Align &top", Align<AlignTo::Top>, "aligntop",
        "Lines up upper edges"),
    Row("mnuArrangeAlign", "keyAlignMiddle", "Align &middle", Align<AlignTo::Middle>, "alignmiddle",
        "Lines up middles"),
    Row("mnuArrangeAlign", "keyAlignBottom", "Align &bottom", Align<AlignTo::Bottom>, "alignbottom",
        "Lines up lower edges"),
    {"mnuArrange", "mnuArrangeDistribute", "&Distribute", kMenu},
    Row("mnuArrangeDistribute", "keyDistributeAcross", "Distribute &horizontally", Distribute<Spread::Across>,
        "distributeacross", "Same gaps from left to right"),
    Row("mnuArrangeDistribute", "keyDistributeDown", "Distribute &vertically", Distribute<Spread::Down>,
        "distributedown", "Same gaps from top to bottom"),
    {"mnuArrange", "mnuArrangeSize", "Same &Size", kMenu},
    Row("mnuArrangeSize", "keySameWidth", "Same &width", MakeSame<SameSize::Width>, "samewidth",
        "Equal size"),
    Row("mnuArrangeSize", "keySameHeight", "Same &height", MakeSame<SameSize::Height>, "sameheight",
        "Equal size"),
    Row("mnuArrangeSize", "keySameSize", "Same &size", MakeSame<SameSize::Both>, "samesize",
        "Equal width and height"),
};

} // namespace

std::span<const CommandRow> ArrangeCommands() { return kRows; }

} // namespace mainwindow
