// Pictures of pointers, since a picture of a widget doesn't hold the pointer.
#pragma once

#include <QPoint>
#include <Qt>

class QPainter;

namespace gallery {

void PaintPointerPicture(QPainter &painter, Qt::CursorShape shape, const QPoint &at);

} // namespace gallery
