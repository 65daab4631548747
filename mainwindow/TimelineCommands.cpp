#include "mainwindow/TimelineCommands.h"

#include "app/settings/Settings.h"
#include "document/DefaultNodes.h"
#include "document/Tags.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/frmMain.h"
#include "support/Val.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/setup/frmDate.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>

namespace mainwindow {

namespace {

bool ShowSetup(frmMain &window, diagram::Node &look, bool asTemplate) {
    LevelColours former = ColoursOf(window.clsSettings().Levels());
    const auto follow = [&window, &former] {
        window.DoFixColors(former);
        former = ColoursOf(window.clsSettings().Levels());
    };
    timeline::TimelineSetupArgument argument{window, &window.CurrentSurface(), &look, asTemplate, false,
                                             follow};
    return document::Show(window, argument);
}

// The nodes that the user selected; links of the timeline end on others.
std::vector<diagram::Node *> NodesToDate(const diagram::Surface &surface) {
    std::vector<diagram::Node *> nodes = surface.SelectedNodes();
    std::erase_if(nodes, [](const diagram::Node *node) { return !node->Selectable(); });
    return nodes;
}

} // namespace

// The check shows what has become of the months.
void mnuViewTimeline(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    {
        const ActionGroup step(surface);
        timeline::ShowHideTimelineNodes(surface, window.MenuValue(QStringLiteral("mnuViewTimeline")));
    }
    window.ClickTab();
}

void mnuViewDefaultNode(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    ActionGroup step(surface);
    if (!ShowSetup(window, *document::LocateTemplateNode(surface, true), true)) return step.TakeBack();
    document::ApplyDefaults(surface);
}

void mnuViewTimelineSetup(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    ActionGroup step(surface);
    if (!ShowSetup(window, *timeline::LocateTimeLineTemplateNode(surface, true), false))
        return step.TakeBack();
    const double align = support::Val(document::GetTag(surface, document::tags::kTimelineAlign));
    timeline::ArrangeTimeLineNodes(window, surface, int(align));
}

void keyDate(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    const std::vector<diagram::Node *> nodes = NodesToDate(surface);
    if (nodes.empty()) return;
    timeline::DateFormArgument form{timeline::ParseDate(timeline::DateOfNode(*nodes.front())),
                                    window.Desktop().clock.Now().date()};
    if (!document::Show(window, form)) return;
    const ActionGroup step(surface);
    std::vector<timeline::NodeDate> dates;
    for (diagram::Node *node : nodes) {
        if (form.date)
            dates.push_back({node, timeline::FormatDate(*form.date, timeline::kDayPattern)});
        else
            timeline::RemoveTimelineLinks(*node);
    }
    if (form.date) timeline::AddTimelineLinks(window, surface, dates);
    window.clsSettings().Dirty = true;
    window.ClickTab();
}

void ShowTimelineTick(frmMain &window) {
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(window.CurrentSurface());
    window.SetMenuValue(
        QStringLiteral("mnuViewTimeline"),
        std::ranges::any_of(months, [](const diagram::Node *month) { return !month->Hidden(); }));
}

} // namespace mainwindow
