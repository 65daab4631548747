// Commands that line up what is selected, and show it. They stand in no menu.
#include "diagram/layout/Align.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/Commands.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

namespace {

// One step; dated nodes take the ends of their links along, and those that stay at their dates settle there.
template <typename Change>
void Arrange(frmMain &window, Change change) {
    diagram::Surface &surface = window.CurrentSurface();
    const ActionGroup step(surface);
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

QRectF SelectedArea(diagram::Scene &scene) {
    QRectF area;
    for (const diagram::Node *node : scene.Model().SelectedNodes()) area |= scene.Bounds(*node);
    for (const diagram::Link *link : scene.Model().SelectedLinks()) area |= scene.Bounds(*link);
    return area;
}

void keyZoomSelection(frmMain &window) {
    constexpr double kTwipsOfPixel = 15, kShare = 0.85; // of the window that it fills
    diagram::SurfaceView &view = window.CurrentView();
    const QRectF area = SelectedArea(view.TheScene());
    if (area.isEmpty()) return;
    const QSizeF seen = QSizeF(view.viewport()->size()) * kTwipsOfPixel;
    const double scale = kShare * qMin(seen.width() / area.width(), seen.height() / area.height());
    view.ZoomAt(qBound(10.0, scale * 100, 800.0), view.FromSurface(area.center()));
    QRectF around(QPointF(), seen * (100 / view.ShownZoom()));
    around.moveCenter(area.center());
    view.EnsureVisible(around);
}

using diagram::AlignTo;
using diagram::SameSize;
using diagram::Spread;
constexpr EntryKind kCommand = EntryKind::Command;

constexpr CommandRow Row(const char *key, const char *caption, Routine routine, const char *image,
                         const char *tip) {
    return {nullptr, key, caption, kCommand, routine, image, "", "", Needs::Selection, false, tip};
}

constexpr CommandRow kRows[] = {
    Row("keyAlignLeft", "Align left", Align<AlignTo::Left>, "alignleft", "Lines up left edges"),
    Row("keyAlignCentre", "Align centre", Align<AlignTo::Centre>, "aligncentre", "Lines up centers across"),
    Row("keyAlignRight", "Align right", Align<AlignTo::Right>, "alignright", "Lines up right edges"),
    Row("keyAlignTop", "Align top", Align<AlignTo::Top>, "aligntop", "Lines up upper edges"),
    Row("keyAlignMiddle", "Align middle", Align<AlignTo::Middle>, "alignmiddle", "Lines up middles"),
    Row("keyAlignBottom", "Align bottom", Align<AlignTo::Bottom>, "alignbottom", "Lines up lower edges"),
    Row("keyDistributeAcross", "Distribute horizontally", Distribute<Spread::Across>, "distributeacross",
        "Same gaps from left to right"),
    Row("keyDistributeDown", "Distribute vertically", Distribute<Spread::Down>, "distributedown",
        "Same gaps from top to bottom"),
    Row("keySameWidth", "Same width", MakeSame<SameSize::Width>, "samewidth", "Equal size"),
    Row("keySameHeight", "Same height", MakeSame<SameSize::Height>, "sameheight", "Equal size"),
    Row("keySameSize", "Same size", MakeSame<SameSize::Both>, "samesize", "Equal width and height"),
    Row("keyZoomSelection", "Zoom to selection", keyZoomSelection, "zoomselection",
        "Shows the selection as large as the window allows"),
};

} // namespace

std::span<const CommandRow> ArrangeCommands() { return kRows; }

} // namespace mainwindow
