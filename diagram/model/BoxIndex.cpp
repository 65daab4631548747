#include "diagram/model/BoxIndex.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace diagram {

namespace {

namespace bg = boost::geometry;
using Corner = bg::model::point<float, 2, bg::cs::cartesian>;
using Box = bg::model::box<Corner>;
using Stored = std::pair<Box, ItemId>;

Stored ToStored(const FloatBox &box, ItemId id) {
    return {Box(Corner(box.left, box.top), Corner(box.right, box.bottom)), id};
}

BoxIndex::Entry ToEntry(const Stored &stored) {
    const Corner &low = stored.first.min_corner(), &high = stored.first.max_corner();
    return {{low.get<0>(), low.get<1>(), high.get<0>(), high.get<1>()}, stored.second};
}

} // namespace

struct BoxIndex::Tree {
    bg::index::rtree<Stored, bg::index::quadratic<12>> boxes;
};

BoxIndex::BoxIndex() : tree_(std::make_unique<Tree>()) {}
BoxIndex::~BoxIndex() = default;

void BoxIndex::Build(const std::vector<Entry> &entries) {
    std::vector<Stored> stored;
    stored.reserve(entries.size());
    for (const Entry &entry : entries) stored.push_back(ToStored(entry.first, entry.second));
    tree_->boxes = decltype(tree_->boxes)(stored.begin(), stored.end());
}

void BoxIndex::Clear() { tree_->boxes.clear(); }
void BoxIndex::Insert(const FloatBox &box, ItemId id) { tree_->boxes.insert(ToStored(box, id)); }
void BoxIndex::Remove(const FloatBox &box, ItemId id) { tree_->boxes.remove(ToStored(box, id)); }
std::size_t BoxIndex::Size() const { return tree_->boxes.size(); }

void BoxIndex::Find(const QRectF &area, std::vector<Entry> &found) const {
    const Box query(Corner(float(area.left()), float(area.top())),
                    Corner(float(area.right()), float(area.bottom())));
    tree_->boxes.query(bg::index::intersects(query),
                       boost::make_function_output_iterator(
                           [&found](const Stored &stored) { found.push_back(ToEntry(stored)); }));
}

} // namespace diagram
