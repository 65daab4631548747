#include "timeline/AddTimelineLink.h"

#include "diagram/model/Surface.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/DateIndex.h"
#include "timeline/DateLanguage.h"
#include "timeline/DateRoutes.h"
#include "timeline/DateText.h"
#include "timeline/Following.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

bool WantsToSetUp(document::MapWindow &window) {
    return window.Desktop().messageBoxes.Show(
               settings::ReplaceTerms(QStringLiteral("You have not configured your timeline @NODEs yet. \r\r"
                                                     "Would you like to do this now?")),
               support::Buttons::YesNo, support::Icon::Question,
               settings::Terms().TITLE) == support::Answer::Yes;
}

// Asks for the settings. Where the user declines, or gives the form up, those that it shows are taken, so
// that the template node has a size in any case.
void SetUp(document::MapWindow &window, diagram::Surface &flow) {
    const bool shown = WantsToSetUp(window);
    diagram::Node &look = *LocateTimeLineTemplateNode(flow, true);
    TimelineSetupArgument argument{window, &flow, &look};
    QVariantMap choices;
    argument.choices = &choices;
    if (shown) document::Show(window, argument);
    if (shown && look.Width() != 0) return;
    argument.pressOk = true;
    support::Show(window.Desktop(), argument, window.Handle());
}

bool IsTimelineLink(const diagram::Link &link) { return !link.Selectable() && link.Marked(); }

// Removes the node's links for which that holds.
template <typename Condition>
void RemoveLinks(diagram::Node &node, Condition condition) {
    std::vector<diagram::Link *> links;
    for (diagram::Link *link : node.Links())
        if (condition(*link)) links.push_back(link);
    for (diagram::Link *link : links) node.Owner().Remove(*link);
}

void HideDateLink(diagram::Node &node) {
    for (diagram::Link *link : node.Links())
        if (IsTimelineLink(*link)) link->SetHidden(true);
}

// The dates, and behind them those of the nodes that they push on.
std::vector<NodeDate> WithFollowing(const diagram::Surface &flow, std::vector<NodeDate> dates) {
    if (!PushesFollowing(flow)) return dates;
    std::vector<NodeSpan> changed;
    for (const NodeDate &dated : dates)
        if (const std::optional<QDate> first = ParseDate(dated.date))
            changed.push_back({dated.node, {*first, dated.last}});
    for (const NodeSpan &next : Following(changed))
        dates.push_back({next.node, FormatDate(next.span.first, kDayPattern), next.span.last});
    return dates;
}

void GiveDate(diagram::Surface &flow, const NodeDate &dated, DateIndex &index) {
    RemoveLinks(*dated.node, IsTimelineLink);
    LocateTimelineNode(flow, dated.date, true, dated.node, &index);
    SetEndOfNode(*dated.node, dated.last);
    if (dated.last) LocateTimelineNode(flow, FormatDate(*dated.last, kMonthPattern), true, nullptr, &index);
}

void HideMonths(diagram::Surface &flow) {
    for (diagram::Node *month : LocateTimelineNodes(flow)) month->SetHidden(true);
}

} // namespace

void AddTimelineLink(document::MapWindow &window, diagram::Surface &Flow, diagram::Node &Node,
                     const QString &TheDate) {
    AddTimelineLinks(window, Flow, {{&Node, TheDate}});
}

void AddTimelineLinks(document::MapWindow &window, diagram::Surface &Flow, const std::vector<NodeDate> &dates,
                      const std::vector<diagram::Node *> &moved) {
    support::PassOn("AddTimelineLink", [&] {
        if (!IsConfigured(Flow)) SetUp(window, Flow);
        TranslateDates(Flow);
        const bool hidden = IsTimelineHidden(Flow);
        DateIndex index(Flow);
        const diagram::Node &look = *LocateTimeLineTemplateNode(Flow, true);
        for (const NodeDate &dated : WithFollowing(Flow, dates)) {
            GiveDate(Flow, dated, index);
            DressDateLinks(*dated.node, look);
            if (hidden) HideDateLink(*dated.node);
        }
        if (hidden) HideMonths(Flow);
        UpdateTimeLineNodes(window, Flow, true, moved);
    });
}

void RemoveTimelineLinks(diagram::Node &Node) {
    RemoveLinks(Node, [](const diagram::Link &link) {
        return !link.Source().Selectable() || !link.Destination().Selectable();
    });
    SetEndOfNode(Node, std::nullopt);
}

QString DateOfNode(const diagram::Node &Node) {
    for (const diagram::Link *link : Node.Links())
        if (IsTimelineLink(*link)) return document::GetTag(link->Destination(), document::tags::kTheDate);
    return {};
}

} // namespace timeline
