#include "diagram/model/Picture.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/SvgSource.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "vector/player/Metafile.h"

#include <cstdlib>
#include <mutex>
#include <QBuffer>
#include <QImageReader>

namespace diagram {

struct Picture::Data {
    QByteArray bytes;
    QSize size;
    std::optional<vector::MetafileHead> metafile;
    bool svg = false;
    QByteArray source; // of an SVG: what is read of it; empty for a compressed one
    mutable std::once_flag decoded;
    mutable QImage image;
    const QByteArray &Source() const { return svg ? source : bytes; }
};

namespace {

constexpr qint64 kMostPixels = qint64(1) << 28;
constexpr double kMostSide = 4096; // pixels of a drawing made for a place
constexpr double kTwipsPerMetre = kTwipsPerInch / 0.0254;
constexpr QSize kPacked(100, 100);     // pixels that a compressed drawing is given, as it is never read
constexpr int kPlainResolution = 3780; // dots a metre, 96 an inch

[[noreturn]] void RaiseInvalidPicture() {
    support::Raise(support::kErrInvalidPicture, QStringLiteral("Picture"));
}

// Dots a metre of an image that was given no resolution: the screen's, or a fixed one without a screen.
int UntoldResolution() { return QImage(1, 1, QImage::Format_Mono).dotsPerMeterX(); }

// A null size for the picture's own.
QImage Decode(const QByteArray &bytes, const QSize &size = {}) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (size.isValid()) reader.setScaledSize(size);
    return reader.read();
}

// What the header tells, or, for a format whose header doesn't, what decoding gives.
QSize SizeOf(const QByteArray &bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) return {};
    const QSize size = reader.size();
    if (!size.isValid()) return reader.read().size();
    return reader.transformation() & QImageIOHandler::TransformationRotate90 ? size.transposed() : size;
}

// "svg", "png" and the like, by what the bytes begin with; nothing else is read.
QByteArray FormatOf(const QByteArray &bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    return reader.canRead() ? reader.format() : QByteArray();
}

// Pixels of which 96 make an inch. Empty for a page too large for whole numbers.
QSize PixelsOf(const vector::MetafileHead &head) {
    const QSizeF pixels = head.twips / kTwipsPerPixel;
    if (pixels.width() > kMostPixels || pixels.height() > kMostPixels) return {};
    return pixels.toSize().expandedTo({1, 1});
}

// No side longer than `most`, the proportions kept.
QSize Within(const QSizeF &size, double most) {
    const double fit = std::min(1.0, most / std::max(size.width(), size.height()));
    return (size * fit).toSize().expandedTo({1, 1});
}

} // namespace

Picture Picture::Recognised(const QByteArray &bytes) {
    auto data = std::make_shared<Data>();
    data->bytes = bytes;
    data->metafile = vector::ReadMetafileHead(bytes);
    const QByteArray format = data->metafile ? QByteArray() : FormatOf(bytes);
    data->svg = format.startsWith("svg");
    if (format == "svg") data->source = WithoutReferences(bytes);
    if (data->metafile)
        data->size = PixelsOf(*data->metafile);
    else
        data->size = format == "svgz" ? kPacked : SizeOf(data->Source());
    Picture picture;
    if (!data->size.isEmpty() && qint64(data->size.width()) * data->size.height() <= kMostPixels)
        picture.data_ = std::move(data);
    return picture;
}

Picture Picture::FromBytes(const QByteArray &bytes) {
    Picture picture = Recognised(bytes);
    if (picture.IsNull()) RaiseInvalidPicture();
    return picture;
}

bool Picture::IsPicture(const QByteArray &bytes) { return !Recognised(bytes).IsNull(); }

Picture Picture::FromImage(const QImage &image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImage copy = image;
    if (copy.dotsPerMeterX() == UntoldResolution()) {
        copy.setDotsPerMeterX(kPlainResolution);
        copy.setDotsPerMeterY(kPlainResolution);
    }
    if (copy.isNull() || !copy.save(&buffer, "PNG")) RaiseInvalidPicture();
    return FromBytes(bytes);
}

Picture Picture::FromFile(const QString &path) { return FromBytes(support::ReadWholeFile(path)); }

const QByteArray &Picture::Bytes() const {
    static const QByteArray none;
    return data_ ? data_->bytes : none;
}

QSize Picture::PixelSize() const { return data_ ? data_->size : QSize(); }

QSizeF Picture::SizeInTwips() const {
    if (!data_) return {};
    if (data_->metafile) return data_->metafile->twips;
    const QImage &image = Image();
    const auto scale = [untold = UntoldResolution()](int dotsPerMetre) {
        const bool told =
            dotsPerMetre > 0 && dotsPerMetre != untold && std::abs(dotsPerMetre - kPlainResolution) > 5;
        return told ? kTwipsPerMetre / dotsPerMetre : kTwipsPerPixel;
    };
    return {data_->size.width() * scale(image.dotsPerMeterX()),
            data_->size.height() * scale(image.dotsPerMeterY())};
}

const QImage &Picture::Image() const {
    static const QImage none;
    if (!data_) return none;
    std::call_once(data_->decoded, [this] {
        data_->image = data_->metafile ? ImageFor(data_->size) : Decode(data_->Source());
    });
    return data_->image;
}

bool Picture::IsDrawing() const { return data_ && (data_->metafile || data_->svg); }

QImage Picture::ImageFor(const QSizeF &pixels) const {
    if (!IsDrawing()) return Image();
    const QSize size = Within(pixels, kMostSide);
    return data_->metafile ? vector::PlayMetafile(data_->bytes, *data_->metafile, size)
                           : Decode(data_->Source(), size);
}

bool operator==(const Picture &a, const Picture &b) {
    return a.data_ == b.data_ || (a.data_ && b.data_ && a.data_->bytes == b.data_->bytes);
}

} // namespace diagram
