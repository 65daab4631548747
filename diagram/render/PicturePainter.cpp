#include "diagram/render/PicturePainter.h"

#include "vector/engine/ContentTarget.h"

namespace diagram {

namespace {

constexpr double kMostCached = 400000; // pixels of a picture that is kept scaled

class SourceOf : public vector::PictureSource {
public:
    explicit SourceOf(const Picture &picture) : picture_(picture) {}
    const QByteArray &Bytes() const override { return picture_.Bytes(); }
    QImage ImageFor(const QSizeF &pixels) const override { return picture_.ImageFor(pixels); }
    quintptr Identity() const override { return picture_.Identity(); }

private:
    const Picture &picture_;
};

// On a vector target a unit of the painter is a twip: a drawing gets as many pixels there as kPixelsPerTwip
// tells.
void DrawStretched(Paint &paint, const Picture &picture, const QRectF &target) {
    constexpr double kPixelsPerTwip = 0.2;
    const QImage image =
        picture.ImageFor(paint.options.vector ? target.size() * kPixelsPerTwip : target.size());
    if (image.isNull()) return;
    paint.Painter().setRenderHint(QPainter::SmoothPixmapTransform);
    paint.Painter().drawImage(target, image);
}

// A large drawing is made once, with no more pixels than a screen shows, and stretched.
void DrawLarge(Paint &paint, const Picture &picture, const QRectF &target) {
    constexpr double kMostSide = 2048;
    const double fit = std::min(1.0, kMostSide / std::max(target.width(), target.height()));
    const QSize pixels = (target.size() * fit).toSize().expandedTo({1, 1});
    const QImage &image = paint.caches.pictures.Find(picture, pixels);
    paint.Painter().setRenderHint(QPainter::SmoothPixmapTransform);
    if (!image.isNull()) paint.Painter().drawImage(target, image);
}

} // namespace

void DrawPicture(Paint &paint, const Picture &picture, const QRectF &place) {
    const QRectF target = paint.frame.Map(place);
    if (target.isEmpty()) return;
    if (paint.options.vector && paint.options.target)
        return paint.options.target->DrawPicture(target, SourceOf(picture));
    const bool large = target.width() * target.height() > kMostCached;
    if (paint.frame.snap && large && picture.IsDrawing()) return DrawLarge(paint, picture, target);
    if (!paint.frame.snap || large) return DrawStretched(paint, picture, target);
    const QSize pixels = target.size().toSize().expandedTo({1, 1});
    const QImage &image = paint.caches.pictures.Find(picture, pixels);
    if (!image.isNull())
        paint.Painter().drawImage(QPoint(int(std::round(target.left())), int(std::round(target.top()))),
                                  image);
}

} // namespace diagram
