#include "dialogs/NodeSample.h"

#include "diagram/shapes/Measures.h"

#include <QPainter>

namespace dialogs {

namespace {

constexpr QSize kHint(220, 200);         // pixels
constexpr double kRim = 8;               // around the node, pixels
constexpr qsizetype kLongestText = 1000; // of what a sample can show

} // namespace

NodeSample::NodeSample(const diagram::Node &oNode, QWidget *parent)
    : QWidget(parent),
      scene_(surface_),
      node_(&surface_.Nodes().Add(0, 0, oNode.Width(), oNode.Height())),
      box_(node_->Bounds()) {
    setObjectName(QStringLiteral("NodeSample"));
    setAccessibleName(tr("Sample"));
    setMinimumSize(kHint);
    surface_.SetMeasure(&renderer_.Measure());
    surface_.SetBackColor(oNode.Owner().BackColor());
    node_->SetTransparent(oNode.Transparent());
}

QSize NodeSample::sizeHint() const { return kHint; }

void NodeSample::Show(const NodeEdit &edit, const QString &text) {
    node_->SetAutoSize(0);
    node_->SetBounds(0, 0, float(box_.width()), float(box_.height()));
    node_->SetText(text.left(kLongestText));
    WriteLook(*node_, edit);
    update();
}

// In the middle, made smaller where there is no room for it.
void NodeSample::paintEvent(QPaintEvent *) {
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
