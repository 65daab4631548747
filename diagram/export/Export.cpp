#include "diagram/export/Export.h"

#include "diagram/export/PictureKinds.h"
#include "diagram/export/PngFile.h"
#include "diagram/geometry/Units.h"
#include "diagram/render/Paint.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "vector/engine/EmfEngine.h"
#include "vector/engine/SvgEngine.h"
#include "vector/engine/WmfEngine.h"
#include "vector/player/Units.h"

#include <cmath>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace diagram {

namespace {

constexpr int kMostPixels = 16384;         // of a side
constexpr double kMostPoints = 14400;      // of a side of a PDF page
const QRectF kEmptyPage(0, 0, 2880, 2160); // twips; shown of an empty surface

const QString kSource = QStringLiteral("Export");

double ScaleOf(const ExportOptions &options) { return std::clamp(options.scale, 0.01, 100.0); }

double LongestPngSide(const QSizeF &page, const ExportOptions &options) {
    const double inches = std::max(page.width(), page.height()) / kTwipsPerInch;
    const double wanted =
        options.pixels > 0 ? options.pixels : std::ceil(inches * options.dotsPerInch * ScaleOf(options));
    return std::clamp(wanted, 1.0, double(kMostPixels));
}

} // namespace

QSize PngSize(const QSizeF &page, const ExportOptions &options) {
    const double scale = LongestPngSide(page, options) / std::max(page.width(), page.height());
    return {std::max(1, int(std::round(page.width() * scale))),
            std::max(1, int(std::round(page.height() * scale)))};
}

QRectF PictureArea(Scene &scene, const ExportOptions &options) {
    const QRectF extent = scene.Extent();
    if (extent.isNull()) return kEmptyPage;
    const double margin = std::max(options.margin, 0.0);
    return extent.adjusted(-margin, -margin, margin, margin);
}

