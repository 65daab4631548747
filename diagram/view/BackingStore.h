// The pixels of what is seen, kept so that scrolling and overlays cost no painting of the diagram.
#pragma once

#include <functional>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <vector>

class QPainter;

namespace diagram {

// Rectangles that must be painted: overlapping ones are joined where that saves work. Painting a place twice
// does no harm.
class RectList {
public:
    void Add(const QRect &rect);
    void Clear() { rects_.clear(); }
    const std::vector<QRect> &Rects() const { return rects_; }

private:
    std::vector<QRect> rects_;
};

// All coordinates are device pixels from the surface's origin. The image is addressed modulo its size:
// scrolling moves no pixels, it only makes the strips stale that come into sight.
class BackingStore {
public:
    // Paints `area`; the painter's origin is the area's left top corner, and it clips to the area.
    using PaintArea = std::function<void(QPainter &painter, const QRect &area)>;

    // How much of what has come into sight is painted at once: bands of so many rows of the whole width, or
    // of more rows where it is narrower, for as long as it may go on. The first band is painted in any case.
    struct Slicing {
        int rows;
        std::function<bool()> mayGoOn;
    };

    // What is seen. Everything comes into sight when the size differs, else the strips at the edges.
    void Show(const QRect &seen);
    const QRect &Seen() const { return seen_; }
    // What has been painted and must be painted again.
    void Invalidate(const QRect &area);
    void InvalidateAll();
    // Paints what is stale, and what has come into sight.
    void Update(const PaintArea &paint);
    // Paints what is stale, and a part of what has come into sight.
    void Update(const PaintArea &paint, const Slicing &slicing);
    // What has come into sight and isn't painted yet; no rectangle overlaps another.
    const std::vector<QRect> &Missing() const { return missing_; }
    // Copies `area`, as far as it is seen, to where the painter has the left top corner of what is seen at
    // (0, 0).
    void CopyTo(QPainter &painter, const QRect &area) const;

private:
    // A part of the surface and where it lies in the image.
    struct Piece {
        QRect area;
        QPoint inImage;
    };
    std::vector<Piece> Pieces(const QRect &area) const;
    void KeepInSight();
    void PaintRect(QPainter &painter, const PaintArea &paint, const QRect &rect) const;
    QRect TakeBand(int rows);

    QImage image_;
    QRect seen_;
    RectList stale_; // seen before
    std::vector<QRect> missing_;
};

} // namespace diagram
