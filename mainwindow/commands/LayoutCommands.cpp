// The menu Layout.
#include "diagram/layout/Layouts.h"
#include "diagram/view/Glide.h"
#include "diagram/view/SurfaceView.h"
#include "document/LevelLanes.h"
#include "mainwindow/edits/BringIntoSight.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/forms/frmLayout.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/window/frmPics.h"
#include "mainwindow/window/LongTask.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "timeline/Arrange.h"

#include <algorithm>
#include <QCoreApplication>

namespace mainwindow {

namespace {

// The months come back to their places whatever was laid out.
void ArrangeTimeline(frmMain &window) { timeline::ArrangeAgain(window, window.CurrentSurface()); }

// Animates the way of what has moved, and keeps some of it in sight: the topmost node where all would go out
// of it.
void ShowMoved(frmMain &window, const diagram::ItemPlaces &before) {
    diagram::SurfaceView &view = window.CurrentView();
    std::vector<diagram::Node *> nodes;
    for (diagram::Node &node : window.CurrentSurface().Nodes())
        if (node.Selectable() && !node.Hidden()) nodes.push_back(&node);
    const auto above = [](const diagram::Node *a, const diagram::Node *b) { return a->Top() < b->Top(); };
    if (!nodes.empty()) std::iter_swap(nodes.begin(), std::ranges::min_element(nodes, above));
    BringIntoSight(view, nodes);
    diagram::Glide::Begin(view, before);
}

// The view doesn't follow the surface for as long as the object lives.
class Unfollowed {
public:
    explicit Unfollowed(diagram::SurfaceView &view) : view_(view) { view_.SetFollowing(false); }
    ~Unfollowed() { view_.SetFollowing(true); }
    Unfollowed(const Unfollowed &) = delete;
    Unfollowed &operator=(const Unfollowed &) = delete;

private:
    diagram::SurfaceView &view_;
};

// Routes the links one by one, which the end of the step or the view would else do all at once, without
// asking whether to go on. False when it was given up.
bool FindRoutes(frmMain &window, LongTask &task) {
    constexpr std::size_t kAtOnce = 32;
    const Unfollowed unfollowed(window.CurrentView());
    const auto &links = window.CurrentSurface().Links();
    for (std::size_t i = 0; i < links.size(); ++i) {
        links[i]->Route();
        if (i % kAtOnce == 0 && !task.GoOn()) return false;
    }
    return true;
}

// Lays out as one step of undo and shows what has moved once that is closed. False when it was given up while
// the links were routed: then nothing has changed.
template <typename LayOut>
bool Execute(frmMain &window, LongTask::Bar bar, LayOut &&layOut) {
    const diagram::ItemPlaces before = diagram::PlacesOf(window.CurrentSurface());
    bool stays = true;
    {
        HandlerStep step(window.CurrentSurface());
        LongTask task(window, QCoreApplication::translate("Layout", "Laying out"), bar);
        layOut(task);
        stays = FindRoutes(window, task);
        if (!stays) step.TakeBack();
    }
    ShowMoved(window, before);
    return stays;
}

diagram::LayoutResult LayOut(frmMain &window, const char *name, const LayoutTool &tool, LongTask &task) {
    diagram::LayoutOrder order{tool.scope, tool.options,
                               document::LanesByLevel(window.clsSettings().Levels())};
    order.advance = [&task](double done) { return task.GoOn(done); };
    return diagram::FindLayout(QLatin1String(name))->layOut(window.CurrentSurface(), order);
}

constexpr char kTogether[] = "LayoutTogether";

// The tool of the hierarchical layout, with what is kept together as the settings have it.
LayoutTool &HierarchicalTool() {
    LayoutTool &tool = frmPics::Shared().HFlow();
    const int together = settings::GetSet(QLatin1String(kTogether)).toInt();
    const bool isKnown = together >= 0 && together <= int(document::Together::Groups);
    tool.together = isKnown ? document::Together(together) : document::Together::Nothing;
    return tool;
}

// False when it was given up.
bool LayOutInLayers(frmMain &window, diagram::LayoutScope scope) {
    const LayoutTool &tool = HierarchicalTool();
    auto result = diagram::LayoutResult::GivenUp;
    const bool stays = Execute(window, LongTask::Bar::ByTime, [&](LongTask &task) {
        diagram::LayoutOrder order{scope, tool.options};
        order.cluster =
            document::ClustersOf(tool.together, window.clsSettings().Levels(), window.clsSettings().Groups());
        order.advance = [&](double) { return task.GoOn(); };
        result = diagram::FindLayout(QStringLiteral("hierarchical"))->layOut(window.CurrentSurface(), order);
        if (result != diagram::LayoutResult::GivenUp) ArrangeTimeline(window);
    });
    return stays && result != diagram::LayoutResult::GivenUp;
}

void mnuLayoutHExecute(frmMain &window) { LayOutInLayers(window, frmPics::Shared().HFlow().scope); }

// The hierarchical layout of what is selected, whatever the options say of the scope.
void mnuLayoutSelection(frmMain &window) {
    if (diagram::SubjectOf(window.CurrentSurface(), diagram::LayoutScope::Selection).nodes.size() < 2)
        return window.Status().TellInPassing(settings::ReplaceTerms(
            QCoreApplication::translate("Layout", "Select two or more @NODEs to lay them out.")));
    if (LayOutInLayers(window, diagram::LayoutScope::Selection)) window.clsSettings().Dirty = true;
}

template <typename Body>
void IgnoringErrors(Body &&body) {
    try {
        body();
    } catch (const support::Error &) {
    }
}

// What is no tree is laid out by a spanning tree of it. Where the layout fails the nodes stay where they are,
// and nobody is told; the months are arranged all the same.
void mnuLayoutTreeExecute(frmMain &window) {
    auto result = diagram::LayoutResult::LaidOut;
    const bool stays = Execute(window, LongTask::Bar::ByWork, [&](LongTask &task) {
        IgnoringErrors([&] { result = LayOut(window, "tree", frmPics::Shared().TFlow(), task); });
        IgnoringErrors([&] { ArrangeTimeline(window); });
    });
    if (stays && result == diagram::LayoutResult::AsSpanningTree)
        window.Status().TellInPassing(QCoreApplication::translate(
            "Layout", "This is no tree: it was laid out along some of its links, the others lead round."));
}

// The others take direction, distances and scope from the hierarchical layout.
template <const char *kName>
void LayOutAs(frmMain &window) {
    Execute(window, LongTask::Bar::ByWork, [&](LongTask &task) {
        const auto result = LayOut(window, kName, frmPics::Shared().HFlow(), task);
        if (result != diagram::LayoutResult::GivenUp) ArrangeTimeline(window);
    });
}
constexpr char kRadial[] = "radial", kOrganic[] = "organic", kCircular[] = "circular", kLevels[] = "levels";

void mnuLayoutHOptions(frmMain &window) {
    LayoutTool &tool = HierarchicalTool();
    LayoutFormArgument argument{tool, QCoreApplication::translate("Layout", "Hierarchical Layout"), true};
    if (document::Show(window, argument))
        settings::SaveSet(QLatin1String(kTogether), QString::number(int(tool.together)));
}
void mnuLayoutTreeOptions(frmMain &window) {
    LayoutFormArgument argument{frmPics::Shared().TFlow(),
                                QCoreApplication::translate("Layout", "Tree Layout")};
    document::Show(window, argument);
}

constexpr CommandRow Kind(const char *key, const char *caption, Routine routine, const char *image,
                          const char *tip) {
    return {"mnuLayout",    key,   caption, EntryKind::Command, routine, image, "", "",
            Needs::Nothing, false, tip};
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
    Separator("mnuLayout", "mnuLayoutSep2"),
    Kind("mnuLayoutRadial", "&Radial", LayOutAs<kRadial>, "radial",
         "Rings around the middle; star, mind map"),
    Kind("mnuLayoutOrganic", "&Organic", LayOutAs<kOrganic>, "organic",
         "As springs would draw it; network, force"),
    Kind("mnuLayoutCircular", "&Circular", LayOutAs<kCircular>, "circular",
         "On circles with few crossings; ring"),
    Kind("mnuLayoutLevels", "By &Level", LayOutAs<kLevels>, "lanes",
         "A lane for each Level; swim lanes, grid"),
    Separator("mnuLayout", "mnuLayoutSep3"),
    {"mnuLayout", "mnuLayoutSelection", "Lay Out &Selection", EntryKind::Command, mnuLayoutSelection,
     "layers", "", "", Needs::Selection, false,
     "Hierarchical, only what is selected; all else stays in place; part"},
};

} // namespace

std::span<const CommandRow> LayoutCommands() { return kRows; }

} // namespace mainwindow
