#include "diagram/layout/LayeredAgain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

constexpr double kSame = 30;       // twips that a box may stand off its layer
constexpr double kMostBoxes = 0.6; // of them

double Median(std::vector<double> values) {
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

// Of how far the boxes stood from where they are drawn.
double MedianShift(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present,
                   double (QPointF::*coordinate)() const) {
    std::vector<double> shifts;
    for (std::size_t i = 0; i < drawn.size(); ++i)
        shifts.push_back((present[i].*coordinate)() - (drawn[i].*coordinate)());
    return Median(std::move(shifts));
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
        const double height = Median(heights);
        if (height <= above) return 0;
        above = height;
        inLayers += std::size_t(
            std::ranges::count_if(heights, [&](double at) { return std::abs(at - height) < kSame; }));
    }
    return double(inLayers) / double(present.size());
}

QPointF ShiftBack(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present) {
    return {MedianShift(drawn, present, &QPointF::x), MedianShift(drawn, present, &QPointF::y)};
}

bool IsDrawnAgain(const std::vector<QPointF> &drawn, const std::vector<QPointF> &present, bool level) {
    const auto coordinate = level ? &QPointF::x : &QPointF::y;
    const double shift = MedianShift(drawn, present, coordinate);
    // Boxes that all stand at one height are no drawing in layers, though most may belong in one layer: the
    // boxes of the other layers must stand at their height, too.
    const double common = MedianShift(drawn, std::vector<QPointF>(drawn.size()), coordinate);
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
