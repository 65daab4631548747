#include "mainwindow/slices/OverviewMap.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace mainwindow {

namespace {

constexpr int kEdge = 1;                    // pixels around the picture
constexpr double kStep = 0.25, kPage = 0.9; // of the part in sight, by an arrow and by a page key
const QColor kOutOfSight(0, 0, 0, 40);

struct KeyRow {
    int key;
    double across, down;
};
constexpr KeyRow kKeys[] = {
    {Qt::Key_Left, -kStep, 0}, {Qt::Key_Right, kStep, 0},   {Qt::Key_Up, 0, -kStep},
    {Qt::Key_Down, 0, kStep},  {Qt::Key_PageUp, 0, -kPage}, {Qt::Key_PageDown, 0, kPage},
};

const KeyRow *FindKey(int key) {
    for (const KeyRow &row : kKeys)
        if (row.key == key) return &row;
    return nullptr;
}

} // namespace

OverviewMap::OverviewMap(QWidget *parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Overview"));
    setAccessibleName(tr("Overview"));
    setAccessibleDescription(tr("The whole page; the arrow keys move the part in sight"));
    setToolTip(tr("The whole page: drag the frame to see another part"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus); // a drag leaves the focus on the page
    setCursor(Qt::OpenHandCursor);
}

void OverviewMap::SetPicture(const QImage &picture, const QRectF &area) {
    picture_ = picture;
    content_ = area;
    update();
}

void OverviewMap::SetSeen(const QRectF &seen) {
    if (seen == seen_) return;
    seen_ = seen;
    update();
}

double OverviewMap::Scale() const {
    return content_.isEmpty() ? 1 : (width() - 2 * kEdge) / content_.width();
}

QPointF OverviewMap::ToSurface(const QPointF &pixels) const {
    return (pixels - QPointF(kEdge, kEdge)) / Scale() + content_.topLeft();
}

QRectF OverviewMap::FromSurface(const QRectF &area) const {
    return {(area.topLeft() - content_.topLeft()) * Scale() + QPointF(kEdge, kEdge), area.size() * Scale()};
}

void OverviewMap::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRectF inside = QRectF(rect()).adjusted(kEdge, kEdge, -kEdge, -kEdge);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(inside, picture_);
    const QRectF seen = FromSurface(seen_) & inside;
    QPainterPath others;
    others.addRect(inside);
    others.addRect(seen);
    painter.fillPath(others, kOutOfSight);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(seen.adjusted(1, 1, -1, -1));
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Dark));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

// Beside the frame, the part that is pressed comes into sight first.
void OverviewMap::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPointF at = ToSurface(event->position());
    grip_ = seen_.contains(at) ? at - seen_.center() : QPointF();
    dragged_ = true;
    setCursor(Qt::ClosedHandCursor);
    if (grip_.isNull()) Q_EMIT CentreAsked(at);
}

void OverviewMap::mouseMoveEvent(QMouseEvent *event) {
    if (dragged_) Q_EMIT CentreAsked(ToSurface(event->position()) - grip_);
}

void OverviewMap::mouseReleaseEvent(QMouseEvent *) {
    dragged_ = false;
    setCursor(Qt::OpenHandCursor);
}

void OverviewMap::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return Q_EMIT Done();
    const KeyRow *row = event->modifiers() & ~Qt::KeypadModifier ? nullptr : FindKey(event->key());
    if (!row) return QWidget::keyPressEvent(event);
    Q_EMIT CentreAsked(seen_.center() + QPointF(row->across * seen_.width(), row->down * seen_.height()));
}

void OverviewMap::focusInEvent(QFocusEvent *event) {
    QWidget::focusInEvent(event);
    update();
}

void OverviewMap::focusOutEvent(QFocusEvent *event) {
    QWidget::focusOutEvent(event);
    update();
}

} // namespace mainwindow
