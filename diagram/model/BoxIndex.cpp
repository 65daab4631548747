#include "diagram/model/BoxIndex.h"

// Boost warns of deprecated headers that it includes itself.
#define BOOST_ALLOW_DEPRECATED_HEADERS
#include <boost/geometry/algorithms/covered_by.hpp>
#include <boost/geometry/core/cs.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/detail/rtree/utilities/view.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace diagram {

namespace {

namespace bg = boost::geometry;
using Corner = bg::model::point<float, 2, bg::cs::cartesian>;
using Box = bg::model::box<Corner>;

Box ToBox(const FloatBox &box) { return {Corner(box.left, box.top), Corner(box.right, box.bottom)}; }

// What the tree asks of an entry. With a comparison of its own the library would take much longer to compile.
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

using Boxes = bg::index::rtree<BoxIndex::Entry, bg::index::quadratic<12>, BoxOf, Same>;

// A line that is as wide as `nearness` to either side; box after box is compared with it.
class Corridor {
public:
    Corridor(const QPointF &from, const QPointF &to, double nearness)
        : x_(from.x(), to.x(), nearness), y_(from.y(), to.y(), nearness) {}

    bool Touches(const Box &box) const {
        double first = 0, last = 1;
        return x_.Clip(box.min_corner().get<0>(), box.max_corner().get<0>(), first, last) &&
               y_.Clip(box.min_corner().get<1>(), box.max_corner().get<1>(), first, last);
    }

private:
    class Side {
    public:
        Side(double from, double to, double nearness)
            : from_(from), perLength_(from == to ? 0 : 1 / (to - from)), nearness_(nearness) {}
        // Leaves what of the stretch from `first` to `last` lies between both.
        bool Clip(double low, double high, double &first, double &last) const {
            low -= from_ + nearness_, high += nearness_ - from_;
            if (perLength_ == 0) return low <= 0 && high >= 0;
            const double a = low * perLength_, b = high * perLength_;
            first = std::max(first, std::min(a, b)), last = std::min(last, std::max(a, b));
            return first <= last;
        }

    private:
        double from_, perLength_, nearness_;
    };
    Side x_, y_;
};

namespace tree = bg::index::detail::rtree;
using Members = tree::utilities::view<Boxes>::members_holder;

// The library's own queries know no lines that have a width, so this walks its nodes.
struct WalkCorridor : Members::visitor_const {
    WalkCorridor(const Corridor &where, const std::function<bool(const BoxIndex::Entry &)> &call)
        : corridor(where), visit(call) {}
    void operator()(const Members::internal_node &node) {
        for (const auto &child : tree::elements(node))
            if (goesOn && corridor.Touches(child.first)) tree::apply_visitor(*this, *child.second);
    }
    void operator()(const Members::leaf &leaf) {
        for (const BoxIndex::Entry &entry : tree::elements(leaf))
            if (goesOn && corridor.Touches(ToBox(entry.first))) goesOn = visit(entry);
    }
    const Corridor &corridor;
    const std::function<bool(const BoxIndex::Entry &)> &visit;
    bool goesOn = true;
};

} // namespace

struct BoxIndex::Tree {
    Boxes boxes;
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

void BoxIndex::VisitAlong(const QPointF &from, const QPointF &to, double nearness,
                          const std::function<bool(const Entry &)> &visit) const {
    if (tree_->boxes.empty()) return;
    const Corridor corridor(from, to, nearness);
    WalkCorridor walk(corridor, visit);
    tree::utilities::view<Boxes>(tree_->boxes).apply_visitor(walk);
}

} // namespace diagram
