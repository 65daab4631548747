// Texts and bitmaps of metafiles of sixteen bits.
#include "vector/player/CodePage.h"
#include "vector/player/DibReader.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"
#include "vector/player/WmfRecords.h"

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

// Strings fill whole words.
QByteArrayView TakeText(Fields &fields, int count) {
    const QByteArrayView bytes = fields.Take(count);
    if (count % 2 && fields.Left() > 0) fields.Skip(1);
    return bytes;
}

void TextOut(Canvas &canvas, Fields &fields, Type) {
    TextRecord text;
    text.text = FromWindows1252(TakeText(fields, fields.I16()));
    text.at = fields.PointYX();
    if (fields.Good()) canvas.Text(text);
}

void ExtTextOut(Canvas &canvas, Fields &fields, Type) {
    TextRecord text;
    text.at = fields.PointYX();
    const int count = fields.I16();
    text.options = std::uint32_t(fields.U16());
    if (text.options & (metafile::kOpaqueBox | metafile::kClippedToBox)) {
        const QPointF corner = fields.ShortPoint();
        text.box = QRectF(corner, fields.ShortPoint());
    }
    text.text = FromWindows1252(TakeText(fields, count));
    if (!fields.Good()) return;
    if (fields.Left() >= qsizetype(count) * 2)
        for (int i = 0; i < count; ++i) text.width += fields.I16();
    canvas.Text(text);
}

// Height and width, then the place, in the order of the records.
QRectF Target(Fields &fields) {
    const QPointF size = fields.PointYX(), corner = fields.PointYX();
    return {corner, QSizeF(size.x(), size.y())};
}

void PatBlt(Canvas &canvas, Fields &fields, Type) {
    MetafileBlit blit;
    blit.operation = fields.U32();
    blit.target = Target(fields);
    if (fields.Good()) canvas.Blit(blit, DibParts());
}

// The part of the bitmap counts from its upper left corner, also where its lowest row comes first: the few
// files that ask for a part mean it so.
void DibBitBlt(Canvas &canvas, Fields &fields, Type type) {
    const bool stretched = type == wmf::kDibStretchBlt;
    const qsizetype fixed = stretched ? 20 : 16;
    MetafileBlit blit;
    blit.operation = fields.U32();
    const QPointF size = stretched ? fields.PointYX() : QPointF();
    const QPointF from = fields.PointYX();
    const bool none = fields.Whole().size() <= fixed + 2;
    if (none && !stretched) fields.Skip(2);
    blit.target = Target(fields);
    blit.source = QRectF(from, stretched ? QSizeF(size.x(), size.y()) : blit.target.size());
    if (fields.Good()) canvas.Blit(blit, none ? DibParts() : SplitDib(fields.Take(fields.Left())));
}

void StretchDib(Canvas &canvas, Fields &fields, Type) {
    MetafileBlit blit;
    blit.operation = fields.U32();
    const QPointF size = fields.Skip(2).PointYX(), from = fields.PointYX();
    blit.source = QRectF(from, QSizeF(size.x(), size.y()));
    blit.target = Target(fields);
    if (fields.Good()) canvas.Blit(blit, SplitDib(fields.Take(fields.Left())));
}

void SetDib(Canvas &canvas, Fields &fields, Type) {
    MetafileBlit blit;
    blit.operation = metafile::kCopyPixels;
    fields.Skip(6 + 4);
    blit.target = Target(fields);
    if (fields.Good()) canvas.Blit(blit, SplitDib(fields.Take(fields.Left())));
}

constexpr RecordRow kRows[] = {
    {wmf::kTextOut, TextOut},       {wmf::kExtTextOut, ExtTextOut},   {wmf::kPatBlt, PatBlt},
    {wmf::kDibBitBlt, DibBitBlt},   {wmf::kDibStretchBlt, DibBitBlt}, {wmf::kStretchDib, StretchDib},
    {wmf::kSetDibToDevice, SetDib},
};

} // namespace

std::span<const RecordRow> WmfContentRows() { return kRows; }

} // namespace vector
