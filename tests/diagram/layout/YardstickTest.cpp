// The layered layout beside dot, on diagrams as people draw them.
#include "tests/yardstick/Crossings.h"
#include "tests/yardstick/Dot.h"
#include "tests/yardstick/GraphFile.h"

#include "diagram/layout/Layout.h"
#include "diagram/model/Surface.h"

#include <cmath>
#include <gmock/gmock.h>

namespace diagram {
namespace {

LayoutGraph Read(const QString &name) {
    Surface surface;
    yardstick::GraphFile::Read(name, surface);
    return SubjectOf(surface, LayoutScope::All).graph;
}

int Ours(const LayoutGraph &graph) {
    const auto drawing = DrawInLayers(graph, {}, [] { return true; });
    return yardstick::CrossingsOf(graph, yardstick::RoutesOf(graph, *drawing));
}

int Dots(const LayoutGraph &graph) {
    return yardstick::CrossingsOf(graph, yardstick::DrawByDot(graph, {}).routes);
}

TEST(LayeredYardstick, LinksCrossNoMoreThanThoseOfDot) {
    double logs = 0;
    const QStringList names = yardstick::GraphNames();
    ASSERT_GE(names.size(), 10);
    for (const QString &name : names) {
        const LayoutGraph graph = Read(name);
        const int ours = Ours(graph), dots = Dots(graph);
        EXPECT_LE(ours, 1.2 * dots) << qPrintable(name);
        logs += std::log((ours + 1.0) / (dots + 1.0));
    }
    EXPECT_LE(std::exp(logs / double(names.size())), 1);
}

TEST(LayeredYardstick, NoLinkLeadsThroughABox) {
    for (const QString &name : yardstick::GraphNames()) {
        const LayoutGraph graph = Read(name);
        const auto drawing = DrawInLayers(graph, {}, [] { return true; });
        const yardstick::Ways routes = yardstick::RoutesOf(graph, *drawing);
        EXPECT_EQ(yardstick::MeetingsOf(graph, drawing->centres, routes), 0) << qPrintable(name);
    }
}

} // namespace
} // namespace diagram
