// Where a slice's picture stands on a slide. Points.
#pragma once

#include <QRectF>
#include <QSizeF>

namespace powerpoint {

// The numbers that PowerPoint has for its layouts.
constexpr int kLayoutTitle = 8;
constexpr int kLayoutBlank = 12;

// The sizes of a slide that the two forms of files begin with.
constexpr QSizeF kWideSlide(960, 540);
constexpr QSizeF kStandardSlide(720, 540);

// The places of the layout with a title.
QRectF TitlePlace(const QSizeF &slide);
QRectF ContentPlace(const QSizeF &slide);

// The room for the picture: the whole slide, or, below a title, the place for the content from 20 below its
// top.
QRectF PictureRoom(int layout, const QSizeF &slide);
// At the left and top of its room, in the proportions of its own size: 20 less wide than the room; where it
// would be higher than the room then, 20 less high than it.
QRectF PlacePicture(const QRectF &room, const QSizeF &own);

} // namespace powerpoint
