#include "diagram/render/Backdrop.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/render/PicturePainter.h"
#include "diagram/scene/Scene.h"

namespace diagram {

namespace {

constexpr double kLeastGap = 6;  // device pixels between grid lines
constexpr int kWider[] = {2, 5}; // by which a grid too fine is made wider, in turn

// One direction of the grid: the first place and the gap, in device pixels.
struct Ruling {
    double first, gap;
    double end;
};

Ruling Rule(double origin, double scale, double size, double twips) {
    double gap = twips * scale;
    for (int i = 0; gap < kLeastGap; ++i) gap *= kWider[i & 1], twips *= kWider[i & 1];
    const double first = (std::ceil(origin / twips) * twips - origin) * scale;
    return {first, gap, size * scale};
}

template <typename Visit>
void ForRuling(const Ruling &ruling, Visit visit) {
    for (long i = 0;; ++i) {
        const double at = ruling.first + double(i) * ruling.gap;
        if (at > ruling.end) return;
        visit(int(std::floor(at)));
    }
}

void PaintLines(QPainter &painter, const Ruling &x, const Ruling &y, int dot, const QColor &ink) {
    const int width = int(std::ceil(x.end)) + 1, height = int(std::ceil(y.end)) + 1;
    ForRuling(x, [&](int at) { painter.fillRect(QRect(at, 0, dot, height), ink); });
    ForRuling(y, [&](int at) { painter.fillRect(QRect(0, at, width, dot), ink); });
}

void PaintDots(QPainter &painter, const Ruling &x, const Ruling &y, int dot, const QColor &ink) {
    ForRuling(y, [&](int down) {
        ForRuling(x, [&](int across) { painter.fillRect(QRect(across, down, dot, dot), ink); });
    });
}

void PaintCrosses(QPainter &painter, const Ruling &x, const Ruling &y, int dot, const QColor &ink) {
    const int arm = 2 * dot;
    ForRuling(y, [&](int down) {
        ForRuling(x, [&](int across) {
            painter.fillRect(QRect(across - arm, down, 2 * arm + dot, dot), ink);
            painter.fillRect(QRect(across, down - arm, dot, 2 * arm + dot), ink);
        });
    });
}

void PaintGrid(Paint &paint, const Surface &surface) {
    const Ruling x =
        Rule(paint.area.left(), paint.frame.xScale, paint.area.width(), surface.Screen().GridSize());
    const Ruling y =
        Rule(paint.area.top(), paint.frame.yScale, paint.area.height(), surface.Screen().GridSize());
    constexpr auto kStyles = std::to_array({PaintDots, PaintCrosses, PaintLines});
    const int style = std::clamp(surface.Screen().GridStyle(), 0, 2);
    paint.pencil.Smooth(false);
    kStyles[std::size_t(style)](paint.Painter(), x, y, std::max(1, int(paint.frame.dot)),
                                QColor::fromRgb(ToRgb(surface.Screen().GridColor())));
}

// The picture stands at the surface's origin in its own size.
void PaintBackPicture(Paint &paint, const Picture &picture) {
    const QRectF place(QPointF(), picture.SizeInTwips());
    if (place.intersects(paint.area)) DrawPicture(paint, picture, place);
}

} // namespace

void PaintBackdrop(Paint &paint) {
    const Surface &surface = paint.scene.Model();
    if (paint.options.background) {
        paint.pencil.NoLine();
        paint.pencil.Fill(paint.paper);
        if (paint.options.vector)
            paint.Painter().drawRect(paint.frame.Map(paint.area));
        else
            paint.Painter().fillRect(paint.frame.Map(paint.area).toAlignedRect(),
                                     QColor::fromRgb(paint.paper));
        if (!paint.options.paper && !surface.Picture().IsNull()) PaintBackPicture(paint, surface.Picture());
    }
    if (paint.options.grid && surface.GridLines()) PaintGrid(paint, surface);
}

} // namespace diagram
