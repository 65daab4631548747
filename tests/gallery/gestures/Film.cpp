#include "gallery/gestures/Film.h"

#include "diagram/edit/History.h"
#include "gallery/gestures/PointerPicture.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QTest>

namespace gallery {

using namespace diagram;

namespace {

constexpr QSize kViewSize{560, 360};
constexpr int kLineHeight = 22;

} // namespace

Film::Film(const QDir &folder, const char *name)
    : folder_(folder), name_(QString::fromLatin1(name)), view_(std::make_unique<SurfaceView>(surface)) {
    AttachHistory(surface);
    hand_ = std::make_unique<diagram::testing::Hand>(*view_);
    view_->resize(kViewSize);
    view_->show();
    QApplication::setActiveWindow(view_.get());
    view_->setFocus();
    QApplication::processEvents();
}

Node &Film::Add(int left, int top, int width, int height, const char *text) {
    Node &node =
        surface.Nodes().Add(float(left) * 15, float(top) * 15, float(width) * 15, float(height) * 15);
    node.SetText(QString::fromUtf8(text));
    QApplication::processEvents();
    return node;
}

Link &Film::Join(Node &from, Node &to) {
    Link &link = from.Links().Add(to);
    QApplication::processEvents();
    return link;
}

QPoint Film::At(double x, double y) const { return view_->FromSurface(QPointF(x, y) * 15).toPoint(); }

QPoint Film::Middle(const Node &node) const { return view_->FromSurface(node.Bounds().center()).toPoint(); }

QPoint Film::LinkStart(const Node &node, int side) const {
    return diagram::testing::LinkStartOf(*view_, node, side);
}

QPoint Film::Body(const Node &node) const {
    const QRectF box = node.Bounds();
    return view_->FromSurface(box.topLeft() + QPointF(box.width() / 4, box.height() / 4)).toPoint();
}

QPoint Film::Handle(const Node &node, int handle) const {
    return diagram::testing::HandleOf(*view_, node, handle);
}

QPoint Film::OnRoute(const Link &link, int segment) const {
    const std::vector<Point> &route = link.Route();
    const QPointF middle = (ToQPointF(route[size_t(segment)]) + ToQPointF(route[size_t(segment) + 1])) / 2;
    return view_->FromSurface(middle).toPoint();
}

void Film::Shoot(const char *caption) {
    QApplication::processEvents();
    const double ratio = view_->devicePixelRatioF();
    QPixmap picture((QSizeF(kViewSize + QSize(0, kLineHeight)) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(QColor(40, 40, 46));
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, view_->grab());
    PaintPointerPicture(painter, view_->viewport()->cursor().shape(), hand_->At());
    painter.setPen(Qt::white);
    painter.drawText(QRect(8, kViewSize.height(), kViewSize.width() - 16, kLineHeight), Qt::AlignVCenter,
                     QStringLiteral("%1: %2").arg(name_, QString::fromUtf8(caption)));
    const QString file = QStringLiteral("%1-%2.png").arg(name_).arg(++count_);
    if (!picture.save(folder_.filePath(file))) qFatal("%s can't be written", qPrintable(file));
}

void Film::Wait() { QTest::qWait(30); }

void Film::ShootRelease(const char *caption) {
    hand_->Release(hand_->At());
    Shoot(caption);
}

void Film::ShootDrag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers) {
    hand_->MoveTo(from, modifiers);
    hand_->Press(from, modifiers);
    Shoot("press");
    for (int step = 1; step <= 4; ++step) {
        hand_->MoveTo(from + (to - from) * step / 4, modifiers);
        if (step == 2) Shoot("half way");
    }
    Shoot("before the release");
}

} // namespace gallery
