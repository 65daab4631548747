#include "vector/engine/WmfEngine.h"

#include "vector/engine/MetafileDib.h"
#include "vector/engine/MetafilePaths.h"
#include "vector/player/CodePage.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Units.h"
#include "vector/player/WmfRecords.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vector {

namespace {

using namespace wmf;
using namespace metafile;

constexpr int kHeaderWords = wmf::kHeaderBytes / 2;
constexpr qsizetype kMostPoints = 8000; // of one line or polygon
constexpr int kFaceBytes = 32;          // of a font's name with its end

int Limited(double value) {
    return std::isnan(value) ? 0 : int(std::clamp(std::round(value), -32768.0, 32767.0));
}

// A record whose size is put in by Sealed.
MetafileBytes Record(Function function) {
    MetafileBytes record;
    record.U32(0).U16(unsigned(function));
    return record;
}

QByteArray Sealed(MetafileBytes record) {
    record.PadTo(2);
    QByteArray bytes = record.Bytes();
    PutU32(bytes, 0, std::uint32_t(bytes.size() / 2));
    return bytes;
}

void AddPoints(MetafileBytes &record, const QPolygonF &points) {
    for (const QPointF &at : points) record.I16(Limited(at.x())).I16(Limited(at.y()));
}

// A polygon has to stay one: of too many points every nth is taken.
QPolygonF Thinned(const QPolygonF &points) {
    if (points.size() <= kMostPoints) return points;
    const qsizetype step = (points.size() + kMostPoints - 1) / kMostPoints;
    QPolygonF thinned;
    for (qsizetype i = 0; i < points.size(); i += step) thinned.append(points[i]);
    return thinned;
}

QPainterPath LineOf(const QPolygonF &points) {
    QPainterPath line;
    line.addPolygon(points);
    return line;
}

std::uint32_t StyleOf(const QPen &pen) {
    if (pen.style() == Qt::NoPen) return kNullPen;
    const std::uint32_t join = pen.joinStyle() == Qt::MiterJoin   ? kMiterJoin
                               : pen.joinStyle() == Qt::BevelJoin ? kBevelJoin
                                                                  : 0;
    return join | (pen.capStyle() == Qt::FlatCap ? kFlatEnds : 0);
}

} // namespace

WmfEngine::WmfEngine(const QSizeF &page, int unitsPerInch, QRgb paper)
    : MetafileEngine(page, unitsPerInch / kUnitsPerInch, paper), unitsPerInch_(unitsPerInch) {}

void WmfEngine::Put(const QByteArray &record) {
    if (!HasRoom(records_.Size() + record.size())) return;
    records_.Raw(record);
    longest_ = std::max(longest_, std::uint32_t(record.size() / 2));
}

void WmfEngine::PutWord(int function, int value) {
    MetafileBytes record = Record(Function(function));
    record.I16(value);
    Put(Sealed(record));
}

void WmfEngine::PutBox(int function, const QRectF &box) {
    MetafileBytes record = Record(Function(function));
    record.I16(Limited(box.bottom())).I16(Limited(box.right()));
    record.I16(Limited(box.top())).I16(Limited(box.left()));
    Put(Sealed(record));
}

void WmfEngine::Open() {
    PutWord(kSetMapMode, kAnisotropic);
    MetafileBytes origin = Record(kSetWindowOrg), extent = Record(kSetWindowExt);
    Put(Sealed(origin.I16(0).I16(0)));
    Put(Sealed(extent.I16(Limited(Page().height())).I16(Limited(Page().width()))));
    PutWord(kSetBkMode, kTransparent);
    PutWord(kSetStretchBltMode, kColourOnColour);
}

void WmfEngine::Close() { Put(Sealed(Record(kEof))); }

void WmfEngine::Create(int, const QByteArray &creation) { Put(creation); }
void WmfEngine::Select(int slot) { PutWord(kSelectObject, slot); }
void WmfEngine::Delete(int slot) { PutWord(kDeleteObject, slot); }

void WmfEngine::Save() {
    Put(Sealed(Record(kSaveDc)));
    clips_.push_back(clips_.empty() ? FormClip() : clips_.back());
}

