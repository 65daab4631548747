#include "vector/player/MetafileCanvas.h"

#include "vector/player/DibReader.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/NearForms.h"

#include <algorithm>
#include <cmath>
#include <QLinearGradient>

namespace vector {

namespace {

constexpr double kBudget = 2e8;
constexpr double kWorkOfAnElement = 300, kWorkOfADash = 500;
constexpr double kFarthest = 1e7; // pixels
constexpr std::size_t kMostSaved = 200;
constexpr double kMostDashes = 20000; // of one line
constexpr double kMitre = 2;          // how far corners stand out, in widths of the pen

double Held(double value) { return std::isfinite(value) ? std::clamp(value, -kFarthest, kFarthest) : 0; }

double LengthOf(const QPainterPath &path) {
    double length = 0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPainterPath::Element &a = path.elementAt(i - 1), &b = path.elementAt(i);
        if (!b.isMoveTo()) length += std::abs(a.x - b.x) + std::abs(a.y - b.y);
    }
    return length;
}

// How far the path goes up and down, added up: about how many rows of pixels it crosses.
double HeightOf(const QPainterPath &path) {
    double height = 0;
    for (int i = 1; i < path.elementCount(); ++i)
        if (!path.elementAt(i).isMoveTo()) height += std::abs(path.elementAt(i - 1).y - path.elementAt(i).y);
    return height;
}

double ScaleOf(const QTransform &transform) { return std::sqrt(std::abs(transform.determinant())); }

} // namespace

MetafileCanvas::MetafileCanvas(QImage &image, const QTransform &device)
    : image_(image), painter_(&image), device_(device), budget_(kBudget) {
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                            QPainter::SmoothPixmapTransform);
    painter_.setClipRect(image.rect());
    MappingChanged();
}

void MetafileCanvas::Save() {
    if (saved_.size() >= kMostSaved) return;
    painter_.save();
    saved_.push_back({state_, clips_});
}

void MetafileCanvas::Restore(int level) {
    const int depth = int(saved_.size());
    const int target = level > 0 ? level - 1 : depth + level;
    if (level == 0 || target < 0 || target >= depth) return;
    while (int(saved_.size()) > target) {
        state_ = std::move(saved_.back().state);
        clips_ = saved_.back().clips;
        saved_.pop_back();
        painter_.restore();
    }
    MappingChanged();
}

const MetafileObject *MetafileCanvas::Object(std::uint32_t slot) const {
    const auto found = objects_.find(slot);
    return found == objects_.end() ? nullptr : &found->second;
}

void MetafileCanvas::Select(const MetafileObject &object) {
    if (const auto *pen = std::get_if<QPen>(&object)) state_.pen = *pen;
    if (const auto *brush = std::get_if<QBrush>(&object)) state_.brush = *brush;
    if (const auto *font = std::get_if<MetafileFont>(&object)) state_.font = *font;
    if (const auto *region = std::get_if<QRegion>(&object)) ClipToRegion(*region, metafile::kClipCopy);
}

QPainterPath MetafileCanvas::Mapped(const QPainterPath &path) const {
    QPainterPath mapped = ToPixels().map(path);
    for (int i = 0; i < mapped.elementCount(); ++i) {
        const QPainterPath::Element &at = mapped.elementAt(i);
        if (Held(at.x) != at.x || Held(at.y) != at.y) mapped.setElementPositionAt(i, Held(at.x), Held(at.y));
    }
    mapped.setFillRule(state_.fillRule);
    return mapped;
}

// A line of no width, and one thinner than a pixel, has a pixel.
QPen MetafileCanvas::PixelPen(const QPainterPath &pixels) const {
    QPen pen = state_.pen;
    const double widest = 2 * (image_.width() + image_.height());
    const double scale = pen.isCosmetic() ? 1 : ScaleOf(ToPixels());
    pen.setCosmetic(false);
    pen.setWidthF(std::clamp(pen.widthF() * scale, 1.0, widest));
    if (pen.style() > Qt::SolidLine && LengthOf(pixels) / pen.widthF() > kMostDashes)
        pen.setStyle(Qt::SolidLine);
    return pen;
}

