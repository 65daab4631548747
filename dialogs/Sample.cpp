#include "dialogs/Sample.h"

#include "diagram/geometry/Units.h"

#include <QPainter>

namespace dialogs {

namespace {
constexpr double kRim = 8; // around what is shown, pixels
} // namespace

Sample::Sample(const char *name, const diagram::Surface &like, QSize hint, QWidget *parent)
    : QWidget(parent), hint_(hint), scene_(surface_) {
    setObjectName(QLatin1String(name));
    setAccessibleName(tr("Sample"));
    setMinimumSize(hint);
    surface_.SetMeasure(&renderer_.Measure());
    surface_.SetBackColor(like.BackColor());
}

void Sample::paintEvent(QPaintEvent *) {
    const QSizeF room = QSizeF(size()) - QSizeF(2 * kRim, 2 * kRim);
    const QRectF extent = scene_.Extent();
    double fit = 1 / diagram::kTwipsPerPixel;
    if (extent.width() > 0) fit = qMin(fit, room.width() / extent.width());
    if (extent.height() > 0) fit = qMin(fit, room.height() / extent.height());
    QRectF area(QPointF(), QSizeF(size()) / fit);
    area.moveCenter(extent.center());
    diagram::RenderOptions options;
    options.xScale = options.yScale = fit * devicePixelRatioF();
    QImage image(size() * devicePixelRatioF(), QImage::Format_RGB32);
    image.fill(support::ToQColor(surface_.BackColor()));
    QPainter onImage(&image);
    renderer_.Paint(onImage, scene_, area, options);
    onImage.end();
    QPainter painter(this);
    painter.drawImage(rect(), image);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace dialogs
