#include "diagram/layout/Stress.h"

#include "diagram/layout/Breadth.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

StressTerm Term(const StressLengths &lengths, std::size_t box, std::size_t other, int steps) {
    const double distance =
        std::max(lengths.edge / 4, steps * lengths.edge + lengths.extra[box] + lengths.extra[other]);
    return {int(other), float(distance), float(1 / (distance * distance))};
}

// Where the terms of a box draw it.
QPointF Drawn(const std::vector<StressTerm> &terms, const std::vector<QPointF> &places,
              const QPointF &place) {
    double x = 0, y = 0, weights = 0;
    for (const StressTerm &term : terms) {
        const QPointF &other = places[std::size_t(term.other)];
        const double across = place.x() - other.x(), down = place.y() - other.y();
        const double weight = term.weight;
        const double pull = term.distance / std::sqrt(across * across + down * down + 1e-9);
        x += weight * (other.x() + across * pull);
        y += weight * (other.y() + down * pull);
        weights += weight;
    }
    return {x / weights, y / weights};
}

// Of the boxes to which a pivot is the nearest one: how many of them lie within each distance of it.
class Regions {
public:
    Regions(const std::vector<BreadthFirst> &pivots, std::size_t boxes) : within_(pivots.size()) {
        for (std::size_t box = 0; box < boxes; ++box) {
            std::size_t nearest = 0;
            for (std::size_t p = 1; p < pivots.size(); ++p)
                if (pivots[p].depth[box] < pivots[nearest].depth[box]) nearest = p;
            const auto depth = std::size_t(pivots[nearest].depth[box]);
            std::vector<int> &counts = within_[nearest];
            if (counts.size() <= depth) counts.resize(depth + 1, 0);
            ++counts[depth];
        }
        for (std::vector<int> &counts : within_)
            for (std::size_t i = 1; i < counts.size(); ++i) counts[i] += counts[i - 1];
    }
    int Within(std::size_t pivot, int steps) const {
        const std::vector<int> &counts = within_[pivot];
        return counts.empty() ? 1 : counts[std::min(counts.size() - 1, std::size_t(steps))];
    }

private:
    std::vector<std::vector<int>> within_;
};

// So many boxes that are far from each other, or fewer in a small part, with the distances of all boxes.
std::vector<BreadthFirst> Pivots(const Adjacency &neighbours, int count) {
    std::vector<BreadthFirst> pivots;
    std::vector<int> nearest(neighbours.size(), int(neighbours.size()));
    std::size_t next = 0;
    while (int(pivots.size()) < count && nearest[next] > 0) {
        pivots.emplace_back(neighbours, int(next));
        for (std::size_t box = 0; box < nearest.size(); ++box)
            nearest[box] = std::min(nearest[box], pivots.back().depth[box]);
        next = std::size_t(std::ranges::max_element(nearest) - nearest.begin());
    }
    return pivots;
}

using Columns = std::vector<std::vector<double>>; // of pivots, a value for each box

// Squared distances, with the means of rows and columns taken off.
Columns Centred(const std::vector<BreadthFirst> &pivots, std::size_t boxes) {
    Columns columns(pivots.size(), std::vector<double>(boxes));
    std::vector<double> rows(boxes, 0);
    for (std::size_t p = 0; p < pivots.size(); ++p) {
        double sum = 0;
        for (std::size_t box = 0; box < boxes; ++box) {
            const double depth = pivots[p].depth[box];
            sum += columns[p][box] = -depth * depth / 2;
        }
        for (std::size_t box = 0; box < boxes; ++box) {
            columns[p][box] -= sum / double(boxes);
            rows[box] += columns[p][box] / double(pivots.size());
        }
    }
    for (std::vector<double> &column : columns)
        for (std::size_t box = 0; box < boxes; ++box) column[box] -= rows[box];
    return columns;
}

double Dot(const std::vector<double> &a, const std::vector<double> &b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
    return sum;
}

void TakeOff(std::vector<double> &from, const std::vector<double> &direction) {
    const double share = Dot(from, direction);
    for (std::size_t i = 0; i < from.size(); ++i) from[i] -= share * direction[i];
}

// The direction in which the boxes lie farthest apart, at a right angle to `other` unless that is empty.
std::vector<double> MainDirection(const Columns &squares, const std::vector<double> &other) {
    std::vector<double> direction(squares.size());
    for (std::size_t i = 0; i < direction.size(); ++i) direction[i] = 1 + 0.37 * double((i * 7919) % 13);
    constexpr int kRounds = 60;
    for (int round = 0; round < kRounds; ++round) {
        if (!other.empty()) TakeOff(direction, other);
        const double length = std::sqrt(Dot(direction, direction));
        if (length < 1e-9) return std::vector<double>(squares.size(), 0);
        for (double &value : direction) value /= length;
        if (round + 1 == kRounds) break;
        std::vector<double> next(direction.size());
        for (std::size_t i = 0; i < next.size(); ++i) next[i] = Dot(squares[i], direction);
        direction = std::move(next);
    }
    return direction;
}

