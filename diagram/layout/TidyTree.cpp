// The names are the paper's: prelim is a box's place relative to its parent's other children, mod what its
// descendants move with it, shift and change are moves put off to the end of a family, thread leads on along
// the outline of a subtree. A walk over the numbers upwards or downwards takes the place of its recursions,
// as a chain may be as long as the diagram.
#include "diagram/layout/TidyTree.h"

#include "diagram/layout/Forest.h"
#include "diagram/layout/Orientation.h"

#include <algorithm>

namespace diagram {

namespace {

class Walker {
public:
    Walker(const LayoutGraph &graph, const LayoutOptions &options)
        : graph_(graph), options_(options), forest_(MakeForest(graph)), state_(forest_.boxes.size()) {
        for (std::size_t i = 0; i < state_.size(); ++i) state_[i].ancestor = int(i);
    }

    std::vector<QPointF> Centres() {
        for (int v = int(state_.size()) - 1; v >= 0; --v) PlaceChildren(v);
        return Collect();
    }

private:
    struct State {
        double prelim = 0, mod = 0, shift = 0, change = 0;
        double middle = 0; // of the children
        int thread = kNoBox, ancestor = 0;
    };

    const Forest::Box &Box(int v) const { return forest_.boxes[std::size_t(v)]; }
    State &At(int v) { return state_[std::size_t(v)]; }
    QSizeF SizeOf(int v) const {
        return Box(v).box == kNoBox ? QSizeF(0, 0) : graph_.sizes[std::size_t(Box(v).box)];
    }
    // Between the centres of two boxes side by side.
    double Distance(int left, int right) const {
        return (SizeOf(left).width() + SizeOf(right).width()) / 2 + options_.neighbourDistance;
    }

    int NextLeft(int v) { return Box(v).children ? Box(v).firstChild : At(v).thread; }
    int NextRight(int v) { return Box(v).children ? Box(v).firstChild + Box(v).children - 1 : At(v).thread; }

    // All families below are placed in themselves already.
    void PlaceChildren(int v) {
        const int first = Box(v).firstChild, count = Box(v).children;
        int defaultAncestor = first;
        for (int w = first; w < first + count; ++w) {
            At(w).prelim = w == first ? At(w).middle : At(w - 1).prelim + Distance(w - 1, w);
            At(w).mod = At(w).prelim - At(w).middle;
            if (w > first) defaultAncestor = Apportion(w, defaultAncestor, first);
        }
        if (count == 0) return;
        ExecuteShifts(first, count);
        At(v).middle = (At(first).prelim + At(first + count - 1).prelim) / 2;
    }

    // Pushes the subtree of v away from the subtrees to its left where they would come too near.
    int Apportion(int v, int defaultAncestor, int leftmostSibling) {
        int insideRight = v, outsideRight = v, insideLeft = v - 1, outsideLeft = leftmostSibling;
        double sumInsideRight = At(v).mod, sumOutsideRight = At(v).mod;
        double sumInsideLeft = At(insideLeft).mod, sumOutsideLeft = At(outsideLeft).mod;
        while (NextRight(insideLeft) != kNoBox && NextLeft(insideRight) != kNoBox) {
            insideLeft = NextRight(insideLeft), insideRight = NextLeft(insideRight);
            outsideLeft = NextLeft(outsideLeft), outsideRight = NextRight(outsideRight);
            At(outsideRight).ancestor = v;
            const double shift = At(insideLeft).prelim + sumInsideLeft - At(insideRight).prelim -
                                 sumInsideRight + Distance(insideLeft, insideRight);
            if (shift > 0) {
                const int ancestor = At(insideLeft).ancestor;
                const bool isSibling = Box(ancestor).parent == Box(v).parent;
                MoveSubtree(isSibling ? ancestor : defaultAncestor, v, shift);
                sumInsideRight += shift, sumOutsideRight += shift;
            }
            sumInsideLeft += At(insideLeft).mod, sumInsideRight += At(insideRight).mod;
            sumOutsideLeft += At(outsideLeft).mod, sumOutsideRight += At(outsideRight).mod;
        }
        if (NextRight(insideLeft) != kNoBox && NextRight(outsideRight) == kNoBox) {
            At(outsideRight).thread = NextRight(insideLeft);
            At(outsideRight).mod += sumInsideLeft - sumOutsideRight;
        }
        if (NextLeft(insideRight) != kNoBox && NextLeft(outsideLeft) == kNoBox) {
            At(outsideLeft).thread = NextLeft(insideRight);
            At(outsideLeft).mod += sumInsideRight - sumOutsideLeft;
            return v;
        }
        return defaultAncestor;
    }

    // Moves the subtree of `right`, and spreads the siblings between it and `left` when the family is done.
    void MoveSubtree(int left, int right, double shift) {
        const double between = Box(right).order - Box(left).order;
        At(right).change -= shift / between;
        At(right).shift += shift;
        At(left).change += shift / between;
        At(right).prelim += shift;
        At(right).mod += shift;
    }

    void ExecuteShifts(int first, int count) {
        double shift = 0, change = 0;
        for (int w = first + count - 1; w >= first; --w) {
            At(w).prelim += shift;
            At(w).mod += shift;
            change += At(w).change;
            shift += At(w).shift + change;
        }
    }

    // The y of the centre line of each level.
    std::vector<double> LevelLines() const {
        std::vector<double> heights(std::size_t(forest_.boxes.back().level) + 1, 0);
        for (std::size_t v = 1; v < forest_.boxes.size(); ++v) {
            double &height = heights[std::size_t(forest_.boxes[v].level)];
            height = std::max(height, SizeOf(int(v)).height());
        }
        std::vector<double> lines(heights.size());
        double top = 0;
        for (std::size_t level = 1; level < heights.size(); ++level) {
            lines[level] = top + heights[level] / 2;
            top += heights[level] + options_.levelDistance;
        }
        return lines;
    }

    std::vector<QPointF> Collect() {
        const std::vector<double> lines = LevelLines();
        std::vector<QPointF> centres(graph_.sizes.size());
        std::vector<double> moved(state_.size(), 0); // by the mods of all above
        for (std::size_t v = 1; v < state_.size(); ++v) {
            const Forest::Box &box = forest_.boxes[v];
            const auto parent = std::size_t(box.parent);
            moved[v] = moved[parent] + state_[parent].mod;
            centres[std::size_t(box.box)] = {state_[v].prelim + moved[v], lines[std::size_t(box.level)]};
        }
        return centres;
    }

    const LayoutGraph &graph_;
    const LayoutOptions &options_;
    Forest forest_;
    std::vector<State> state_;
};

} // namespace

std::vector<QPointF> TidyTree(const LayoutGraph &graph, const LayoutOptions &options) {
    if (graph.sizes.empty()) return {};
    const LayoutGraph turned = TurnedDown(graph, options.orientation);
    return TurnedBack(Walker(turned, options).Centres(), options.orientation);
}

} // namespace diagram
