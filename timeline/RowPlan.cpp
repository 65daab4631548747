#include "timeline/RowPlan.h"

#include "timeline/FixedBeside.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>
#include <tuple>
#include <utility>

namespace timeline {

namespace {

constexpr double kAligned = 8;       // twips that middles of one row may differ by
constexpr double kRounding = 1;      // twips that a place may lack: surfaces keep single floats
constexpr int kShuffles = 50;        // orders of rows that are tried beside the computed ones
constexpr int kRounds = 8;           // of moving each row to the mean of what it is linked with
constexpr double kMuchBetter = 0.9;  // of the present crossings, for an order to take its place
constexpr long kMostPairs = 2000000; // of links that are compared before the best so far is taken
constexpr long kPlacingOfABar = 50;  // takes as long as so many comparisons

struct Row {
    std::vector<int> bars;
    std::map<double, double> taken; // begins and ends along, with the gap behind each
    double middle = 0;
    int lane = 0;
    bool before = false;
    bool gathered = false; // of bars that stood apart: has no place that it could keep
};

struct Segment {
    double begin, end;     // along, in ascending order
    double atBegin, atEnd; // across
    int from, to;
};

double Along(const PlannedBar &bar) { return (bar.begin + bar.end) / 2; }

std::vector<Segment> Segments(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                              const std::vector<double> &middles) {
    std::vector<Segment> segments;
    segments.reserve(links.size());
    for (const BarLink &link : links) {
        int a = link.from, b = link.to;
        if (a == b) continue;
        if (Along(bars[size_t(b)]) < Along(bars[size_t(a)])) std::swap(a, b);
        segments.push_back(
            {Along(bars[size_t(a)]), Along(bars[size_t(b)]), middles[size_t(a)], middles[size_t(b)], a, b});
    }
    std::ranges::sort(segments, {}, &Segment::begin);
    return segments;
}

double AcrossAt(const Segment &segment, double along) {
    if (segment.end <= segment.begin) return segment.atBegin;
    return segment.atBegin +
           (segment.atEnd - segment.atBegin) * (along - segment.begin) / (segment.end - segment.begin);
}

bool ShareAnEnd(const Segment &a, const Segment &b) {
    return a.from == b.from || a.from == b.to || a.to == b.from || a.to == b.to;
}

// Both reach from `begin` to `end` along; a link straight across the strip has one place there.
bool Cross(const Segment &a, const Segment &b) {
    if (ShareAnEnd(a, b)) return false;
    const auto within = [](const Segment &upright, const Segment &other) {
        const auto [low, high] = std::minmax(upright.atBegin, upright.atEnd);
        const double at = AcrossAt(other, upright.begin);
        return low < at && at < high;
    };
    if (a.end <= a.begin || b.end <= b.begin) return a.end <= a.begin ? within(a, b) : within(b, a);
    const double begin = std::max(a.begin, b.begin), end = std::min(a.end, b.end);
    return (AcrossAt(a, begin) - AcrossAt(b, begin)) * (AcrossAt(a, end) - AcrossAt(b, end)) < 0;
}

int Count(const std::vector<Segment> &segments, long &pairs) {
    int crossings = 0;
    for (size_t i = 0; i < segments.size(); ++i)
        for (size_t j = i + 1; j < segments.size() && segments[j].begin <= segments[i].end; ++j, ++pairs)
            crossings += Cross(segments[i], segments[j]);
    return crossings;
}

bool Fits(const Row &row, const PlannedBar &bar, double gap) {
    const auto next = row.taken.lower_bound(bar.begin);
    if (next != row.taken.end() && next->first < bar.end + gap) return false;
    return next == row.taken.begin() || std::prev(next)->second <= bar.begin;
}

void Put(Row &row, const std::vector<PlannedBar> &bars, int bar, double gap) {
    row.bars.push_back(bar);
    row.taken.emplace(bars[size_t(bar)].begin, bars[size_t(bar)].end + gap);
}

// Puts each bar into a row.
class Rows {
public:
    Rows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links, double gap, RowOrder order)
        : bars_(bars), gap_(gap), rowOf_(bars.size(), -1), linked_(bars.size()) {
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
        for (int bar : candidates)
            Fits(rows_[size_t(row)], bars_[size_t(bar)], gap_) ? PutInto(row, bar) : loose.push_back(bar);
    }

