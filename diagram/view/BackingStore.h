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

    // What is seen: everything is stale when the size differs, else the strips that come into sight.
    void Show(const QRect &seen);
    void Invalidate(const QRect &area);
    void InvalidateAll();
    // Paints what is stale.
    void Update(const PaintArea &paint);
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
    void KeepStaleInSight();

    QImage image_;
    QRect seen_;
    RectList stale_;
};

} // namespace diagram
