#include "diagram/view/Viewport.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <algorithm>
#include <cmath>
#include <QAbstractScrollArea>
#include <QScrollBar>
#include <utility>

namespace diagram {

namespace {

constexpr double kLowestFit = 1;
constexpr int kFitMargin = 12; // pixels around content that fills the window
constexpr int kScrollMargin = 24;
constexpr double kLineWidth = 6; // pixels of an outline that may reach beyond the edge of the page
constexpr int kLargestScroll = 1 << 30;

double ScaleOf(double percent) { return percent / 100 / kTwipsPerPixel; }

int Clamped(double pixels) {
    return int(std::clamp(pixels, double(-kLargestScroll), double(kLargestScroll)));
}

// Lets the bar scroll from `low` to `high`, of which it shows `page`.
void SetBar(QScrollBar &bar, int low, int high, int page) {
    bar.setPageStep(page);
    bar.setSingleStep(20);
    bar.setRange(low, std::max(low, high - page));
}

// Widens the bar's range so that it reaches `value`.
void Widen(QScrollBar &bar, int value) {
    const int kept = std::clamp(value, -kLargestScroll, kLargestScroll);
    bar.setRange(std::min(bar.minimum(), kept), std::max(bar.maximum(), kept));
}

} // namespace

double FittingZoom(const QRectF &extent, const QSize &size) {
    if (extent.isEmpty()) return 100;
    const double width = std::max(1, size.width() - 2 * kFitMargin);
    const double height = std::max(1, size.height() - 2 * kFitMargin);
    const double pixels = std::min(width / extent.width(), height / extent.height());
    return std::clamp(pixels * 100 * kTwipsPerPixel, kLowestFit, kHighestZoom);
}

QRect ScrollableArea(const QRectF &content, const QSize &viewport, const QRect &seen) {
    const bool empty = content.isEmpty();
    const auto low = [&](double start) {
        return empty || start >= -kLineWidth ? 0 : Clamped(start - kScrollMargin);
    };
    const auto high = [&](double end, int page) {
        return empty || end + kScrollMargin <= page ? page : Clamped(end + page / 2.0);
    };
    const QPoint corner(low(content.left()), low(content.top()));
    const QPoint end(high(content.right(), viewport.width()), high(content.bottom(), viewport.height()));
    const QRect area(corner, QSize(std::max(viewport.width(), end.x() - corner.x()),
                                   std::max(viewport.height(), end.y() - corner.y())));
    return area | seen;
}

Viewport::Viewport(QAbstractScrollArea &area, Surface &surface, Scene &scene)
    : area_(area),
      surface_(surface),
      scene_(scene),
      xScale_(ScaleOf(100)),
      yScale_(ScaleOf(100)),
      grown_(surface.Data().grownLeft, surface.Data().grownTop) {}

double Viewport::Zoom() const { return xScale_ * 100 * kTwipsPerPixel; }

QPoint Viewport::Scroll() const {
    return {area_.horizontalScrollBar()->value(), area_.verticalScrollBar()->value()};
}

QPointF Viewport::ToSurface(const QPointF &pixels) const {
    const QPoint scroll = Scroll();
    return {(pixels.x() + scroll.x()) / xScale_, (pixels.y() + scroll.y()) / yScale_};
}

QPointF Viewport::FromSurface(const QPointF &twips) const {
    const QPoint scroll = Scroll();
    return {twips.x() * xScale_ - scroll.x(), twips.y() * yScale_ - scroll.y()};
}

QRectF Viewport::FromSurface(const QRectF &twips) const {
    return {FromSurface(twips.topLeft()), FromSurface(twips.bottomRight())};
}

QTransform Viewport::ToPixels() const {
    const QPoint scroll = Scroll();
    return {xScale_, 0, 0, yScale_, double(-scroll.x()), double(-scroll.y())};
}

QRect Viewport::SeenPixels() const { return {Scroll(), area_.viewport()->size()}; }

QRectF Viewport::Seen() const {
    const QSize size = area_.viewport()->size();
    return {ToSurface(QPointF(0, 0)), ToSurface(QPointF(size.width(), size.height()))};
}

bool Viewport::Fits() const { return !shown_ && (surface_.xZoom() == 0 || surface_.yZoom() == 0); }

bool Viewport::SetScale(double xPercent, double yPercent) {
    const bool same = xScale_ == ScaleOf(xPercent) && yScale_ == ScaleOf(yPercent);
    xScale_ = ScaleOf(xPercent);
    yScale_ = ScaleOf(yPercent);
    return !same;
}

bool Viewport::UpdateScale() {
    if (shown_) return SetScale(*shown_, *shown_);
    if (!Fits()) return SetScale(surface_.xZoom(), surface_.yZoom());
    // The bars are not there while the content fits.
    const double zoom = FittingZoom(scene_.Extent(), area_.maximumViewportSize());
    return SetScale(zoom, zoom);
}

void Viewport::CentreContent() {
    const QRectF extent = scene_.Extent();
    const QSize size = area_.maximumViewportSize();
    const QPointF middle = extent.isEmpty() ? QPointF() : extent.center();
    const int x = extent.isEmpty() ? 0 : qRound(middle.x() * xScale_ - size.width() / 2.0);
    const int y = extent.isEmpty() ? 0 : qRound(middle.y() * yScale_ - size.height() / 2.0);
    area_.horizontalScrollBar()->setRange(x, x);
    area_.verticalScrollBar()->setRange(y, y);
}

void Viewport::UpdateBars(bool frozen) {
    const QRectF extent = scene_.Extent();
    const QRectF content(extent.left() * xScale_, extent.top() * yScale_, extent.width() * xScale_,
                         extent.height() * yScale_);
    const QSize size = area_.viewport()->size();
    QRect all = ScrollableArea(content, size, SeenPixels());
    QScrollBar &x = *area_.horizontalScrollBar();
    QScrollBar &y = *area_.verticalScrollBar();
    if (frozen) {
        const QRect before(QPoint(x.minimum(), y.minimum()),
                           QSize(x.maximum() - x.minimum(), y.maximum() - y.minimum()) + size);
        all |= before;
    }
    SetBar(x, all.left(), all.left() + all.width(), size.width());
    SetBar(y, all.top(), all.top() + all.height(), size.height());
}

bool Viewport::Update(bool frozen) {
    bool changed = false;
    if (!frozen) {
        const QPointF middle = Seen().center();
        changed = UpdateScale();
        const QSize size = area_.viewport()->size();
        if (Fits()) {
            CentreContent();
            TellSurface();
            return changed;
        }
        if (changed) {
            UpdateBars(false);
            ScrollTo({Clamped(middle.x() * xScale_ - size.width() / 2.0),
                      Clamped(middle.y() * yScale_ - size.height() / 2.0)});
        }
    }
    if (!Fits()) UpdateBars(frozen);
    TellSurface();
    return changed;
}

void Viewport::ZoomAt(double percent, const QPointF &at) {
    const QPointF kept = ToSurface(at);
    shown_ = std::clamp(percent, kLowestZoom, kHighestZoom);
    UpdateScale();
    UpdateBars(false);
    ScrollTo({qRound(kept.x() * xScale_ - at.x()), qRound(kept.y() * yScale_ - at.y())}, Grow::Anywhere);
    TellSurface();
}

void Viewport::FollowGrowth() {
    const QPointF grown(surface_.Data().grownLeft, surface_.Data().grownTop);
    const QPointF way = grown - std::exchange(grown_, grown);
    if (way.isNull() || Fits()) return;
    ScrollTo(Scroll() + QPoint(qRound(way.x() * xScale_), qRound(way.y() * yScale_)), Grow::Anywhere);
}

void Viewport::ScrollTo(const QPoint &pixels, Grow grow) {
    QScrollBar &x = *area_.horizontalScrollBar();
    QScrollBar &y = *area_.verticalScrollBar();
    const bool anywhere = grow == Grow::Anywhere;
    if (grow != Grow::No) {
        Widen(x, anywhere ? pixels.x() : std::max(pixels.x(), x.minimum()));
        Widen(y, anywhere ? pixels.y() : std::max(pixels.y(), y.minimum()));
    }
    x.setValue(pixels.x());
    y.setValue(pixels.y());
}

void Viewport::EnsureVisible(const QRectF &twips) {
    if (Fits()) return;
    const QRectF box = FromSurface(twips);
    const QSize size = area_.viewport()->size();
    const auto shift = [](double low, double high, int page) {
        if (low <= 0 && high >= page) return 0; // larger than the window: what is seen of it stays
        if (low < 0 || high - low > page) return int(std::floor(low)) - kScrollMargin;
        return high > page ? int(std::ceil(high)) - page + kScrollMargin : 0;
    };
    const bool seen = QRectF(QPointF(0, 0), QSizeF(size)).contains(box);
    if (!seen)
        ScrollTo(Scroll() + QPoint(shift(box.left(), box.right(), size.width()),
                                   shift(box.top(), box.bottom(), size.height())),
                 Grow::RightAndBelow);
}

void Viewport::TellSurface() {
    const QSizeF size(area_.viewport()->size());
    const QPoint scroll = Scroll();
    surface_.Screen().SetSize(float(size.width() * kTwipsPerPixel), float(size.height() * kTwipsPerPixel));
    surface_.Screen().SetScroll(float(scroll.x() / xScale_), float(scroll.y() / yScale_));
}

} // namespace diagram
