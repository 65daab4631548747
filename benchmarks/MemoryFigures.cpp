#include "benchmarks/MemoryFigures.h"

#include "benchmarks/Stage.h"
#include "diagram/scene/Scene.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"

#include <malloc.h>
#include <memory>

namespace bench {

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

} // namespace bench
