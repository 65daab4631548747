#include "diagram/export/PngFile.h"

#include <array>
#include <cmath>
#include <cstring>
#include <QtEndian>
#include <utility>
#include <vector>

namespace diagram {

namespace {

constexpr auto kCrcTable = [] {
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < 256; ++i) {
        quint32 value = i;
        for (int bit = 0; bit < 8; ++bit) value = value & 1 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
        table[i] = value;
    }
    return table;
}();

quint32 Crc(const char *bytes, qsizetype size) {
    quint32 crc = 0xFFFFFFFFu;
    for (qsizetype i = 0; i < size; ++i) crc = kCrcTable[(crc ^ uchar(bytes[i])) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

void AppendNumber(QByteArray &to, quint32 number) {
    char bytes[4];
    qToBigEndian(number, bytes);
    to.append(bytes, 4);
}

void AppendChunk(QByteArray &to, const char *name, const char *data, qsizetype size) {
    AppendNumber(to, quint32(size));
    const qsizetype start = to.size();
    to.append(name, 4).append(data, size);
    AppendNumber(to, Crc(to.constData() + start, size + 4));
}

QByteArray Header(const QImage &image) {
    constexpr char kColours = 2, kColoursAndAlpha = 6;
    QByteArray header;
    AppendNumber(header, quint32(image.width()));
    AppendNumber(header, quint32(image.height()));
    header.append('\x08').append(image.hasAlphaChannel() ? kColoursAndAlpha : kColours);
    return header.append("\x00\x00\x00", 3); // the only methods, not interlaced
}

QByteArray Resolution(int dotsPerInch) {
    constexpr double kInchesPerMetre = 1 / 0.0254;
    QByteArray resolution;
    for (int i = 0; i < 2; ++i) AppendNumber(resolution, quint32(std::lround(dotsPerInch * kInchesPerMetre)));
    return resolution.append('\x01'); // a metre
}

// Each row as the difference to the one above.
constexpr char kUp = 2;

char *WriteRow(char *to, const QRgb *row, const QRgb *above, int width) {
    *to++ = kUp;
    if (std::memcmp(row, above, std::size_t(width) * sizeof(QRgb)) == 0) {
        std::memset(to, 0, std::size_t(width) * 3);
        return to + qsizetype(width) * 3;
    }
    for (int x = 0; x < width; ++x) {
        const QRgb colour = row[x], other = above[x];
        *to++ = char(qRed(colour) - qRed(other));
        *to++ = char(qGreen(colour) - qGreen(other));
        *to++ = char(qBlue(colour) - qBlue(other));
    }
    return to;
}

// The file's rows in the place of the picture's own, which are longer by a byte a pixel: a large picture
// needs no second block. Gives their size.
qsizetype RowsInPlace(QImage &image) {
    const auto width = std::size_t(image.width());
    std::vector<QRgb> row(width), above(width, 0);
    char *const start = reinterpret_cast<char *>(image.bits());
    char *to = start;
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(row.data(), image.constScanLine(y), width * sizeof(QRgb));
        to = WriteRow(to, row.data(), above.data(), image.width());
        row.swap(above);
    }
    return to - start;
}

// Four bytes a pixel leave no room in the picture for what stands before each row.
QByteArray RowsWithAlpha(const QImage &image) {
    const auto width = 4 * std::size_t(image.width());
    QByteArray rows(qsizetype(width + 1) * image.height(), kUp);
    const std::vector<uchar> none(width, 0);
    for (int y = 0; y < image.height(); ++y) {
        const uchar *row = image.constScanLine(y), *above = y > 0 ? image.constScanLine(y - 1) : none.data();
        char *to = rows.data() + qsizetype(width + 1) * y + 1;
        for (std::size_t x = 0; x < width; ++x) to[x] = char(row[x] - above[x]);
    }
    return rows;
}

// qCompress puts the length of the data, in so many bytes, before the stream.
constexpr int kQuickest = 1, kLengthBefore = 4;

QByteArray Packed(QImage &image) {
    if (image.hasAlphaChannel()) return qCompress(RowsWithAlpha(image), kQuickest);
    const qsizetype size = RowsInPlace(image);
    return qCompress(image.constBits(), size, kQuickest);
}

} // namespace

QByteArray PngFile(QImage picture, int dotsPerInch) {
    const auto form = picture.hasAlphaChannel() ? QImage::Format_RGBA8888 : QImage::Format_RGB32;
    QImage image = std::move(picture).convertToFormat(form);
    const QByteArray header = Header(image), packed = Packed(image);
    QByteArray file("\x89PNG\r\n\x1A\n", 8);
    file.reserve(packed.size() + 200);
    AppendChunk(file, "IHDR", header.constData(), header.size());
    if (dotsPerInch > 0) {
        const QByteArray resolution = Resolution(dotsPerInch);
        AppendChunk(file, "pHYs", resolution.constData(), resolution.size());
    }
    AppendChunk(file, "IDAT", packed.constData() + kLengthBefore, packed.size() - kLengthBefore);
    AppendChunk(file, "IEND", "", 0);
    return file;
}

} // namespace diagram