    int NewRow(int bar) {
        const PlannedBar &first = bars_[size_t(bar)];
        rows_.push_back({{}, {}, first.middle, first.lane, first.before});
        return int(rows_.size()) - 1;
    }

    void PutInto(int row, int bar) {
        Put(rows_[size_t(row)], bars_, bar, gap_);
        rowOf_[size_t(bar)] = row;
    }

    bool HasRoom(int row, int bar) const {
        return row >= 0 && SameBlock(rows_[size_t(row)], bars_[size_t(bar)]) &&
               Fits(rows_[size_t(row)], bars_[size_t(bar)], gap_);
    }

    // Beside what it is linked with, else in the nearest row with room, else in one of its own.
    void PutSomewhere(int bar) {
        for (int other : linked_[size_t(bar)])
            if (HasRoom(rowOf_[size_t(other)], bar)) return PutInto(rowOf_[size_t(other)], bar);
        int nearest = -1;
        const auto distance = [&](int row) {
            return std::abs(rows_[size_t(row)].middle - bars_[size_t(bar)].middle);
        };
        for (int row = 0; row < int(rows_.size()); ++row)
            if ((nearest < 0 || distance(row) < distance(nearest)) && HasRoom(row, bar)) nearest = row;
        PutInto(nearest < 0 ? NewRow(bar) : nearest, bar);
    }

    const std::vector<PlannedBar> &bars_;
    double gap_;
    std::vector<Row> rows_;
    std::vector<int> rowOf_;
    std::vector<std::vector<int>> linked_;
};

// How far from the strip there is room, for each stretch along it.
class Skyline {
public:
    explicit Skyline(const std::vector<PlannedBar> &bars, double gap) : gap_(gap) {
        for (const PlannedBar &bar : bars) {
            edges_.push_back(bar.begin);
            edges_.push_back(bar.end + gap);
        }
        std::ranges::sort(edges_);
        edges_.erase(std::unique(edges_.begin(), edges_.end()), edges_.end());
        heights_.assign(edges_.size(), 0);
    }

    double Above(const PlannedBar &bar) const {
        const auto [from, to] = Stretch(bar);
        return *std::max_element(heights_.begin() + from, heights_.begin() + to);
    }
    void Raise(const PlannedBar &bar, double height) {
        const auto [from, to] = Stretch(bar);
        std::fill(heights_.begin() + from, heights_.begin() + to, height);
        highest_ = std::max(highest_, height);
    }
    void Level(double room) { std::ranges::fill(heights_, highest_ + room); }

private:
    std::pair<long, long> Stretch(const PlannedBar &bar) const {
        const long from = std::ranges::lower_bound(edges_, bar.begin) - edges_.begin();
        return {from, std::max(from + 1, std::ranges::lower_bound(edges_, bar.end + gap_) - edges_.begin())};
    }

    double gap_;
    std::vector<double> edges_, heights_;
    double highest_ = 0;
};

// Lays the rows of one side onto each other, away from the strip.
class Stack {
public:
    Stack(const std::vector<PlannedBar> &bars, const StripEdges &strip, const RowGaps &gaps,
          const std::vector<FixedBox> &fixed)
        : bars_(bars),
          gaps_(gaps),
          behind_(bars, fixed, gaps, 1, strip.behind),
          before_(bars, fixed, gaps, -1, strip.before),
          sides_{{{1, strip.behind, behind_}, {-1, strip.before, before_}}} {}
    Stack(const Stack &) = delete;
    Stack &operator=(const Stack &) = delete;

    // The rows in ascending order across. Rows that don't keep their place lie as close as whole rows can.
    void Place(const std::vector<Row *> &rows, bool keep, std::vector<double> &middles) const {
        std::vector<Row *> behind, before;
        for (Row *row : rows) (row->before ? before : behind).push_back(row);
        std::ranges::reverse(before);
        PlaceSide(behind, sides_[0], keep, middles);
        PlaceSide(before, sides_[1], keep, middles);
    }

private:
    struct Side {
        double sign, edge;
        const FixedBeside &fixed;
    };

