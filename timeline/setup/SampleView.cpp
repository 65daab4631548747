#include "timeline/setup/SampleView.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/ScreenValues.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace timeline {

namespace {

using diagram::kTwipsPerPixel;
constexpr double kReach = 6;      // pixels around an edge that can be dragged
constexpr double kSmallest = 150; // twips
constexpr double kStep = 75;      // of the keys, twips
constexpr QSize kHint(280, 220);

Qt::CursorShape PointerOf(Qt::Orientations edges) {
    if (edges == Qt::Horizontal) return Qt::SizeHorCursor;
    if (edges == Qt::Vertical) return Qt::SizeVerCursor;
    return edges ? Qt::SizeAllCursor : Qt::ArrowCursor;
}

} // namespace

SampleView::SampleView(QWidget *parent) : QWidget(parent), scene_(surface_) {
    setObjectName(QStringLiteral("TimelineSample"));
    setAccessibleName(tr("Sample"));
    setAccessibleDescription(tr("Drag the edges of the sample, or press the arrow keys, to change its size"));
    setToolTip(accessibleDescription());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(kHint);
    surface_.SetMeasure(&renderer_.Measure());
}

QSize SampleView::sizeHint() const { return kHint; }

void SampleView::SetNode(diagram::Node &node) {
    node_ = &node;
    Refresh();
}

void SampleView::Refresh() {
    Centre();
    update();
}

void SampleView::Centre() {
    surface_.Screen().SetSize(float(width() * kTwipsPerPixel), float(height() * kTwipsPerPixel));
    if (!node_) return;
    node_->SetLeft(surface_.Screen().Width() / 2 - node_->Width() / 2);
    node_->SetTop(surface_.Screen().Height() / 2 - node_->Height() / 2);
}

void SampleView::SetNodeSize(double width, double height) {
    node_->SetWidth(float(qMax(kSmallest, width)));
    node_->SetHeight(float(qMax(kSmallest, height)));
    Refresh();
}

QRectF SampleView::NodeBox() const {
    const QRectF box = node_->Bounds();
    return {box.topLeft() / kTwipsPerPixel, box.size() / kTwipsPerPixel};
}

Qt::Orientations SampleView::EdgesAt(const QPointF &pixels) const {
    if (!node_) return {};
    const QRectF box = NodeBox();
    if (!box.adjusted(-kReach, -kReach, kReach, kReach).contains(pixels)) return {};
    const bool across = qMin(qAbs(pixels.x() - box.left()), qAbs(pixels.x() - box.right())) <= kReach;
    const bool down = qMin(qAbs(pixels.y() - box.top()), qAbs(pixels.y() - box.bottom())) <= kReach;
    return (across ? Qt::Horizontal : Qt::Orientations()) | (down ? Qt::Vertical : Qt::Orientations());
}

void SampleView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRectF area(0, 0, surface_.Screen().Width(), surface_.Screen().Height());
    renderer_.Paint(painter, scene_, area, {});
    painter.setPen(QPen(QColor(0, 95, 184), 1, Qt::DashLine));
    if (node_ && (hasFocus() || dragged_)) painter.drawRect(NodeBox().adjusted(-3, -3, 2, 2));
}

void SampleView::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    Refresh();
}

void SampleView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton) dragged_ = EdgesAt(event->position());
}

// The opposite edge follows: the node stays in the middle.
void SampleView::mouseMoveEvent(QMouseEvent *event) {
    if (!dragged_) return setCursor(PointerOf(EdgesAt(event->position())));
    const QPointF away = (event->position() - QRectF(rect()).center()) * kTwipsPerPixel * 2;
    SetNodeSize(dragged_ & Qt::Horizontal ? qAbs(away.x()) : double(node_->Width()),
                dragged_ & Qt::Vertical ? qAbs(away.y()) : double(node_->Height()));
}

void SampleView::mouseReleaseEvent(QMouseEvent *) {
    dragged_ = {};
    update();
}

void SampleView::keyPressEvent(QKeyEvent *event) {
    if (!node_) return QWidget::keyPressEvent(event);
    const double width = double(node_->Width()), height = double(node_->Height());
    switch (event->key()) {
    case Qt::Key_Left:
        return SetNodeSize(width - kStep, height);
    case Qt::Key_Right:
        return SetNodeSize(width + kStep, height);
    case Qt::Key_Up:
        return SetNodeSize(width, height - kStep);
    case Qt::Key_Down:
        return SetNodeSize(width, height + kStep);
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace timeline
