// Texts, bitmaps and gradients of enhanced metafiles.
#include "vector/player/CodePage.h"
#include "vector/player/DibReader.h"
#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileForms.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"

#include <algorithm>

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

constexpr std::uint32_t kMostLetters = 65536; // of one record

QString Utf16(QByteArrayView bytes) {
    QString text;
    Fields letters(bytes);
    for (qsizetype i = 0; i < bytes.size() / 2; ++i) text.append(QChar(letters.U16()));
    return text;
}

void ExtTextOut(Canvas &canvas, Fields &fields, Type type) {
    const bool wide = type == emf::kExtTextOut;
    TextRecord text;
    text.at = fields.Skip(28).Point();
    const std::uint32_t count = fields.U32(), from = fields.U32();
    text.options = fields.U32();
    text.box = fields.Box();
    const std::uint32_t advances = fields.U32();
    if (!fields.Good() || count > kMostLetters) return;
    const QByteArrayView bytes = fields.Part(from, wide ? count * 2 : count);
    text.text = wide ? Utf16(bytes) : FromWindows1252(bytes);
    Fields widths(fields.Part(advances, advances > 0 ? count * 4 : 0));
    for (std::uint32_t i = 0; i < count && widths.Left() > 0; ++i) text.width += widths.U32();
    canvas.Text(text);
}

void SmallTextOut(Canvas &canvas, Fields &fields, Type) {
    constexpr std::uint32_t kNoBox = 0x100, kBytes = 0x200;
    TextRecord text;
    text.at = fields.Point();
    const std::uint32_t count = fields.U32();
    text.options = fields.U32();
    fields.Skip(12);
    if (!(text.options & kNoBox)) text.box = fields.Box();
    if (!fields.Good() || count > kMostLetters) return;
    const bool bytes = text.options & kBytes;
    const QByteArrayView letters = fields.Take(bytes ? count : count * 2);
    text.text = bytes ? FromWindows1252(letters) : Utf16(letters);
    text.options &=
        metafile::kOpaqueBox | metafile::kClippedToBox | metafile::kGlyphNumbers | metafile::kReadFromRight;
    canvas.Text(text);
}

QRectF PlaceAndSize(Fields &fields) {
    const QPointF corner = fields.Point(), size = fields.Point();
    return {corner, QSizeF(size.x(), size.y())};
}

// Where header and bits of the bitmap stand in the record.
DibParts ReadParts(Fields &fields) {
    const std::uint32_t header = fields.U32(), headerSize = fields.U32();
    const std::uint32_t bits = fields.U32(), bitsSize = fields.U32();
    return {fields.Part(header, headerSize), fields.Part(bits, bitsSize)};
}

// Where a part is given from below, counted from above.
QRectF FromAbove(const QRectF &part, const DibParts &dib) {
    Fields header(dib.header);
    const double height = header.Skip(8).I32();
    if (!header.Good() || height <= 0) return part;
    return {QPointF(part.left(), height - part.top() - part.height()), part.size()};
}

void BitBlt(Canvas &canvas, Fields &fields, Type type) {
    constexpr std::uint32_t kBlend = 0xFF0000, kAlphaFormat = 0x1000000;
    MetafileBlit blit;
    blit.target = PlaceAndSize(fields.Skip(16));
    blit.operation = fields.U32();
    const QPointF from = fields.Point();
    constexpr qsizetype kTransform = 24, kBackColour = 4, kUsage = 4; // of the bitmap; nobody needs them
    const DibParts dib = ReadParts(fields.Skip(kTransform + kBackColour + kUsage));
    const bool stretched =
        type == emf::kStretchBlt || type == emf::kAlphaBlend || type == emf::kTransparentBlt;
    const QPointF size = stretched ? fields.Point() : QPointF(blit.target.width(), blit.target.height());
    blit.source = QRectF(from, QSizeF(size.x(), size.y()));
    if (!fields.Good()) return;
    if (type != emf::kAlphaBlend && type != emf::kTransparentBlt) return canvas.Blit(blit, dib);
    const std::uint32_t told = std::exchange(blit.operation, metafile::kCopyPixels);
    if (type == emf::kAlphaBlend) {
        blit.opacity = double(told & kBlend) / kBlend;
        return canvas.Blit(blit, dib, (told & kAlphaFormat) != 0);
    }
    QImage image = canvas.Read(dib).convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) return;
    const QImage mask = image.createMaskFromColor(metafile::FromColorRef(told), Qt::MaskOutColor);
    image.setAlphaChannel(mask);
    canvas.Blit(blit, image);
}

