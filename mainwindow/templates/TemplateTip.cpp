#include "mainwindow/templates/TemplateTip.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace mainwindow {

namespace {

constexpr QSize kRoom(280, 210); // pixels of a picture
constexpr int kMargin = 8;
constexpr int kGap = 6; // between the item and this

QPixmap Fitted(const QImage &picture, qreal ratio) {
    const QSize room = picture.size().scaled(kRoom, Qt::KeepAspectRatio) * ratio;
    QPixmap pixmap =
        QPixmap::fromImage(picture.scaled(room, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

// To the right of the item or, where the screen ends, to the left.
QPoint CornerBeside(const QRect &place, const QSize &size, const QRect &screen) {
    int left = place.right() + kGap;
    if (left + size.width() > screen.right()) left = place.left() - kGap - size.width();
    const int top = place.center().y() - size.height() / 2;
    return {qMax(screen.left(), left), qBound(screen.top(), top, screen.bottom() - size.height())};
}

} // namespace

TemplateTip::TemplateTip(QWidget *parent)
    : QFrame(parent, Qt::ToolTip), picture_(new QLabel(this)), caption_(new QLabel(this)) {
    setObjectName(QStringLiteral("TemplateTip"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    caption_->setForegroundRole(QPalette::Text);
    caption_->setTextFormat(Qt::PlainText);
    caption_->setWordWrap(true);
    caption_->setAlignment(Qt::AlignHCenter);
    picture_->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(picture_);
    layout->addWidget(caption_);
}

void TemplateTip::ShowBeside(const QRect &place, const QString &caption, const QImage &picture) {
    picture_->setVisible(!picture.isNull());
    picture_->setPixmap(picture.isNull() ? QPixmap() : Fitted(picture, devicePixelRatioF()));
    caption_->setText(caption);
    const int width = caption_->fontMetrics().horizontalAdvance(caption);
    caption_->setFixedWidth(picture.isNull() ? qMin(width + 2, kRoom.width()) : kRoom.width());
    adjustSize();
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    move(CornerBeside(place, sizeHint(), screen->availableGeometry()));
    show();
    raise();
}

QString TemplateTip::Caption() const { return caption_->text(); }

bool TemplateTip::HasPicture() const { return !picture_->isHidden(); }

} // namespace mainwindow
