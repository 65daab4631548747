#include "diagram/layout/Layout.h"
#include "document/Tags.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/Commands.h"
#include "mainwindow/frmLayout.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/frmPics.h"
#include "mainwindow/LongTask.h"
#include "support/Error.h"
#include "support/Val.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

#include <QCoreApplication>

namespace mainwindow {

namespace {

// The months come back to their places whatever was laid out.
void ArrangeTimeline(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    if (timeline::LocateTimelineNodes(surface).empty()) return;
    const double align = support::Val(document::GetTag(surface, document::tags::kTimelineAlign));
    timeline::ArrangeTimeLineNodes(window, surface, int(align));
}

void mnuLayoutHExecute(frmMain &window) {
    const ActionGroup step(window.CurrentSurface());
    const LayoutTool &tool = frmPics::Shared().HFlow();
    LongTask task(window, QCoreApplication::translate("Layout", "Laying out"));
    const bool laidOut = diagram::LayOutInLayers(window.CurrentSurface(), tool.scope, tool.options,
                                                 [&] { return task.GoOn(); });
    if (laidOut) ArrangeTimeline(window); // else it was given up
}

template <typename Body>
void WithoutAWord(Body &&body) {
    try {
        body();
    } catch (const support::Error &) {
    }
}

// What is no tree stays as it is, without a word; the months are arranged all the same.
void mnuLayoutTreeExecute(frmMain &window) {
    const ActionGroup step(window.CurrentSurface());
    const LayoutTool &tool = frmPics::Shared().TFlow();
    WithoutAWord([&] { diagram::LayOutAsTree(window.CurrentSurface(), tool.scope, tool.options); });
    WithoutAWord([&] { ArrangeTimeline(window); });
}

void ShowOptions(frmMain &window, LayoutTool &tool, const QString &title) {
    LayoutFormArgument argument{tool, title};
    document::Show(window, argument);
}

void mnuLayoutHOptions(frmMain &window) {
    ShowOptions(window, frmPics::Shared().HFlow(),
                QCoreApplication::translate("Layout", "Hierarchical Layout"));
}
void mnuLayoutTreeOptions(frmMain &window) {
    ShowOptions(window, frmPics::Shared().TFlow(), QCoreApplication::translate("Layout", "Tree Layout"));
}

constexpr CommandRow kRows[] = {
    {"", "mnuLayout", "&Layout", EntryKind::Menu},
    {"mnuLayout", "mnuLayoutHExecute", "Hierarchical", EntryKind::Command, mnuLayoutHExecute, "layers"},
    {"mnuLayout", "mnuLayoutTreeExecute", "Tree", EntryKind::Command, mnuLayoutTreeExecute, "tree"},
    Separator("mnuLayout"),
    {"mnuLayout", "mnuLayoutHOptions", "&Hierarchical layout options...", EntryKind::Command,
     mnuLayoutHOptions},
    {"mnuLayout", "mnuLayoutTreeOptions", "&Tree layout options...", EntryKind::Command,
     mnuLayoutTreeOptions},
};

} // namespace

std::span<const CommandRow> LayoutCommands() { return kRows; }

} // namespace mainwindow
