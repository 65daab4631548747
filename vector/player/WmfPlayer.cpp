#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileForms.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"
#include "vector/player/WmfRecords.h"

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

void Mapping(Canvas &canvas, Fields &fields, Type type) {
    MetafileMapping &mapping = canvas.Now().mapping;
    const QPointF value = fields.PointYX();
    if (type == wmf::kSetWindowOrg) mapping.windowOrigin = value;
    if (type == wmf::kOffsetWindowOrg) mapping.windowOrigin += value;
    if (type == wmf::kSetWindowExt) mapping.window = {value.x(), value.y()};
    canvas.MappingChanged();
}

void ScaleWindow(Canvas &canvas, Fields &fields, Type) {
    const double yBelow = fields.I16(), y = fields.I16(), xBelow = fields.I16(), x = fields.I16();
    if (!fields.Good() || x == 0 || y == 0 || xBelow == 0 || yBelow == 0) return;
    QSizeF &window = canvas.Now().mapping.window;
    window = {window.width() * x / xBelow, window.height() * y / yBelow};
    canvas.MappingChanged();
}

void Mode(Canvas &canvas, Fields &fields, Type type) {
    MetafileState &now = canvas.Now();
    const int value = fields.U16();
    if (type == wmf::kSetBkMode) now.opaque = value != metafile::kTransparent;
    if (type == wmf::kSetRop2) now.rop2 = value;
    if (type == wmf::kSetTextAlign) now.align = std::uint32_t(value);
    if (type == wmf::kSetPolyFillMode)
        now.fillRule = value == metafile::kWinding ? Qt::WindingFill : Qt::OddEvenFill;
}

void Colour(Canvas &canvas, Fields &fields, Type type) {
    const QColor colour(metafile::FromColorRef(fields.U32()));
    (type == wmf::kSetTextColour ? canvas.Now().textColour : canvas.Now().backColour) = colour;
}

void Save(Canvas &canvas, Fields &, Type) { canvas.Save(); }
void Restore(Canvas &canvas, Fields &fields, Type) { canvas.Restore(fields.I16()); }
void MoveTo(Canvas &canvas, Fields &fields, Type) { canvas.MoveTo(fields.PointYX()); }

void LineTo(Canvas &canvas, Fields &fields, Type) {
    canvas.DrawFromPosition(LineForm({canvas.Now().position, fields.PointYX()}));
}

void Polygon(Canvas &canvas, Fields &fields, Type type) {
    const QPolygonF points = fields.Points(std::uint32_t(fields.U16()), true);
    const bool closed = type == wmf::kPolygon;
    canvas.Draw(closed ? PolygonForm(points) : LineForm(points), closed);
}

void PolyPolygon(Canvas &canvas, Fields &fields, Type) {
    const int parts = fields.U16();
    std::vector<std::uint32_t> counts;
    for (int i = 0; i < parts && fields.Good(); ++i) counts.push_back(std::uint32_t(fields.U16()));
    QPainterPath form;
    for (const std::uint32_t count : counts) form.addPath(PolygonForm(fields.Points(count, true)));
    if (fields.Good()) canvas.Draw(form, true);
}

void Box(Canvas &canvas, Fields &fields, Type type) {
    const QRectF box = fields.BoxFromBelow();
    if (!fields.Good()) return;
    if (type == wmf::kIntersectClipRect) return canvas.ClipTo(box);
    if (type == wmf::kExcludeClipRect) return canvas.ClipOut(box);
    canvas.Draw(type == wmf::kEllipse ? EllipseForm(box) : BoxForm(box), true);
}

void RoundBox(Canvas &canvas, Fields &fields, Type) {
    const QPointF corner = fields.PointYX();
    const QRectF box = fields.BoxFromBelow();
    if (fields.Good()) canvas.Draw(RoundForm(box, {corner.x(), corner.y()}), true);
}

void Arc(Canvas &canvas, Fields &fields, Type type) {
    const QPointF to = fields.PointYX(), from = fields.PointYX();
    const QRectF box = fields.BoxFromBelow();
    const ArcEnds ends = type == wmf::kPie     ? ArcEnds::Pie
                         : type == wmf::kChord ? ArcEnds::Chord
                                               : ArcEnds::Open;
    if (fields.Good())
        canvas.Draw(ArcForm(box, from, to, canvas.Now().clockwise, ends), ends != ArcEnds::Open);
}

void Pixel(Canvas &canvas, Fields &fields, Type) {
    const QColor colour(metafile::FromColorRef(fields.U32()));
    const QPointF at = fields.PointYX();
    if (fields.Good()) canvas.SetPixel(at, colour);
}

constexpr RecordRow kRows[] = {
    {wmf::kSetWindowOrg, Mapping},
    {wmf::kOffsetWindowOrg, Mapping},
    {wmf::kSetWindowExt, Mapping},
    {wmf::kScaleWindowExt, ScaleWindow},
    {wmf::kSetBkMode, Mode},
    {wmf::kSetRop2, Mode},
    {wmf::kSetTextAlign, Mode},
    {wmf::kSetPolyFillMode, Mode},
    {wmf::kSetTextColour, Colour},
    {wmf::kSetBkColour, Colour},
    {wmf::kSaveDc, Save},
    {wmf::kRestoreDc, Restore},
    {wmf::kMoveTo, MoveTo},
    {wmf::kLineTo, LineTo},
    {wmf::kPolygon, Polygon},
    {wmf::kPolyline, Polygon},
    {wmf::kPolyPolygon, PolyPolygon},
    {wmf::kRectangle, Box},
    {wmf::kEllipse, Box},
    {wmf::kIntersectClipRect, Box},
    {wmf::kExcludeClipRect, Box},
    {wmf::kRoundRect, RoundBox},
    {wmf::kArc, Arc},
    {wmf::kChord, Arc},
    {wmf::kPie, Arc},
    {wmf::kSetPixel, Pixel},
};

void PlayRecord(Canvas &canvas, Fields &fields, Type type) {
    for (const std::span<const RecordRow> rows :
         {std::span<const RecordRow>(kRows), WmfObjectRows(), WmfContentRows()})
        for (const RecordRow &row : rows)
            if (row.type == type) return row.play(canvas, fields, type);
}

} // namespace

void PlayWmf(MetafileCanvas &canvas, QByteArrayView records) {
    constexpr qsizetype kHead = 6; // bytes of a record before its fields
    Fields rest(records);
    while (rest.Left() >= kHead && !canvas.IsSpent()) {
        const qsizetype words = rest.U32();
        const Type type = Type(rest.U16());
        Fields fields(rest.Take(words * 2 - kHead));
        if (type == wmf::kEof || !rest.Good()) return;
        PlayRecord(canvas, fields, type);
    }
}

} // namespace vector
