#include "vector/engine/MetafileEngine.h"

#include "vector/engine/MetafileDib.h"
#include "vector/engine/MetafilePaths.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/Units.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace vector {

namespace {

constexpr int kMostObjects = 64;       // more are made only while a state is saved
constexpr int kNothing = -2;           // chosen in place of a slot
constexpr int kLongestOutlined = 2000; // longer lines keep the letters that the kind knows
constexpr int kLongestText = 8000;     // of one record; players take 8192
constexpr qsizetype kMostBytes = 0x7FFFFF00;
constexpr int kAligns[] = {metafile::kAlignLeft, metafile::kAlignRight, metafile::kAlignMiddle};

QPainterPath PathOf(const QPolygonF &points) {
    QPainterPath path;
    path.addPolygon(points);
    return path;
}

int Mixed(int over, int under, double share) { return int(std::lround(over * share + under * (1 - share))); }

} // namespace

MetafileEngine::MetafileEngine(const QSizeF &page, double scale, QRgb paper)
    : VectorEngine(page, scale), paper_(paper) {}

bool MetafileEngine::begin(QPaintDevice *) {
    noPen_ = PenCreation(QPen(Qt::NoPen));
    noBrush_ = BrushCreation(false, 0);
    penCreation_ = noPen_, brushCreation_ = noBrush_;
    Open();
    PushState();
    return true;
}

// The objects can go when the state from before them is back and none of them is selected any more.
bool MetafileEngine::end() {
    while (!saved_.empty()) PopState();
    DeleteObjects();
    Close();
    return true;
}

bool MetafileEngine::HasRoom(qsizetype bytes) {
    tooLong_ = tooLong_ || bytes > kMostBytes;
    return !tooLong_;
}

void MetafileEngine::DeleteObjects() {
    for (const int slot : objects_.Taken()) {
        Delete(slot);
        objects_.Free(slot);
    }
}

void MetafileEngine::PushState() {
    Save();
    saved_.push_back(chosen_);
}

void MetafileEngine::PopState() {
    Restore();
    chosen_ = saved_.back();
    saved_.pop_back();
}

QRgb MetafileEngine::OnPaper(const QColor &colour) const {
    const double share = colour.alphaF();
    return qRgb(Mixed(colour.red(), qRed(paper_), share), Mixed(colour.green(), qGreen(paper_), share),
                Mixed(colour.blue(), qBlue(paper_), share));
}

void MetafileEngine::SetPen(const QPen &pen) {
    const double pixel = kUnitsPerPixel * Scale();
    const double width = pen.widthF() * std::sqrt(std::abs(Transform().determinant()));
    pen_ = pen;
    if (pen.color().alpha() == 0) pen_.setStyle(Qt::NoPen);
    pen_.setColor(OnPaper(pen.color()));
    pen_.setWidthF(width > 0 ? width : pixel);
    penCreation_ = PenCreation(pen_);
}

void MetafileEngine::SetBrush(const QBrush &brush) {
    filled_ = brush.style() != Qt::NoBrush && brush.color().alpha() > 0;
    fill_ = OnPaper(brush.color());
    brushCreation_ = BrushCreation(filled_, fill_);
}

void MetafileEngine::BeginClip(const QPainterPath &path) {
    PushState();
    Clip(path);
}

// A slot is given up only where no saved state can bring back the object that stood in it.
void MetafileEngine::Choose(Kind kind, const QByteArray &creation) {
    if (creation.isEmpty()) {
        if (chosen_.objects[kind] != kNothing) SelectNone(kind);
        chosen_.objects[kind] = kNothing;
        return;
    }
    int slot = objects_.Find(creation);
    if (slot < 0) {
        if (objects_.Count() >= kMostObjects && Clips() == 0) {
            const int spare = objects_.Oldest(
                {chosen_.objects[PenKind], chosen_.objects[BrushKind], chosen_.objects[FontKind]});
            Delete(spare);
            objects_.Free(spare);
        }
        slot = objects_.Take(creation);
        Create(slot, creation);
    }
    if (chosen_.objects[kind] == slot) return;
    Select(slot);
    chosen_.objects[kind] = slot;
}

void MetafileEngine::ChooseShape(bool lined, bool filled) {
    Choose(PenKind, lined ? penCreation_ : noPen_);
    Choose(BrushKind, filled ? brushCreation_ : noBrush_);
}

void MetafileEngine::ChooseFill(QRgb colour) {
    Choose(PenKind, noPen_);
    Choose(BrushKind, BrushCreation(true, colour));
}

void MetafileEngine::ChooseFillMode(bool winding) {
    if (chosen_.winding == int(winding)) return;
    FillMode(winding);
    chosen_.winding = int(winding);
}

void MetafileEngine::NoteFill(const QRectF &bounds) {
    if (filled_) lastFilled_ = bounds, lastFill_ = fill_;
}

// What most likely shows through a picture: the shape drawn before it, or the paper.
QRgb MetafileEngine::Behind(const QRectF &place) const {
    return lastFilled_.contains(place.center()) ? lastFill_ : paper_;
}

