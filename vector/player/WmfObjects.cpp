// Pens, brushes, fonts and regions of metafiles of sixteen bits.
#include "vector/player/CodePage.h"
#include "vector/player/DibReader.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/ObjectMaking.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"
#include "vector/player/WmfRecords.h"

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

// The lowest free slot takes a new object, as the writer counted.
void PutLowest(Canvas &canvas, MetafileObject object) {
    Type slot = 0;
    while (canvas.Object(slot)) ++slot;
    if (canvas.Spend(30.0 * slot)) canvas.Put(slot, std::move(object));
}

void CreatePen(Canvas &canvas, Fields &fields, Type) {
    const int style = fields.U16(), width = fields.I16();
    PutLowest(canvas, PenOf(std::uint32_t(style), width, fields.Skip(2).U32()));
}

void CreateBrush(Canvas &canvas, Fields &fields, Type) {
    const int style = fields.U16();
    const std::uint32_t colour = fields.U32();
    PutLowest(canvas, BrushOf(std::uint32_t(style), colour, std::uint32_t(fields.U16())));
}

void CreateFont(Canvas &canvas, Fields &fields, Type) {
    constexpr qsizetype kFaceBytes = 32;
    const int height = fields.I16(), angle = fields.Skip(2).I16(), weight = fields.Skip(2).I16();
    MetafileFont font = FontOf(height, angle, weight);
    font.italic = fields.U8(), font.underline = fields.U8(), font.strikeOut = fields.U8();
    fields.Skip(5);
    const QByteArrayView face = fields.Take(std::min<qsizetype>(fields.Left(), kFaceBytes));
    font.face = FromWindows1252(face).section(QChar::Null, 0, 0);
    PutLowest(canvas, font);
}

void CreateDibBrush(Canvas &canvas, Fields &fields, Type) {
    const QImage image = canvas.Read(SplitDib(fields.Skip(4).Take(fields.Left())));
    PutLowest(canvas, image.isNull() ? QBrush(Qt::NoBrush) : QBrush(image));
}

// Rows of pieces, each row from a top to a bottom.
void CreateRegion(Canvas &canvas, Fields &fields, Type) {
    const int rows = fields.Skip(10).U16();
    fields.Skip(10);
    QRegion region;
    for (int i = 0; i < rows && fields.Good(); ++i) {
        const int ends = fields.U16(), top = fields.U16(), bottom = fields.U16();
        for (int k = 0; k + 1 < ends && fields.Good() && canvas.SpendOnBoxOf(region); k += 2) {
            const int left = fields.U16();
            region += QRect(QPoint(left, top), QPoint(fields.U16() - 1, bottom - 1));
        }
        fields.Skip(2);
    }
    PutLowest(canvas, region);
}

void PutNothing(Canvas &canvas, Fields &, Type) { PutLowest(canvas, {}); }

void Select(Canvas &canvas, Fields &fields, Type) {
    if (const MetafileObject *object = canvas.Object(Type(fields.U16()))) canvas.Select(*object);
}

void Delete(Canvas &canvas, Fields &fields, Type) { canvas.Delete(Type(fields.U16())); }

void ClipToRegion(Canvas &canvas, Fields &fields, Type) {
    const MetafileObject *object = canvas.Object(Type(fields.U16()));
    const QRegion *region = object ? std::get_if<QRegion>(object) : nullptr;
    canvas.ClipToRegion(region ? *region : QRegion(), metafile::kClipCopy);
}

void FillRegion(Canvas &canvas, Fields &fields, Type type) {
    const MetafileObject *object = canvas.Object(Type(fields.U16()));
    const QRegion *region = object ? std::get_if<QRegion>(object) : nullptr;
    const MetafileObject *other = type == wmf::kFillRegion ? canvas.Object(Type(fields.U16())) : nullptr;
    const QBrush *brush = other ? std::get_if<QBrush>(other) : &canvas.Now().brush;
    if (region && brush) canvas.FillPixels(*region, *brush);
}

constexpr RecordRow kRows[] = {
    {wmf::kCreatePen, CreatePen},           {wmf::kCreateBrush, CreateBrush},
    {wmf::kCreateFont, CreateFont},         {wmf::kDibCreateBrush, CreateDibBrush},
    {wmf::kCreateRegion, CreateRegion},     {wmf::kCreatePalette, PutNothing},
    {wmf::kCreatePatternBrush, PutNothing}, {wmf::kSelectObject, Select},
    {wmf::kDeleteObject, Delete},           {wmf::kSelectClipRegion, ClipToRegion},
    {wmf::kFillRegion, FillRegion},         {wmf::kPaintRegion, FillRegion},
};

} // namespace

std::span<const RecordRow> WmfObjectRows() { return kRows; }

} // namespace vector