    void PlaceSide(const std::vector<Row *> &rows, const Side &side, bool keep,
                   std::vector<double> &middles) const {
        const std::vector<double> distances = keep ? Kept(rows, side) : Closest(rows, side);
        for (size_t i = 0; i < rows.size(); ++i)
            for (int bar : rows[i]->bars) middles[size_t(bar)] = side.edge + side.sign * distances[i];
    }

    std::vector<double> Closest(const std::vector<Row *> &rows, const Side &side) const {
        std::vector<double> distances;
        double height = 0;
        for (size_t i = 0; i < rows.size(); ++i) {
            if (i > 0 && rows[i - 1]->lane != rows[i]->lane) height += gaps_.lanes;
            const double half = BreadthOf(*rows[i]) / 2;
            distances.push_back(side.fixed.Free(rows[i]->bars, height + gaps_.across + half));
            height = distances.back() + half;
        }
        return distances;
    }

    std::vector<double> Kept(const std::vector<Row *> &rows, const Side &side) const {
        std::vector<double> distances;
        Skyline skyline(bars_, gaps_.along);
        for (size_t i = 0; i < rows.size(); ++i) {
            if (i > 0 && rows[i - 1]->lane != rows[i]->lane) skyline.Level(gaps_.lanes);
            distances.push_back(DistanceOf(*rows[i], skyline, side));
        }
        return distances;
    }

    double BreadthOf(const Row &row) const {
        double breadth = 0;
        for (int bar : row.bars) breadth = std::max(breadth, bars_[size_t(bar)].breadth);
        return breadth;
    }

    double DistanceOf(const Row &row, Skyline &skyline, const Side &side) const {
        const double present = side.sign * (row.middle - side.edge);
        double needed = 0;
        for (int bar : row.bars)
            needed = std::max(needed, skyline.Above(bars_[size_t(bar)]) + gaps_.across +
                                          bars_[size_t(bar)].breadth / 2);
        const double distance =
            side.fixed.Free(row.bars, !row.gathered && present + kRounding >= needed ? present : needed);
        for (int bar : row.bars) skyline.Raise(bars_[size_t(bar)], distance + bars_[size_t(bar)].breadth / 2);
        return distance;
    }

    const std::vector<PlannedBar> &bars_;
    const RowGaps &gaps_;
    FixedBeside behind_, before_;
    std::array<Side, 2> sides_;
};

// Looks for the order of rows, within their lanes, in which links cross least. What it finds doesn't depend
// on the order in which the rows stand, so that a second search finds the same.
class OrderSearch {
public:
    OrderSearch(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links, const Stack &stack,
                std::vector<Row *> start)
        : bars_(bars), links_(links), stack_(stack), best_(std::move(start)), middles_(bars.size()) {
        fewest_ = Crossings(best_);
    }

    // The fewest crossings.
    int Run() {
        Try(best_);
        std::mt19937 random(1);
        for (int i = 0; i < kShuffles && GoesOn(); ++i) Try(Shuffled(random));
        while (GoesOn() && SwapNeighbours()) {
        }
        return fewest_;
    }

    const std::vector<Row *> &Best() const { return best_; }

private:
    using Order = std::vector<Row *>;

    static bool SameBlock(const Row *a, const Row *b) { return a->lane == b->lane && a->before == b->before; }

    int Crossings(const Order &order) {
        stack_.Place(order, false, middles_);
        pairs_ += kPlacingOfABar * long(bars_.size());
        return Count(Segments(bars_, links_, middles_), pairs_);
    }

    bool GoesOn() const { return fewest_ > 0 && pairs_ < kMostPairs; }

    bool Take(const Order &order) {
        const int crossings = Crossings(order);
        if (crossings >= fewest_) return false;
        fewest_ = crossings;
        best_ = order;
        return true;
    }

    // The order itself, and what comes of it when rows are drawn to what they are linked with.
    void Try(Order order) {
        Take(order);
        for (int round = 0; round < kRounds && GoesOn(); ++round) {
            DrawTogether(order);
            Take(order);
        }
    }

