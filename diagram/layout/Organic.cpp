#include "diagram/layout/Organic.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/OffLines.h"
#include "diagram/layout/Stress.h"

#include <cmath>

namespace diagram {

namespace {

constexpr int kPivots = 100;
// Each part is drawn out across by this factor, and flattened by it.
constexpr double kDrawOut = 1.15;

StressLengths LengthsOf(const LayoutGraph &part, const LayoutOptions &options) {
    StressLengths lengths;
    double sum = 0;
    for (const QSizeF &size : part.sizes) {
        lengths.extra.push_back((size.width() + size.height()) / 4);
        sum += lengths.extra.back();
    }
    const double mean = sum / double(part.sizes.size());
    for (double &extra : lengths.extra) extra -= mean;
    lengths.edge = 2 * mean + options.levelDistance;
    return lengths;
}

// Turned so that it is widest across.
void LayDown(std::vector<QPointF> &places) {
    QPointF mean;
    for (const QPointF &place : places) mean += place / double(places.size());
    double across = 0, down = 0, both = 0;
    for (QPointF &place : places) {
        place -= mean;
        across += place.x() * place.x();
        down += place.y() * place.y();
        both += place.x() * place.y();
    }
    const double angle = std::atan2(2 * both, across - down) / 2;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    for (QPointF &place : places)
        place = {(cosine * place.x() + sine * place.y()) * kDrawOut,
                 (cosine * place.y() - sine * place.x()) / kDrawOut};
}

// Mirrored so that most edges lead to the right and downwards.
void TurnAlongEdges(const LayoutGraph &part, std::vector<QPointF> &places) {
    QPointF way;
    for (const LayoutEdge &edge : part.edges)
        way += places[std::size_t(edge.to)] - places[std::size_t(edge.from)];
    for (QPointF &place : places)
        place = {way.x() < 0 ? -place.x() : place.x(), way.y() < 0 ? -place.y() : place.y()};
}

std::vector<QPointF> PlaceOne(const LayoutGraph &part, const LayoutOptions &options, Progress &progress) {
    const double from = progress.From(), whole = progress.To() - from;
    const auto stretch = [&](double begin, double end) {
        progress.SetStretch(from + whole * begin, from + whole * end);
    };
    const Adjacency neighbours = NeighboursOf(part);
    const StressLengths lengths = LengthsOf(part, options);
    stretch(0, 0.2);
    const StressTerms terms = part.sizes.size() > kMostWithoutPivots
                                  ? PivotTerms(neighbours, lengths, kPivots, progress)
                                  : AllTerms(neighbours, lengths, progress);
    std::vector<QPointF> places = PivotPlaces(neighbours, lengths.edge);
    stretch(0.2, 0.8);
    Majorize(terms, places, lengths.edge, progress);
    LayDown(places);
    TurnAlongEdges(part, places);
    stretch(0.8, 0.9);
    const double gap = std::max(1.0, options.neighbourDistance / 2);
    PushOffLines(part, places, gap, progress);
    stretch(0.9, 1);
    PushApart(part.sizes, places, gap, progress);
    return places;
}

} // namespace

std::vector<QPointF> Organic(const LayoutGraph &graph, const LayoutOptions &options, Progress &progress) {
    return PlaceParts(graph, options.levelDistance, progress, [&](const LayoutGraph &part, Progress &inPart) {
        return PlaceOne(part, options, inPart);
    });
}

} // namespace diagram
