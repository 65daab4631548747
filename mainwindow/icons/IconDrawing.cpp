#include "mainwindow/icons/IconDrawing.h"

#include <QPainter>
#include <QSvgRenderer>

namespace mainwindow {

namespace {

constexpr qreal kFaded = 0.35; // how much of an icon that is disabled is seen

// The colours of the drawings and what they become on a dark theme.
struct DarkColour {
    const char *light;
    const char *dark;
};
constexpr DarkColour kDarkColours[] = {
    {"#303030", "#dcdcdc"}, // ink
    {"#ffffff", "#3c3f44"}, // paper
    {"#2f6fde", "#7db1ff"}, // accent
    {"#cfe0ff", "#34507e"}, // soft accent
    {"#f8d383", "#a77c2b"}, // soft amber
    {"#d9483b", "#ff7b6e"}, // red
};

} // namespace

void PrepareForIcon(QPainter &painter, bool faded) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (faded) painter.setOpacity(kFaded);
}

void DrawIcon(QPainter &painter, QByteArray svg, const QRectF &box, bool dark) {
    if (dark)
        for (const DarkColour &colour : kDarkColours) svg.replace(colour.light, colour.dark);
    QSvgRenderer renderer(svg);
    renderer.render(&painter, box);
}

QImage PaintedIcon(const QByteArray &svg, const IconLook &look) {
    QImage image(look.side, look.side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PrepareForIcon(painter, look.faded);
    DrawIcon(painter, svg, QRectF(image.rect()), look.dark);
    return image;
}

} // namespace mainwindow
