#include "timeline/TimelineNodes.h"

#include "diagram/model/Sights.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "timeline/DateIndex.h"
#include "timeline/DateLanguage.h"
#include "timeline/DateText.h"

#include <algorithm>

namespace timeline {

namespace {

using document::tags::kMonthHidden;
using document::tags::kTheDate;

diagram::Node &AddTimelineNode(diagram::Surface &flow, const QString &date) {
    diagram::Node &node = flow.Nodes().Add(0, 0, 0, 0);
    node.SetMarked(true);
    node.SetText(date);
    document::SetTag(node, kTheDate, date);
    node.SetSelectable(false);
    return node;
}

template <typename Condition>
diagram::Node *FirstNode(const diagram::Surface &flow, Condition condition) {
    for (diagram::Node &node : flow.Nodes())
        if (IsTimelineMaterial(node) && condition(document::GetTag(node, kTheDate))) return &node;
    return nullptr;
}

diagram::Node *NodeOfDate(const diagram::Surface &flow, const QString &date, const DateIndex *index) {
    if (index) return index->Find(date);
    if (diagram::Node *exact = FirstNode(flow, [&](const QString &each) { return each == date; }))
        return exact;
    const std::optional<DateMeant> meant = MeaningOf(date);
    if (!meant) return nullptr;
    return FirstNode(flow, [&](const QString &each) { return MeaningOf(each) == meant; });
}

// The date in the pattern; what is no date stays as it is.
QString InPattern(const QString &date, const QString &pattern) {
    const QString text = Reformatted(date, pattern);
    return text.isEmpty() ? date : text;
}

diagram::Node &AddDay(diagram::Surface &flow, const QString &date, DateIndex *index) {
    LocateTimelineNode(flow, InPattern(date, kMonthPattern), true, nullptr, index);
    diagram::Node &day = AddTimelineNode(flow, InPattern(date, kDayPattern));
    day.SetHidden(true);
    return day;
}

void CopyLook(const diagram::Node &from, diagram::Node &month) {
    month.SetLook(from.Look());
    month.SetxTextMargin(from.xTextMargin());
    month.SetyTextMargin(from.yTextMargin());
    month.SetPicture(from.Picture());
    if (from.Width() == 0) return; // not configured: the months stay as large as they are
    month.SetHeight(from.Height());
    month.SetWidth(from.Width());
}

bool IsHiddenByUser(const diagram::Node *month) { return document::IsOn(*month, kMonthHidden); }

// A strip of which the user has hidden every month by hand could never be shown.
void ForgetHidingByHandOfAll(const std::vector<diagram::Node *> &months) {
    if (!std::ranges::all_of(months, IsHiddenByUser)) return;
    for (diagram::Node *month : months) document::SetSwitch(*month, kMonthHidden, false);
}

void ShowHideMonth(diagram::Node &month, bool shown, const diagram::Node *look) {
    const bool byUser = IsHiddenByUser(&month);
    month.SetHidden(!shown || byUser);
    const bool folded = !document::GetTag(month, document::tags::kMonthFolded).isEmpty();
    if (look && look->Width() != 0 && !byUser && !folded) month.SetWidth(look->Width());
}

// The links of all days of the month.
std::vector<diagram::Link *> DateLinks(const DateIndex &index, const diagram::Node &month, int century) {
    std::vector<diagram::Link *> links;
    const std::optional<QDate> first = ParseDate(month.Text(), QLocale(), century);
    for (int day = 1; first && day <= first->daysInMonth(); ++day)
        if (const diagram::Node *node = index.FindDay(QDate(first->year(), first->month(), day)))
            for (diagram::Link *link : node->Links()) links.push_back(link);
    return links;
}

// Links of hidden nodes stay as they are.
void ShowHideDateLinks(const diagram::Node &month, bool shown, const DateIndex &index, int century) {
    for (diagram::Link *link : DateLinks(index, month, century))
        if (!link->Source().Hidden()) link->SetHidden(!shown);
}

} // namespace

diagram::Node *LocateTimeLineTemplateNode(diagram::Surface &Flow, bool Create) {
    if (diagram::Node *found = document::FindHiddenNode(Flow, kTemplateNodeText)) return found;
    if (!Create) return nullptr;
    CreateTimelineTemplateNode(Flow);
    return LocateTimeLineTemplateNode(Flow, false);
}

const diagram::Node *TemplateOf(const diagram::Surface &flow) {
    for (const diagram::Node &node : flow.Nodes())
        if (node.Hidden() && node.Text() == kTemplateNodeText) return &node;
    return nullptr;
}

bool IsConfigured(diagram::Surface &Flow) {
    const diagram::Node *look = LocateTimeLineTemplateNode(Flow, false);
    return look && look->Width() != 0;
}

void CreateTimelineTemplateNode(diagram::Surface &Flow) {
    if (!document::FindHiddenNode(Flow, kTemplateNodeText)) document::AddHiddenNode(Flow, kTemplateNodeText);
}

int CountOccurencies(const QString &Text, const QString &Find) {
    return Find.isEmpty() ? 0 : int(Text.count(Find));
}

bool IsTimelineMaterial(const diagram::Node &node) { return !node.Selectable() && node.Marked(); }

bool HasMonthForm(const QString &text) { return text.count(u'-') == 1 || text.count(u' ') == 1; }

std::vector<diagram::Node *> LocateTimelineNodes(const diagram::Surface &Flow) {
    std::vector<diagram::Node *> months;
    for (diagram::Node &node : Flow.Nodes())
        if (IsTimelineMaterial(node) && HasMonthForm(node.Text())) months.push_back(&node);
    return months;
}

diagram::Node *LocateTimelineNode(diagram::Surface &Flow, const QString &TheDate, bool Create,
                                  diagram::Node *LinkFrom, DateIndex *index) {
    return support::PassOn("LocateTimelineNode", [&]() -> diagram::Node * {
        diagram::Node *found = NodeOfDate(Flow, TheDate, index);
        if (!found && !Create) return nullptr;
        if (!found) {
            found = LinkFrom ? &AddDay(Flow, TheDate, index) : &AddTimelineNode(Flow, TheDate);
            if (index) index->Add(*found);
        }
        if (LinkFrom) {
            diagram::Link &link = LinkFrom->Links().Add(*found);
            link.SetSelectable(false);
            link.SetMarked(true);
        }
        return found;
    });
}

void CopyTemplateLook(diagram::Surface &Flow) {
    const diagram::Node &look = *LocateTimeLineTemplateNode(Flow, true);
    for (diagram::Node *month : LocateTimelineNodes(Flow))
        if (!month->Hidden()) CopyLook(look, *month);
}

bool NodeIsTimeline(const diagram::Node &Node) { return IsTimelineMaterial(Node) && Node.Hidden(); }

int DaysPerMonth(const QString &Month) { return CDate(Month).daysInMonth(); }

void ShowHideTimelineNodes(diagram::Surface &Flow, bool Shown) {
    support::PassOn("ShowHideTimelineNodes", [&] {
        TranslateDates(Flow);
        const diagram::Node *look = LocateTimeLineTemplateNode(Flow, false);
        const DateIndex index(Flow);
        const int century = CenturyOf(Flow);
        const std::vector<diagram::Node *> months = LocateTimelineNodes(Flow);
        if (Shown) ForgetHidingByHandOfAll(months);
        for (diagram::Node *month : months) {
            ShowHideMonth(*month, Shown, look);
            ShowHideDateLinks(*month, Shown, index, century);
        }
    });
}

void PreviewTimelineNodes(diagram::Surface &Flow, bool Shown, diagram::Sights &sights) {
    const std::vector<diagram::Node *> months = LocateTimelineNodes(Flow);
    if (months.empty()) return;
    const bool byHand = !std::ranges::all_of(months, IsHiddenByUser);
    const DateIndex index(Flow);
    const int century = CenturyOf(Flow);
    for (const diagram::Node *month : months) {
        sights.Set(*month, !Shown || (byHand && IsHiddenByUser(month)));
        for (const diagram::Link *link : DateLinks(index, *month, century))
            if (!sights.Hides(link->Source())) sights.Set(*link, !Shown);
    }
}

void HideMonth(diagram::Node &month) {
    month.SetHidden(true);
    document::SetSwitch(month, kMonthHidden, true);
}

bool IsTimelineHidden(const diagram::Surface &Flow) {
    const std::vector<diagram::Node *> months = LocateTimelineNodes(Flow);
    return std::ranges::all_of(months, &diagram::Node::Hidden) &&
           !std::ranges::all_of(months, IsHiddenByUser);
}

void ShowHiddenMonths(diagram::Surface &Flow) {
    for (diagram::Node &node : Flow.Nodes()) {
        if (IsTimelineMaterial(node)) document::SetSwitch(node, kMonthHidden, false);
        if (node.Hidden() && HasMonthForm(node.Text()) && node.Text() != document::kTemplateNodeText)
            node.SetHidden(false);
    }
}

} // namespace timeline