void WmfEngine::Restore() {
    PutWord(kRestoreDc, -1);
    clips_.pop_back();
}

// Few readers know clips other than boxes. So outlines are cut to the form when they are drawn, and for texts
// and pictures boxes around the form are taken out of the clip (CutForm).
void WmfEngine::Clip(const QPainterPath &path) {
    const std::optional<QRectF> box = PlainBox(path);
    PutBox(kIntersectClipRect, box ? *box : path.boundingRect());
    if (!box) clips_.back() = {InForm() ? clips_.back().form.intersected(path) : path, false};
}

// By boxes, as regions don't follow the scale at which the file is shown.
void WmfEngine::CutForm() {
    if (!InForm() || std::exchange(clips_.back().cut, true)) return;
    for (const QRectF &outside : Outside(clips_.back().form, kUnitsPerPixel * Scale()))
        PutBox(kExcludeClipRect, outside);
}

void WmfEngine::FillWithinForm(const QPainterPath &path) {
    const QList<QPolygonF> parts = Flattened(path.intersected(clips_.back().form));
    if (!parts.isEmpty()) FillParts(parts);
}

void WmfEngine::StrokeWithinForm(const QPainterPath &path) {
    QPainterPathStroker stroker(Pen());
    ChooseFill(Pen().color().rgb());
    ChooseFillMode(true);
    FillWithinForm(stroker.createStroke(path));
}

void WmfEngine::Rectangle(const QRectF &box) { PutBox(kRectangle, box); }
void WmfEngine::Ellipse(const QRectF &box) { PutBox(kEllipse, box); }

void WmfEngine::Polygon(const QPolygonF &points) {
    const QPolygonF written = Thinned(points);
    MetafileBytes record = Record(kPolygon);
    record.U16(unsigned(written.size()));
    AddPoints(record, written);
    Put(Sealed(record));
}

void WmfEngine::Polyline(const QPolygonF &points) {
    if (InForm()) return StrokeWithinForm(LineOf(points));
    if (NeedsPath(Pen())) return StrokePath({points});
    for (qsizetype from = 0; from + 1 < points.size(); from += kMostPoints - 1) {
        const QPolygonF part = points.mid(from, kMostPoints);
        MetafileBytes record = Record(kPolyline);
        record.U16(unsigned(part.size()));
        AddPoints(record, part);
        Put(Sealed(record));
    }
}

void WmfEngine::FillPath(const QList<QPolygonF> &parts) {
    ChooseShape(false, true);
    FillParts(parts);
}

void WmfEngine::FillParts(const QList<QPolygonF> &parts) {
    if (parts.size() == 1) return Polygon(parts[0]);
    MetafileBytes record = Record(kPolyPolygon);
    record.U16(unsigned(parts.size()));
    for (const QPolygonF &part : parts) record.U16(unsigned(Thinned(part).size()));
    for (const QPolygonF &part : parts) AddPoints(record, Thinned(part));
    Put(Sealed(record));
}

void WmfEngine::StrokePath(const QList<QPolygonF> &parts) {
    ChooseShape(true, false);
    for (const QPolygonF &part : parts) {
        if (NeedsPath(Pen())) {
            for (const QPolygonF &dash : Dashes(part, Pen())) {
                MetafileBytes record = Record(kPolyline);
                record.U16(unsigned(std::min(dash.size(), kMostPoints)));
                AddPoints(record, dash.mid(0, kMostPoints));
                Put(Sealed(record));
            }
        } else if (IsClosed(part)) {
            Polygon(part);
        } else {
            Polyline(part);
        }
    }
}

void WmfEngine::Path(const QPainterPath &path) {
    const bool lined = Pen().style() != Qt::NoPen;
    if (InForm()) {
        if (Filled()) ChooseShape(false, true), FillWithinForm(path);
        if (lined) StrokeWithinForm(path);
        return;
    }
    const QList<QPolygonF> parts = Flattened(path);
    if (parts.isEmpty()) return;
    if (parts.size() == 1 && IsClosed(parts[0]) && !NeedsPath(Pen())) {
        ChooseShape(lined, Filled());
        return Polygon(parts[0]);
    }
    if (Filled()) FillPath(parts);
    if (lined) StrokePath(parts);
}

