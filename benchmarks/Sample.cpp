#include "benchmarks/Sample.h"

#include "diagram/model/Routing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace bench {

namespace {
constexpr std::array<int, 4> kShapes = {1, 0, 3, 61};
constexpr std::array<support::Colour, 6> kFills = {support::Rgb(255, 255, 255), support::Rgb(253, 233, 217),
                                                   support::Rgb(220, 230, 241), support::Rgb(235, 241, 222),
                                                   support::Rgb(228, 223, 236), support::Rgb(255, 242, 204)};
} // namespace

int Columns(int nodes) { return int(std::ceil(std::sqrt(double(nodes)))); }

void FillSample(diagram::Surface &surface, int nodes) {
    const int columns = Columns(nodes);
    std::vector<diagram::Node *> all;
    all.reserve(size_t(nodes));
    const diagram::Font font(QStringLiteral("DejaVu Sans"), 8.25);
    for (int i = 0; i < nodes; ++i) {
        diagram::Node &node = surface.Nodes().Add(float(i % columns * kPitchX), float(i / columns * kPitchY),
                                                  float(kBoxWidth), float(kBoxHeight));
        node.SetKey(
            QStringLiteral("{%1-0000-4000-8000-000000000000}").arg(i + 1, 8, 16, QLatin1Char('0')).toUpper());
        node.SetShape(kShapes[size_t(i) % kShapes.size()]);
        node.SetFillColor(kFills[size_t(i) % kFills.size()]);
        node.SetFont(font);
        node.SetText(QStringLiteral("Node %1").arg(i));
        node.SetTag(QStringLiteral("|GROUP=|LEVEL=|HYPER=No"));
        all.push_back(&node);
    }
    std::mt19937 random(1);
    const int links = int(std::lround(1.3 * nodes));
    const std::array<int, 3> steps = {1, columns, columns + 1};
    for (int i = 0; i < links; ++i) {
        const int from = int(random() % unsigned(nodes));
        const int to = std::min(nodes - 1, from + steps[random() % steps.size()]);
        if (from == to) continue;
        diagram::Link &link = all[size_t(from)]->Links().Add(*all[size_t(to)]);
        link.SetStyle(5);
        link.SetArrowDest(5);
        link.SetFont(font);
    }
    surface.Routes().Recalculate();
}

} // namespace bench
