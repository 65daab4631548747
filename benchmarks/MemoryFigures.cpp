#include "benchmarks/Parts.h"
#include "benchmarks/Scratch.h"
#include "diagram/scene/Scene.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"

#include <malloc.h>
#include <memory>

namespace bench {

namespace {

// Bytes that a node takes, with its 1.3 links, their bends and its share of the index, on a surface of so
// many nodes.
double BytesPerNode(int nodes) {
    const QString map = SampleMap(nodes);
    document::MemoryWindow window(support::CurrentDesktop());
    window.clsSettings().SetDatabase(map);
    malloc_trim(0);
    const auto before = mallinfo2();
    document::DoLoad(window);
    diagram::Scene scene(window.AddFlow1()[0]);
    scene.Extent();
    malloc_trim(0);
    const auto after = mallinfo2();
    const auto taken = (after.uordblks + after.hblkhd) - (before.uordblks + before.hblkhd);
    return double(taken) / nodes;
}

} // namespace

Figures MemoryFigures() {
    constexpr int kNodes = 10000;
    return {{QStringLiteral("memory a node with its links"), BytesPerNode(kNodes) / 1000,
             QStringLiteral("KB"), 1.2, QString()}};
}

} // namespace bench
