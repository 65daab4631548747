#include "benchmarks/GeneratedMap.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"

#include <random>

namespace bench {

namespace {

constexpr int kLinksOfMap = 40;

diagram::Node &AddBox(diagram::Surface &surface) { return surface.Nodes().Add(0, 0, 1020, 540); }

} // namespace

void FillGenerated(diagram::Surface &surface, unsigned seed, int style) {
    std::mt19937 random(seed);
    const auto real = [&](double low, double high) {
        return float(low + (high - low) * double(random()) / 4294967296.0);
    };
    const int columns = 3 + int(random() % 7), rows = 3 + int(random() % 7);
    const float gap = real(150, 1200), side = real(400, 2000);
    std::vector<diagram::Node *> nodes;
    for (int i = 0; i < columns * rows; ++i) {
        if (random() % 6 == 0) continue;
        const float width = side * real(0.4, 1), height = side * real(0.4, 1);
        nodes.push_back(&surface.Nodes().Add(float(i % columns) * (side + gap) + real(0, side - width),
                                             float(i / columns) * (side + gap) + real(0, side - height),
                                             width, height));
    }
    for (int i = 0; i < kLinksOfMap; ++i) {
        diagram::Node &from = *nodes[random() % nodes.size()], &to = *nodes[random() % nodes.size()];
        if (&from == &to) continue;
        diagram::Link &link = from.Links().Add(to);
        link.SetStyle(diagram::StyleFor(link, style));
    }
}

void FillPlan(diagram::Surface &surface, int nodes) {
    constexpr int kReach = 40;
    std::mt19937 random(1);
    std::vector<diagram::Node *> all;
    for (int i = 0; i < nodes; ++i) {
        all.push_back(&AddBox(surface));
        if (i > 0)
            all[std::size_t(i - 1 - int(random() % unsigned(std::min(i, kReach))))]->Links().Add(*all.back());
    }
    for (int i = 0; i <= nodes * 3 / 10; ++i) {
        const int from = int(random() % unsigned(nodes - kReach - 1));
        all[std::size_t(from)]->Links().Add(*all[std::size_t(from + 1 + int(random() % kReach))]);
    }
}

void FillAnyhow(diagram::Surface &surface, int nodes) {
    std::mt19937 random(1);
    std::vector<diagram::Node *> all;
    for (int i = 0; i < nodes; ++i) all.push_back(&AddBox(surface));
    for (int i = 0; i < nodes * 13 / 10; ++i) {
        diagram::Node *from = all[random() % all.size()];
        from->Links().Add(*all[random() % all.size()]);
    }
}

} // namespace bench