// Painters sort the crossings of each row, so their number counts twice.
double MetafileCanvas::WorkOf(const QPainterPath &pixels, bool filled, double penWidth) const {
    constexpr double kWorkOfARow = 40, kWorkOfAPair = 2;
    const QRectF bounds = pixels.controlPointRect();
    const QRectF seen = bounds.adjusted(-penWidth, -penWidth, penWidth, penWidth) & QRectF(image_.rect());
    const double area = seen.width() * seen.height();
    const double rows = std::max(1.0, bounds.height()), crossed = HeightOf(pixels);
    const double crossing = kWorkOfARow * crossed + kWorkOfAPair * crossed * (crossed / rows);
    double work = kWorkOfAnElement * pixels.elementCount();
    if (filled) work += area + crossing;
    if (penWidth > 0) work += std::min(area, LengthOf(pixels) * penWidth) + 2 * crossing;
    return work;
}

// Half a picture and the pen's width around what is seen.
QRectF MetafileCanvas::Near(double penWidth) const {
    const double more = penWidth + std::max(image_.width(), image_.height()) / 2.0;
    return QRectF(image_.rect()).adjusted(-more, -more, more, more);
}

bool MetafileCanvas::SpendOnCutting(const QPainterPath &pixels, const QRectF &near) {
    constexpr double kWorkOfAFarElement = 10 * kWorkOfAnElement;
    const bool whole = near.contains(pixels.controlPointRect());
    return Spend((whole ? kWorkOfAnElement : kWorkOfAFarElement) * pixels.elementCount());
}

void MetafileCanvas::Fill(const QPainterPath &pixels, const QBrush &brush) {
    const QRectF near = Near(0);
    if (brush.style() == Qt::NoBrush || !Paints() || !SpendOnCutting(pixels, near)) return;
    const QPainterPath area = AreaNear(pixels, near);
    if (Spend(WorkOf(area, true, 0))) painter_.fillPath(area, brush);
}

void MetafileCanvas::Stroke(const QPainterPath &pixels) {
    if (state_.pen.style() == Qt::NoPen || !Paints()) return;
    const QRectF near = Near(PixelPen(pixels).widthF() * kMitre);
    if (!SpendOnCutting(pixels, near)) return;
    const QPainterPath line = LineNear(pixels, near);
    const QPen pen = PixelPen(line);
    double work = WorkOf(line, false, pen.widthF());
    if (pen.style() > Qt::SolidLine) work += kWorkOfADash * LengthOf(line) / pen.widthF();
    if (Spend(work)) painter_.strokePath(line, pen);
}

void MetafileCanvas::PaintPixels(const QPainterPath &pixels, bool filled, bool lined) {
    if (filled) Fill(pixels, state_.brush);
    if (lined) Stroke(pixels);
}

void MetafileCanvas::Draw(const QPainterPath &form, bool filled, bool lined) {
    if (form.isEmpty()) return;
    if (recording_ && Spend(kWorkOfAnElement * form.elementCount()))
        path_.addPath(Mapped(form));
    else
        PaintPixels(Mapped(form), filled, lined);
}

void MetafileCanvas::DrawFromPosition(const QPainterPath &line) {
    if (line.elementCount() == 0) return;
    if (recording_ && Spend(kWorkOfAnElement * line.elementCount())) {
        const QPainterPath pixels = Mapped(line);
        if (path_.isEmpty())
            path_ = pixels;
        else
            path_.connectPath(pixels);
    } else {
        PaintPixels(Mapped(line), false, true);
    }
    state_.position = line.currentPosition();
}

void MetafileCanvas::MoveTo(const QPointF &at) {
    state_.position = at;
    const QPointF pixels = ToPixels().map(at);
    if (recording_ && Spend(kWorkOfAnElement)) path_.moveTo(Held(pixels.x()), Held(pixels.y()));
}

void MetafileCanvas::FillWith(const QPainterPath &form, const QBrush &brush) { Fill(Mapped(form), brush); }