Columns Squares(const Columns &columns) {
    Columns squares(columns.size(), std::vector<double>(columns.size()));
    for (std::size_t a = 0; a < columns.size(); ++a)
        for (std::size_t b = 0; b <= a; ++b) squares[a][b] = squares[b][a] = Dot(columns[a], columns[b]);
    return squares;
}

// The coordinate of each box along a direction.
std::vector<double> Along(const Columns &columns, const std::vector<double> &direction) {
    std::vector<double> along(columns.front().size(), 0);
    for (std::size_t p = 0; p < columns.size(); ++p)
        for (std::size_t box = 0; box < along.size(); ++box) along[box] += columns[p][box] * direction[p];
    return along;
}

// The mean length of the edges becomes `edge`.
void FitEdges(const Adjacency &neighbours, std::vector<QPointF> &places, double edge) {
    double sum = 0;
    int count = 0;
    for (std::size_t box = 0; box < places.size(); ++box)
        for (const int next : neighbours[box]) {
            const QPointF apart = places[box] - places[std::size_t(next)];
            sum += std::hypot(apart.x(), apart.y());
            ++count;
        }
    const double factor = sum > 1e-9 ? edge * count / sum : edge;
    for (QPointF &place : places) place *= factor;
}

} // namespace

StressTerms AllTerms(const Adjacency &neighbours, const StressLengths &lengths, Progress &progress) {
    StressTerms terms(neighbours.size());
    for (std::size_t box = 0; box < terms.size(); ++box) {
        progress.At(double(box) / double(terms.size()));
        const BreadthFirst ways(neighbours, int(box));
        terms[box].reserve(terms.size() - 1);
        for (std::size_t other = 0; other < terms.size(); ++other)
            if (other != box) terms[box].push_back(Term(lengths, box, other, ways.depth[other]));
    }
    return terms;
}

StressTerms PivotTerms(const Adjacency &neighbours, const StressLengths &lengths, int pivots,
                       Progress &progress) {
    const std::vector<BreadthFirst> ways = Pivots(neighbours, pivots);
    const Regions regions(ways, neighbours.size());
    StressTerms terms(neighbours.size());
    for (std::size_t box = 0; box < terms.size(); ++box) {
        if (box % 64 == 0) progress.At(double(box) / double(terms.size()));
        for (const int next : neighbours[box]) terms[box].push_back(Term(lengths, box, std::size_t(next), 1));
        for (std::size_t p = 0; p < ways.size(); ++p) {
            const int steps = ways[p].depth[box];
            if (steps < 2) continue; // itself and its neighbours
            StressTerm term = Term(lengths, box, std::size_t(ways[p].order.front()), steps);
            term.weight *= float(regions.Within(p, steps / 2));
            terms[box].push_back(term);
        }
    }
    return terms;
}

std::vector<QPointF> PivotPlaces(const Adjacency &neighbours, double edge) {
    constexpr int kPivots = 50;
    const Columns columns = Centred(Pivots(neighbours, kPivots), neighbours.size());
    const Columns squares = Squares(columns);
    const std::vector<double> first = MainDirection(squares, {});
    const std::vector<double> across = Along(columns, first);
    const std::vector<double> down = Along(columns, MainDirection(squares, first));
    std::vector<QPointF> places(neighbours.size());
    for (std::size_t box = 0; box < places.size(); ++box) places[box] = {across[box], down[box]};
    FitEdges(neighbours, places, edge);
    for (std::size_t box = 0; box < places.size(); ++box) {
        constexpr double kGoldenAngle = 2.399963;
        const double angle = kGoldenAngle * double(box),
                     reach = edge * (0.05 + 0.1 * double(box) / double(places.size()));
        places[box] += reach * QPointF(std::cos(angle), std::sin(angle));
    }
    return places;
}

void Majorize(const StressTerms &terms, std::vector<QPointF> &places, double edge, Progress &progress) {
    constexpr double kTerms = 4.5e7; // in all, about a quarter of a second
    double each = 1;
    for (const auto &list : terms) each += double(list.size());
    const int rounds = int(std::clamp(kTerms / each, 30.0, 300.0));
    constexpr double kStill = 0.002; // of an edge
    for (int round = 0; round < rounds; ++round) {
        double farthest = 0;
        for (std::size_t box = 0; box < places.size(); ++box) {
            if (box % 64 == 0) progress.At((round + double(box) / double(places.size())) / rounds);
            const QPointF place = Drawn(terms[box], places, places[box]), moved = place - places[box];
            farthest = std::max(farthest, std::abs(moved.x()) + std::abs(moved.y()));
            places[box] = place;
        }
        if (farthest < kStill * edge) break;
    }
}

} // namespace diagram
