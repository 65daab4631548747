#include "dialogs/LinkSample.h"

#include "diagram/shapes/Measures.h"
#include "dialogs/LinkEdit.h"

#include <QPainter>

namespace dialogs {

namespace {

constexpr QSize kHint(260, 110); // pixels
// Twips.
constexpr float kEndWidth = 900, kEndHeight = 450;
constexpr float kApartX = 6000, kApartY = 600;
constexpr double kRim = 8;              // pixels
constexpr qsizetype kLongestText = 200; // of what a sample can show

} // namespace

LinkSample::LinkSample(const diagram::Surface &like, QWidget *parent)
    : QWidget(parent),
      scene_(surface_),
      link_(&surface_.Nodes()
                 .Add(0, 0, kEndWidth, kEndHeight)
                 .Links()
                 .Add(surface_.Nodes().Add(kApartX, kApartY, kEndWidth, kEndHeight))) {
    setObjectName(QStringLiteral("LinkSample"));
    setAccessibleName(tr("Sample"));
    setMinimumSize(kHint);
    surface_.SetMeasure(&renderer_.Measure());
    surface_.SetBackColor(like.BackColor());
}

QSize LinkSample::sizeHint() const { return kHint; }

void LinkSample::Show(const diagram::LinkData &values) {
    diagram::LinkData shown = values;
    shown.text.truncate(kLongestText);
    WriteLink(*link_, shown);
    update();
}

// In the middle, made smaller where there is no room for it.
void LinkSample::paintEvent(QPaintEvent *) {
    const QSizeF room = QSizeF(size()) - QSizeF(2 * kRim, 2 * kRim);
    const QRectF extent = scene_.Extent();
    double fit = 1 / diagram::kTwipsPerPixel;
    if (extent.width() > 0) fit = qMin(fit, room.width() / extent.width());
    if (extent.height() > 0) fit = qMin(fit, room.height() / extent.height());
    QRectF area(QPointF(), QSizeF(size()) / fit);
    area.moveCenter(extent.center());
    QImage image(size() * devicePixelRatioF(), QImage::Format_RGB32);
    image.fill(support::ToQColor(surface_.BackColor()));
    diagram::RenderOptions options;
    options.xScale = options.yScale = fit * devicePixelRatioF();
    QPainter onImage(&image);
    renderer_.Paint(onImage, scene_, area, options);
    onImage.end();
    QPainter painter(this);
    painter.drawImage(rect(), image);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace dialogs
