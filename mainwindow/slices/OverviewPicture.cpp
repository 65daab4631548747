#include "mainwindow/slices/OverviewPicture.h"

#include "diagram/scene/Scene.h"
#include "support/Colour.h"

#include <QElapsedTimer>
#include <QPainter>
#include <utility>

namespace mainwindow {

namespace {
constexpr int kBand = 8;   // rows of pixels that are painted at once
constexpr int kBudget = 2; // milliseconds until events have their turn
} // namespace

OverviewPicture::OverviewPicture(QObject *parent) : QObject(parent) {
    idle_.setInterval(0);
    connect(&idle_, &QTimer::timeout, this, &OverviewPicture::Paint);
}

OverviewPicture::~OverviewPicture() = default;

void OverviewPicture::Begin(diagram::Scene &scene, const QRectF &area, const QSize &pixels) {
    scene_ = &scene;
    nextArea_ = area;
    next_ = QImage(pixels, QImage::Format_RGB32);
    next_.fill(support::ToQColor(scene.Model().BackColor()));
    row_ = 0;
    idle_.start();
}

void OverviewPicture::Forget() {
    scene_ = nullptr;
    idle_.stop();
    image_ = next_ = QImage();
    renderer_.Clear();
}

void OverviewPicture::Paint() {
    if (isBusy_()) return;
    QElapsedTimer timer;
    timer.start();
    while (row_ < next_.height() && timer.elapsed() < kBudget) PaintBand();
    if (row_ < next_.height()) return;
    idle_.stop();
    scene_ = nullptr;
    image_ = std::move(next_);
    area_ = nextArea_;
    Q_EMIT Whole();
}

void OverviewPicture::PaintBand() {
    const double scale = next_.width() / nextArea_.width(); // device pixels a twip
    const QRect band(0, row_, next_.width(), qMin(kBand, next_.height() - row_));
    row_ += kBand;
    diagram::RenderOptions options;
    options.xScale = options.yScale = scale;
    const QRectF area(nextArea_.left(), nextArea_.top() + band.top() / scale, nextArea_.width(),
                      band.height() / scale);
    QPainter painter(&next_);
    painter.setClipRect(band);
    painter.translate(0, band.top());
    renderer_.Paint(painter, *scene_, area, options);
}

} // namespace mainwindow
