#include "timeline/StripPlan.h"

#include "support/Error.h"
#include "support/Val.h"
#include "timeline/DateText.h"
#include "timeline/DaySlots.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace timeline {

namespace {

constexpr float kGapBelow = 300; // between a strip at the bottom and the surface's edge

// Where the month begins across the strip: its top where the strip runs from left to right, else its left.
float Across(const PlacesTask &task, const MonthToPlace &month) {
    switch (Arrangement(task.arrangement)) {
    case Arrangement::Right:
        return task.width - month.width;
    case Arrangement::Bottom:
        return task.height - month.height - kGapBelow;
    case Arrangement::Center:
        return task.height / 2 - month.height / 2;
    case Arrangement::Left:
    case Arrangement::Top:
        break;
    }
    return 0;
}

QDate FirstOf(const QDate &date) { return {date.year(), date.month(), 1}; }

// The days of the task by the first days of their months.
using DaysByMonth = std::map<QDate, std::vector<std::size_t>>;

DaysByMonth ByMonth(const std::vector<QDate> &days) {
    DaysByMonth months;
    for (std::size_t day = 0; day < days.size(); ++day) months[FirstOf(days[day])].push_back(day);
    return months;
}

StripBox BoxOfDay(const StripBox &month, const QDate &date, bool rightwards) {
    if (rightwards) {
        const DaySlots<float> slots = SlotsIn(month.left, month.width, date.daysInMonth());
        return {slots.Begin(date.day()), month.top, slots.slot, month.height};
    }
    const DaySlots<float> slots = SlotsIn(month.top, month.height, date.daysInMonth());
    return {month.left, slots.Begin(date.day()), month.width, slots.slot};
}

std::vector<PieceOfStrip> FoldedQuartersAndYears(const std::vector<MonthToFold> &months) {
    std::vector<PieceOfStrip> folds;
    for (const MonthToFold &month : months)
        if (month.fold && month.fold->piece != diagram::StripPiece::Month &&
            std::ranges::find(folds, *month.fold) == folds.end())
            folds.push_back(*month.fold);
    return folds;
}

// The last of the folded quarters and years in which the month lies; where it lies in none, its own fold.
std::optional<PieceOfStrip> FoldAmong(const std::vector<PieceOfStrip> &larger, const MonthToFold &month) {
    const auto holds = [&](const PieceOfStrip &fold) {
        return month.first && PieceAround(fold.piece, *month.first) == fold;
    };
    const auto last = std::find_if(larger.rbegin(), larger.rend(), holds);
    return last == larger.rend() ? month.fold : *last;
}

} // namespace

bool IsArrangement(int number) {
    return number >= int(Arrangement::Left) && number <= int(Arrangement::Center);
}

bool RunsRightwards(int arrangement) {
    return arrangement >= int(Arrangement::Top) && IsArrangement(arrangement);
}

bool DateExists(const AxisTable &Dates, const QString &Month) {
    return std::any_of(Dates.begin(), Dates.end(),
                       [&](const AxisRow &row) { return row[kAxisMonth] == Month; });
}

void Sort2DArray(AxisTable &Table, int Column) {
    support::PassOn("Sort2DArray", [&] {
        std::vector<std::pair<QDate, AxisRow>> rows;
        for (const AxisRow &row : Table)
            if (!row[0].isEmpty()) rows.emplace_back(CDate(row[std::size_t(Column)]), row);
        std::stable_sort(rows.begin(), rows.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        std::transform(rows.begin(), rows.end(), Table.begin(), [](const auto &row) { return row.second; });
    });
}

QStringList UnusedMonths(const AxisTable &rows, const std::set<QDate> &used) {
    QStringList unused;
    for (const AxisRow &row : rows) {
        const std::optional<QDate> first = ParseDate(row[kAxisMonth]);
        if (!first || !used.contains(FirstOf(*first))) unused.push_back(row[kAxisMonth]);
    }
    return unused;
}

std::pair<QString, QString> EndsOf(const AxisTable &rows) {
    const auto [first, last] =
        std::minmax_element(rows.begin(), rows.end(), [](const AxisRow &a, const AxisRow &b) {
            return CDate(a[kAxisMonth]) < CDate(b[kAxisMonth]);
        });
    return {(*first)[kAxisMonth], (*last)[kAxisMonth]};
}

FilledAxis FillAxis(AxisTable rows, const QString &first, const QString &last) {
    FilledAxis filled{std::move(rows), {}};
    if (first == last) return filled;
    QDate month = CDate(first);
    const auto count = std::size_t(MonthBoundaries(month, CDate(last)) + 1);
    if (filled.rows.size() > count)
        support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("FillMissingDates"));
    filled.rows.resize(count);
    for (int stored = 0; stored < kMostCreated;) {
        month = month.addMonths(1);
        const QString text = FormatDate(month, kMonthPattern);
        filled.walked.push_back(text);
        if (!DateExists(filled.rows, text)) {
            const auto free = std::ranges::find_if(
                filled.rows, [](const AxisRow &row) { return row[kAxisMonth].isEmpty(); });
            if (free != filled.rows.end()) (*free)[kAxisMonth] = text, ++stored;
        }
        if (text == last) break;
    }
    return filled;
}

