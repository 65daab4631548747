#include "dialogs/PictureField.h"

#include <QPainter>

namespace dialogs {

namespace {

constexpr QSize kField(260, 170); // pixels
constexpr int kRim = 6;

} // namespace

PictureField::PictureField(const QString &name, QWidget *parent) : QWidget(parent) {
    setObjectName(name);
    setMinimumSize(kField / 2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    SetPicture({});
}

QSize PictureField::sizeHint() const { return kField; }

void PictureField::SetPicture(const diagram::Picture &picture) {
    picture_ = picture;
    const QSize size = picture.PixelSize();
    setAccessibleName(picture.IsNull()
                          ? tr("No picture")
                          : tr("Picture of %1 by %2 pixels").arg(size.width()).arg(size.height()));
    update();
}

void PictureField::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QRect room = rect().adjusted(kRim, kRim, -kRim, -kRim);
    if (picture_.IsNull()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap,
                         tr("Drop a picture here, paste it or browse for it"));
        return;
    }
    const QSize size = picture_.PixelSize();
    const QSize shown = picture_.IsDrawing() ? size.scaled(room.size(), Qt::KeepAspectRatio)
                                             : size.boundedTo(size.scaled(room.size(), Qt::KeepAspectRatio));
    QRect place(QPoint(), shown);
    place.moveCenter(room.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture_.ImageFor(QSizeF(shown) * devicePixelRatioF()));
}

} // namespace dialogs
