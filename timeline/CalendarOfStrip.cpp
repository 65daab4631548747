#include "timeline/CalendarOfStrip.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Desktop.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/DaySlots.h"
#include "timeline/Folding.h"
#include "timeline/LaneRows.h"
#include "timeline/OwnExtent.h"
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
    const diagram::Node *node;
    std::optional<PieceOfStrip> fold;
    // Of an unfolded month.
    DaySlots<double> Slots() const { return SlotsIn(place.from, place.Length(), first.daysInMonth()); }
    Span PlaceOf(int day) const { return {Slots().Begin(day), Slots().End(day), QString()}; }
};

// Each part and the switch in the template node that shows it, or, of a part that is there at first, hides
// it.
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

bool Shows(const diagram::Node *look, CalendarPart part) {
    const PartRow &row = RowOf(part);
    return (look && document::IsOn(*look, row.key)) == row.shownByKey;
}

QString QuarterText(const QDate &date) {
    return QCoreApplication::translate("timeline", "Q%1", "quarter of a year").arg((date.month() + 2) / 3);
}

bool AreOneSliver(const StripMonth &a, const StripMonth &b) { return a.fold && a.fold == b.fold; }

// Neighbours with the same number become one, with a caption only where it isn't part of a larger fold.
template <typename NumberOf, typename CaptionOf>
std::vector<Span> Merged(const std::vector<StripMonth> &months, diagram::StripPiece piece, NumberOf numberOf,
                         CaptionOf captionOf) {
    std::vector<Span> spans;
    std::optional<int> last;
    for (std::size_t i = 0; i < months.size(); ++i) {
        const StripMonth &month = months[i];
        const bool within = month.fold && month.fold->piece > piece;
        if (within && i > 0 && AreOneSliver(months[i - 1], month)) continue;
        const int number = numberOf(month.first);
        if (last == number && !within) {
            spans.back().to = month.place.to;
            spans.back().folded &= month.fold.has_value();
        } else {
            spans.push_back({month.place.from, month.place.to, within ? QString() : captionOf(month.first),
                             month.fold.has_value()});
        }
        last = within ? std::nullopt : std::optional(number);
    }
    return spans;
}

void AddDays(const StripMonth &month, bool weekends, diagram::Calendar &calendar) {
    if (month.Slots().slot < 1) return;
    for (int day = 1; day <= month.first.daysInMonth(); ++day) {
        const int ofWeek = month.first.addDays(day - 1).dayOfWeek();
        if (ofWeek == Qt::Monday) calendar.weeks.push_back(month.PlaceOf(day).from);
        if (weekends && ofWeek >= Qt::Saturday) calendar.weekends.push_back(month.PlaceOf(day));
    }
}

int CountIn(const PieceOfStrip &piece, const NodesByMonth &counts) {
    int count = 0;
    for (const auto &[month, nodes] : counts)
        if (PieceAround(piece.piece, month) == piece) count += nodes;
    return count;
}

// Adds the months, those of one sliver as one, with the days of unfolded ones and with the slivers.
void AddMonths(const diagram::Surface &flow, const std::vector<StripMonth> &months, bool weekends,
               diagram::Calendar &calendar) {
    std::optional<NodesByMonth> counts;
    for (std::size_t i = 0; i < months.size(); ++i) {
        const StripMonth &month = months[i];
        if (i > 0 && AreOneSliver(months[i - 1], month)) {
            calendar.folds.back().months.push_back(month.node->Id());
            continue;
        }
        calendar.months.push_back(month.place);
        if (!month.fold) {
            AddDays(month, weekends, calendar);
            continue;
        }
        if (!counts) counts = CountNodes(flow);
        const QString count = QString::number(CountIn(*month.fold, *counts));
        calendar.months.back().caption = count;
        calendar.months.back().folded = true;
        calendar.folds.push_back({NameOf(*month.fold), count, {month.node->Id()}});
    }
}

std::optional<QLineF> LineOfToday(const std::vector<StripMonth> &months, const QRectF &strip,
                                  bool rightwards) {
    const QDate today = support::CurrentDesktop().clock.Now().date();
    for (const StripMonth &month : months) {
        if (month.first.year() != today.year() || month.first.month() != today.month()) continue;
        const Span day = month.fold ? month.place : month.PlaceOf(today.day());
        const double at = (day.from + day.to) / 2;
        return rightwards ? QLineF(at, strip.top(), at, strip.bottom())
                          : QLineF(strip.left(), at, strip.right(), at);
    }
    return std::nullopt;
}

// Which way the strip runs and on which side of it bands lie.
void PlaceBands(const diagram::Surface &flow, diagram::Calendar &calendar) {
    const int arrangement = ArrangementOf(flow);
    calendar.rightwards = RunsRightwards(arrangement);
    calendar.after = arrangement == int(Arrangement::Left) || arrangement == int(Arrangement::Top);
}

// The lanes in which a node is seen.
std::vector<diagram::Calendar::Lane> LanesInSight(const diagram::Surface &flow, bool rightwards) {
    std::vector<diagram::Calendar::Lane> lanes = LaneRowsOf(flow);
    if (lanes.empty()) return lanes;
    std::vector<double> middles;
    for (const diagram::Node &node : flow.Nodes())
        if (node.Selectable() && !node.Hidden())
            middles.push_back(rightwards ? node.Bounds().center().y() : node.Bounds().center().x());
    std::erase_if(lanes, [&](const diagram::Calendar::Lane &lane) {
        return std::ranges::none_of(middles,
                                    [&](double middle) { return middle > lane.from && middle < lane.to; });
    });
    return lanes;
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
                          *first, node, FoldOf(*node)});
    }
    std::ranges::sort(months, {},
                      [](const StripMonth &month) { return std::pair(month.place.from, month.first); });
    return months;
}

} // namespace

diagram::Calendar CalendarOfStrip(const diagram::Surface &flow) {
    diagram::Calendar calendar;
    PlaceBands(flow, calendar);
    const std::vector<StripMonth> months = MonthsInSight(flow, calendar);
    if (months.empty()) return {};
    const diagram::Node *look = TemplateOf(flow);
    calendar.bands = Shows(look, CalendarPart::Bands);
    calendar.todayEverywhere = Shows(look, CalendarPart::TodayEverywhere);
    calendar.years = Merged(
        months, diagram::StripPiece::Year, [](const QDate &date) { return date.year(); },
        [](const QDate &date) { return QString::number(date.year()); });
    calendar.quarters = Merged(
        months, diagram::StripPiece::Quarter,
        [](const QDate &date) { return date.year() * 4 + (date.month() - 1) / 3; }, QuarterText);
    AddMonths(flow, months, Shows(look, CalendarPart::Weekends), calendar);
    calendar.lanes = LanesInSight(flow, calendar.rightwards);
    calendar.today = LineOfToday(months, calendar.strip, calendar.rightwards);
    return calendar;
}

bool IsBar(const diagram::Node &node) { return StoresItsWidth(node); }

QRectF BandsBeside(const diagram::Surface &flow, const QRectF &strip) {
    if (!Shows(flow, CalendarPart::Bands)) return {};
    diagram::Calendar calendar;
    calendar.strip = strip;
    PlaceBands(flow, calendar);
    return calendar.Bands();
}

bool Shows(const diagram::Surface &flow, CalendarPart part) { return Shows(TemplateOf(flow), part); }

void SetShows(diagram::Surface &flow, CalendarPart part, bool on) {
    const PartRow &row = RowOf(part);
    document::SetSwitch(*LocateTimeLineTemplateNode(flow, true), row.key, on == row.shownByKey);
}

} // namespace timeline
