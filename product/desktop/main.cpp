// Paints a drawing as an icon of one size: velmora-icon SVG SIDE PNG.
#include <cstdio>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr int kLargestSide = 4096;

QImage Painted(QSvgRenderer &drawing, int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    return image;
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int side = arguments.value(2).toInt();
    if (arguments.size() != 4 || side < 1 || side > kLargestSide) {
        std::fprintf(stderr, "usage: velmora-icon SVG SIDE PNG\n");
        return 2;
    }
    QSvgRenderer drawing(arguments[1]);
    if (!drawing.isValid() || !Painted(drawing, side).save(arguments[3], "PNG")) {
        std::fprintf(stderr, "velmora-icon: no picture of %s\n", qPrintable(arguments[1]));
        return 1;
    }
    return 0;
}