bool MetafileEngine::TakesBoxes() const {
    return Transform().type() <= QTransform::TxScale && !NeedsPath(pen_);
}

void MetafileEngine::drawRects(const QRectF *rects, int count) {
    for (const QRectF *rect = rects; rect != rects + count; ++rect) {
        if (!TakesBoxes()) {
            drawPath(PathOf(QPolygonF(*rect)));
            continue;
        }
        ChooseShape(pen_.style() != Qt::NoPen, filled_);
        Rectangle(Transform().mapRect(*rect));
        NoteFill(Transform().mapRect(*rect));
    }
}

void MetafileEngine::drawEllipse(const QRectF &box) {
    if (!TakesBoxes()) {
        QPainterPath path;
        path.addEllipse(box);
        return drawPath(path);
    }
    ChooseShape(pen_.style() != Qt::NoPen, filled_);
    Ellipse(Transform().mapRect(box));
    NoteFill(Transform().mapRect(box));
}

void MetafileEngine::drawPath(const QPainterPath &path) {
    const QPainterPath mapped = Transform().map(path);
    ChooseFillMode(path.fillRule() == Qt::WindingFill);
    Path(mapped);
    NoteFill(mapped.controlPointRect());
}

void MetafileEngine::drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) {
    QPolygonF mapped(count);
    std::transform(points, points + count, mapped.begin(),
                   [&](const QPointF &at) { return Transform().map(at); });
    const bool lined = pen_.style() != Qt::NoPen;
    if (mode == PolylineMode) {
        if (!lined) return;
        ChooseShape(true, false);
        return Polyline(mapped);
    }
    ChooseFillMode(mode == WindingMode);
    NoteFill(mapped.boundingRect());
    if (NeedsPath(pen_)) {
        mapped.append(mapped.first());
        return Path(PathOf(mapped));
    }
    ChooseShape(lined, filled_);
    Polygon(mapped);
}

void MetafileEngine::PutImage(const QRectF &place, const QImage &image) {
    const QRectF mapped = Transform().mapRect(place);
    if (image.isNull() || mapped.isEmpty()) return;
    Image(mapped, DibOf(image, mapped.size(), kUnitsPerPixel * Scale(), Behind(mapped)));
}

void MetafileEngine::DrawPicture(const QRectF &place, const PictureSource &picture) {
    CatchUp();
    PutImage(place, picture.ImageFor(PixelsFor(place)));
}

void MetafileEngine::DrawLine(const TextPiece &piece) {
    CatchUp();
    if (piece.text.size() <= kLongestOutlined && !CanEncode(piece.text)) return PutOutlines(piece);
    QByteArray &font = fonts_[piece.font];
    if (font.isEmpty()) {
        const double height = piece.font.points * kUnitsPerPoint * Scale();
        font = FontCreation(piece.font, std::max(1, int(std::lround(height))));
    }
    Choose(FontKind, font);
    const QRgb colour = OnPaper(piece.colour);
    if (chosen_.textColour != colour) TextColour(colour);
    chosen_.textColour = colour;
    PutText(piece);
}

// As an area of the text's colour, whatever pen and brush the painter has.
void MetafileEngine::PutOutlines(const TextPiece &piece) {
    const QPen pen = std::exchange(pen_, QPen(Qt::NoPen));
    const bool filled = std::exchange(filled_, true);
    const QByteArray brush = std::exchange(brushCreation_, BrushCreation(true, OnPaper(piece.colour)));
    ChooseFillMode(true);
    Path(Transform().map(OutlinesOf(piece)));
    pen_ = pen, filled_ = filled, brushCreation_ = brush;
}

// Another machine may lack the font: plain text is held at the side to which it is justified. Readers differ
// in what holding other texts means, but for its left end.
void MetafileEngine::PutText(const TextPiece &piece) {
    const bool isLong = piece.text.size() > kLongestText;
    const int side = isLong || IsIntricate(piece.text) ? kTextLeft : piece.side;
    const double held = kTextHeldAt[side] * piece.width;
    if (chosen_.align != kAligns[side]) TextAlign(kAligns[side]);
    chosen_.align = kAligns[side];
    for (const MetafileRun &run : text_.Runs(piece, Scale()))
        PutRun(run, Transform().map(piece.baseLine + QPointF(run.left + held, 0)));
}

// In several records where it is too long for one.
void MetafileEngine::PutRun(const MetafileRun &run, QPointF at) {
    for (qsizetype from = 0; from < run.text.size(); from += kLongestText) {
        const qsizetype count = std::min<qsizetype>(kLongestText, run.text.size() - from);
        std::vector<int> part(run.advances.begin() + from, run.advances.begin() + from + count);
        const double width = std::accumulate(part.begin(), part.end(), 0.0);
        Text({at, chosen_.align, run.rightToLeft, run.text.mid(from, count), std::move(part)});
        at.rx() += width;
    }
}

} // namespace vector
