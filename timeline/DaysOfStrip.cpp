#include "timeline/DaysOfStrip.h"

#include "diagram/model/Surface.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/DateIndex.h"
#include "timeline/DateText.h"
#include "timeline/DaySlots.h"
#include "timeline/Folding.h"
#include "timeline/Following.h"
#include "timeline/LineUp.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <cmath>
#include <QCoreApplication>

namespace timeline {

namespace {

constexpr double kUsualMonth = 1800; // twips, where all are folded

// A month in sight, or several that are folded to one sliver.
struct ShownMonth {
    double start, length; // along the strip
    QDate first;          // day of it
    int days;
    std::optional<PieceOfStrip> fold;
    double End() const { return start + length; }
    QDate Last() const { return first.addDays(days - 1); }
    DaySlots<double> Slots() const { return SlotsIn(start, length, days); } // of an unfolded month
};

QString MonthOf(const diagram::Node &node) { return document::GetTag(node, document::tags::kTheDate); }

double LengthOf(const diagram::Node &month, bool rightwards) {
    return double(rightwards ? month.Width() : month.Height());
}

// The months with neighbours of one fold as one.
std::vector<ShownMonth> Together(const std::vector<ShownMonth> &months) {
    std::vector<ShownMonth> together;
    for (const ShownMonth &month : months) {
        if (!month.fold || together.empty() || together.back().fold != month.fold)
            together.push_back(month);
        else
            together.back().days = int(together.back().first.daysTo(month.Last())) + 1;
    }
    return together;
}

// From the strip's beginning to its end.
std::vector<ShownMonth> ShownMonths(const diagram::Surface &flow, bool rightwards) {
    std::vector<ShownMonth> months;
    for (const diagram::Node *month : LocateTimelineNodes(flow)) {
        const std::optional<QDate> first = ParseDate(MonthOf(*month));
        const double length = LengthOf(*month, rightwards);
        if (month->Hidden() || !first || SlotOf(float(length), first->daysInMonth()) < 1) continue;
        months.push_back({double(rightwards ? month->Left() : month->Top()), length, *first,
                          first->daysInMonth(), FoldOf(*month)});
    }
    std::ranges::sort(months, {},
                      [](const ShownMonth &month) { return std::pair(month.start, month.first); });
    return Together(months);
}

enum class StripEnd : unsigned char { First, Last };

// The month at that end of the strip; of a fold there the one at its end, as long as an unfolded month.
ShownMonth EndMonthOf(const std::vector<ShownMonth> &months, StripEnd which) {
    const bool behind = which == StripEnd::Last;
    const ShownMonth &end = behind ? months.back() : months.front();
    if (!end.fold) return end;
    const auto unfolded = std::ranges::find_if(months, [](const ShownMonth &month) { return !month.fold; });
    const double length = unfolded == months.end() ? kUsualMonth : unfolded->length;
    const QDate day = behind ? end.Last() : end.first;
    const QDate first(day.year(), day.month(), 1);
    return {behind ? end.End() - length : end.start, length, first, first.daysInMonth(), std::nullopt};
}

// The month in which the place lies where months as long as that one go on beyond it, or before it.
ShownMonth Beyond(const ShownMonth &end, double place) {
    const double months = std::floor((place - end.start) / end.length);
    const QDate first = end.first.addMonths(int(months));
    return {end.start + months * end.length, end.length, first, first.daysInMonth(), std::nullopt};
}

// The first slot of a month belongs to the last day of the month before, where that one stands in front.
QDate DayIn(const ShownMonth &month, double place, bool monthBeforeInFront) {
    if (month.fold) {
        const int day = int((place - month.start) / month.length * month.days);
        return month.first.addDays(std::clamp(day, 0, month.days - 1));
    }
    const int day = std::clamp(month.Slots().DayAt(place), monthBeforeInFront ? 0 : 1, month.days);
    return month.first.addDays(day - 1);
}

// The day at a place where no month stands: months go on from `end`.
QDate DayBeyond(const ShownMonth &end, double place) { return DayIn(Beyond(end, place), place, true); }

bool StandsInFrontOf(const ShownMonth &month, const ShownMonth &next) {
    return !month.fold && month.Last().addDays(1) == next.first;
}

// The piece in which the place lies, or the fold that it is part of.
std::optional<PieceOfStrip> PieceAt(const diagram::Surface &flow, bool rightwards, diagram::StripPiece piece,
                                    const QPointF &at) {
    const double place = rightwards ? at.x() : at.y();
    for (const ShownMonth &month : ShownMonths(flow, rightwards)) {
        if (place < month.start || place >= month.End()) continue;
        return month.fold && month.fold->piece > piece ? *month.fold : PieceAround(piece, month.first);
    }
    return std::nullopt;
}

std::optional<double> CentreOf(const std::vector<ShownMonth> &months, const QDate &day) {
    const auto month = std::ranges::find_if(
        months, [&day](const ShownMonth &each) { return each.first <= day && day <= each.Last(); });
    if (month == months.end()) return std::nullopt;
    if (month->fold) return month->start + month->length / 2;
    return month->Slots().Centre(day.day());
}

// How far along the strip the node goes to begin with that span; nothing where one of both days isn't seen.
std::optional<double> DistanceTo(const std::vector<ShownMonth> &months, const diagram::Node &node,
                                 const Span &span) {
    const std::optional<Span> former = SpanOfNode(node);
    const std::optional<double> from = former ? CentreOf(months, former->first) : std::nullopt;
    const std::optional<double> to = CentreOf(months, span.first);
    return from && to ? std::optional(*to - *from) : std::nullopt;
}

Span SpanOf(const diagram::DayStrip::Dated &dated) {
    if (dated.end) return {dated.date, std::max(dated.date, *dated.end)};
    if (const std::optional<Span> former = SpanOfNode(*dated.node)) return BegunOn(*former, dated.date);
    const std::optional<QDate> last = EndOfNode(*dated.node); // a copy, whose date comes now
    return last && *last >= dated.date ? Span{dated.date, last} : Span{dated.date};
}

std::vector<NodeSpan> SpansOf(const std::vector<diagram::DayStrip::Dated> &dates) {
    std::vector<NodeSpan> spans;
    for (const diagram::DayStrip::Dated &dated : dates) {
        const Span span = SpanOf(dated);
        if (IsInYears(span.first) && IsInYears(span.End())) spans.push_back({dated.node, span});
    }
    return spans;
}

} // namespace

std::optional<QLineF> DaysOfStrip::Today(const diagram::Surface &flow) const {
    return PlaceOf(flow, window_.Desktop().clock.Now().date());
}

std::optional<QDate> DaysOfStrip::DateOf(const diagram::Node &node) const {
    return ParseDate(DateOfNode(node));
}

std::optional<QDate> DaysOfStrip::EndOf(const diagram::Node &node) const {
    const std::optional<Span> span = SpanOfNode(node);
    return span ? span->last : std::nullopt;
}

QString DaysOfStrip::DatesOf(const diagram::Node &node) const {
    const std::optional<Span> span = SpanOfNode(node);
    return span ? AsWritten(*span) : QString();
}

QString DaysOfStrip::Written(const QDate &date) const { return FormatDate(date, kDayPattern); }

bool DaysOfStrip::RunsRightwards(const diagram::Surface &flow) const {
    return timeline::RunsRightwards(flow);
}

std::optional<QDate> DaysOfStrip::DayAt(const diagram::Surface &flow, const QPointF &at) const {
    const bool rightwards = RunsRightwards(flow);
    const double place = rightwards ? at.x() : at.y();
    const std::vector<ShownMonth> months = ShownMonths(flow, rightwards);
    if (months.empty()) return std::nullopt;
    const auto behind = std::ranges::upper_bound(months, place, std::less(),
                                                 [](const ShownMonth &month) { return month.End(); });
    QDate day;
    if (behind == months.end())
        day = DayBeyond(EndMonthOf(months, StripEnd::Last), place);
    else if (place < behind->start)
        day = DayBeyond(behind == months.begin() ? EndMonthOf(months, StripEnd::First) : *behind, place);
    else
        day = DayIn(*behind, place, behind != months.begin() && StandsInFrontOf(*std::prev(behind), *behind));
    return IsInYears(day) ? std::optional(day) : std::nullopt;
}

std::optional<QLineF> DaysOfStrip::PlaceOf(const diagram::Surface &flow, const QDate &date) const {
    const DateMeant meant{QDate(date.year(), date.month(), 1), true};
    const QString text = FormatDate(date, kMonthPattern);
    for (const diagram::Node *month : LocateTimelineNodes(flow)) {
        if (month->Hidden() || month->Bounds().isEmpty()) continue;
        if (MonthOf(*month) != text && MeaningOf(MonthOf(*month)) != meant) continue;
        const bool rightwards = RunsRightwards(flow);
        const double length = LengthOf(*month, rightwards);
        const QRectF box = month->Bounds();
        const double start = rightwards ? box.left() : box.top();
        const double along = FoldOf(*month) ? start + length / 2
                                            : SlotsIn(start, length, date.daysInMonth()).Centre(date.day());
        if (rightwards) return QLineF(along, box.top(), along, box.bottom());
        return QLineF(box.left(), along, box.right(), along);
    }
    return std::nullopt;
}

// A month that is hidden isn't missing.
std::vector<QLineF> DaysOfStrip::Breaks(const diagram::Surface &flow) const {
    std::vector<std::pair<QDate, const diagram::Node *>> months;
    for (const diagram::Node *month : LocateTimelineNodes(flow))
        if (const std::optional<QDate> first = ParseDate(MonthOf(*month))) months.emplace_back(*first, month);
    std::ranges::sort(months);
    const bool rightwards = RunsRightwards(flow);
    std::vector<QLineF> breaks;
    bool seen = false, missing = false;
    std::optional<PieceOfStrip> last;
    for (std::size_t i = 0; i < months.size(); ++i) {
        missing = missing || (i > 0 && MonthBoundaries(months[i - 1].first, months[i].first) > 1);
        const QRectF box = months[i].second->Bounds();
        if (months[i].second->Hidden() || box.isEmpty()) continue;
        const std::optional<PieceOfStrip> fold = FoldOf(*months[i].second);
        if (seen && missing && (!fold || fold != last))
            breaks.emplace_back(box.topLeft(), rightwards ? box.bottomLeft() : box.topRight());
        seen = true, missing = false, last = fold;
    }
    return breaks;
}

bool DaysOfStrip::KeepsNodesAtDates(const diagram::Surface &flow) const {
    return timeline::KeepsNodesAtDates(flow);
}

void DaysOfStrip::Settle(diagram::Surface &flow, const std::vector<diagram::Node *> &moved) {
    FollowDates(window_, flow, moved);
}

void DaysOfStrip::SetDates(diagram::Surface &flow, const std::vector<Dated> &dates,
                           const std::vector<diagram::Node *> &moved) {
    std::vector<NodeDate> texts;
    for (const NodeSpan &each : SpansOf(dates))
        texts.push_back({each.node, FormatDate(each.span.first, kDayPattern), each.span.last});
    if (!texts.empty()) AddTimelineLinks(window_, flow, texts, moved);
}

diagram::DayStrip::Following DaysOfStrip::WhatFollows(const diagram::Surface &flow,
                                                      const std::vector<Dated> &dates) const {
    Following following;
    if (!PushesFollowing(flow)) return following;
    const std::vector<NodeSpan> next = timeline::Following(SpansOf(dates));
    following.count = int(next.size());
    if (next.empty()) return following;
    following.told = next.size() == 1
                         ? QCoreApplication::translate("dates", "one more follows")
                         : QCoreApplication::translate("dates", "%1 more follow").arg(next.size());
    if (!KeepsNodesAtDates(flow)) return following;
    const bool rightwards = RunsRightwards(flow);
    const std::vector<ShownMonth> months = ShownMonths(flow, rightwards);
    for (const NodeSpan &each : next)
        if (const std::optional<double> distance = DistanceTo(months, *each.node, each.span))
            following.boxes.push_back(
                each.node->Bounds().translated(rightwards ? *distance : 0, rightwards ? 0 : *distance));
    return following;
}

bool DaysOfStrip::ToggleFold(diagram::Surface &flow, diagram::StripPiece piece, const QPointF &at) {
    const std::optional<PieceOfStrip> found = PieceAt(flow, RunsRightwards(flow), piece, at);
    return found && SetFolded(window_, flow, *found, !IsFolded(flow, *found));
}

QString DaysOfStrip::PieceInWords(const diagram::Surface &flow, diagram::StripPiece piece,
                                  const QPointF &at) const {
    const std::optional<PieceOfStrip> found = PieceAt(flow, RunsRightwards(flow), piece, at);
    if (!found) return {};
    if (!IsFolded(flow, *found))
        return QCoreApplication::translate("timeline", "%1\nA double click folds it.").arg(NameOf(*found));
    return QCoreApplication::translate("timeline", "%1, %2\nA double click unfolds it.")
        .arg(NameOf(*found), FoldInWords(flow, *found));
}

void DaysOfStrip::Arrange(diagram::Surface &flow) {
    if (!LocateTimelineNodes(flow).empty()) ArrangeTimeLineNodes(window_, flow, kStoredArrangement);
}

} // namespace timeline
