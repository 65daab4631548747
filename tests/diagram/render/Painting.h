// A surface painted into a picture, and what tests look for there.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/render/TextBlock.h"
#include "diagram/scene/Scene.h"

#include <QImage>
#include <QPainter>
#include <QStringList>

namespace diagram {

struct Painting {
    Surface surface;
    Renderer renderer;
    RenderOptions options;

    // 200 x 150 pixels from the surface's origin at the zoom, of a screen with `ratio` device pixels a pixel.
    QImage Paint(double zoom = 1, double ratio = 1) {
        QImage image((QSizeF(200, 150) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        options.xScale = options.yScale = zoom / 15;
        Scene scene(surface);
        QPainter painter(&image);
        renderer.Paint(painter, scene, QRectF(0, 0, 200 * 15 / zoom, 150 * 15 / zoom), options);
        return image;
    }

    // In pixels at zoom 100.
    Node &Add(float left, float top, float width, float height) {
        return surface.Nodes().Add(left * 15, top * 15, width * 15, height * 15);
    }
};

inline int CountOf(const QImage &image, const QRect &area, QRgb colour) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) count += (image.pixel(x, y) | 0xFF000000) == colour;
    return count;
}

inline int CountOf(const QImage &image, QRgb colour) { return CountOf(image, image.rect(), colour); }

// The pixels of the area that are dark.
inline QRect Ink(const QImage &image, const QRect &area) {
    QRect ink;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    return ink;
}
inline QRect Ink(const QImage &image) { return Ink(image, image.rect()); }

inline QStringList Lines(const TextBlock &block) {
    QStringList lines;
    for (const TextLine &line : block.lines) lines.append(block.text.mid(line.start, line.length));
    return lines;
}

} // namespace diagram
