#include "diagram/layout/Layouts.h"
#include "diagram/view/Glide.h"
#include "diagram/view/SurfaceView.h"
#include "document/LevelLanes.h"
#include "mainwindow/BringIntoSight.h"
#include "mainwindow/Commands.h"
#include "mainwindow/frmLayout.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/frmPics.h"
#include "mainwindow/LongTask.h"
#include "mainwindow/UndoStep.h"
#include "mainwindow/WindowStatus.h"
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

// What has moved is seen on its way, and not all of it goes out of sight.
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

// While it stands the view takes no notice of the surface.
class Unfollowed {
public:
    explicit Unfollowed(diagram::SurfaceView &view) : view_(view) { view_.SetFollowing(false); }
    ~Unfollowed() { view_.SetFollowing(true); }
    Unfollowed(const Unfollowed &) = delete;
    Unfollowed &operator=(const Unfollowed &) = delete;

private:
    diagram::SurfaceView &view_;
};

// The routes of the links that were laid out, which would be asked for all at once when the step closes, or
// by the view. False when it was given up.
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

// One step; what has moved is shown when the step is over. False when it was given up at the end.
template <typename LayOut>
bool Execute(frmMain &window, LayOut &&layOut) {
    const diagram::ItemPlaces before = diagram::PlacesOf(window.CurrentSurface());
    bool stays = true;
    {
        UndoStep step(window.CurrentSurface());
        LongTask task(window, QCoreApplication::translate("Layout", "Laying out"), LongTask::Bar::IsTheWorks);
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

// What the user has last chosen, in whatever window and run.
LayoutTool &HierarchicalTool() {
    LayoutTool &tool = frmPics::Shared().HFlow();
    const int together = settings::GetSet(QLatin1String(kTogether)).toInt();
    const bool isKnown = together >= 0 && together <= int(document::Together::Groups);
    tool.together = isKnown ? document::Together(together) : document::Together::Nothing;
    return tool;
}

// False when it was given up.
bool LayOutInLayers(frmMain &window, diagram::LayoutScope scope) {
    const diagram::ItemPlaces before = diagram::PlacesOf(window.CurrentSurface());
    const LayoutTool &tool = HierarchicalTool();
    auto result = diagram::LayoutResult::GivenUp;
    {
        UndoStep step(window.CurrentSurface());
        LongTask task(window, QCoreApplication::translate("Layout", "Laying out"));
        diagram::LayoutOrder order{scope, tool.options};
        order.cluster =
            document::ClustersOf(tool.together, window.clsSettings().Levels(), window.clsSettings().Groups());
        order.advance = [&](double) { return task.GoOn(); };
        result = diagram::FindLayout(QStringLiteral("hierarchical"))->layOut(window.CurrentSurface(), order);
        if (result != diagram::LayoutResult::GivenUp) ArrangeTimeline(window);
        if (!FindRoutes(window, task)) {
            step.TakeBack();
            result = diagram::LayoutResult::GivenUp;
        }
    }
    ShowMoved(window, before);
    return result != diagram::LayoutResult::GivenUp;
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
void WithoutAWord(Body &&body) {
    try {
        body();
    } catch (const support::Error &) {
    }
}

// What is no tree is laid out by a spanning tree of it; what fails stays as it is, without a word. The months
// are arranged all the same.
void mnuLayoutTreeExecute(frmMain &window) {
    auto result = diagram::LayoutResult::LaidOut;
    const bool stays = Execute(window, [&](LongTask &task) {
        WithoutAWord([&] { result = LayOut(window, "tree", frmPics::Shared().TFlow(), task); });
        WithoutAWord([&] { ArrangeTimeline(window); });
    });
    if (stays && result == diagram::LayoutResult::AsSpanningTree)
        window.Status().TellInPassing(QCoreApplication::translate(
            "Layout", "This is no tree: it was laid out along some of its links, the others lead round."));
}

// The others take direction, distances and scope from the hierarchical layout.
template <const char *kName>
void LayOutAs(frmMain &window) {
    Execute(window, [&](LongTask &task) {
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
