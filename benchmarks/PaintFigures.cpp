// Painting beside a bare QPainter, on a view of 1920 x 1080 pixels with about 200 boxes in sight.
#include "benchmarks/RawPaint.h"
#include "benchmarks/Sample.h"
#include "diagram/edit/History.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <map>
#include <memory>
#include <QImage>

namespace {

constexpr int kWidth = 1920, kHeight = 1080;

struct Stage {
    explicit Stage(int nodes) {
        diagram::AttachHistory(surface);
        bench::FillSample(surface, nodes);
        scene = std::make_unique<diagram::Scene>(surface);
        raw = std::make_unique<bench::RawPaint>(surface);
        surface.SetMeasure(&renderer.Measure());
        image.fill(Qt::white);
    }
    diagram::Surface surface;
    std::unique_ptr<diagram::Scene> scene;
    std::unique_ptr<bench::RawPaint> raw;
    diagram::Renderer renderer;
    QImage image{kWidth, kHeight, QImage::Format_ARGB32_Premultiplied};
};

Stage &StageOf(int nodes) {
    static std::map<int, std::unique_ptr<Stage>> stages;
    auto &stage = stages[nodes];
    if (!stage) stage = std::make_unique<Stage>(nodes);
    return *stage;
}

// Pixels a twip at which about 200 boxes fill the view.
double ScaleOfTwoHundred() {
    return std::sqrt(kWidth * double(kHeight) / (200 * bench::kPitchX * bench::kPitchY));
}

QRectF MiddleView(Stage &stage, double scale) {
    const QRectF extent = stage.surface.Extent();
    return QRectF(extent.center() - QPointF(kWidth, kHeight) / scale / 2, QSizeF(kWidth, kHeight) / scale);
}

double ScaleOfWhole(Stage &stage) {
    const QRectF extent = stage.surface.Extent();
    return std::min(kWidth / extent.width(), kHeight / extent.height());
}

void PaintRaw(Stage &stage, const QRectF &area, double scale, const QRect &pixels, bool texts = true) {
    QPainter painter(&stage.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(pixels);
    painter.translate(pixels.topLeft());
    painter.fillRect(QRect(QPoint(), pixels.size()), Qt::white);
    stage.raw->Paint(painter, area, scale, texts);
}

void PaintOurs(Stage &stage, const QRectF &area, double scale, const QRect &pixels) {
    QPainter painter(&stage.image);
    painter.setClipRect(pixels);
    painter.translate(pixels.topLeft());
    diagram::RenderOptions options;
    options.xScale = options.yScale = scale;
    stage.renderer.Paint(painter, *stage.scene, area, options);
}

void FullRaw(benchmark::State &state) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfTwoHundred();
    const QRectF area = MiddleView(stage, scale);
    for (auto _ : state) PaintRaw(stage, area, scale, stage.image.rect());
}
BENCHMARK(FullRaw)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void FullOurs(benchmark::State &state) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfTwoHundred();
    const QRectF area = MiddleView(stage, scale);
    for (auto _ : state) PaintOurs(stage, area, scale, stage.image.rect());
}
BENCHMARK(FullOurs)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Moves the pixels that stay in sight and paints the strips that come into it.
template <typename Paint>
void Pan(benchmark::State &state, Paint paint) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfTwoHundred();
    const QRectF start = MiddleView(stage, scale);
    const int dx = 17, dy = 11;
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 40;
        const QRectF area = start.translated(step * dx / scale, step * dy / scale);
        uchar *bits = stage.image.bits();
        const qsizetype line = stage.image.bytesPerLine();
        for (int y = 0; y < kHeight - dy; ++y)
            std::memmove(bits + y * line, bits + (y + dy) * line + dx * 4, size_t(kWidth - dx) * 4);
        const auto strip = [&](const QRect &pixels) {
            paint(stage,
                  QRectF(area.topLeft() + QPointF(pixels.topLeft()) / scale, QSizeF(pixels.size()) / scale),
                  scale, pixels);
        };
        strip(QRect(0, kHeight - dy, kWidth, dy));
        strip(QRect(kWidth - dx, 0, dx, kHeight - dy));
    }
}
void PanRaw(benchmark::State &state) {
    Pan(state, [](Stage &stage, const QRectF &area, double scale, const QRect &pixels) {
        PaintRaw(stage, area, scale, pixels);
    });
}
BENCHMARK(PanRaw)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
void PanOurs(benchmark::State &state) { Pan(state, PaintOurs); }
BENCHMARK(PanOurs)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// One node with its links: the model's write, the routes, the index, and the dirty pixels.
void DragStep(benchmark::State &state) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfTwoHundred();
    const QRectF area = MiddleView(stage, scale);
    std::vector<diagram::Item *> items;
    stage.scene->ItemsIn(QRectF(area.center(), QSizeF(1, 1)).adjusted(-2000, -2000, 2000, 2000), items);
    diagram::Node *node = nullptr;
    for (diagram::Item *item : items)
        if (item->AsNode()) node = item->AsNode();
    const float left = node->Left(), top = node->Top();
    stage.scene->TakeDamage();
    int step = 0;
    stage.surface.BeginAction(1001);
    for (auto _ : state) {
        ++step;
        node->SetBounds(left + float(600 * std::sin(step * .05)), top + float(450 * std::cos(step * .07)),
                        node->Width(), node->Height());
        QRectF dirty;
        for (const QRectF &part : stage.scene->TakeDamage().areas) dirty |= part;
        dirty &= area;
        const QRect pixels =
            QRectF((dirty.topLeft() - area.topLeft()) * scale, dirty.size() * scale).toAlignedRect() &
            stage.image.rect();
        PaintOurs(stage,
                  QRectF(area.topLeft() + QPointF(pixels.topLeft()) / scale, QSizeF(pixels.size()) / scale),
                  scale, pixels);
    }
    node->SetBounds(left, top, node->Width(), node->Height());
    stage.surface.EndAction();
    stage.scene->TakeDamage();
}
BENCHMARK(DragStep)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void WholeRaw(benchmark::State &state) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfWhole(stage);
    for (auto _ : state) PaintRaw(stage, stage.surface.Extent(), scale, stage.image.rect(), false);
}
BENCHMARK(WholeRaw)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void WholeOurs(benchmark::State &state) {
    Stage &stage = StageOf(int(state.range(0)));
    const double scale = ScaleOfWhole(stage);
    for (auto _ : state) PaintOurs(stage, stage.surface.Extent(), scale, stage.image.rect());
}
BENCHMARK(WholeOurs)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
