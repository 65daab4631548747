// Bitmaps on the canvas.
#include "vector/player/DibReader.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileValues.h"

#include <algorithm>

namespace vector {

namespace {

constexpr double kWorkOfAReadPixel = 4;
constexpr qint64 kWorkOfABlit = 2000;

// On ground that isn't painted yet bits can't be joined. What such pairs of operations are used for is
// cutting out a form: black of the first stays, black of the second lets through.
QImage AsMask(const QImage &image, std::uint32_t operation) {
    QImage mask = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < mask.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(mask.scanLine(y));
        for (int x = 0; x < mask.width(); ++x) {
            const int lightest = std::max({qRed(row[x]), qGreen(row[x]), qBlue(row[x])});
            if (operation == metafile::kAndPixels)
                row[x] = qRgba(0, 0, 0, 255 - lightest);
            else
                row[x] = lightest > 0 ? row[x] : 0;
        }
    }
    return mask;
}

bool IsMasked(std::uint32_t operation) {
    return operation == metafile::kAndPixels || operation == metafile::kOrPixels ||
           operation == metafile::kXorPixels;
}

} // namespace

QImage MetafileCanvas::Read(const DibParts &dib, bool alpha) {
    const qint64 pixels = PixelsOf(dib);
    if (pixels == 0 || !Spend(kWorkOfABlit + kWorkOfAReadPixel * double(pixels))) return {};
    return ReadDib(dib, alpha);
}

void MetafileCanvas::Blit(const MetafileBlit &blit, const DibParts &dib, bool alpha) {
    if (dib.header.isEmpty()) return FillOperation(blit);
    Blit(blit, Read(dib, alpha));
}

// Without a bitmap.
void MetafileCanvas::FillOperation(const MetafileBlit &blit) {
    QPainterPath form;
    form.addRect(blit.target.normalized());
    if (blit.operation == metafile::kCopyPattern) FillWith(form, state_.brush);
    if (blit.operation == metafile::kBlackness) FillWith(form, Qt::black);
    if (blit.operation == metafile::kWhiteness) FillWith(form, Qt::white);
}

void MetafileCanvas::Blit(const MetafileBlit &blit, const QImage &image) {
    if (image.isNull() || blit.operation == metafile::kLeavePixels || IsSpent()) return;
    const QRectF whole(image.rect());
    const QRectF part = blit.source.isNull() ? whole : blit.source.normalized() & whole;
    const QRectF pixels = ToPixels().mapRect(blit.target.normalized()) & QRectF(image_.rect());
    if (part.isEmpty() || !Spend(kWorkOfABlit + 4 * pixels.width() * pixels.height())) return;
    const bool flipX = blit.target.width() < 0, flipY = blit.target.height() < 0;
    QImage shown = part == whole ? image : image.copy(part.toAlignedRect());
    if (IsMasked(blit.operation)) shown = AsMask(shown, blit.operation);
    if (flipX || flipY) shown = shown.mirrored(flipX, flipY);
    painter_.save();
    painter_.setOpacity(blit.opacity);
    painter_.setTransform(ToPixels());
    painter_.drawImage(blit.target.normalized(), shown);
    painter_.restore();
}

} // namespace vector
