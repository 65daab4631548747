#include "diagram/layout/LayeredAgain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

constexpr double kSame = 30;       // twips that a box may stand off its layer
constexpr double kMostBoxes = 0.6; // of them

double Middle(std::vector<double> values) {
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

double Middle(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present,
              double (QPointF::*coordinate)() const) {
    std::vector<double> shifts;
    for (std::size_t i = 0; i < drawn.size(); ++i)
        shifts.push_back((present[i].*coordinate)() - (drawn[i].*coordinate)());
    return Middle(std::move(shifts));
}

struct Share {
    int counted = 0, of = 0;
    void Count(bool one) { counted += one, ++of; }
    bool AreMost() const { return counted >= kMostBoxes * of; }
};

} // namespace

double ShareInLayers(const LayerGraph &graph, const std::vector<QPointF> &present) {
    std::size_t inLayers = 0;
    double above = -std::numeric_limits<double>::infinity();
    for (const std::vector<int> &layer : graph.layers) {
        std::vector<double> heights;
        for (const int vertex : layer)
            if (!graph.vertices[std::size_t(vertex)].passes)
                heights.push_back(present[std::size_t(vertex)].y());
        if (heights.empty()) continue;
        const double height = Middle(heights);
        if (height <= above) return 0;
        above = height;
        inLayers += std::size_t(
            std::ranges::count_if(heights, [&](double at) { return std::abs(at - height) < kSame; }));
    }
    return double(inLayers) / double(present.size());
}

QPointF ShiftBack(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present) {
    return {Middle(drawn, present, &QPointF::x), Middle(drawn, present, &QPointF::y)};
}

bool IsDrawnAgain(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present, bool level) {
    const auto coordinate = level ? &QPointF::x : &QPointF::y;
    const double shift = Middle(drawn, present, coordinate);
    // What stands all at one height is no drawing in layers, though most boxes may belong in one of these.
    const double common = Middle(drawn, std::vector<QPointF>(drawn.size()), coordinate);
    Share all, others;
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        const double at = (drawn[i].*coordinate)();
        const bool same = std::abs(at + shift - (present[i].*coordinate)()) < kSame;
        all.Count(same);
        if (std::abs(at + common) >= kSame) others.Count(same);
    }
    return all.AreMost() && others.AreMost();
}

} // namespace diagram
