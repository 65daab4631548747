#include "vector/engine/EmfEngine.h"

#include "vector/engine/MetafileDib.h"
#include "vector/engine/MetafilePaths.h"
#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/RecordFields.h"
#include "vector/player/Units.h"

#include <algorithm>
#include <cmath>

namespace vector {

namespace {

using namespace emf;
using namespace metafile;

constexpr int kHeaderBytes = 108; // without the description
constexpr QLatin1String kDescription("Velmora");
constexpr double kHundredthsPerUnit = 2540 / kUnitsPerInch; // of a millimetre
constexpr double kLimit = 1 << 28;       // of coordinates, so that players can reckon with them
constexpr qsizetype kMostPoints = 16000; // of one record

int Limited(double value) {
    return std::isnan(value) ? 0 : int(std::clamp(std::round(value), -kLimit, kLimit));
}

QRect BoxOf(const QRectF &box) {
    const int left = Limited(box.left()), top = Limited(box.top());
    return {left, top, Limited(box.right()) - left, Limited(box.bottom()) - top};
}

// UTF-16 units: the program's name, a null, an empty title, two nulls.
constexpr std::uint32_t kDescriptionUnits = 10;
QByteArray Description() {
    MetafileBytes bytes;
    for (const QChar c : kDescription) bytes.U16(c.unicode());
    return bytes.Zeros(qsizetype(kDescriptionUnits) * 2 - bytes.Size()).Bytes();
}

// A record whose size is put in by Sealed.
MetafileBytes Record(RecordType type) {
    MetafileBytes record;
    record.U32(std::uint32_t(type)).U32(0);
    return record;
}

QByteArray Sealed(MetafileBytes record) {
    record.PadTo(4);
    QByteArray bytes = record.Bytes();
    PutU32(bytes, 4, std::uint32_t(bytes.size()));
    return bytes;
}

bool IsShort(const QRectF &box) {
    return box.left() > -32768 && box.top() > -32768 && box.right() < 32767 && box.bottom() < 32767;
}

std::uint32_t StyleOf(const QPen &pen) {
    const std::uint32_t join = pen.joinStyle() == Qt::MiterJoin   ? kMiterJoin
                               : pen.joinStyle() == Qt::BevelJoin ? kBevelJoin
                                                                  : 0;
    const std::uint32_t ends = pen.capStyle() == Qt::FlatCap     ? kFlatEnds
                               : pen.capStyle() == Qt::SquareCap ? kSquareEnds
                                                                 : 0;
    return kGeometric | join | ends;
}

} // namespace

void EmfEngine::Put(const QByteArray &record) {
    if (!HasRoom(records_.Size() + record.size())) return;
    records_.Raw(record);
    ++count_;
}

void EmfEngine::PutWord(int type, std::uint32_t value) {
    MetafileBytes record = Record(RecordType(type));
    Put(Sealed(record.U32(value)));
}

void EmfEngine::PutPair(int type, int first, int second) {
    MetafileBytes record = Record(RecordType(type));
    Put(Sealed(record.I32(first).I32(second)));
}

void EmfEngine::PutPoints(int type, const QPolygonF &points) {
    const QRectF bounds = points.boundingRect();
    const bool isShort = IsShort(bounds);
    MetafileBytes record = Record(RecordType(isShort ? type + kShort : type));
    record.Box32(BoxOf(bounds)).U32(std::uint32_t(points.size()));
    for (const QPointF &at : points) {
        if (isShort)
            record.I16(Limited(at.x())).I16(Limited(at.y()));
        else
            record.I32(Limited(at.x())).I32(Limited(at.y()));
    }
    Put(Sealed(record));
}

// Device units are the file's units, so that the header tells the size alone.
void EmfEngine::Open() {
    const int width = std::max(1, Limited(Page().width())), height = std::max(1, Limited(Page().height()));
    PutWord(kSetMapMode, kAnisotropic);
    PutPair(kSetWindowOrg, 0, 0);
    PutPair(kSetWindowExt, width, height);
    PutPair(kSetViewportOrg, 0, 0);
    PutPair(kSetViewportExt, width, height);
    PutWord(kSetBkMode, kTransparent);
    PutWord(kSetStretchBltMode, kColourOnColour);
}

void EmfEngine::Close() {
    constexpr std::uint32_t kSize = 20, kPaletteAt = 16;
    MetafileBytes record = Record(kEof);
    Put(Sealed(record.U32(0).U32(kPaletteAt).U32(kSize)));
}

// Index 0 is the file's own.
void EmfEngine::Create(int slot, const QByteArray &creation) {
    QByteArray record = creation;
    PutU32(record, 8, std::uint32_t(slot + 1));
    Put(record);
}
void EmfEngine::Select(int slot) { PutWord(kSelectObject, std::uint32_t(slot + 1)); }

// By the stock objects, which every player has: some readers take a brush of the file's own without filling
// for a white one.
void EmfEngine::SelectNone(Kind kind) {
    PutWord(kSelectObject, kind == PenKind ? emf::kNullPen : emf::kNullBrush);
}

void EmfEngine::Delete(int slot) { PutWord(kDeleteObject, std::uint32_t(slot + 1)); }
void EmfEngine::Save() { Put(Sealed(Record(kSaveDc))); }
void EmfEngine::Restore() { PutWord(kRestoreDc, std::uint32_t(-1)); }

void EmfEngine::Clip(const QPainterPath &path) {
    if (const std::optional<QRectF> box = PlainBox(path)) {
        MetafileBytes record = Record(kIntersectClipRect);
        return Put(Sealed(record.Box32(BoxOf(*box))));
    }
    ChooseFillMode(path.fillRule() == Qt::WindingFill);
    PutOutline(path);
    PutWord(kSelectClipPath, kClipAnd);
}

void EmfEngine::Rectangle(const QRectF &box) {
    MetafileBytes record = Record(kRectangle);
    Put(Sealed(record.Box32(BoxOf(box))));
}

void EmfEngine::Ellipse(const QRectF &box) {
    MetafileBytes record = Record(kEllipse);
    Put(Sealed(record.Box32(BoxOf(box))));
}

void EmfEngine::Polygon(const QPolygonF &points) { PutPoints(kPolygon, points); }

void EmfEngine::Polyline(const QPolygonF &points) {
    if (NeedsPath(Pen())) return PutDashes({points});
    for (qsizetype from = 0; from + 1 < points.size(); from += kMostPoints - 1)
        PutPoints(kPolyline, points.mid(from, kMostPoints));
}

// Stretches of lines and of curves, each as one record; a subpath that ends where it began is closed.
void EmfEngine::PutOutline(const QPainterPath &path) {
    Put(Sealed(Record(kBeginPath)));
    QPointF start, at;
    for (int i = 0; i < path.elementCount();) {
        const QPainterPath::Element &element = path.elementAt(i);
        if (element.isMoveTo()) {
            start = at = element;
            PutPair(kMoveTo, Limited(at.x()), Limited(at.y()));
            ++i;
            continue;
        }
        const auto isKind = [&](int k) {
            const QPainterPath::ElementType type = path.elementAt(k).type;
            return element.isLineTo()
                       ? type == QPainterPath::LineToElement
                       : type == QPainterPath::CurveToElement || type == QPainterPath::CurveToDataElement;
        };
        QPolygonF points;
        while (i < path.elementCount() && isKind(i)) points.append(path.elementAt(i++));
        PutPoints(element.isLineTo() ? kPolylineTo : kPolyBezierTo, points);
        at = points.last();
        const bool ends = i == path.elementCount() || path.elementAt(i).isMoveTo();
        if (ends && (at - start).manhattanLength() < 0.5) Put(Sealed(Record(kCloseFigure)));
    }
    Put(Sealed(Record(kEndPath)));
}

void EmfEngine::PutPath(int type, const QPainterPath &path) {
    PutOutline(path);
    MetafileBytes record = Record(RecordType(type));
    Put(Sealed(record.Box32(BoxOf(path.controlPointRect()))));
}

// One after the other: a reader in wide use draws the line too wide when it does both at once.
void EmfEngine::Path(const QPainterPath &path) {
    const bool lined = Pen().style() != Qt::NoPen;
    if (path.isEmpty() || (!lined && !Filled())) return;
    ChooseShape(lined, Filled());
    if (Filled()) PutPath(kFillPath, path);
    if (lined && NeedsPath(Pen())) return PutDashes(Flattened(path));
    if (lined) PutPath(kStrokePath, path);
}

// Several in one record, as many as points of one may be.
void EmfEngine::PutDashes(const QList<QPolygonF> &lines) {
    std::vector<QPolygonF> dashes;
    for (const QPolygonF &line : lines)
        for (QPolygonF &dash : Dashes(line, Pen())) dashes.push_back(std::move(dash));
    for (std::size_t from = 0; from < dashes.size();) {
        QRectF bounds;
        qsizetype points = 0;
        std::size_t end = from;
        for (; end < dashes.size() && points <= kMostPoints; ++end) {
            points += dashes[end].size();
            bounds |= dashes[end].boundingRect().adjusted(0, 0, 1, 1);
        }
        MetafileBytes record = Record(kPolyPolyline);
        record.Box32(BoxOf(bounds)).U32(std::uint32_t(end - from)).U32(std::uint32_t(points));
        for (std::size_t i = from; i < end; ++i) record.U32(std::uint32_t(dashes[i].size()));
        for (; from < end; ++from)
            for (const QPointF &at : dashes[from]) record.I32(Limited(at.x())).I32(Limited(at.y()));
        Put(Sealed(record));
    }
}

bool EmfEngine::NeedsPath(const QPen &pen) const {
    return pen.style() >= Qt::DashLine && pen.style() <= Qt::CustomDashLine;
}

void EmfEngine::Image(const QRectF &place, const MetafileDib &dib) {
    constexpr std::uint32_t kFixed = 80; // bytes before the bitmap's header
    const QRect box = BoxOf(place);
    const std::uint32_t header = std::uint32_t(dib.header.size());
    MetafileBytes record = Record(kStretchDiBits);
    record.Box32(box).I32(box.left()).I32(box.top()).I32(0).I32(0);
    record.I32(dib.size.width()).I32(dib.size.height());
    record.U32(kFixed).U32(header).U32(kFixed + header).U32(std::uint32_t(dib.bits.size()));
    record.U32(0).U32(kCopyPixels).I32(std::max(1, box.width())).I32(std::max(1, box.height()));
    Put(Sealed(record.Raw(dib.header).Raw(dib.bits)));
}

void EmfEngine::Text(const TextRun &run) {
    constexpr std::uint32_t kFixed = 76; // bytes before the string
    constexpr int kCompatible = 1;
    const std::uint32_t count = std::uint32_t(run.text.size());
    MetafileBytes record = Record(kExtTextOut);
    record.Box32({0, 0, -1, -1}).U32(kCompatible);
    record.F32(float(kHundredthsPerUnit)).F32(float(kHundredthsPerUnit));
    record.I32(Limited(run.baseLine.x())).I32(Limited(run.baseLine.y())).U32(count).U32(kFixed);
    record.U32(run.rightToLeft ? kReadFromRight : 0).Zeros(16).U32((kFixed + count * 2 + 3) / 4 * 4);
    for (const QChar c : run.text) record.U16(c.unicode());
    record.PadTo(4);
    for (const int advance : run.advances) record.I32(advance);
    Put(Sealed(record));
}

void EmfEngine::TextColour(QRgb colour) { PutWord(kSetTextColour, ColorRef(colour)); }
void EmfEngine::TextAlign(int align) { PutWord(kSetTextAlign, kAlignBaseLine | std::uint32_t(align)); }
void EmfEngine::FillMode(bool winding) { PutWord(kSetPolyFillMode, winding ? kWinding : kAlternate); }

QByteArray EmfEngine::PenCreation(const QPen &pen) const {
    if (pen.style() == Qt::NoPen) return {};
    MetafileBytes record = Record(kExtCreatePen);
    record.U32(0).Zeros(16).U32(StyleOf(pen)).U32(std::uint32_t(std::max(1, Limited(pen.widthF()))));
    record.U32(0).U32(ColorRef(pen.color().rgb())).U32(0).U32(0);
    return Sealed(record);
}

QByteArray EmfEngine::BrushCreation(bool filled, QRgb colour) const {
    if (!filled) return {};
    MetafileBytes record = Record(kCreateBrush);
    record.U32(0).U32(0).U32(ColorRef(colour)).U32(0);
    return Sealed(record);
}

QByteArray EmfEngine::FontCreation(const TextFont &font, int height) const {
    constexpr qsizetype kFaceLength = 32, kRecordBytes = 332;
    MetafileBytes record = Record(kExtCreateFont);
    record.U32(0).I32(-height).I32(0).I32(0).I32(0).I32(font.bold ? kBoldWeight : kPlainWeight);
    // The bars of underlined and struck out text are drawn; a second one in the font would lie beside them.
    record.U8(font.italic).U8(0).U8(0).U8(kDefaultCharacters).Zeros(4);
    const QString face = font.name.left(kFaceLength - 1);
    for (const QChar c : face) record.U16(c.unicode());
    record.Zeros(kRecordBytes - record.Size());
    return Sealed(record);
}

// The reference device has 1440 dots an inch on ten inches.
QByteArray EmfEngine::File() const {
    constexpr int kInches = 10, kMillimetres = 254, kMicrometres = 254000;
    constexpr int kVersion = 0x10000;
    const QRect bounds(0, 0, std::max(1, Limited(Page().width())), std::max(1, Limited(Page().height())));
    const QRect frame(0, 0, Limited(Page().width() * kHundredthsPerUnit),
                      Limited(Page().height() * kHundredthsPerUnit));
    const int dots = int(kInches * kUnitsPerInch);
    const QByteArray description = Description();
    const auto header = std::uint32_t(kHeaderBytes + description.size());
    MetafileBytes file;
    file.U32(kHeader).U32(header).Box32(bounds).Box32(frame).U32(kSignature).U32(kVersion);
    file.U32(header + std::uint32_t(records_.Size())).U32(count_ + 1).U16(unsigned(Objects().Most() + 1));
    file.U16(0)
        .U32(kDescriptionUnits)
        .U32(kHeaderBytes)
        .U32(0)
        .I32(dots)
        .I32(dots)
        .I32(kMillimetres)
        .I32(kMillimetres);
    file.Zeros(12).I32(kMicrometres).I32(kMicrometres);
    return file.Raw(description).Raw(records_.Bytes()).Bytes();
}

bool IsOwnEmf(const QByteArray &start) {
    RecordFields fields(start);
    return fields.U32() == kHeader && fields.Part(kHeaderBytes, kDescriptionUnits * 2) == Description();
}

} // namespace vector
