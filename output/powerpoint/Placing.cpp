#include "output/powerpoint/Placing.h"

#include <algorithm>

namespace powerpoint {

namespace {

constexpr double kGap = 20;

// Of the usual designs of the two forms, in points.
struct Places {
    QRectF title, content;
};
constexpr Places kOnWide{{66, 28.75, 828, 104.375}, {66, 143.75, 828, 342.625}};
constexpr Places kOnStandard{{36, 21.625, 648, 90}, {36, 126, 648, 356.375}};

const Places &PlacesOn(const QSizeF &slide) { return slide == kStandardSlide ? kOnStandard : kOnWide; }

} // namespace

QRectF TitlePlace(const QSizeF &slide) { return PlacesOn(slide).title; }
QRectF ContentPlace(const QSizeF &slide) { return PlacesOn(slide).content; }

QRectF PictureRoom(int layout, const QSizeF &slide) {
    if (layout == kLayoutTitle) return ContentPlace(slide).adjusted(0, kGap, 0, 0);
    return {QPointF(), slide};
}

QRectF PlacePicture(const QRectF &room, const QSizeF &own) {
    constexpr double kLeast = 1;
    const double proportion = std::max(own.height(), kLeast) / std::max(own.width(), kLeast);
    QSizeF size(room.width() - kGap, (room.width() - kGap) * proportion);
    if (size.height() > room.height())
        size = QSizeF((room.height() - kGap) / proportion, room.height() - kGap);
    return {room.topLeft(), size};
}

} // namespace powerpoint