    template <typename Change>
    static void ForEachBlock(Order &order, Change change) {
        for (auto first = order.begin(); first != order.end();) {
            const auto end =
                std::find_if(first, order.end(), [&](Row *row) { return !SameBlock(*first, row); });
            change(first, end);
            first = end;
        }
    }

    void DrawTogether(Order &order) {
        stack_.Place(order, false, middles_);
        std::vector<std::pair<double, int>> sums(bars_.size(), {0, 0});
        for (const BarLink &link : links_) {
            sums[size_t(link.from)].first += middles_[size_t(link.to)];
            sums[size_t(link.to)].first += middles_[size_t(link.from)];
            ++sums[size_t(link.from)].second, ++sums[size_t(link.to)].second;
        }
        std::map<const Row *, double> means;
        for (const Row *row : order) means[row] = MeanOf(*row, sums);
        ForEachBlock(order, [&](auto first, auto end) {
            std::stable_sort(first, end, [&](Row *a, Row *b) { return means[a] < means[b]; });
        });
    }

    double MeanOf(const Row &row, const std::vector<std::pair<double, int>> &sums) const {
        double sum = 0;
        int count = 0;
        for (int bar : row.bars) {
            sum += sums[size_t(bar)].first;
            count += sums[size_t(bar)].second;
        }
        return count > 0 ? sum / count : middles_[size_t(row.bars.front())];
    }

    Order Shuffled(std::mt19937 &random) const {
        Order order = best_;
        ForEachBlock(order, [&](auto first, auto end) {
            for (auto left = end - first; left > 1; --left)
                std::swap(first[left - 1], first[long(random() % std::mt19937::result_type(left))]);
        });
        return order;
    }

    bool SwapNeighbours() {
        bool better = false;
        for (size_t i = 1; i < best_.size() && GoesOn(); ++i) {
            if (!SameBlock(best_[i - 1], best_[i])) continue;
            Order order = best_;
            std::swap(order[i - 1], order[i]);
            better |= Take(order);
        }
        return better;
    }

    const std::vector<PlannedBar> &bars_;
    const std::vector<BarLink> &links_;
    const Stack &stack_;
    Order best_;
    std::vector<double> middles_;
    int fewest_ = 0;
    long pairs_ = 0;
};

std::vector<Row *> Pointers(std::vector<Row> &rows) {
    std::vector<Row *> order;
    for (Row &row : rows) order.push_back(&row);
    return order;
}

std::vector<Row *> InPresentOrder(std::vector<Row> &rows) {
    std::vector<Row *> order = Pointers(rows);
    std::ranges::stable_sort(order, [](const Row *a, const Row *b) {
        return std::tie(a->before, a->lane, a->middle) < std::tie(b->before, b->lane, b->middle);
    });
    return order;
}

// By what comes first in them.
std::vector<Row *> InOrderOfDates(std::vector<Row> &rows) {
    for (Row &row : rows) std::ranges::sort(row.bars);
    std::vector<Row *> order = Pointers(rows);
    std::ranges::sort(order, [](const Row *a, const Row *b) {
        return std::tuple(a->before, a->lane, a->taken.begin()->first, a->bars.front()) <
               std::tuple(b->before, b->lane, b->taken.begin()->first, b->bars.front());
    });
    return order;
}

} // namespace

int CountCrossings(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                   const std::vector<double> &middles) {
    long pairs = 0;
    return Count(Segments(bars, links, middles), pairs);
}

std::vector<double> PlanRows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                             const StripEdges &strip, const RowGaps &gaps, RowOrder order,
                             const std::vector<FixedBox> &fixed) {
    std::vector<Row> rows = Rows(bars, links, gaps.along, order).Take();
    const Stack stack(bars, strip, gaps, fixed);
    std::vector<double> middles(bars.size(), 0);
    stack.Place(InPresentOrder(rows), true, middles);
    if (order == RowOrder::Keep) return middles;
    OrderSearch search(bars, links, stack, InOrderOfDates(rows));
    if (search.Run() < kMuchBetter * CountCrossings(bars, links, middles))
        stack.Place(search.Best(), false, middles);
    return middles;
}

} // namespace timeline
