#include "mainwindow/commands/TimelineCommands.h"

#include "diagram/model/Actions.h"
#include "diagram/view/SurfaceView.h"
#include "document/DefaultNodes.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "mainwindow/commands/CalendarCommands.h"
#include "mainwindow/commands/DateKeys.h"
#include "mainwindow/edits/BringIntoSight.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/UndoRedo.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/LineUp.h"
#include "timeline/MoveDates.h"
#include "timeline/setup/frmDate.h"
#include "timeline/Strip.h"
#include "timeline/Tidy.h"
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

void Tell(frmMain &window, const QString &text) {
    window.Status().TellInPassing(settings::ReplaceTerms(text));
}

QString WhereTo(const timeline::MovedDates &moved) {
    const QString first = timeline::InFull(moved.first);
    return moved.first == moved.last ? first
                                     : frmMain::tr("%1 to %2").arg(first, timeline::InFull(moved.last));
}

QString Undated(int count) {
    return count == 1 ? frmMain::tr("one @NODE without a date was left alone")
                      : frmMain::tr("%1 @NODEs without a date were left alone").arg(count);
}

void SetDates(frmMain &window, const std::vector<diagram::Node *> &nodes,
              const timeline::DateFormArgument &form) {
    std::vector<timeline::NodeDate> dates;
    for (diagram::Node *node : nodes) {
        if (form.date)
            dates.push_back({node, timeline::FormatDate(*form.date, timeline::kDayPattern), form.last});
        else
            timeline::RemoveTimelineLinks(*node);
    }
    if (form.date) timeline::AddTimelineLinks(window, window.CurrentSurface(), dates);
}

// The form for the dates of the nodes.
timeline::DateFormArgument FormOf(frmMain &window, const std::vector<diagram::Node *> &nodes) {
    const std::vector<std::optional<QDate>> former = timeline::DatesOf(nodes);
    const QDate today = window.Desktop().clock.Now().date();
    timeline::DateFormArgument form{.date = former.front(),
                                    .view = timeline::ViewFrom(today, window.CurrentSurface()),
                                    .several = former};
    const auto lastOf = [](const diagram::Node *node) {
        const std::optional<timeline::Span> span = timeline::SpanOfNode(*node);
        return span ? span->last : std::nullopt;
    };
    form.last = lastOf(nodes.front());
    form.lastsDiffer =
        std::ranges::any_of(nodes, [&](const auto *node) { return lastOf(node) != form.last; });
    return form;
}

std::vector<diagram::Node *> DatedNodes(const diagram::Surface &surface) {
    std::vector<diagram::Node *> nodes;
    for (diagram::Node &node : surface.Nodes())
        if (node.Selectable() && !node.Hidden() && !timeline::DateOfNode(node).isEmpty())
            nodes.push_back(&node);
    return nodes;
}

bool HasMonths(const diagram::Surface &surface) { return !timeline::LocateTimelineNodes(surface).empty(); }

void LineUpOnce(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    const timeline::LinedUp result = timeline::LineUp(window, surface, timeline::RowOrder::Choose);
    if (result.dated == 0 && timeline::IsTimelineHidden(surface) && HasMonths(surface))
        return Tell(window, frmMain::tr("The timeline is hidden; View, Timeline shows it."));
    if (result.dated == 0) return Tell(window, frmMain::tr("No @NODE has a date yet; Ctrl+T gives one."));
    if (result.moved == 0) return Tell(window, frmMain::tr("Every @NODE stands at its date."));
    window.ClickTab();
    const std::vector<diagram::Node *> selected = NodesToDate(surface);
    BringIntoSight(window.CurrentView(), selected.empty() ? DatedNodes(surface) : selected);
    if (!timeline::KeepsNodesAtDates(surface))
        Tell(window, frmMain::tr("View, Dates, Keep @NODEs at their dates does so for good: a drag along the "
                                 "timeline then changes a date."));
}

void ChooseLanes(frmMain &window, timeline::Lanes lanes) {
    diagram::Surface &surface = window.CurrentSurface();
    const HandlerStep step(surface);
    if (timeline::LanesOf(surface) != lanes) window.clsSettings().Dirty = true;
    timeline::SetLanes(surface, lanes);
    if (timeline::KeepsNodesAtDates(surface)) LineUpOnce(window);
    ShowTimelineTick(window);
}

constexpr std::pair<const char *, timeline::Lanes> kLaneEntries[] = {
    {"mnuViewLanesNone", timeline::Lanes::None},
    {"mnuViewLanesLevel", timeline::Lanes::Level},
    {"mnuViewLanesGroup", timeline::Lanes::Group},
};

} // namespace

std::vector<diagram::Node *> NodesToDate(const diagram::Surface &surface) {
    std::vector<diagram::Node *> nodes = surface.SelectedNodes();
    std::erase_if(nodes, [](const diagram::Node *node) { return !node->Selectable(); });
    return nodes;
}

void TellMoved(frmMain &window, const std::optional<timeline::MovedDates> &moved) {
    if (!moved) return Tell(window, timeline::YearsInWords());
    if (moved->moved == 0) return Tell(window, frmMain::tr("No selected @NODE has a date."));
    const QString where = WhereTo(*moved);
    Tell(window, moved->undated == 0 ? where : where + QStringLiteral("; ") + Undated(moved->undated));
}

// ClickTab sets the check to whether months are shown now.
void mnuViewTimeline(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    {
        const HandlerStep step(surface);
        timeline::ShowTimeline(window, surface, window.MenuValue(QStringLiteral("mnuViewTimeline")));
    }
    window.ClickTab();
}

