#include "timeline/RowPlan.h"

#include "timeline/Crossings.h"
#include "timeline/Rows.h"
#include "timeline/RowStack.h"

#include <algorithm>
#include <random>
#include <tuple>
#include <utility>

namespace timeline {

namespace {

constexpr int kShuffles = 50;        // orders of rows that are tried beside the computed ones
constexpr int kRounds = 8;           // of moving each row to the mean of what it is linked with
constexpr double kMuchBetter = 0.9;  // of the present crossings, for an order to take its place
constexpr long kMostPairs = 2000000; // of links that are compared before the best so far is taken
constexpr long kPlacingOfABar = 50;  // takes as long as so many comparisons

// Looks for the order of rows, within their lanes, in which links cross least. What it finds doesn't depend
// on the order in which the rows stand, so that a second search finds the same.
class OrderSearch {
public:
    OrderSearch(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links, const RowStack &stack,
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
        stack_.Place(order, RowStack::Fill::Closest, middles_);
        pairs_ += kPlacingOfABar * long(bars_.size());
        return CountCrossings(bars_, links_, middles_, pairs_);
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
        stack_.Place(order, RowStack::Fill::Closest, middles_);
        std::vector<std::pair<double, int>> sums(bars_.size(), {0, 0});
        for (const BarLink &link : links_) {
            sums[size_t(link.from)].first += middles_[size_t(link.to)];
            sums[size_t(link.to)].first += middles_[size_t(link.from)];
            ++sums[size_t(link.from)].second, ++sums[size_t(link.to)].second;
        }
        ForEachBlock(order, [&](auto first, auto end) {
            std::vector<std::pair<double, Row *>> rows;
            for (auto row = first; row != end; ++row) rows.emplace_back(MeanOf(**row, sums), *row);
            std::ranges::stable_sort(rows, {}, &std::pair<double, Row *>::first);
            for (const auto &[mean, row] : rows) *first++ = row;
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
    const RowStack &stack_;
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

// By the first bars of the rows along the strip.
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

std::vector<double> PlanRows(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                             const StripEdges &strip, const RowGaps &gaps, RowOrder order,
                             const std::vector<FixedBox> &fixed) {
    const Partings apart =
        order == RowOrder::Choose ? LinkedTooClosely(bars, links, gaps) : Partings(bars.size());
    std::vector<Row> rows = MakeRows(bars, links, apart, gaps.along, order);
    const RowStack stack(bars, apart, strip, gaps, fixed);
    std::vector<double> middles(bars.size(), 0);
    stack.Place(InPresentOrder(rows), RowStack::Fill::Keep, middles);
    if (order == RowOrder::Keep) return middles;
    OrderSearch search(bars, links, stack, InOrderOfDates(rows));
    if (search.Run() < kMuchBetter * CountCrossings(bars, links, middles))
        stack.Place(search.Best(), RowStack::Fill::Closest, middles);
    return middles;
}

} // namespace timeline
