#include "diagram/scene/PieceGrid.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace diagram {

namespace {

constexpr double kCell = 1500;     // twips
constexpr int kFarthest = 1 << 14; // cells from the origin; what lies beyond is in the outermost ones

int CellOf(double at) {
    return int(std::clamp(std::floor(at / kCell), -double(kFarthest), double(kFarthest)));
}

std::uint64_t KeyOf(int column, int row) {
    return (std::uint64_t(std::uint32_t(column)) << 32) | std::uint32_t(row);
}

bool Touches(const QRectF &area, const QLineF &line) {
    return std::min(line.x1(), line.x2()) < area.right() && std::max(line.x1(), line.x2()) > area.left() &&
           std::min(line.y1(), line.y2()) < area.bottom() && std::max(line.y1(), line.y2()) > area.top();
}

} // namespace

// Column by column, the rows that the line passes there.
void PieceGrid::ForCells(const QLineF &line, const auto &visit) {
    const QPointF from = line.x1() <= line.x2() ? line.p1() : line.p2();
    const QPointF to = line.x1() <= line.x2() ? line.p2() : line.p1();
    const int first = CellOf(from.x()), last = CellOf(to.x());
    const auto at = [&](int column) {
        const double x = std::clamp(column * kCell, from.x(), to.x());
        return to.x() > from.x() ? from.y() + (to.y() - from.y()) * (x - from.x()) / (to.x() - from.x())
                                 : to.y();
    };
    for (int column = first; column <= last; ++column) {
        const double start = column == first ? from.y() : at(column);
        const double end = column == last ? to.y() : at(column + 1);
        const auto [low, high] = std::minmax({CellOf(start), CellOf(end)});
        for (int row = low; row <= high; ++row) visit(KeyOf(column, row));
    }
}

void PieceGrid::Clear() {
    pieces_.clear(), free_.clear();
    ofLink_.clear(), cells_.clear();
}

void PieceGrid::Insert(ItemId link, const QPointF &from, const QPointF &to) {
    if (free_.empty()) free_.push_back(std::uint32_t(pieces_.size())), pieces_.emplace_back();
    const std::uint32_t place = free_.back();
    free_.pop_back();
    pieces_[place] = {QLineF(from, to), link, 0};
    ofLink_[link].push_back(place);
    ForCells(pieces_[place].line, [&](std::uint64_t cell) { cells_[cell].push_back(place); });
}

void PieceGrid::Remove(ItemId link) {
    const auto found = ofLink_.find(link);
    if (found == ofLink_.end()) return;
    for (const std::uint32_t place : found->second) {
        ForCells(pieces_[place].line, [&](std::uint64_t cell) {
            const auto at = cells_.find(cell);
            std::erase(at->second, place);
            if (at->second.empty()) cells_.erase(at);
        });
        free_.push_back(place);
    }
    ofLink_.erase(found);
}

void PieceGrid::Find(const QRectF &area, ItemId but, std::vector<QLineF> &found) const {
    ++questions_;
    for (int column = CellOf(area.left()); column <= CellOf(area.right()); ++column)
        for (int row = CellOf(area.top()); row <= CellOf(area.bottom()); ++row) {
            const auto cell = cells_.find(KeyOf(column, row));
            if (cell == cells_.end()) continue;
            for (const std::uint32_t place : cell->second) {
                const Piece &piece = pieces_[place];
                if (piece.link == but || !Touches(area, piece.line)) continue;
                if (std::exchange(piece.seen, questions_) != questions_) found.push_back(piece.line);
            }
        }
}

} // namespace diagram
