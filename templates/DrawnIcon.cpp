#include "templates/DrawnIcon.h"

#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"
#include "support/ImageFiles.h"

#include <cmath>
#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QPainter>

namespace templates {

namespace {

constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 256};
constexpr int kFiner = 4; // times as many pixels are drawn and then scaled down
constexpr double kTwips = diagram::kTwipsPerPixel;
constexpr int kNoLine = 5; // the draw style
constexpr support::Colour kTitleBar = support::Rgb(0x1f, 0x3a, 0x5f), kEdge = support::Rgb(0xa8, 0xb4, 0xc0);

// Pale fills would be white at a few pixels.
support::Colour Stronger(support::Colour colour) {
    const QColor pale = support::ToQColor(colour);
    if (pale.lightness() > 250 || pale.lightness() < 150) return colour;
    const int lightness = 255 - (255 - pale.lightness()) * 2;
    return support::FromQColor(QColor::fromHsl(pale.hslHue(), pale.hslSaturation(), lightness));
}

// `perPixel` is how many pixels of the slice, at zoom 100, there are for one of the icon.

// A text of that size becomes a bar; of other texts without a box nothing can be seen.
constexpr double kTitleSize = 16; // points

void Simplify(diagram::Node &node, double perPixel) {
    if (node.Transparent()) {
        node.SetHidden(node.Font().Size() < kTitleSize || node.Text().isEmpty());
        node.SetTransparent(false);
        node.SetFillColor(kTitleBar);
        node.SetWidth(node.Width() / 3);
    }
    const bool white = node.FillColor() == support::kWhite;
    node.SetText({});
    node.SetEvent({});
    node.SetShadow(0);
    node.SetFillColor(Stronger(node.FillColor()));
    node.SetDrawStyle(white ? 0 : kNoLine);
    node.SetDrawWidth(float(perPixel * 0.35));
    node.SetBorderColor(kEdge);
}

void Simplify(diagram::Link &link, double perPixel) {
    link.SetText({});
    link.SetDrawStyle(0);
    link.SetDrawWidth(float(perPixel * 0.8));
    link.SetArrowDest(0);
    link.SetArrowSource(0);
}

QImage Drawing(const diagram::Surface &surface, int pixels) {
    diagram::Surface copy;
    diagram::LoadBytes(copy, diagram::SaveBytes(surface));
    const QRectF extent = copy.Extent();
    const double perPixel = std::max(extent.width(), extent.height()) / kTwips / pixels;
    for (diagram::Node &node : copy.Nodes())
        if (!node.Hidden()) Simplify(node, perPixel);
    for (const auto &link : copy.Links()) Simplify(*link, perPixel);
    copy.SetBackColor(surface.BackColor());
    return diagram::ExportImage(copy, {.pixels = pixels * kFiner, .margin = perPixel * kTwips});
}

} // namespace

QImage DrawnIcon(const diagram::Surface &surface, int size) {
    QImage square(size, size, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    if (surface.Extent().isEmpty()) return square;
    const QImage page =
        Drawing(surface, size - 2).scaled(size - 2, size - 2, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&square);
    const QPoint at((size - page.width()) / 2, (size - page.height()) / 2);
    painter.drawImage(at, page);
    painter.setPen(QColor(0x8a, 0x99, 0xa8));
    painter.drawRect(at.x() - 1, at.y() - 1, page.width() + 1, page.height() + 1);
    return square;
}

// A directory of sixteen bytes an entry, then the pictures as PNG.
QByteArray IconFromDrawing(const diagram::Surface &surface) {
    QList<QByteArray> pictures;
    for (const int size : kIconSizes) pictures << support::PngOf(DrawnIcon(surface, size));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(pictures.size());
    quint32 offset = quint32(6 + 16 * pictures.size());
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        const quint8 size = quint8(kIconSizes[i]); // 256 is told as 0
        stream << size << size << quint8(0) << quint8(0) << quint16(1) << quint16(32);
        stream << quint32(pictures[i].size()) << offset;
        offset += quint32(pictures[i].size());
    }
    for (const QByteArray &picture : pictures) stream.writeRawData(picture.constData(), int(picture.size()));
    return bytes;
}

} // namespace templates