QRegion MetafileCanvas::Mapped(const QRegion &deviceUnits) const {
    QRegion pixels;
    for (const QRect &rect : deviceUnits)
        pixels += (device_.mapRect(QRectF(rect)) & QRectF(image_.rect())).toAlignedRect();
    return pixels;
}

void MetafileCanvas::FillPixels(const QRegion &deviceUnits, const QBrush &brush) {
    if (brush.style() == Qt::NoBrush || !Paints()) return;
    for (const QRect &rect : Mapped(deviceUnits))
        if (Spend(kWorkOfAnElement + double(rect.width()) * rect.height())) painter_.fillRect(rect, brush);
}

void MetafileCanvas::SetPixel(const QPointF &at, const QColor &colour) {
    if (Paints() && Spend(kWorkOfAnElement))
        painter_.fillRect(ToPixels().mapRect(QRectF(at, QSizeF(1, 1))), colour);
}

void MetafileCanvas::Gradient(const QRectF &box, const QColor &from, const QColor &to, bool downwards) {
    const QRectF pixels = ToPixels().mapRect(box);
    QLinearGradient gradient(pixels.topLeft(), downwards ? pixels.bottomLeft() : pixels.topRight());
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    QPainterPath form;
    form.addRect(box);
    FillWith(form, gradient);
}

void MetafileCanvas::BeginPath() {
    path_ = QPainterPath();
    recording_ = true;
    const QPointF pixels = ToPixels().map(state_.position);
    path_.moveTo(Held(pixels.x()), Held(pixels.y()));
}

void MetafileCanvas::AbortPath() {
    path_ = QPainterPath();
    recording_ = false;
}

void MetafileCanvas::DrawRecorded(bool filled, bool lined) {
    recording_ = false;
    const QPainterPath pixels = std::exchange(path_, QPainterPath());
    QPainterPath form = pixels;
    form.setFillRule(state_.fillRule);
    PaintPixels(form, filled, lined);
}

// Each further clip is joined with all before it.
bool MetafileCanvas::SpendOnClip() { return Spend(20.0 * ++clips_ + kWorkOfAnElement); }

void MetafileCanvas::ClipToRecorded(int mode) {
    using metafile::kClipAnd, metafile::kClipCopy, metafile::kClipWithout;
    recording_ = false;
    QPainterPath pixels = std::exchange(path_, QPainterPath());
    if (!SpendOnClip() || !SpendOnCutting(pixels, Near(0))) return;
    pixels = AreaNear(pixels, Near(0));
    pixels.setFillRule(state_.fillRule);
    if (!Spend(WorkOf(pixels, true, 0))) return;
    if (mode == kClipWithout) {
        pixels.setFillRule(Qt::OddEvenFill);
        pixels.addRect(QRectF(image_.rect()));
    }
    if (mode == kClipCopy) painter_.setClipRect(image_.rect());
    if (mode == kClipAnd || mode == kClipWithout || mode == kClipCopy)
        painter_.setClipPath(pixels, Qt::IntersectClip);
}

void MetafileCanvas::ClipTo(const QRectF &box) {
    QPainterPath form;
    form.addRect(box.normalized());
    if (SpendOnClip()) painter_.setClipRect(Mapped(form).boundingRect(), Qt::IntersectClip);
}

void MetafileCanvas::ClipOut(const QRectF &box) {
    QPainterPath form;
    form.addRect(box.normalized());
    if (!SpendOnClip()) return;
    const QRect out = (Mapped(form).boundingRect() & QRectF(image_.rect())).toRect();
    painter_.setClipRegion(QRegion(image_.rect()) - out, Qt::IntersectClip);
}

void MetafileCanvas::ClipToRegion(const QRegion &deviceUnits, int mode) {
    using metafile::kClipAnd, metafile::kClipCopy;
    if (mode != kClipAnd && mode != kClipCopy) return;
    if (!SpendOnClip() || !Spend(kWorkOfAnElement * deviceUnits.rectCount())) return;
    if (mode == kClipCopy) clips_ = 0, painter_.setClipRect(image_.rect());
    if (!deviceUnits.isNull()) painter_.setClipRegion(Mapped(deviceUnits), Qt::IntersectClip);
}

} // namespace vector
