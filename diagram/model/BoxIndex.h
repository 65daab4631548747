// Boxes by place: an R-tree of identities. Twips, as single floats, so that an entry takes no more than 20
// bytes.
#pragma once

#include "diagram/model/Item.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <QRectF>
#include <utility>
#include <vector>

namespace diagram {

struct FloatBox {
    float left = 0, top = 0, right = 0, bottom = 0;
    bool HasInside() const { return left < right && top < bottom; }
    QRectF Rect() const { return QRectF(QPointF(left, top), QPointF(right, bottom)); }
    bool Touches(const FloatBox &other) const {
        return !(right < other.left || left > other.right || bottom < other.top || top > other.bottom);
    }
    friend bool operator==(const FloatBox &, const FloatBox &) = default;
    void Unite(const FloatBox &other) {
        left = std::min(left, other.left), top = std::min(top, other.top);
        right = std::max(right, other.right), bottom = std::max(bottom, other.bottom);
    }
};

class BoxIndex {
public:
    using Entry = std::pair<FloatBox, ItemId>;

    BoxIndex();
    ~BoxIndex();
    // Replaces everything; faster than inserting one by one, and the tree is searched faster.
    void Build(const std::vector<Entry> &entries);
    void Clear();
    void Insert(const FloatBox &box, ItemId id);
    void Remove(const FloatBox &box, ItemId id); // the box must be that with which it came in
    std::size_t Size() const;
    FloatBox Bounds() const; // of all boxes; not of an empty index
    // Calls `visit` with what touches `area`, in any order. The index must not be changed meanwhile.
    void Visit(const FloatBox &area, const std::function<void(const Entry &)> &visit) const;
    // Appends what touches `area`, in any order.
    void Find(const QRectF &area, std::vector<Entry> &found) const;
    // Calls `visit` with what comes within `nearness` of the line between two points, and perhaps a little
    // more, in any order, until it says false: much less than touches the area that a long line spans.
    void VisitAlong(const QPointF &from, const QPointF &to, double nearness,
                    const std::function<bool(const Entry &)> &visit) const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

} // namespace diagram
