// Which part of a surface is seen, and how large: the one place that knows zoom and scroll.
#pragma once

#include <optional>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QTransform>

class QAbstractScrollArea;

namespace diagram {

class Scene;
class Surface;

constexpr double kLowestZoom = 10;
constexpr double kHighestZoom = 800;

// The zoom in per cent that fits `extent` (twips) into `size` (pixels); 100 for an empty one.
double FittingZoom(const QRectF &extent, const QSize &size);
// The area in pixels that can be scrolled to: from the surface's origin, or from what lies further left or
// above, to half a viewport beyond content that doesn't fit; `seen` is always part of it, so that nothing
// jumps: a zoom at the pointer may show what lies beyond the origin.
QRect ScrollableArea(const QRectF &content, const QSize &viewport, const QRect &seen);

// Works on the scroll bars of a scroll area and keeps the surface's size and scroll offsets.
class Viewport {
public:
    Viewport(QAbstractScrollArea &area, Surface &surface, Scene &scene);

    double xScale() const { return xScale_; } // pixels a twip
    double yScale() const { return yScale_; }
    double Zoom() const;   // per cent
    QPoint Scroll() const; // pixels from the surface's origin
    QPointF ToSurface(const QPointF &pixels) const;
    QPointF FromSurface(const QPointF &twips) const;
    QRectF FromSurface(const QRectF &twips) const;
    QRectF Seen() const;                                        // twips
    QSizeF Pixel() const { return {1 / xScale_, 1 / yScale_}; } // twips
    QTransform ToPixels() const;                                // what FromSurface does, for paths

    void ZoomAt(double percent, const QPointF &at);
    // Shows the stored zoom again.
    void FollowStored() { shown_.reset(); }
    // Scrolls along with the content when that was moved because the page has grown.
    void FollowGrowth();
    // Brings scale and scroll bars up to date with content, stored zoom and window. `frozen`: while a gesture
    // lasts the scale stays and the scrollable area doesn't shrink. True when the scale changed.
    bool Update(bool frozen);
    // `grow` widens the scrollable area as far as is needed.
    enum class Grow : unsigned char { No, RightAndBelow, Anywhere };
    void ScrollTo(const QPoint &pixels, Grow grow = Grow::No);
    void EnsureVisible(const QRectF &twips);
    // Tells the surface the size and the scroll offset of what is seen.
    void TellSurface();

private:
    bool Fits() const; // the stored zoom is the fitting one, and it is shown
    bool SetScale(double xPercent, double yPercent);
    bool UpdateScale();
    void CentreContent();
    void UpdateBars(bool frozen);
    QRect SeenPixels() const;

    QAbstractScrollArea &area_;
    Surface &surface_;
    Scene &scene_;
    double xScale_;
    double yScale_;
    std::optional<double> shown_; // per cent, while the user has zoomed away from the stored zoom
    QPointF grown_;               // how far the page had grown when the scroll offset followed last, twips
};

} // namespace diagram
