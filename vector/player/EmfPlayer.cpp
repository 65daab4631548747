#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileForms.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"

#include <array>
#include <cmath>

namespace vector {

namespace {

using Canvas = MetafileCanvas;
using Fields = RecordFields;
using Type = std::uint32_t;

constexpr qsizetype kHead = 8, kBounds = 16; // bytes

bool IsShortType(Type type) { return type > emf::kShort; }
Type LongType(Type type) { return IsShortType(type) ? type - emf::kShort : type; }

void Mapping(Canvas &canvas, Fields &fields, Type type) {
    MetafileMapping &mapping = canvas.Now().mapping;
    const QPointF value = fields.Point();
    if (type == emf::kSetWindowOrg) mapping.windowOrigin = value;
    if (type == emf::kSetViewportOrg) mapping.viewportOrigin = value;
    if (type == emf::kSetWindowExt) mapping.window = {value.x(), value.y()};
    if (type == emf::kSetViewportExt) mapping.viewport = {value.x(), value.y()};
    canvas.MappingChanged();
}

void ScaleExt(Canvas &canvas, Fields &fields, Type type) {
    const double x = fields.I32(), xBelow = fields.I32(), y = fields.I32(), yBelow = fields.I32();
    if (!fields.Good() || x == 0 || y == 0 || xBelow == 0 || yBelow == 0) return;
    MetafileMapping &mapping = canvas.Now().mapping;
    QSizeF &size = type == emf::kScaleWindowExt ? mapping.window : mapping.viewport;
    size = {size.width() * x / xBelow, size.height() * y / yBelow};
    canvas.MappingChanged();
}

QTransform Transform(Fields &fields) {
    const double m11 = fields.F32(), m12 = fields.F32(), m21 = fields.F32(), m22 = fields.F32();
    const double dx = fields.F32(), dy = fields.F32();
    for (const double value : {m11, m12, m21, m22, dx, dy})
        if (!std::isfinite(value)) return {};
    return {m11, m12, m21, m22, dx, dy};
}

void World(Canvas &canvas, Fields &fields, Type type) {
    constexpr std::uint32_t kIdentity = 1, kBefore = 2, kAfter = 3;
    const QTransform given = Transform(fields);
    const std::uint32_t mode = type == emf::kSetWorldTransform ? 0 : fields.U32();
    if (!fields.Good()) return;
    QTransform &world = canvas.Now().mapping.world;
    world = mode == kIdentity ? QTransform()
            : mode == kBefore ? given * world
            : mode == kAfter  ? world * given
                              : given;
    canvas.MappingChanged();
}

void Mode(Canvas &canvas, Fields &fields, Type type) {
    constexpr std::uint32_t kClockwise = 2;
    MetafileState &now = canvas.Now();
    const std::uint32_t value = fields.U32();
    if (type == emf::kSetMapMode) now.mapping.mode = int(value), canvas.MappingChanged();
    if (type == emf::kSetBkMode) now.opaque = value != metafile::kTransparent;
    if (type == emf::kSetRop2) now.rop2 = int(value);
    if (type == emf::kSetTextAlign) now.align = value;
    if (type == emf::kSetArcDirection) now.clockwise = value == kClockwise;
    if (type == emf::kSetPolyFillMode)
        now.fillRule = value == metafile::kWinding ? Qt::WindingFill : Qt::OddEvenFill;
}

void Colour(Canvas &canvas, Fields &fields, Type type) {
    const QColor colour(metafile::FromColorRef(fields.U32()));
    (type == emf::kSetTextColour ? canvas.Now().textColour : canvas.Now().backColour) = colour;
}

void Save(Canvas &canvas, Fields &, Type) { canvas.Save(); }
void Restore(Canvas &canvas, Fields &fields, Type) { canvas.Restore(fields.I32()); }
void MoveTo(Canvas &canvas, Fields &fields, Type) { canvas.MoveTo(fields.Point()); }

void LineTo(Canvas &canvas, Fields &fields, Type) {
    canvas.DrawFromPosition(LineForm({canvas.Now().position, fields.Point()}));
}

QPolygonF PointsOf(Fields &fields, Type type) {
    const std::uint32_t count = fields.Skip(kBounds).U32();
    return fields.Points(count, IsShortType(type));
}

void Poly(Canvas &canvas, Fields &fields, Type type) {
    const QPolygonF points = PointsOf(fields, type);
    const bool closed = LongType(type) == emf::kPolygon, curved = LongType(type) == emf::kPolyBezier;
    if (fields.Good())
        canvas.Draw(curved ? CurveForm(points) : closed ? PolygonForm(points) : LineForm(points), closed);
}

void PolyTo(Canvas &canvas, Fields &fields, Type type) {
    QPolygonF points = PointsOf(fields, type);
    if (points.isEmpty()) return;
    points.prepend(canvas.Now().position);
    canvas.DrawFromPosition(LongType(type) == emf::kPolyBezierTo ? CurveForm(points) : LineForm(points));
}

void PolyPoly(Canvas &canvas, Fields &fields, Type type) {
    const std::uint32_t parts = fields.Skip(kBounds).U32();
    fields.Skip(4);
    if (parts > std::uint32_t(fields.Left() / 4)) return;
    std::vector<std::uint32_t> counts(parts);
    for (std::uint32_t &count : counts) count = fields.U32();
    const bool closed = LongType(type) == emf::kPolyPolygon;
    QPainterPath form;
    for (const std::uint32_t count : counts) {
        const QPolygonF points = fields.Points(count, IsShortType(type));
        form.addPath(closed ? PolygonForm(points) : LineForm(points));
    }
    if (fields.Good()) canvas.Draw(form, closed);
}

void Box(Canvas &canvas, Fields &fields, Type type) {
    const QRectF box = fields.Box();
    if (!fields.Good()) return;
    if (type == emf::kIntersectClipRect) return canvas.ClipTo(box);
    if (type == emf::kExcludeClipRect) return canvas.ClipOut(box);
    canvas.Draw(type == emf::kEllipse ? EllipseForm(box) : BoxForm(box), true);
}

void RoundBox(Canvas &canvas, Fields &fields, Type) {
    const QRectF box = fields.Box();
    const QPointF corner = fields.Point();
    if (fields.Good()) canvas.Draw(RoundForm(box, {corner.x(), corner.y()}), true);
}

void Arc(Canvas &canvas, Fields &fields, Type type) {
    const QRectF box = fields.Box();
    const QPointF from = fields.Point(), to = fields.Point();
    if (!fields.Good()) return;
    const ArcEnds ends = type == emf::kPie     ? ArcEnds::Pie
                         : type == emf::kChord ? ArcEnds::Chord
                                               : ArcEnds::Open;
    QPainterPath form = ArcForm(box, from, to, canvas.Now().clockwise, ends);
    if (type != emf::kArcTo) return canvas.Draw(form, ends != ArcEnds::Open);
    QPainterPath line;
    line.moveTo(canvas.Now().position);
    line.connectPath(form);
    canvas.DrawFromPosition(line);
}

void AngleArc(Canvas &canvas, Fields &fields, Type) {
    const QPointF middle = fields.Point();
    const double radius = fields.U32(), start = fields.F32(), sweep = fields.F32();
    if (!fields.Good() || !std::isfinite(start) || !(std::abs(sweep) <= 360)) return;
    QPainterPath line;
    line.moveTo(canvas.Now().position);
    line.arcTo(QRectF(middle - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)),
               std::fmod(start, 360), sweep);
    canvas.DrawFromPosition(line);
}

void Pixel(Canvas &canvas, Fields &fields, Type) {
    const QPointF at = fields.Point();
    const QColor colour(metafile::FromColorRef(fields.U32()));
    if (fields.Good()) canvas.SetPixel(at, colour);
}

void Path(Canvas &canvas, Fields &fields, Type type) {
    if (type == emf::kBeginPath) canvas.BeginPath();
    if (type == emf::kEndPath) canvas.EndPath();
    if (type == emf::kAbortPath) canvas.AbortPath();
    if (type == emf::kCloseFigure) canvas.CloseFigure();
    if (type == emf::kFillPath) canvas.DrawRecorded(true, false);
    if (type == emf::kStrokePath) canvas.DrawRecorded(false, true);
    if (type == emf::kStrokeAndFillPath) canvas.DrawRecorded(true, true);
    if (type == emf::kSelectClipPath) canvas.ClipToRecorded(int(fields.U32()));
}

constexpr RecordRow kRows[] = {
    {emf::kSetWindowExt, Mapping},
    {emf::kSetWindowOrg, Mapping},
    {emf::kSetViewportExt, Mapping},
    {emf::kSetViewportOrg, Mapping},
    {emf::kScaleWindowExt, ScaleExt},
    {emf::kScaleViewportExt, ScaleExt},
    {emf::kSetWorldTransform, World},
    {emf::kModifyWorldTransform, World},
    {emf::kSetMapMode, Mode},
    {emf::kSetBkMode, Mode},
    {emf::kSetRop2, Mode},
    {emf::kSetTextAlign, Mode},
    {emf::kSetArcDirection, Mode},
    {emf::kSetPolyFillMode, Mode},
    {emf::kSetTextColour, Colour},
    {emf::kSetBkColour, Colour},
    {emf::kSaveDc, Save},
    {emf::kRestoreDc, Restore},
    {emf::kMoveTo, MoveTo},
    {emf::kLineTo, LineTo},
    {emf::kPolyBezier, Poly},
    {emf::kPolygon, Poly},
    {emf::kPolyline, Poly},
    {emf::kPolyBezier + emf::kShort, Poly},
    {emf::kPolygon + emf::kShort, Poly},
    {emf::kPolyline + emf::kShort, Poly},
    {emf::kPolyBezierTo, PolyTo},
    {emf::kPolylineTo, PolyTo},
    {emf::kPolyBezierTo + emf::kShort, PolyTo},
    {emf::kPolylineTo + emf::kShort, PolyTo},
    {emf::kPolyPolyline, PolyPoly},
    {emf::kPolyPolygon, PolyPoly},
    {emf::kPolyPolyline + emf::kShort, PolyPoly},
    {emf::kPolyPolygon + emf::kShort, PolyPoly},
    {emf::kRectangle, Box},
    {emf::kEllipse, Box},
    {emf::kIntersectClipRect, Box},
    {emf::kExcludeClipRect, Box},
    {emf::kRoundRect, RoundBox},
    {emf::kArc, Arc},
    {emf::kArcTo, Arc},
    {emf::kChord, Arc},
    {emf::kPie, Arc},
    {emf::kAngleArc, AngleArc},
    {emf::kSetPixel, Pixel},
    {emf::kBeginPath, Path},
    {emf::kEndPath, Path},
    {emf::kAbortPath, Path},
    {emf::kCloseFigure, Path},
    {emf::kFillPath, Path},
    {emf::kStrokePath, Path},
    {emf::kStrokeAndFillPath, Path},
    {emf::kSelectClipPath, Path},
};

constexpr Type kTypes = 128;

std::array<const RecordRow *, kTypes> MakeIndex() {
    std::array<const RecordRow *, kTypes> index{};
    for (const std::span<const RecordRow> rows :
         {std::span<const RecordRow>(kRows), EmfObjectRows(), EmfContentRows()})
        for (const RecordRow &row : rows) index[row.type] = &row;
    return index;
}

} // namespace

void PlayEmf(MetafileCanvas &canvas, QByteArrayView records) {
    static const std::array<const RecordRow *, kTypes> kIndex = MakeIndex();
    while (records.size() >= kHead && !canvas.IsSpent()) {
        Fields head(records);
        const Type type = head.U32();
        const qsizetype size = head.U32();
        if (type == emf::kEof || size < kHead || size > records.size()) return;
        Fields fields(records.first(size));
        fields.Skip(kHead);
        if (type < kTypes && kIndex[type]) kIndex[type]->play(canvas, fields, type);
        records = records.sliced(size);
    }
}

} // namespace vector
