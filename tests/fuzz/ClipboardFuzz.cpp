// Any bytes as what a clipboard holds: the own form, with a check sum that fits too, every kind of picture,
// and text. What is refused must leave the surface as it was; what is pasted must be a surface that can be
// painted.
#include "diagram/edit/History.h"
#include "diagram/format/Bytes.h"
#include "diagram/format/Content.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/DayStrip.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/PastePlace.h"
#include "diagram/view/SurfaceClipboard.h"
#include "support/Error.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>

using namespace diagram;

namespace {

void Paint(Scene &scene) {
    QImage image(200, 150, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    RenderOptions options;
    options.xScale = options.yScale = 0.02;
    Renderer().Paint(painter, scene, QRectF(0, 0, 10000, 7500), options);
}

void TryPaste(const char *type, const QByteArray &bytes) {
    QMimeData data;
    data.setData(QLatin1String(type), bytes);
    Surface surface;
    AttachHistory(surface);
    surface.Nodes().Add(0, 0, 10, 10);
    Scene scene(surface);
    if (!CanPasteFrom(&data)) return;
    try {
        PasteFrom(scene, data, {QRectF(0, 0, 10000, 7500), {}, DayStrip::None()});
    } catch (const support::Error &error) {
        constexpr long kAllowed[] = {support::kErrOverflow, kErrInvalidFileFormat,
                                     support::kErrInvalidPicture};
        Require(std::count(std::begin(kAllowed), std::end(kAllowed), error.Number()) == 1);
        Require(surface.Nodes().Count() == 1);
        return;
    }
    Paint(scene);
    surface.Undo();
    Require(surface.Nodes().Count() == 1);
}

void StartApplication() {
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static QGuiApplication application(count, arguments);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    StartApplication();
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QByteArray sealed = bytes.size() > SealSize() ? Seal(bytes.sliced(SealSize())) : bytes;
    TryPaste(kSelectionMimeType, bytes);
    TryPaste(kSelectionMimeType, sealed);
    for (const char *type : {"image/png", "text/plain"}) TryPaste(type, bytes);
    return 0;
}
