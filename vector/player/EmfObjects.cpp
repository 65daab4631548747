// Pens, brushes, fonts and regions of enhanced metafiles.
#include "vector/player/DibReader.h"
#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/ObjectMaking.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"

#include <iterator>
#include <optional>

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

QPen PlainPen(Qt::PenStyle style, QRgb colour) {
    QPen pen(QColor(colour), 1, style);
    pen.setCosmetic(true);
    return pen;
}

// Of the player's own: 0 to 4 brushes from white to black, 5 no brush, 6 to 8 pens.
std::optional<MetafileObject> StockObject(Type slot) {
    constexpr QRgb kGreys[] = {0xFFFFFFFF, 0xFFC0C0C0, 0xFF808080, 0xFF404040, 0xFF000000};
    const Type number = slot - emf::kStock;
    if (number < std::size(kGreys)) return QBrush(QColor(kGreys[number]));
    if (slot == emf::kNullBrush) return QBrush(Qt::NoBrush);
    if (slot == emf::kNullPen) return PlainPen(Qt::NoPen, 0);
    if (number == 6 || number == 7) return PlainPen(Qt::SolidLine, kGreys[number == 6 ? 0 : 4]);
    return {};
}

void Select(Canvas &canvas, Fields &fields, Type) {
    const Type slot = fields.U32();
    if (const MetafileObject *object = canvas.Object(slot)) return canvas.Select(*object);
    if (const auto stock = slot >= emf::kStock ? StockObject(slot) : std::nullopt) canvas.Select(*stock);
}

void Delete(Canvas &canvas, Fields &fields, Type) { canvas.Delete(fields.U32()); }

void CreatePen(Canvas &canvas, Fields &fields, Type) {
    const Type slot = fields.U32(), style = fields.U32();
    const int width = fields.I32();
    QPen pen = PenOf(style, width, fields.Skip(4).U32());
    if (fields.Good()) canvas.Put(slot, pen);
}

// The lengths of the dashes come in units of the pen's width, or of pixels.
void ReadDashes(QPen &pen, Fields &fields, double unit) {
    constexpr std::uint32_t kMostEntries = 32;
    const std::uint32_t count = fields.U32();
    QList<qreal> dashes;
    for (std::uint32_t i = 0; i < count && i < kMostEntries && fields.Good(); ++i)
        dashes.append(std::max(fields.U32() / unit, 0.1));
    if (!dashes.isEmpty() && dashes.size() % 2 == 0 && fields.Good()) pen.setDashPattern(dashes);
}

void ExtCreatePen(Canvas &canvas, Fields &fields, Type) {
    constexpr std::uint32_t kUserDashes = 7;
    const Type slot = fields.U32(), style = fields.Skip(16).U32(), width = fields.U32();
    const std::uint32_t brush = fields.U32();
    QPen pen = PenOf(style, width, fields.U32());
    if (brush == metafile::kNullBrush) pen.setStyle(Qt::NoPen);
    if ((style & metafile::kPenKind) != metafile::kGeometric) pen.setCosmetic(true);
    if ((style & 0xF) == kUserDashes) ReadDashes(pen, fields.Skip(4), std::max(1u, width));
    if (fields.Good()) canvas.Put(slot, pen);
}

void CreateBrush(Canvas &canvas, Fields &fields, Type) {
    const Type slot = fields.U32(), style = fields.U32(), colour = fields.U32();
    const QBrush brush = BrushOf(style, colour, fields.U32());
    if (fields.Good()) canvas.Put(slot, brush);
}

void CreateDibBrush(Canvas &canvas, Fields &fields, Type) {
    const Type slot = fields.U32();
    const std::uint32_t header = fields.Skip(4).U32(), headerSize = fields.U32();
    const std::uint32_t bits = fields.U32(), bitsSize = fields.U32();
    const QImage image = canvas.Read({fields.Part(header, headerSize), fields.Part(bits, bitsSize)});
    canvas.Put(slot, image.isNull() ? QBrush(Qt::NoBrush) : QBrush(image));
}

void CreateFont(Canvas &canvas, Fields &fields, Type) {
    constexpr int kFaceLength = 32;
    const Type slot = fields.U32();
    const int height = fields.I32(), angle = fields.Skip(4).I32(), weight = fields.Skip(4).I32();
    MetafileFont font = FontOf(height, angle, weight);
    font.italic = fields.U8(), font.underline = fields.U8(), font.strikeOut = fields.U8();
    fields.Skip(5);
    for (int i = 0; i < kFaceLength && fields.Good(); ++i) {
        const QChar letter(fields.U16());
        if (letter.isNull()) break;
        font.face.append(letter);
    }
    if (fields.Good()) canvas.Put(slot, font);
}

// Boxes in units of the device.
QRegion RegionOf(Canvas &canvas, Fields &fields) {
    const std::uint32_t header = fields.U32();
    const std::uint32_t count = fields.Skip(4).U32();
    fields.Skip(qsizetype(header) - 12);
    QRegion region;
    if (!fields.Good() || count > std::uint32_t(fields.Left() / 16)) return region;
    for (std::uint32_t i = 0; i < count && canvas.SpendOnBoxOf(region); ++i) {
        const QRectF box = fields.Box().normalized() & QRectF(-1e6, -1e6, 2e6, 2e6);
        region += box.toRect();
    }
    return region;
}

void ClipToRegion(Canvas &canvas, Fields &fields, Type) {
    const std::uint32_t bytes = fields.U32();
    const int mode = int(fields.U32());
    canvas.ClipToRegion(bytes > 0 ? RegionOf(canvas, fields) : QRegion(), mode);
}

void FillRegion(Canvas &canvas, Fields &fields, Type type) {
    fields.Skip(16 + 4);
    const MetafileObject *other = type == emf::kFillRegion ? canvas.Object(fields.U32()) : nullptr;
    const QBrush brush =
        other && std::holds_alternative<QBrush>(*other) ? std::get<QBrush>(*other) : canvas.Now().brush;
    canvas.FillPixels(RegionOf(canvas, fields), brush);
}

constexpr RecordRow kRows[] = {
    {emf::kSelectObject, Select},           {emf::kDeleteObject, Delete},
    {emf::kCreatePen, CreatePen},           {emf::kExtCreatePen, ExtCreatePen},
    {emf::kCreateBrush, CreateBrush},       {emf::kCreateMonoBrush, CreateDibBrush},
    {emf::kCreateDibBrush, CreateDibBrush}, {emf::kExtCreateFont, CreateFont},
    {emf::kSelectClipRegion, ClipToRegion}, {emf::kFillRegion, FillRegion},
    {emf::kPaintRegion, FillRegion},
};

} // namespace

std::span<const RecordRow> EmfObjectRows() { return kRows; }

} // namespace vector
