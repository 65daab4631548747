// Writes pictures of everything that can be drawn, to be looked at.
//   velmora-gallery [FOLDER]     (build/gallery when left out)
#include "diagram/export/Export.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "gallery/Sheets.h"

#include <cstdio>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>

using namespace diagram;

namespace {

QImage Shown(Surface &surface, double zoom, double ratio, const RenderOptions &options) {
    Scene scene(surface);
    const QRectF page = scene.Extent().adjusted(-150, -150, 150, 150);
    const QSizeF size = page.size() * zoom / 15;
    QImage image((size * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    RenderOptions render = options;
    render.xScale = render.yScale = zoom / 15;
    QPainter painter(&image);
    Renderer().Paint(painter, scene, page, render);
    return image;
}

void WriteZooms(const QDir &folder, const gallery::Sheet &sheet, Surface &surface) {
    struct Look {
        double zoom, ratio;
        const char *name;
    };
    constexpr Look kLooks[] = {{0.75, 1, "75"}, {1, 1, "100"},   {1.5, 1, "150"},
                               {2, 1, "200"},   {1, 2, "hidpi"}, {0.2, 1, "20"}};
    for (const Look &look : kLooks) {
        RenderOptions options;
        options.grid = true;
        Shown(surface, look.zoom, look.ratio, options)
            .save(folder.filePath(
                QStringLiteral("%1-%2.png").arg(QLatin1String(sheet.name), QLatin1String(look.name))));
    }
}

void Write(const QDir &folder, const gallery::Sheet &sheet) {
    Renderer renderer;
    Surface surface;
    surface.SetMeasure(&renderer.Measure());
    sheet.draw(surface);
    const QString name = QLatin1String(sheet.name);
    RenderOptions options;
    options.grid = options.marks = options.selection = true;
    Shown(surface, 1, 1, options).save(folder.filePath(name + QStringLiteral(".png")));
    for (const char *ending : {".svg", ".pdf", ".wmf", ".emf"})
        ExportPictureFile(surface, folder.filePath(name + QLatin1String(ending)));
    if (sheet.zooms) WriteZooms(folder, sheet, surface);
    std::printf("%s\n", qPrintable(folder.filePath(name + QStringLiteral(".png"))));
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("build/gallery"));
    if (!QDir().mkpath(folder.path())) return 1;
    for (const gallery::Sheet &sheet : gallery::Sheets()) Write(folder, sheet);
    return 0;
}
