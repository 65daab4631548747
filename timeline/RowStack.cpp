#include "timeline/RowStack.h"

#include <algorithm>

namespace timeline {

// How far from the strip the rows placed so far reach, for each stretch along it.
class RowStack::Skyline {
public:
    explicit Skyline(const std::vector<PlannedBar> &bars, double gap) : gap_(gap) {
        for (const PlannedBar &bar : bars) {
            edges_.push_back(bar.begin);
            edges_.push_back(bar.EndOfRoom() + gap);
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
        return {from, std::max(from + 1,
                               std::ranges::lower_bound(edges_, bar.EndOfRoom() + gap_) - edges_.begin())};
    }

    double gap_;
    std::vector<double> edges_, heights_;
    double highest_ = 0;
};

RowStack::RowStack(const std::vector<PlannedBar> &bars, const Partings &apart, const StripEdges &strip,
                   const RowGaps &gaps, const std::vector<FixedBox> &fixed)
    : bars_(bars),
      apart_(apart),
      gaps_(gaps),
      behind_(bars, fixed, gaps, 1, strip.behind),
      before_(bars, fixed, gaps, -1, strip.before),
      sides_{{{1, strip.behind, behind_}, {-1, strip.before, before_}}} {}

void RowStack::Place(const std::vector<Row *> &rows, Fill fill, std::vector<double> &middles) const {
    std::vector<Row *> behind, before;
    for (Row *row : rows) (row->before ? before : behind).push_back(row);
    std::ranges::reverse(before);
    PlaceSide(behind, sides_[0], fill, middles);
    PlaceSide(before, sides_[1], fill, middles);
}

void RowStack::PlaceSide(const std::vector<Row *> &rows, const Side &side, Fill fill,
                         std::vector<double> &middles) const {
    const std::vector<double> distances = fill == Fill::Keep ? Kept(rows, side) : Closest(rows, side);
    for (size_t i = 0; i < rows.size(); ++i)
        for (int bar : rows[i]->bars) middles[size_t(bar)] = side.edge + side.sign * distances[i];
}

std::vector<double> RowStack::Closest(const std::vector<Row *> &rows, const Side &side) const {
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

std::vector<double> RowStack::Kept(const std::vector<Row *> &rows, const Side &side) const {
    std::vector<double> distances, tops(bars_.size(), 0); // the far edges of those that were placed
    Skyline skyline(bars_, gaps_.along);
    for (size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && rows[i - 1]->lane != rows[i]->lane) skyline.Level(gaps_.lanes);
        distances.push_back(DistanceOf(*rows[i], Needed(*rows[i], skyline, tops), side));
        for (int bar : rows[i]->bars) {
            const double top = distances.back() + bars_[size_t(bar)].breadth / 2;
            skyline.Raise(bars_[size_t(bar)], top);
            tops[size_t(bar)] = top;
        }
    }
    return distances;
}

double RowStack::BreadthOf(const Row &row) const {
    double breadth = 0;
    for (int bar : row.bars) breadth = std::max(breadth, bars_[size_t(bar)].breadth);
    return breadth;
}

double RowStack::Needed(const Row &row, const Skyline &skyline, const std::vector<double> &tops) const {
    double needed = 0;
    for (int bar : row.bars) {
        double above = skyline.Above(bars_[size_t(bar)]);
        for (int other : apart_[size_t(bar)]) above = std::max(above, tops[size_t(other)]);
        needed = std::max(needed, above + gaps_.across + bars_[size_t(bar)].breadth / 2);
    }
    return needed;
}

double RowStack::DistanceOf(const Row &row, double needed, const Side &side) const {
    const double present = side.sign * (row.middle - side.edge);
    return side.fixed.Free(row.bars, !row.gathered && present + kRounding >= needed ? present : needed);
}

} // namespace timeline
