// Boxes by place: an R-tree of identities. Twips, as single floats, so that a box takes 20 bytes and the room
// that the tree keeps for others.
#pragma once

#include "diagram/model/Item.h"

#include <memory>
#include <QRectF>
#include <utility>
#include <vector>

namespace diagram {

struct FloatBox {
    float left = 0, top = 0, right = 0, bottom = 0;
    bool HasInside() const { return left < right && top < bottom; }
    QRectF Rect() const { return QRectF(QPointF(left, top), QPointF(right, bottom)); }
};

class BoxIndex {
public:
    using Entry = std::pair<FloatBox, ItemId>;

    BoxIndex();
    ~BoxIndex();
    // Everything anew: faster and tighter than one by one.
    void Build(const std::vector<Entry> &entries);
    void Clear();
    void Insert(const FloatBox &box, ItemId id);
    void Remove(const FloatBox &box, ItemId id); // the box must be that with which it came in
    std::size_t Size() const;
    // Appends what touches `area`, in any order.
    void Find(const QRectF &area, std::vector<Entry> &found) const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

} // namespace diagram
