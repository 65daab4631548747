#include "vector/player/DibReader.h"

#include "vector/player/RecordFields.h"

#include <algorithm>
#include <climits>
#include <QBuffer>
#include <QImageReader>

namespace vector {

namespace {

constexpr int kCoreBytes = 12, kInfoBytes = 40; // of headers
constexpr int kPlain = 0, kMasks = 3, kJpeg = 4, kPng = 5;
constexpr qint64 kMostPacked = qint64(1) << 24;

struct Header {
    qint64 bytes = 0;
    qint64 width = 0, height = 0; // the height below 0 with the uppermost row first
    int bitsPerPixel = 0;
    std::uint32_t compression = 0;
    qint64 colours = 0;
};

Header ReadHeader(QByteArrayView bytes) {
    RecordFields fields(bytes);
    Header header;
    header.bytes = fields.U32();
    if (header.bytes == kCoreBytes) {
        header.width = fields.U16(), header.height = fields.U16();
        header.bitsPerPixel = fields.Skip(2).U16();
    } else if (header.bytes >= kInfoBytes) {
        header.width = fields.I32(), header.height = fields.I32();
        header.bitsPerPixel = fields.Skip(2).U16();
        header.compression = fields.U32();
        header.colours = fields.Skip(12).U32();
    }
    if (!fields.Good() || header.bytes > bytes.size()) return {};
    if (header.bitsPerPixel <= 8 && (header.colours == 0 || header.colours > 256))
        header.colours = qint64(1) << header.bitsPerPixel;
    return header;
}

bool IsFile(const Header &header) { return header.compression == kJpeg || header.compression == kPng; }

qint64 BytesBeforeBits(const Header &header) {
    const int each = header.bytes == kCoreBytes ? 3 : 4;
    const int masks = header.bytes == kInfoBytes && header.compression == kMasks ? 12 : 0;
    return header.bytes + masks + header.colours * each;
}

// With the file header in front that image readers want ([MS-WMF] leaves it out).
QImage ReadAsBmp(const DibParts &dib) {
    constexpr int kFileHeader = 14;
    QByteArray file("BM", 2);
    const auto put = [&](qsizetype value) {
        char raw[4];
        qToLittleEndian(std::uint32_t(value), raw);
        file.append(raw, 4);
    };
    put(kFileHeader + dib.header.size() + dib.bits.size());
    put(0);
    put(kFileHeader + dib.header.size());
    file.append(dib.header.data(), dib.header.size()).append(dib.bits.data(), dib.bits.size());
    return QImage::fromData(file, "BMP");
}

// The file must have the size that its bitmap's header announces.
QImage ReadFile(const Header &header, QByteArrayView bits) {
    QBuffer buffer;
    buffer.setData(bits.data(), int(std::min<qsizetype>(bits.size(), INT_MAX)));
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, header.compression == kJpeg ? "jpeg" : "png");
    const bool fits = reader.size() == QSize(int(header.width), int(std::abs(header.height)));
    return fits ? reader.read() : QImage();
}

QImage ReadWithAlpha(const Header &header, QByteArrayView bits) {
    const int width = int(header.width), height = int(std::abs(header.height));
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return image;
    for (int y = 0; y < height; ++y) {
        const int from = header.height > 0 ? height - 1 - y : y;
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        const char *source = bits.data() + qsizetype(from) * width * 4;
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = qFromLittleEndian<QRgb>(source + qsizetype(x) * 4);
            const int alpha = qAlpha(pixel); // colours above it would overflow when they are blended
            row[x] = qRgba(std::min(qRed(pixel), alpha), std::min(qGreen(pixel), alpha),
                           std::min(qBlue(pixel), alpha), alpha);
        }
    }
    return image;
}

} // namespace

DibParts SplitDib(QByteArrayView dib) {
    const Header header = ReadHeader(dib);
    const qint64 before = BytesBeforeBits(header);
    if (header.bytes == 0 || before > dib.size()) return {};
    return {dib.first(before), dib.sliced(before)};
}

qint64 PixelsOf(const DibParts &dib) {
    const Header header = ReadHeader(dib.header);
    const qint64 height = std::abs(header.height);
    if (header.width <= 0 || height == 0 || header.bitsPerPixel > 32) return 0;
    if (header.width > INT_MAX / 64 || height > INT_MAX / 64) return 0;
    const qint64 pixels = header.width * height;
    if (header.compression == kPlain || header.compression == kMasks) {
        const qint64 row = (header.width * header.bitsPerPixel + 31) / 32 * 4;
        return row * height <= dib.bits.size() ? pixels : 0;
    }
    return pixels <= kMostPacked ? pixels : 0;
}

QImage ReadDib(const DibParts &dib, bool alpha) {
    if (PixelsOf(dib) == 0) return {};
    const Header header = ReadHeader(dib.header);
    if (IsFile(header)) return ReadFile(header, dib.bits);
    if (alpha && header.bitsPerPixel == 32 && header.compression == kPlain)
        return ReadWithAlpha(header, dib.bits);
    const QImage image = ReadAsBmp(dib);
    // A fourth byte that nobody declared as opacity is none.
    return header.bitsPerPixel == 32 ? image.convertToFormat(QImage::Format_RGB32) : image;
}

} // namespace vector