void mnuViewDefaultNode(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    const document::cLevels &levels = window.clsSettings().Levels();
    const document::cLevel former = levels.count() > 0 ? levels.Item(1) : document::cLevel();
    const std::uint64_t before = surface.Actions().Revision().step;
    {
        HandlerStep step(surface);
        if (!ShowSetup(window, *document::LocateTemplateNode(surface, true), true)) return step.TakeBack();
        document::ApplyDefaults(surface);
    }
    if (const document::cLevel *level = levels.NewEnum().Find(former.Key))
        window.History().Note(
            {before, surface.Actions().Revision().step, former.Key, former.Color, level->Color});
}

void mnuViewTimelineSetup(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    HandlerStep step(surface);
    if (!ShowSetup(window, *timeline::LocateTimeLineTemplateNode(surface, true), false))
        return step.TakeBack();
    timeline::ArrangeTimeLineNodes(window, surface, timeline::ArrangementOf(surface));
}

void keyDate(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    const std::vector<diagram::Node *> nodes = NodesToDate(surface);
    if (nodes.empty()) return Tell(window, frmMain::tr("Select a @NODE; links have no date."));
    timeline::DateFormArgument form = FormOf(window, nodes);
    if (!document::Show(window, form)) return;
    std::optional<timeline::MovedDates> moved;
    const bool isFirst = !HasMonths(surface);
    const HandlerStep step(surface);
    if (form.step)
        moved = timeline::MoveDates(window, surface, nodes, *form.step);
    else
        SetDates(window, nodes, form);
    window.clsSettings().Dirty = true;
    window.ClickTab();
    BringIntoSight(window.CurrentView(), nodes);
    if (moved) TellMoved(window, moved);
    // Only for the first date: where the strip was extended, the status bar may say how far.
    if (isFirst && form.date && !form.last && !timeline::KeepsNodesAtDates(surface))
        Tell(window, frmMain::tr("Ctrl+Shift+T lines @NODEs up by date."));
    if ((form.date || moved) && timeline::IsTimelineHidden(surface))
        Tell(window, frmMain::tr("The timeline is hidden; View, Timeline shows it."));
}

using Unit = timeline::DateStep::Unit;
void keyDayLater(frmMain &window) { DateKeys::Of(window).Move({1, Unit::Day}); }
void keyDayEarlier(frmMain &window) { DateKeys::Of(window).Move({-1, Unit::Day}); }
void keyWeekLater(frmMain &window) { DateKeys::Of(window).Move({1, Unit::Week}); }
void keyWeekEarlier(frmMain &window) { DateKeys::Of(window).Move({-1, Unit::Week}); }

void mnuViewTimelineTidy(frmMain &window) {
    const HandlerStep step(window.CurrentSurface());
    const int gone = timeline::TidyTimeline(window, window.CurrentSurface());
    if (gone == 0) return Tell(window, frmMain::tr("Every month of the timeline is needed."));
    window.ClickTab();
    Tell(window, gone == 1 ? frmMain::tr("One month has gone that no @NODE needs.")
                           : frmMain::tr("%1 months have gone that no @NODE needs.").arg(gone));
}

// Success isn't told, as the status bar may say how far the strip was filled.
void mnuViewTimelineFill(frmMain &window) {
    const HandlerStep step(window.CurrentSurface());
    const int come = timeline::FillInMissingMonths(window, window.CurrentSurface());
    if (come == 0) return Tell(window, frmMain::tr("No months are missing."));
    window.ClickTab();
}

void mnuViewTimelineLineUp(frmMain &window) {
    const HandlerStep step(window.CurrentSurface());
    LineUpOnce(window);
}

void mnuViewTimelineKeep(frmMain &window) {
    const QString key = QStringLiteral("mnuViewTimelineKeep");
    const HandlerStep step(window.CurrentSurface());
    timeline::SetKeepsNodesAtDates(window.CurrentSurface(), window.MenuValue(key));
    window.clsSettings().Dirty = true;
    if (window.MenuValue(key)) LineUpOnce(window);
}

void mnuViewTimelinePush(frmMain &window) {
    const HandlerStep step(window.CurrentSurface());
    timeline::SetPushesFollowing(window.CurrentSurface(),
                                 window.MenuValue(QStringLiteral("mnuViewTimelinePush")));
    window.clsSettings().Dirty = true;
}

void mnuViewLanesNone(frmMain &window) { ChooseLanes(window, timeline::Lanes::None); }
void mnuViewLanesLevel(frmMain &window) { ChooseLanes(window, timeline::Lanes::Level); }
void mnuViewLanesGroup(frmMain &window) { ChooseLanes(window, timeline::Lanes::Group); }

void RenameLanes(frmMain &window) {
    for (const int slot : window.AddFlow1().Indices()) {
        diagram::Surface &surface = window.AddFlow1()[slot];
        if (timeline::LanesOf(surface) == timeline::Lanes::None) continue;
        const HandlerStep step(surface);
        timeline::NoteLanes(window, surface);
    }
}

void ShowTimelineTick(frmMain &window) {
    ShowCalendarTicks(window);
    const diagram::Surface &surface = window.CurrentSurface();
    window.SetMenuValue(QStringLiteral("mnuViewTimelineKeep"), timeline::KeepsNodesAtDates(surface));
    window.SetMenuValue(QStringLiteral("mnuViewTimelinePush"), timeline::PushesFollowing(surface));
    const timeline::Lanes lanes = timeline::LanesOf(surface);
    for (const auto &[key, each] : kLaneEntries) window.SetMenuValue(QLatin1String(key), lanes == each);
    const std::vector<diagram::Node *> months = timeline::LocateTimelineNodes(window.CurrentSurface());
    window.SetMenuValue(
        QStringLiteral("mnuViewTimeline"),
        std::ranges::any_of(months, [](const diagram::Node *month) { return !month->Hidden(); }));
}

} // namespace mainwindow
