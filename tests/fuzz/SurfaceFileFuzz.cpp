// Any bytes as a surface file and as a selection: as they are, and with a check sum that fits, so that what
// stands behind it is reached. What is refused must leave the surface as it was; what is read must be a
// surface that can be used.
#include "diagram/format/Bytes.h"
#include "diagram/format/Content.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "support/Error.h"
#include "tests/fuzz/Require.h"

using namespace diagram;

namespace {

void Use(Surface &surface) {
    Scene scene(surface);
    std::vector<Item *> items;
    scene.ItemsIn(scene.Extent(), items);
    Surface again;
    LoadBytes(again, SaveBytes(surface));
    Require(again.Nodes().Count() == surface.Nodes().Count());
    Require(again.Links().size() == surface.Links().size());
}

template <typename Read>
void Try(Read read) {
    Surface surface;
    surface.Nodes().Add(0, 0, 10, 10);
    try {
        read(surface);
    } catch (const support::Error &error) {
        Require(error.Number() == kErrInvalidFileFormat && surface.Nodes().Count() == 1);
        return;
    }
    Use(surface);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QByteArray sealed = bytes.size() > SealSize() ? Seal(bytes.sliced(SealSize())) : bytes;
    Try([&](Surface &surface) { LoadBytes(surface, bytes); });
    Try([&](Surface &surface) { LoadBytes(surface, sealed); });
    Try([&](Surface &surface) { PasteBytes(surface, sealed, 0, 0); });
    return 0;
}
