#include "diagram/layout/Lanes.h"

#include "diagram/layout/Orientation.h"
#include "diagram/layout/Parts.h"
#include "diagram/layout/Rows.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace diagram {

namespace {

using Cell = std::vector<int>;
using Line = std::span<const int>;

// Boxes in cells: lanes from left to right, rows downwards.
class Lanes {
public:
    Lanes(const LayoutGraph &graph, const LayoutOptions &options)
        : graph_(graph), options_(options), lanes_(LanesOf(graph)), rows_(RowsAlongEdges(graph)) {
        laneCount_ = 1 + std::size_t(*std::ranges::max_element(lanes_));
        rowCount_ = 1 + std::size_t(std::max(0, *std::ranges::max_element(rows_)));
        MakeRoomForLoose();
        cells_.resize(laneCount_ * rowCount_);
        for (std::size_t box = 0; box < rows_.size(); ++box)
            if (rows_[box] >= 0) CellOf(box).push_back(int(box));
        FillInLoose();
    }

    // Boxes of a cell change places so that their links cross little.
    void Sort(Progress &progress) {
        const Adjacency neighbours = NeighboursOf(graph_);
        constexpr int kSweeps = 8;
        for (int sweep = 0; sweep < kSweeps; ++sweep) {
            progress.At(double(sweep) / kSweeps);
            const std::vector<QPointF> centres = Centres();
            for (Cell &cell : cells_) SortCell(cell, neighbours, centres);
        }
    }

    std::vector<QPointF> Centres() const {
        const std::vector<double> middles = LaneMiddles(), lines = RowLines();
        std::vector<QPointF> centres(rows_.size());
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            double top = lines[i / laneCount_] - HeightOf(cells_[i]) / 2;
            for (const Line line : LinesOf(cells_[i])) {
                const double height = HighestOf(line);
                double left = middles[i % laneCount_] - WidthOf(line) / 2;
                for (const int box : line) {
                    const double width = graph_.sizes[std::size_t(box)].width();
                    centres[std::size_t(box)] = {left + width / 2, top + height / 2};
                    left += width + options_.neighbourDistance;
                }
                top += height + options_.neighbourDistance;
            }
        }
        return centres;
    }

private:
    // Boxes without a lane share one behind the last.
    static std::vector<int> LanesOf(const LayoutGraph &graph) {
        std::vector<int> lanes = graph.lanes;
        lanes.resize(graph.sizes.size(), -1);
        const int behind = *std::ranges::max_element(lanes) + 1;
        for (int &lane : lanes)
            if (lane < 0) lane = behind;
        return lanes;
    }

    Cell &CellOf(std::size_t box) {
        return cells_[std::size_t(rows_[box]) * laneCount_ + std::size_t(lanes_[box])];
    }

    // At least as many rows as any lane's boxes without edges need to stand in a square.
    void MakeRoomForLoose() {
        std::vector<int> loose(laneCount_, 0);
        for (std::size_t box = 0; box < rows_.size(); ++box)
            if (rows_[box] < 0) ++loose[std::size_t(lanes_[box])];
        for (const int count : loose)
            rowCount_ = std::max(rowCount_, std::size_t(std::ceil(std::sqrt(count))));
    }

    void FillInLoose() {
        for (std::size_t box = 0; box < rows_.size(); ++box) {
            if (rows_[box] >= 0) continue;
            rows_[box] = 0;
            for (int row = 1; row < int(rowCount_); ++row) {
                const auto lane = std::size_t(lanes_[box]);
                const std::size_t best = std::size_t(rows_[box]) * laneCount_ + lane;
                if (cells_[std::size_t(row) * laneCount_ + lane].size() < cells_[best].size())
                    rows_[box] = row;
            }
            CellOf(box).push_back(int(box));
        }
    }

    static void SortCell(Cell &cell, const Adjacency &neighbours, const std::vector<QPointF> &centres) {
        if (cell.size() < 2) return;
        const auto wish = [&](int box) {
            const std::vector<int> &list = neighbours[std::size_t(box)];
            if (list.empty()) return centres[std::size_t(box)].x();
            double sum = 0;
            for (const int other : list) sum += centres[std::size_t(other)].x();
            return sum / double(list.size());
        };
        std::ranges::stable_sort(cell, {}, wish);
    }

    // Boxes side by side: all of a cell, or as many as leave the whole about as high as wide.
    std::vector<Line> LinesOf(const Cell &cell) const {
        constexpr double kFewest = 3, kWidth = 1.5;
        const double square = std::sqrt(double(rows_.size()) / double(laneCount_));
        const auto most = std::size_t(std::max(kFewest, std::ceil(kWidth * square)));
        std::vector<Line> lines;
        for (std::size_t i = 0; i < cell.size(); i += most)
            lines.push_back(Line(cell).subspan(i, std::min(most, cell.size() - i)));
        return lines;
    }
    double WidthOf(Line line) const {
        double width = -options_.neighbourDistance;
        for (const int box : line)
            width += graph_.sizes[std::size_t(box)].width() + options_.neighbourDistance;
        return width;
    }
    double HighestOf(Line line) const {
        double height = 0;
        for (const int box : line) height = std::max(height, graph_.sizes[std::size_t(box)].height());
        return height;
    }
    double HeightOf(const Cell &cell) const {
        double height = -options_.neighbourDistance;
        for (const Line line : LinesOf(cell)) height += HighestOf(line) + options_.neighbourDistance;
        return height;
    }

    std::vector<double> LaneMiddles() const {
        std::vector<double> widths(laneCount_, 0);
        for (std::size_t i = 0; i < cells_.size(); ++i)
            for (const Line line : LinesOf(cells_[i]))
                widths[i % laneCount_] = std::max(widths[i % laneCount_], WidthOf(line));
        double left = 0;
        for (double &width : widths) {
            const double end = width > 0 ? left + width + options_.levelDistance : left;
            width = left + width / 2; // now the middle
            left = end;
        }
        return widths;
    }

    std::vector<double> RowLines() const {
        std::vector<double> heights(rowCount_, 0);
        for (std::size_t i = 0; i < cells_.size(); ++i)
            heights[i / laneCount_] = std::max(heights[i / laneCount_], HeightOf(cells_[i]));
        double top = 0;
        for (double &height : heights) {
            const double end = top + height + options_.levelDistance;
            height = top + height / 2;
            top = end;
        }
        return heights;
    }

    const LayoutGraph &graph_;
    const LayoutOptions &options_;
    std::vector<int> lanes_, rows_;
    std::size_t laneCount_ = 0, rowCount_ = 0;
    std::vector<Cell> cells_; // row by row
};

} // namespace

std::vector<QPointF> InLanes(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress) {
    if (graph.sizes.empty()) return {};
    const LayoutGraph turned = TurnedDown(graph, options.orientation);
    Lanes lanes(turned, options);
    lanes.Sort(progress);
    return TurnedBack(lanes.Centres(), options.orientation);
}

} // namespace diagram
