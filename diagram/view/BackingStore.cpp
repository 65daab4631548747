#include "diagram/view/BackingStore.h"

#include <QPainter>
#include <QRegion>

namespace diagram {

namespace {

constexpr size_t kMostRects = 24;
constexpr qint64 kPassSlack = qint64(40) * 40; // painting so many pixels more costs less than another pass

qint64 Area(const QRect &rect) { return qint64(rect.width()) * rect.height(); }

bool WorthJoining(const QRect &a, const QRect &b) { return Area(a | b) <= Area(a) + Area(b) + kPassSlack; }

int Wrapped(int value, int size) {
    const int rest = value % size;
    return rest < 0 ? rest + size : rest;
}

} // namespace

void RectList::Add(const QRect &rect) {
    if (rect.isEmpty()) return;
    QRect joined = rect;
    for (size_t i = 0; i < rects_.size();) {
        const bool join = rects_.size() >= kMostRects || WorthJoining(rects_[i], joined);
        if (!join) {
            ++i;
            continue;
        }
        joined |= rects_[i];
        rects_[i] = rects_.back();
        rects_.pop_back();
        i = 0;
    }
    rects_.push_back(joined);
}

void BackingStore::Show(const QRect &seen) {
    if (seen.size() != seen_.size() || !seen.intersects(seen_)) {
        if (seen.size() != image_.size()) image_ = QImage(seen.size(), QImage::Format_RGB32);
        seen_ = seen;
        stale_.Clear();
        missing_.assign(1, seen);
        return;
    }
    const QRegion strips = QRegion(seen) - seen_;
    seen_ = seen;
    KeepInSight();
    missing_.insert(missing_.end(), strips.begin(), strips.end());
}

void BackingStore::KeepInSight() {
    const std::vector<QRect> rects = stale_.Rects();
    stale_.Clear();
    for (const QRect &rect : rects) stale_.Add(rect & seen_);
    for (QRect &rect : missing_) rect &= seen_;
    std::erase_if(missing_, [](const QRect &rect) { return rect.isEmpty(); });
}

void BackingStore::Invalidate(const QRect &area) {
    if (missing_.empty()) return stale_.Add(area & seen_);
    QRegion painted(area & seen_);
    for (const QRect &rect : missing_) painted -= rect;
    for (const QRect &rect : painted) stale_.Add(rect);
}

void BackingStore::InvalidateAll() {
    stale_.Clear();
    Invalidate(seen_);
}

std::vector<BackingStore::Piece> BackingStore::Pieces(const QRect &area) const {
    std::vector<Piece> pieces;
    const int width = image_.width();
    const int height = image_.height();
    for (int y = area.top(); y <= area.bottom();) {
        const int rows = qMin(area.bottom() + 1 - y, height - Wrapped(y, height));
        for (int x = area.left(); x <= area.right();) {
            const int columns = qMin(area.right() + 1 - x, width - Wrapped(x, width));
            pieces.push_back({QRect(x, y, columns, rows), QPoint(Wrapped(x, width), Wrapped(y, height))});
            x += columns;
        }
        y += rows;
    }
    return pieces;
}

void BackingStore::PaintRect(QPainter &painter, const PaintArea &paint, const QRect &rect) const {
    for (const Piece &piece : Pieces(rect)) {
        painter.save();
        painter.setClipRect(QRect(piece.inImage, piece.area.size()));
        painter.translate(piece.inImage);
        paint(painter, piece.area);
        painter.restore();
    }
}

// The upper rows of the first rectangle that is missing.
QRect BackingStore::TakeBand(int rows) {
    QRect &rect = missing_.front();
    QRect band = rect;
    band.setHeight(int(qMin<qint64>(rect.height(), qint64(rows) * seen_.width() / rect.width())));
    rect.setTop(band.bottom() + 1);
    if (rect.isEmpty()) missing_.erase(missing_.begin());
    return band;
}

void BackingStore::Update(const PaintArea &paint) {
    Update(paint, {seen_.height(), [] { return true; }});
}

void BackingStore::Update(const PaintArea &paint, const Slicing &slicing) {
    if ((stale_.Rects().empty() && missing_.empty()) || image_.isNull()) return;
    QPainter painter(&image_);
    for (const QRect &rect : stale_.Rects()) PaintRect(painter, paint, rect);
    stale_.Clear();
    bool goesOn = true;
    for (; goesOn && !missing_.empty(); goesOn = slicing.mayGoOn())
        PaintRect(painter, paint, TakeBand(qMax(1, slicing.rows)));
}

void BackingStore::CopyTo(QPainter &painter, const QRect &area) const {
    if (image_.isNull()) return;
    for (const Piece &piece : Pieces(area & seen_))
        painter.drawImage(piece.area.topLeft() - seen_.topLeft(), image_,
                          QRect(piece.inImage, piece.area.size()));
}

} // namespace diagram
