#include "vector/engine/MetafileDib.h"

#include "vector/engine/MetafileBytes.h"
#include "vector/player/Units.h"

#include <algorithm>
#include <cmath>
#include <QPainter>

namespace vector {

namespace {

constexpr int kMostSide = 8192; // pixels

QSize ShownSize(const QSize &size, const QSizeF &place, double unitsPerPixel) {
    const auto side = [&](int pixels, double units) {
        const double most =
            std::clamp(std::ceil(std::abs(units) / unitsPerPixel * kFinerThanScreen), 1.0, double(kMostSide));
        return std::max(1, std::min(pixels, int(most)));
    };
    return {side(size.width(), place.width()), side(size.height(), place.height())};
}

QImage Opaque(const QImage &image, QRgb behind) {
    if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_BGR888);
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(behind | 0xFF000000u);
    QPainter(&opaque).drawImage(QRect(QPoint(), image.size()), image);
    return opaque.convertToFormat(QImage::Format_BGR888);
}

} // namespace

MetafileDib DibOf(const QImage &image, const QSizeF &place, double unitsPerPixel, QRgb behind) {
    const QSize size = ShownSize(image.size(), place, unitsPerPixel);
    const QImage scaled =
        size == image.size() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage pixels = Opaque(scaled, behind);
    const qsizetype row = (qsizetype(size.width()) * 3 + 3) / 4 * 4;
    MetafileDib dib{size, {}, QByteArray(row * size.height(), '\0')};
    for (int y = 0; y < size.height(); ++y)
        std::copy_n(reinterpret_cast<const char *>(pixels.constScanLine(y)), size.width() * 3,
                    dib.bits.data() + row * (size.height() - 1 - y));
    MetafileBytes header;
    header.U32(40).I32(size.width()).I32(size.height()).U16(1).U16(24);
    header.U32(0).U32(std::uint32_t(dib.bits.size())).Zeros(16);
    dib.header = header.Bytes();
    return dib;
}

} // namespace vector