std::optional<std::pair<QString, QString>> GapIn(const AxisTable &rows) {
    for (std::size_t i = 1; i < rows.size() && !rows[i][kAxisKey].isEmpty(); ++i)
        if (MonthBoundaries(CDate(rows[i - 1][kAxisMonth]), CDate(rows[i][kAxisMonth])) > 1)
            return std::pair(rows[i - 1][kAxisMonth], rows[i][kAxisMonth]);
    return std::nullopt;
}

std::vector<std::optional<FoldedMonth>> PlanFolds(const std::vector<MonthToFold> &months, double full) {
    std::vector<std::optional<FoldedMonth>> planned(months.size());
    std::map<std::pair<diagram::StripPiece, QDate>, int> inSight; // how many months of each fold are
    const std::vector<PieceOfStrip> larger = FoldedQuartersAndYears(months);
    for (std::size_t i = 0; i < months.size(); ++i) {
        const std::optional<PieceOfStrip> fold = FoldAmong(larger, months[i]);
        if (!fold) continue;
        planned[i] = FoldedMonth{*fold, std::nullopt};
        if (!months[i].hidden) ++inSight[{fold->piece, fold->first}];
    }
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (!planned[i] || months[i].hidden) continue;
        const int count = inSight[{planned[i]->fold.piece, planned[i]->fold.first}];
        planned[i]->length = float(std::min(double(kSliver), full * count));
    }
    return planned;
}

std::vector<PlacedMonth> PlanPlaces(const PlacesTask &task) {
    if (!IsArrangement(task.arrangement)) return {};
    const bool rightwards = RunsRightwards(task.arrangement);
    DaysByMonth days = ByMonth(task.days);
    std::vector<PlacedMonth> placed;
    std::int32_t offset = 0, begin = 0;
    std::optional<PieceOfStrip> last;
    for (const MonthToPlace &month : task.months) {
        if (!month.hidden && month.fold && month.fold == last) offset = begin; // on top of the month before
        if (!month.hidden) begin = offset, last = month.fold;
        const float across = Across(task, month);
        const StripBox box{rightwards ? float(offset) : across, rightwards ? across : float(offset),
                           month.width, month.height};
        offset = support::CLng(double(rightwards ? month.width : month.height) + offset);
        PlacedMonth &place = placed.emplace_back(PlacedMonth{box, {}});
        for (const std::size_t day : days[FirstOf(month.first)])
            place.days.push_back({day, month.fold ? box : BoxOfDay(box, task.days[day], rightwards)});
        days.erase(FirstOf(month.first));
    }
    return placed;
}

bool NodeIsLeftNode(const StripBox &A, const StripBox &B) { return A.left < B.left; }
bool NodeIsAboveNode(const StripBox &A, const StripBox &B) { return B.top < A.top; }

diagram::Point EndOnDay(const StripBox &day, const StripBox &origin, diagram::Point end, bool rightwards) {
    if (rightwards) {
        end.x = day.left + day.width / 2;
        end.y = NodeIsAboveNode(day, origin) ? day.top : day.top + day.height;
    } else {
        end.y = day.top + day.height / 2;
        end.x = NodeIsLeftNode(day, origin) ? day.left + day.width : day.left;
    }
    return end;
}

} // namespace timeline
