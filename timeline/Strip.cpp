#include "timeline/Strip.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Val.h"
#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/Folding.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

constexpr float kGapBelow = 300; // twips between a strip at the bottom and the surface's edge

bool IsArrangement(int number) {
    return number >= int(Arrangement::Left) && number <= int(Arrangement::Center);
}

// The coordinate across the strip.
float Across(const diagram::Surface &flow, const diagram::Node &month, Arrangement arrangement) {
    switch (arrangement) {
    case Arrangement::Right:
        return flow.Width() - month.Width();
    case Arrangement::Bottom:
        return flow.Height() - month.Height() - kGapBelow;
    case Arrangement::Center:
        return flow.Height() / 2 - month.Height() / 2;
    case Arrangement::Left:
    case Arrangement::Top:
        break;
    }
    return 0;
}

} // namespace

float SlotOf(float extent, int days) { return float(support::CLng(double(extent)) / days); }

int ArrangementOf(const diagram::Surface &flow) {
    return int(support::Val(document::GetTag(flow, document::tags::kTimelineAlign)));
}

bool RunsRightwards(int arrangement) {
    return arrangement >= int(Arrangement::Top) && IsArrangement(arrangement);
}

bool RunsRightwards(const diagram::Surface &flow) { return RunsRightwards(ArrangementOf(flow)); }

void Fold(diagram::Node &month, int arrangement) {
    if (!IsArrangement(arrangement)) return;
    if (RunsRightwards(arrangement))
        month.SetWidth(0);
    else
        month.SetHeight(0);
}

bool PlaceMonth(const diagram::Surface &flow, diagram::Node &month, int arrangement, std::int32_t &offset) {
    if (!IsArrangement(arrangement)) return false;
    const float across = Across(flow, month, Arrangement(arrangement));
    const bool rightwards = RunsRightwards(arrangement);
    month.SetLeft(rightwards ? float(offset) : across);
    month.SetTop(rightwards ? across : float(offset));
    offset = support::CLng(double(rightwards ? month.Width() : month.Height()) + offset);
    return true;
}

DaysByMonth::DaysByMonth(const std::vector<diagram::Node *> &days) {
    for (diagram::Node *day : days) days_[Reformatted(day->Text(), kMonthPattern)].push_back(day);
}

void PositionDateNodes(DaysByMonth &DayNodes, const diagram::Node &MonthNode, bool Horizontal) {
    const QString month = document::GetTag(MonthNode, document::tags::kTheDate);
    const int days = DaysPerMonth(month);
    const bool folded = FoldOf(MonthNode).has_value();
    for (diagram::Node *node : DayNodes.Take(Reformatted(month, kMonthPattern))) {
        const float day = float(CDate(node->Text()).day());
        if (folded) {
            node->SetBounds(MonthNode.Left(), MonthNode.Top(), MonthNode.Width(), MonthNode.Height());
        } else if (Horizontal) {
            const float slot = SlotOf(MonthNode.Width(), days);
            node->SetBounds(day * slot + MonthNode.Left(), MonthNode.Top(), slot, MonthNode.Height());
        } else {
            const float slot = SlotOf(MonthNode.Height(), days);
            node->SetBounds(MonthNode.Left(), day * slot + MonthNode.Top(), MonthNode.Width(), slot);
        }
        AdjustLinks(*node, Horizontal);
    }
}

} // namespace timeline
