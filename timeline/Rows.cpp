#include "timeline/Rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace timeline {

namespace {

constexpr double kAligned = 8; // twips that middles of one row may differ by

// Puts each bar into a row.
class Rows {
public:
    Rows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links, const Partings &apart,
         double gap, RowOrder order)
        : bars_(bars), apart_(apart), gap_(gap), rowOf_(bars.size(), -1), linked_(bars.size()) {
        for (const BarLink &link : links) {
            linked_[size_t(link.from)].push_back(link.to);
            linked_[size_t(link.to)].push_back(link.from);
        }
        std::vector<int> loose = TakeAligned(order == RowOrder::Choose);
        const size_t present = rows_.size();
        std::ranges::stable_sort(loose, {}, [&](int bar) { return bars_[size_t(bar)].begin; });
        for (int bar : loose) PutSomewhere(bar);
        if (order == RowOrder::Choose)
            for (size_t i = present; i < rows_.size(); ++i) rows_[i].gathered = rows_[i].bars.size() > 1;
    }

    std::vector<Row> Take() { return std::move(rows_); }

private:
    bool SameBlock(const Row &row, const PlannedBar &bar) const {
        return row.lane == bar.lane && row.before == bar.before;
    }

    std::vector<int> ByPlace() const {
        std::vector<int> order(bars_.size());
        for (size_t i = 0; i < order.size(); ++i) order[i] = int(i);
        std::ranges::stable_sort(order, [&](int a, int b) {
            const PlannedBar &one = bars_[size_t(a)], &other = bars_[size_t(b)];
            return std::tie(one.before, one.lane, one.middle) <
                   std::tie(other.before, other.lane, other.middle);
        });
        return order;
    }

    // Those that stand in one row already, a row at a time; what finds no room there is left.
    std::vector<int> TakeAligned(bool onlySeveral) {
        std::vector<int> loose;
        const std::vector<int> order = ByPlace();
        for (size_t first = 0, end = 0; first < order.size(); first = end) {
            end = first + 1;
            const PlannedBar &bar = bars_[size_t(order[first])];
            while (end < order.size() && AreAligned(bar, bars_[size_t(order[end])])) ++end;
            std::vector<int> row(order.begin() + long(first), order.begin() + long(end));
            if (onlySeveral && row.size() == 1)
                loose.push_back(row.front());
            else
                FillRow(std::move(row), loose);
        }
        return loose;
    }

    bool AreAligned(const PlannedBar &a, const PlannedBar &b) const {
        return a.before == b.before && a.lane == b.lane && std::abs(a.middle - b.middle) <= kAligned;
    }

    void FillRow(std::vector<int> candidates, std::vector<int> &loose) {
        std::ranges::stable_sort(candidates, [&](int a, int b) {
            const PlannedBar &one = bars_[size_t(a)], &other = bars_[size_t(b)];
            return std::tie(one.gives, one.begin) < std::tie(other.gives, other.begin);
        });
        const int row = NewRow(candidates.front());
        for (int bar : candidates) Fits(row, bar) ? PutInto(row, bar) : loose.push_back(bar);
    }

    int NewRow(int bar) {
        const PlannedBar &first = bars_[size_t(bar)];
        rows_.push_back({{}, {}, first.middle, first.lane, first.before});
        return int(rows_.size()) - 1;
    }

    void PutInto(int row, int bar) {
        const PlannedBar &placed = bars_[size_t(bar)];
        rows_[size_t(row)].bars.push_back(bar);
        rows_[size_t(row)].taken.emplace(placed.begin, placed.EndOfRoom() + gap_);
        rowOf_[size_t(bar)] = row;
    }

    bool Fits(int row, int bar) const {
        return IsFree(rows_[size_t(row)].taken, bars_[size_t(bar)]) &&
               std::ranges::none_of(apart_[size_t(bar)],
                                    [&](int other) { return rowOf_[size_t(other)] == row; });
    }

    bool IsFree(const std::map<double, double> &taken, const PlannedBar &bar) const {
        if (taken.empty()) return true;
        if (const auto &last = *taken.rbegin(); last.first < bar.begin) return last.second <= bar.begin;
        const auto next = taken.lower_bound(bar.begin);
        return !(next->first < bar.EndOfRoom() + gap_) &&
               (next == taken.begin() || std::prev(next)->second <= bar.begin);
    }

    bool HasRoom(int row, int bar) const {
        return row >= 0 && SameBlock(rows_[size_t(row)], bars_[size_t(bar)]) && Fits(row, bar);
    }

    // Beside what it is linked with, else in the nearest row with room, else in one of its own.
    void PutSomewhere(int bar) {
        for (int other : linked_[size_t(bar)])
            if (HasRoom(rowOf_[size_t(other)], bar)) return PutInto(rowOf_[size_t(other)], bar);
        int nearest = -1;
        double least = std::numeric_limits<double>::infinity();
        for (int row = 0; row < int(rows_.size()); ++row) {
            const double distance = std::abs(rows_[size_t(row)].middle - bars_[size_t(bar)].middle);
            if (distance < least && HasRoom(row, bar)) nearest = row, least = distance;
        }
        PutInto(nearest < 0 ? NewRow(bar) : nearest, bar);
    }

    const std::vector<PlannedBar> &bars_;
    const Partings &apart_;
    double gap_;
    std::vector<Row> rows_;
    std::vector<int> rowOf_;
    std::vector<std::vector<int>> linked_;
};

} // namespace

Partings LinkedTooClosely(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                          const RowGaps &gaps) {
    Partings apart(bars.size());
    for (const BarLink &link : links) {
        const PlannedBar &from = bars[size_t(link.from)], &to = bars[size_t(link.to)];
        const PlannedBar &first = from.begin < to.begin ? from : to, &second = &first == &from ? to : from;
        const bool throughText = first.beside > 0; // which stands between them
        if ((second.begin - first.end >= gaps.linked && !throughText) || link.from == link.to) continue;
        apart[size_t(link.from)].push_back(link.to);
        apart[size_t(link.to)].push_back(link.from);
    }
    return apart;
}

std::vector<Row> MakeRows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                          const Partings &apart, double gap, RowOrder order) {
    return Rows(bars, links, apart, gap, order).Take();
}

} // namespace timeline
