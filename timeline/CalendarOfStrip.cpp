#include "timeline/CalendarOfStrip.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Desktop.h"
#include "support/Val.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QCoreApplication>

namespace timeline {

namespace {

using Span = diagram::Calendar::Span;

struct StripMonth {
    Span place;
    QDate first;
    double Slot() const { return double(SlotOf(float(place.Length()), first.daysInMonth())); }
    // As days stand in the strip: the first of them one slot behind the beginning.
    Span DayAt(int day) const {
        return {place.from + day * Slot(), place.from + (day + 1) * Slot(), QString()};
    }
};

// A part that is there until it is switched off has the switch the other way round.
struct PartRow {
    CalendarPart part;
    const QString &key;
    bool shownByKey;
};
const PartRow &RowOf(CalendarPart part) {
    static const PartRow kRows[] = {{CalendarPart::Bands, document::tags::kBandsHidden, false},
                                    {CalendarPart::Weekends, document::tags::kWeekends, true},
                                    {CalendarPart::TodayEverywhere, document::tags::kTodayEverywhere, true}};
    return kRows[std::size_t(part)];
}

const diagram::Node *MonthLook(const diagram::Surface &flow) {
    for (const diagram::Node &node : flow.Nodes())
        if (node.Hidden() && node.Text() == kTemplateNodeText) return &node;
    return nullptr;
}

bool Shows(const diagram::Node *look, CalendarPart part) {
    const PartRow &row = RowOf(part);
    return (look && document::IsOn(*look, row.key)) == row.shownByKey;
}

QString QuarterText(const QDate &date) {
    return QCoreApplication::translate("timeline", "Q%1", "quarter of a year").arg((date.month() + 2) / 3);
}

// Neighbours with the same caption and number become one.
template <typename NumberOf, typename CaptionOf>
std::vector<Span> Merged(const std::vector<StripMonth> &months, NumberOf numberOf, CaptionOf captionOf) {
    std::vector<Span> spans;
    std::optional<int> last;
    for (const StripMonth &month : months) {
        const int number = numberOf(month.first);
        if (last == number)
            spans.back().to = month.place.to;
        else
            spans.push_back({month.place.from, month.place.to, captionOf(month.first)});
        last = number;
    }
    return spans;
}

void AddDays(const StripMonth &month, bool weekends, diagram::Calendar &calendar) {
    if (month.Slot() < 1) return;
    for (int day = 1; day <= month.first.daysInMonth(); ++day) {
        const int ofWeek = month.first.addDays(day - 1).dayOfWeek();
        if (ofWeek == Qt::Monday) calendar.weeks.push_back(month.DayAt(day).from);
        if (weekends && ofWeek >= Qt::Saturday) calendar.weekends.push_back(month.DayAt(day));
    }
}

std::optional<QLineF> LineOfToday(const std::vector<StripMonth> &months, const QRectF &strip,
                                  bool rightwards) {
    const QDate today = support::CurrentDesktop().clock.Now().date();
    for (const StripMonth &month : months) {
        if (month.first.year() != today.year() || month.first.month() != today.month()) continue;
        const Span day = month.DayAt(today.day());
        const double at = (day.from + day.to) / 2;
        return rightwards ? QLineF(at, strip.top(), at, strip.bottom())
                          : QLineF(strip.left(), at, strip.right(), at);
    }
    return std::nullopt;
}

// How bands lie beside the strip.
void PlaceBands(const diagram::Surface &flow, diagram::Calendar &calendar) {
    const int arrangement = int(support::Val(document::GetTag(flow, document::tags::kTimelineAlign)));
    calendar.rightwards = RunsRightwards(arrangement);
    calendar.after = arrangement == int(Arrangement::Left) || arrangement == int(Arrangement::Top);
}

std::vector<StripMonth> MonthsInSight(const diagram::Surface &flow, diagram::Calendar &calendar) {
    std::vector<StripMonth> months;
    for (const diagram::Node *node : LocateTimelineNodes(flow)) {
        const QRectF box = node->Bounds();
        if (node->Hidden() || box.isEmpty()) continue;
        const std::optional<QDate> first = ParseDate(document::GetTag(*node, document::tags::kTheDate));
        if (!first) continue;
        if (months.empty()) {
            calendar.ink = node->ForeColor();
            calendar.fontName = node->Font().Name();
            calendar.legible = node->Font().Size();
        }
        calendar.strip |= box;
        months.push_back({calendar.rightwards ? Span{box.left(), box.right(), node->Text()}
                                              : Span{box.top(), box.bottom(), node->Text()},
                          *first});
    }
    std::ranges::sort(months, {}, [](const StripMonth &month) { return month.place.from; });
    return months;
}

} // namespace

diagram::Calendar CalendarOfStrip(const diagram::Surface &flow) {
    diagram::Calendar calendar;
    PlaceBands(flow, calendar);
    const std::vector<StripMonth> months = MonthsInSight(flow, calendar);
    if (months.empty()) return {};
    const diagram::Node *look = MonthLook(flow);
    calendar.bands = Shows(look, CalendarPart::Bands);
    calendar.todayEverywhere = Shows(look, CalendarPart::TodayEverywhere);
    calendar.years = Merged(
        months, [](const QDate &date) { return date.year(); },
        [](const QDate &date) { return QString::number(date.year()); });
    calendar.quarters = Merged(
        months, [](const QDate &date) { return date.year() * 4 + (date.month() - 1) / 3; }, QuarterText);
    for (const StripMonth &month : months) {
        calendar.months.push_back(month.place);
        AddDays(month, Shows(look, CalendarPart::Weekends), calendar);
    }
    calendar.today = LineOfToday(months, calendar.strip, calendar.rightwards);
    return calendar;
}

QRectF BandsBeside(const diagram::Surface &flow, const QRectF &strip) {
    if (!Shows(flow, CalendarPart::Bands)) return {};
    diagram::Calendar calendar;
    calendar.strip = strip;
    PlaceBands(flow, calendar);
    return calendar.Bands();
}

bool Shows(const diagram::Surface &flow, CalendarPart part) { return Shows(MonthLook(flow), part); }

void SetShows(diagram::Surface &flow, CalendarPart part, bool on) {
    const PartRow &row = RowOf(part);
    document::SetSwitch(*LocateTimeLineTemplateNode(flow, true), row.key, on == row.shownByKey);
}

} // namespace timeline
