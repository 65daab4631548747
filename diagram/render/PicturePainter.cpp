#include "diagram/render/PicturePainter.h"

#include "diagram/render/ContentTarget.h"

namespace diagram {

namespace {

constexpr double kMostCached = 400000; // pixels of a picture that is kept scaled

void DrawStretched(Paint &paint, const Picture &picture, const QRectF &target) {
    if (picture.Image().isNull()) return;
    paint.Painter().setRenderHint(QPainter::SmoothPixmapTransform);
    paint.Painter().drawImage(target, picture.Image());
}

} // namespace

void DrawPicture(Paint &paint, const Picture &picture, const QRectF &place) {
    const QRectF target = paint.frame.Map(place);
    if (target.isEmpty()) return;
    if (paint.options.vector && paint.options.target)
        return paint.options.target->DrawPicture(target, picture);
    if (!paint.frame.snap || target.width() * target.height() > kMostCached)
        return DrawStretched(paint, picture, target);
    const QSize pixels = target.size().toSize().expandedTo({1, 1});
    const QImage &image = paint.caches.pictures.Find(picture, pixels);
    if (!image.isNull())
        paint.Painter().drawImage(QPoint(int(std::round(target.left())), int(std::round(target.top()))),
                                  image);
}

} // namespace diagram
