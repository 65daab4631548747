#include "vector/engine/VectorEngine.h"

#include "vector/player/Units.h"

#include <QImage>
#include <QPixmap>

namespace vector {

namespace {

QPainterPath PathOf(const QRegion &region) {
    QPainterPath path;
    path.addRegion(region);
    return path;
}

} // namespace

void VectorEngine::updateState(const QPaintEngineState &changed) {
    const QPaintEngine::DirtyFlags dirty = changed.state();
    if (dirty & DirtyTransform) {
        transform_ = changed.transform();
        TransformChanged();
    }
    if (dirty & (DirtyPen | DirtyTransform)) SetPen(changed.pen());
    if (dirty & DirtyBrush) SetBrush(changed.brush());
    if (dirty & DirtyClipPath) SetClip(changed.clipPath(), changed.clipOperation());
    if (dirty & DirtyClipRegion) SetClip(PathOf(changed.clipRegion()), changed.clipOperation());
}

void VectorEngine::SetClip(const QPainterPath &path, Qt::ClipOperation operation) {
    if (operation != Qt::IntersectClip) EndClips();
    if (operation == Qt::NoClip) return;
    BeginClip(transform_.map(path));
    ++clips_;
}

void VectorEngine::EndClips() {
    for (; clips_ > 0; --clips_) EndClip();
}

void VectorEngine::CatchUp() {
    if (state->state() & (DirtyTransform | DirtyClipPath | DirtyClipRegion)) syncState();
}

QSizeF VectorEngine::PixelsFor(const QRectF &place) const {
    return transform_.mapRect(place).size() * (kFinerThanScreen / (kUnitsPerPixel * scale_));
}

void VectorEngine::drawLines(const QLineF *lines, int count) {
    for (int i = 0; i < count; ++i) {
        const QPointF ends[] = {lines[i].p1(), lines[i].p2()};
        drawPolygon(ends, 2, PolylineMode);
    }
}

void VectorEngine::drawImage(const QRectF &place, const QImage &image, const QRectF &part,
                             Qt::ImageConversionFlags) {
    PutImage(place, part == QRectF(image.rect()) ? image : image.copy(part.toAlignedRect()));
}

void VectorEngine::drawPixmap(const QRectF &place, const QPixmap &pixmap, const QRectF &part) {
    drawImage(place, pixmap.toImage(), part, Qt::AutoColor);
}

void VectorEngine::drawTextItem(const QPointF &at, const QTextItem &text) {
    const QFont font = text.font();
    const double points = font.pixelSize() > 0 ? font.pixelSize() / kUnitsPerPoint : font.pointSizeF();
    const TextFont plain{font.family(), points, font.bold(), font.italic()};
    DrawLine({at, text.width(), kTextLeft, false, text.text(), plain, QString(), state->pen().color()});
}

int VectorDevice::metric(PaintDeviceMetric metric) const {
    constexpr double kMillimetresPerUnit = 25.4 / kUnitsPerInch;
    const QSizeF &page = engine_.Page();
    switch (metric) {
    case PdmWidth:
        return int(page.width());
    case PdmHeight:
        return int(page.height());
    case PdmWidthMM:
        return int(page.width() * kMillimetresPerUnit);
    case PdmHeightMM:
        return int(page.height() * kMillimetresPerUnit);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return int(kUnitsPerInch);
    case PdmNumColors:
        return 1 << 24;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return int(devicePixelRatioFScale());
    default:
        return 0;
    }
}

} // namespace vector
