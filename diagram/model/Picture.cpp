#include "diagram/model/Picture.h"

#include "support/AtomicFile.h"
#include "support/Error.h"

#include <cstdlib>
#include <mutex>
#include <QBuffer>
#include <QImageReader>

namespace diagram {

struct Picture::Data {
    QByteArray bytes;
    QSize size;
    mutable std::once_flag decoded;
    mutable QImage image;
};

namespace {

constexpr qint64 kMostPixels = qint64(1) << 28;
constexpr double kTwipsPerMetre = 1440 / 0.0254;
constexpr double kTwipsPerPixel = 15;
constexpr int kPlainResolution = 3780; // dots a metre, 96 an inch

[[noreturn]] void RaiseInvalidPicture() {
    throw support::Error(481, QStringLiteral("Picture"), QStringLiteral("Invalid picture"));
}

// What an image has that was given none: the screen's, or a fixed one without a screen.
int UntoldResolution() { return QImage(1, 1, QImage::Format_Mono).dotsPerMeterX(); }

QImage Decode(const QByteArray &bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
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

} // namespace

Picture Picture::FromBytes(const QByteArray &bytes) {
    const QSize size = SizeOf(bytes);
    if (size.isEmpty() || qint64(size.width()) * size.height() > kMostPixels) RaiseInvalidPicture();
    auto data = std::make_shared<Data>();
    data->bytes = bytes;
    data->size = size;
    Picture picture;
    picture.data_ = std::move(data);
    return picture;
}

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
    std::call_once(data_->decoded, [this] { data_->image = Decode(data_->bytes); });
    return data_->image;
}

bool operator==(const Picture &a, const Picture &b) {
    return a.data_ == b.data_ || (a.data_ && b.data_ && a.data_->bytes == b.data_->bytes);
}

} // namespace diagram
