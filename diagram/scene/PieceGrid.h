// Straight pieces of routes by place, in cells of a grid: for many queries of small areas among long pieces.
#pragma once

#include "diagram/model/Item.h"

#include <cstdint>
#include <QLineF>
#include <QRectF>
#include <unordered_map>
#include <vector>

namespace diagram {

class PieceGrid {
public:
    void Clear();
    void Insert(ItemId link, const QPointF &from, const QPointF &to);
    void Remove(ItemId link); // all of its pieces
    // Appends the pieces that come near to the area, but for those of one link. In any order, each once.
    void Find(const QRectF &area, ItemId but, std::vector<QLineF> &found) const;

private:
    struct Piece {
        QLineF line;
        ItemId link = 0;
        mutable std::uint32_t seen = 0; // the number of the last query that found it
    };

    static void ForCells(const QLineF &line, const auto &visit);

    std::vector<Piece> pieces_;
    std::vector<std::uint32_t> free_; // places in `pieces_`
    std::unordered_map<ItemId, std::vector<std::uint32_t>> ofLink_;
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> cells_;
    mutable std::uint32_t questions_ = 0;
};

} // namespace diagram