namespace {

RenderOptions RenderingFor(const ExportOptions &options) {
    RenderOptions render;
    render.background = options.background != PictureBackground::Transparent;
    if (options.background == PictureBackground::White) render.paper = qRgb(255, 255, 255);
    render.goOn = options.goOn;
    return render;
}

// One unit of the painter is a twip.
RenderOptions VectorRendering(const ExportOptions &options) {
    RenderOptions render = RenderingFor(options);
    render.vector = true;
    render.xScale = render.yScale = 1;
    return render;
}

// The colour with which a format that knows no transparency mixes.
QRgb PaperOf(Scene &scene, const ExportOptions &options) {
    return RenderingFor(options).paper.value_or(ToRgb(scene.Model().BackColor()));
}

QByteArray PaintVectors(vector::VectorEngine &engine, Scene &scene, const QRectF &page,
                        const ExportOptions &options) {
    vector::VectorDevice device(engine);
    RenderOptions render = VectorRendering(options);
    render.xScale = render.yScale = engine.Scale();
    render.target = &engine;
    QPainter painter(&device);
    Renderer().Paint(painter, scene, page, render);
    painter.end();
    return engine.File();
}

QByteArray Svg(Scene &scene, const QRectF &page, const ExportOptions &options) {
    vector::SvgEngine engine(page.size(), ScaleOf(options));
    return PaintVectors(engine, scene, page, options);
}

QByteArray Pdf(Scene &scene, const QRectF &page, const ExportOptions &options) {
    const double longest = std::max(page.width(), page.height()) / kTwipsPerPoint;
    const double scale = std::min(ScaleOf(options), kMostPoints / longest);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setCreator(QStringLiteral("Velmora"));
    writer.setPageSize(
        QPageSize(page.size() * scale / kTwipsPerPoint, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins({});
    writer.setResolution(kTwipsPerInch);
    RenderOptions render = VectorRendering(options);
    render.xScale = render.yScale = scale;
    QPainter painter(&writer);
    Renderer().Paint(painter, scene, page, render);
    painter.end();
    return bytes;
}

QByteArray PaintMetafile(vector::MetafileEngine &engine, Scene &scene, const QRectF &page,
                         const ExportOptions &options) {
    QByteArray file = PaintVectors(engine, scene, page, options);
    if (engine.IsTooLong()) support::Raise(support::kErrOutOfMemory, kSource);
    return file;
}

// The file's head holds a whole number of units an inch, so that the scale follows from that.
QByteArray Wmf(Scene &scene, const QRectF &page, const ExportOptions &options) {
    const double longest = std::max(page.width(), page.height());
    const double fit = std::min(1.0, vector::kWmfLongestSide / longest);
    const int unitsPerInch = std::max(1, int(vector::kUnitsPerInch * fit));
    const double scale = unitsPerInch / vector::kUnitsPerInch;
    vector::WmfEngine engine(page.size() * scale, unitsPerInch, PaperOf(scene, options));
    return PaintMetafile(engine, scene, page, options);
}

QByteArray Emf(Scene &scene, const QRectF &page, const ExportOptions &options) {
    const double scale = std::min(1.0, vector::kEmfLongestSide / std::max(page.width(), page.height()));
    vector::EmfEngine engine(page.size() * scale, scale, PaperOf(scene, options));
    return PaintMetafile(engine, scene, page, options);
}

PictureFormat FormatOf(const QString &path) {
    if (const PictureKind *kind = KindOfFile(path)) return kind->format;
    throw support::Error(support::kErrInvalidProcedureCall, kSource,
                         QStringLiteral("Unknown kind of picture '%1'.").arg(path));
}

QImage PaintImage(Scene &scene, const QRectF &page, const ExportOptions &options) {
    const QSize size = PngSize(page.size(), options);
    const double scale = LongestPngSide(page.size(), options) / std::max(page.width(), page.height());
    const bool transparent = options.background == PictureBackground::Transparent;
    QImage image(size, transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull()) support::Raise(support::kErrOutOfMemory, kSource);
    image.fill(transparent ? Qt::transparent : Qt::white);
    RenderOptions render = RenderingFor(options);
    render.xScale = render.yScale = scale;
    QPainter painter(&image);
    Renderer().Paint(painter, scene, page, render);
    return image;
}

} // namespace

QImage ExportImage(Surface &surface, const ExportOptions &options) {
    Scene scene(surface);
    return PaintImage(scene, PictureArea(scene, options), options);
}

QSizeF PictureSize(Surface &surface, const ExportOptions &options) {
    Scene scene(surface);
    return PictureArea(scene, options).size();
}

QByteArray ExportPicture(Surface &surface, PictureFormat format, const ExportOptions &options) {
    return KindOf(format).write(surface, options);
}

QByteArray WritePng(Surface &surface, const ExportOptions &options) {
    return PngFile(ExportImage(surface, options), options.dotsPerInch);
}

QByteArray WriteSvg(Surface &surface, const ExportOptions &options) {
    Scene scene(surface);
    return Svg(scene, PictureArea(scene, options), options);
}

QByteArray WritePdf(Surface &surface, const ExportOptions &options) {
    Scene scene(surface);
    return Pdf(scene, PictureArea(scene, options), options);
}

QByteArray WriteWmf(Surface &surface, const ExportOptions &options) {
    return ExportMetafile(surface, vector::MetafileKind::Wmf, options);
}

QByteArray WriteEmf(Surface &surface, const ExportOptions &options) {
    return ExportMetafile(surface, vector::MetafileKind::Emf, options);
}

QByteArray ExportMetafile(Surface &surface, vector::MetafileKind kind, const ExportOptions &options) {
    Scene scene(surface);
    const QRectF page = PictureArea(scene, options);
    return kind == vector::MetafileKind::Wmf ? Wmf(scene, page, options) : Emf(scene, page, options);
}

namespace {

void WriteFile(const QString &path, const QByteArray &bytes) {
    support::AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

// Nothing, or an enhanced metafile of this program.
bool MayBeReplaced(const QString &path) {
    constexpr qint64 kHead = 1000; // bytes in which the writer's name stands
    QFile file(path);
    if (!file.exists()) return true;
    return file.open(QIODevice::ReadOnly) && vector::IsOwnEmf(file.read(kHead));
}

} // namespace

void WriteMetafile(Surface &surface, const QString &path) {
    WriteFile(path, ExportMetafile(surface, vector::MetafileKind::Wmf));
    const QFileInfo info(path);
    const QString beside = info.dir().filePath(info.completeBaseName() + QStringLiteral(".emf"));
    if (beside != path && MayBeReplaced(beside))
        WriteFile(beside, ExportMetafile(surface, vector::MetafileKind::Emf));
}

void CheckPictureEnding(const QString &path) { FormatOf(path); }

bool ExportPictureFile(Surface &surface, const QString &path, const ExportOptions &options) {
    const PictureFormat format = FormatOf(path);
    const QByteArray bytes = ExportPicture(surface, format, options);
    if (options.goOn && !options.goOn()) return false;
    WriteFile(path, bytes);
    return true;
}

} // namespace diagram