void StretchDiBits(Canvas &canvas, Fields &fields, Type) {
    MetafileBlit blit;
    const QPointF at = fields.Skip(16).Point();
    const QRectF part = PlaceAndSize(fields);
    const DibParts dib = ReadParts(fields);
    blit.operation = fields.Skip(4).U32();
    const QPointF size = fields.Point();
    blit.target = QRectF(at, QSizeF(size.x(), size.y()));
    blit.source = FromAbove(part, dib);
    if (fields.Good()) canvas.Blit(blit, dib);
}

void SetDiBits(Canvas &canvas, Fields &fields, Type) {
    MetafileBlit blit;
    const QPointF at = fields.Skip(16).Point();
    const QRectF part = PlaceAndSize(fields);
    const DibParts dib = ReadParts(fields);
    blit.operation = metafile::kCopyPixels;
    blit.target = QRectF(at, part.size());
    blit.source = FromAbove(part, dib);
    if (fields.Good()) canvas.Blit(blit, dib);
}

struct Corner {
    QPointF at;
    QColor colour;
};

Corner ReadCorner(Fields &fields) {
    const QPointF at = fields.Point();
    const int red = fields.U16() >> 8, green = fields.U16() >> 8, blue = fields.U16() >> 8;
    fields.Skip(2);
    return {at, QColor(red, green, blue)};
}

// Boxes change their colour from side to side; triangles have the mean of their corners.
void Gradient(Canvas &canvas, Fields &fields, Type) {
    constexpr std::uint32_t kDownwards = 1, kTriangles = 2;
    const std::uint32_t corners = fields.Skip(16).U32(), count = fields.U32(), mode = fields.U32();
    if (!fields.Good() || corners > std::uint32_t(fields.Left() / 16)) return;
    std::vector<Corner> all(corners);
    for (Corner &corner : all) corner = ReadCorner(fields);
    const std::uint32_t each = mode == kTriangles ? 3 : 2;
    for (std::uint32_t i = 0; i < count && fields.Left() >= qsizetype(each) * 4; ++i) {
        std::uint32_t numbers[3] = {};
        for (std::uint32_t k = 0; k < each; ++k) numbers[k] = fields.U32();
        if (*std::max_element(numbers, numbers + each) >= corners) return;
        const Corner &a = all[numbers[0]], &b = all[numbers[1]], &c = all[numbers[each - 1]];
        if (mode != kTriangles) {
            canvas.Gradient(QRectF(a.at, b.at), a.colour, b.colour, mode == kDownwards);
            continue;
        }
        const auto mean = [&](int (QColor::*part)() const) {
            return ((a.colour.*part)() + (b.colour.*part)() + (c.colour.*part)()) / 3;
        };
        canvas.FillWith(PolygonForm({a.at, b.at, c.at}),
                        QColor(mean(&QColor::red), mean(&QColor::green), mean(&QColor::blue)));
    }
}

constexpr RecordRow kRows[] = {
    {emf::kExtTextOut, ExtTextOut},       {emf::kExtTextOutA, ExtTextOut},
    {emf::kSmallTextOut, SmallTextOut},   {emf::kBitBlt, BitBlt},
    {emf::kStretchBlt, BitBlt},           {emf::kMaskBlt, BitBlt},
    {emf::kAlphaBlend, BitBlt},           {emf::kTransparentBlt, BitBlt},
    {emf::kStretchDiBits, StretchDiBits}, {emf::kSetDiBitsToDevice, SetDiBits},
    {emf::kGradientFill, Gradient},
};

} // namespace

std::span<const RecordRow> EmfContentRows() { return kRows; }

} // namespace vector
