#include "diagram/model/BoxIndex.h"

// The library includes headers of its own of which it says that they are out of date.
#define BOOST_ALLOW_DEPRECATED_HEADERS
#include <boost/geometry/algorithms/covered_by.hpp>
#include <boost/geometry/core/cs.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace diagram {

namespace {

namespace bg = boost::geometry;
using Corner = bg::model::point<float, 2, bg::cs::cartesian>;
using Box = bg::model::box<Corner>;

Box ToBox(const FloatBox &box) { return {Corner(box.left, box.top), Corner(box.right, box.bottom)}; }

// What the tree asks of an entry. The library's own comparison of boxes would be the larger part of what is
// to be compiled.
struct BoxOf {
    using result_type = Box;
    Box operator()(const BoxIndex::Entry &entry) const { return ToBox(entry.first); }
};
struct Same {
    bool operator()(const BoxIndex::Entry &a, const BoxIndex::Entry &b) const {
        return a.second == b.second && a.first == b.first;
    }
};

FloatBox FromBox(const Box &box) {
    const Corner &low = box.min_corner(), &high = box.max_corner();
    return {low.get<0>(), low.get<1>(), high.get<0>(), high.get<1>()};
}

} // namespace

struct BoxIndex::Tree {
    bg::index::rtree<BoxIndex::Entry, bg::index::quadratic<12>, BoxOf, Same> boxes;
};

BoxIndex::BoxIndex() : tree_(std::make_unique<Tree>()) {}
BoxIndex::~BoxIndex() = default;

void BoxIndex::Build(const std::vector<Entry> &entries) {
    tree_->boxes = decltype(tree_->boxes)(entries.begin(), entries.end());
}

void BoxIndex::Clear() { tree_->boxes.clear(); }
void BoxIndex::Insert(const FloatBox &box, ItemId id) { tree_->boxes.insert({box, id}); }
void BoxIndex::Remove(const FloatBox &box, ItemId id) { tree_->boxes.remove({box, id}); }
std::size_t BoxIndex::Size() const { return tree_->boxes.size(); }

FloatBox BoxIndex::Bounds() const { return FromBox(tree_->boxes.bounds()); }

void BoxIndex::Visit(const FloatBox &area, const std::function<void(const Entry &)> &visit) const {
    tree_->boxes.query(bg::index::intersects(ToBox(area)),
                       boost::make_function_output_iterator([&visit](const Entry &entry) { visit(entry); }));
}

void BoxIndex::Find(const QRectF &area, std::vector<Entry> &found) const {
    const FloatBox box{float(area.left()), float(area.top()), float(area.right()), float(area.bottom())};
    Visit(box, [&found](const Entry &entry) { found.push_back(entry); });
}

} // namespace diagram
