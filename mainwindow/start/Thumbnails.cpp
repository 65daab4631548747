#include "mainwindow/start/Thumbnails.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "document/DoLoad.h"
#include "document/MapSchema.h"
#include "document/MemoryWindow.h"
#include "document/OpenMap.h"
#include "document/WhereItIs.h"
#include "settings/Settings.h"
#include "storage/FileForm.h"
#include "support/AtomicFile.h"
#include "support/Colour.h"
#include "support/Platform.h"
#include "templates/ScratchFile.h"
#include "templates/TemplateFiles.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QPainter>

namespace mainwindow {

namespace {

constexpr qint64 kLargestFile = qint64(5) * 1024 * 1024; // bytes
constexpr long kMostNodes = 2000;
constexpr int kKept = 100;    // pictures
constexpr double kMargin = 8; // pixels of the screen
constexpr double kFullScale = 1 / diagram::kTwipsPerPixel;

QString &FolderOfAll() {
    static QString folder;
    return folder;
}

class MapSlice : public ThumbnailSlice {
public:
    MapSlice(support::Desktop &desktop, storage::Database &database)
        : window_(desktop, document::EmptyPools()), surface_(document::ReadFirstSlice(window_, database)) {}
    diagram::Surface &Surface() override { return *surface_; }
    bool IsThere() const { return surface_; }

private:
    document::MemoryWindow window_;
    diagram::Surface *surface_;
};

class TemplateSlice : public ThumbnailSlice {
public:
    explicit TemplateSlice(const QString &file) { templates::ReadTemplate(surface_, file); }
    diagram::Surface &Surface() override { return surface_; }

private:
    diagram::Surface surface_;
};

bool TakesLong(const ThumbnailOrder &order) {
    if (document::IsOnNetwork(order.file)) return true;
    const QFileInfo info(order.file);
    return !info.isFile() || info.size() > kLargestFile;
}

bool HasManyNodes(storage::Database &database) {
    const storage::Recordset count = database.OpenRecordset(
        QStringLiteral("SELECT COUNT(*) FROM [%1]").arg(document::NameOf(document::schema::kNodes)));
    return count.EndOfFile() || count.Long(0) > kMostNodes;
}

std::unique_ptr<ThumbnailSlice> ReadMap(support::Desktop &desktop, const QString &file) {
    if (storage::RecogniseFile(file) != storage::FileForm::Native || storage::HasJournal(file)) return {};
    const templates::ScratchFile scratch(support::ReadWholeFile(file));
    QString path = scratch.Path();
    std::optional<storage::Database> database = document::OpenMap(path, false);
    if (!database || HasManyNodes(*database)) return {};
    auto slice = std::make_unique<MapSlice>(desktop, *database);
    return slice->IsThere() ? std::move(slice) : nullptr;
}

} // namespace

// A probe: a map that can't be read has no picture, and whoever opens it is told why.
std::unique_ptr<ThumbnailSlice> ReadForThumbnail(support::Desktop &desktop, const ThumbnailOrder &order) {
    try {
        if (TakesLong(order)) return {};
        if (order.kind == ThumbnailOrder::Kind::Template) return std::make_unique<TemplateSlice>(order.file);
        return ReadMap(desktop, order.file);
    } catch (const std::exception &) {
        return {};
    }
}

QImage PaintThumbnail(diagram::Surface &surface, const QSize &pixels, double ratio) {
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(support::ToQColor(surface.BackColor()));
    diagram::Scene scene(surface);
    const QRectF extent = scene.Extent();
    const double room = 2 * kMargin * ratio;
    double scale = kFullScale * ratio;
    if (!extent.isEmpty())
        scale = std::min(
            {scale, (pixels.width() - room) / extent.width(), (pixels.height() - room) / extent.height()});
    QRectF area(QPointF(), QSizeF(pixels) / scale);
    if (!extent.isEmpty()) area.moveCenter(extent.center());
    diagram::RenderOptions options;
    options.xScale = options.yScale = scale;
    QPainter painter(&image);
    diagram::Renderer().Paint(painter, scene, area, options);
    return image;
}

QString ThumbnailCache::UsualFolder() {
    return QStringLiteral("%1/velmora/%2/Previews")
        .arg(support::platform::CacheFolder(), settings::Terms().TITLE);
}

void ThumbnailCache::SetFolder(const QString &folder) { FolderOfAll() = folder; }
QString ThumbnailCache::Folder() { return FolderOfAll(); }

// The name changes with the content of the map or template.
QString ThumbnailCache::PathOf(const ThumbnailOrder &order) const {
    const QFileInfo info(order.file);
    const QString state = QStringLiteral("%1|%2|%3|%4x%5|%6")
                              .arg(info.absoluteFilePath())
                              .arg(info.size())
                              .arg(info.lastModified().toMSecsSinceEpoch())
                              .arg(order.pixels.width())
                              .arg(order.pixels.height())
                              .arg(order.ratio);
    const QByteArray name = QCryptographicHash::hash(state.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStringLiteral("%1/%2.png").arg(folder_, QLatin1String(name));
}

QImage ThumbnailCache::Find(const ThumbnailOrder &order) const {
    if (folder_.isEmpty()) return {};
    const QImage kept(PathOf(order));
    return kept.size() == order.pixels ? kept : QImage();
}

void ThumbnailCache::Keep(const ThumbnailOrder &order, const QImage &picture) const {
    if (folder_.isEmpty() || !support::platform::MakePrivateFolder(folder_)) return;
    picture.save(PathOf(order), "PNG");
    RemoveOldest();
}

void ThumbnailCache::RemoveOldest() const {
    const QFileInfoList newestFirst =
        QDir(folder_).entryInfoList({QStringLiteral("*.png")}, QDir::Files, QDir::Time);
    for (qsizetype at = kKept; at < newestFirst.size(); ++at) QFile::remove(newestFirst[at].filePath());
}

ThumbnailMaker::ThumbnailMaker(support::Desktop &desktop, QString cacheFolder, QObject *parent)
    : QObject(parent), desktop_(desktop), cache_(std::move(cacheFolder)) {
    idle_.setSingleShot(true);
    idle_.setInterval(0);
    connect(&idle_, &QTimer::timeout, this, &ThumbnailMaker::Step);
}

ThumbnailMaker::~ThumbnailMaker() = default;

void ThumbnailMaker::Order(ThumbnailOrder order) {
    orders_.push_back(std::move(order));
    idle_.start();
}

void ThumbnailMaker::Step() {
    const ThumbnailOrder &order = orders_.front();
    if (!read_) {
        if (document::IsOnNetwork(order.file)) return Finish({});
        if (const QImage kept = cache_.Find(order); !kept.isNull()) return Finish(kept);
        read_ = ReadForThumbnail(desktop_, order);
        return read_ ? idle_.start() : Finish({});
    }
    const QImage picture = PaintThumbnail(read_->Surface(), order.pixels, order.ratio);
    cache_.Keep(order, picture);
    Finish(picture);
}

void ThumbnailMaker::Finish(const QImage &picture) {
    read_.reset();
    const QString file = orders_.front().file;
    orders_.pop_front();
    if (!orders_.empty()) idle_.start();
    Q_EMIT Made(file, picture);
}

} // namespace mainwindow