void WmfEngine::Image(const QRectF &place, const MetafileDib &dib) {
    CutForm();
    MetafileBytes record = Record(kStretchDib);
    record.U32(kCopyPixels).U16(0);
    record.I16(dib.size.height()).I16(dib.size.width()).I16(0).I16(0);
    const int left = Limited(place.left()), top = Limited(place.top());
    record.I16(std::max(1, Limited(place.bottom()) - top)).I16(std::max(1, Limited(place.right()) - left));
    record.I16(top).I16(left).Raw(dib.header).Raw(dib.bits);
    Put(Sealed(record));
}

void WmfEngine::Text(const TextRun &run) {
    CutForm();
    const QByteArray bytes = ToWindows1252(run.text);
    std::vector<int> advances;
    QByteArray written;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\0') {
            written.append(bytes[i]);
            advances.push_back(run.advances[std::size_t(i)]);
        } else if (!advances.empty()) { // the second half of a pair
            advances.back() += run.advances[std::size_t(i)];
        }
    }
    MetafileBytes record = Record(kExtTextOut);
    record.I16(Limited(run.baseLine.y())).I16(Limited(run.baseLine.x()));
    record.I16(int(written.size())).U16(run.rightToLeft ? kReadFromRight : 0).Raw(written).PadTo(2);
    for (const int advance : advances) record.I16(Limited(advance));
    Put(Sealed(record));
}

bool WmfEngine::CanEncode(const QString &text) const { return IsInWindows1252(text); }

void WmfEngine::TextColour(QRgb colour) {
    MetafileBytes record = Record(kSetTextColour);
    Put(Sealed(record.U32(ColorRef(colour))));
}

void WmfEngine::TextAlign(int align) { PutWord(kSetTextAlign, int(kAlignBaseLine) | align); }
void WmfEngine::FillMode(bool winding) { PutWord(kSetPolyFillMode, winding ? kWinding : kAlternate); }

bool WmfEngine::NeedsPath(const QPen &pen) const {
    return InForm() || (pen.style() >= Qt::DashLine && pen.style() <= Qt::CustomDashLine);
}

QByteArray WmfEngine::PenCreation(const QPen &pen) const {
    MetafileBytes record = Record(kCreatePen);
    record.U16(StyleOf(pen)).I16(std::max(1, Limited(pen.widthF()))).I16(0);
    return Sealed(record.U32(ColorRef(pen.color().rgb())));
}

QByteArray WmfEngine::BrushCreation(bool filled, QRgb colour) const {
    MetafileBytes record = Record(kCreateBrush);
    return Sealed(record.U16(filled ? kSolidBrush : kNullBrush).U32(filled ? ColorRef(colour) : 0).U16(0));
}

QByteArray WmfEngine::FontCreation(const TextFont &font, int height) const {
    MetafileBytes record = Record(kCreateFont);
    record.I16(-Limited(height)).I16(0).I16(0).I16(0).I16(font.bold ? kBoldWeight : kPlainWeight);
    // The bars of underlined and struck out text are drawn; a second one in the font would lie beside them.
    record.U8(font.italic).U8(0).U8(0).Zeros(5);
    QByteArray face = ToWindows1252(font.name).left(kFaceBytes - 1);
    face.append(kFaceBytes - face.size(), '\0');
    return Sealed(record.Raw(face));
}

QByteArray WmfEngine::File() const {
    MetafileBytes file;
    file.U32(kPlaceableKey).U16(0).I16(0).I16(0).I16(Limited(Page().width())).I16(Limited(Page().height()));
    file.U16(unsigned(unitsPerInch_)).U32(0);
    unsigned sum = 0;
    for (qsizetype i = 0; i < file.Size(); i += 2)
        sum ^= unsigned(quint8(file.Bytes()[i])) | unsigned(quint8(file.Bytes()[i + 1])) << 8;
    file.U16(sum);
    file.U16(1).U16(kHeaderWords).U16(0x0300).U32(std::uint32_t(records_.Size() / 2 + kHeaderWords));
    file.U16(unsigned(Objects().Most())).U32(longest_).U16(0);
    return file.Raw(records_.Bytes()).Bytes();
}

} // namespace vector
