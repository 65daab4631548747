#include "templates/DrawnIcon.h"

#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Pencil.h"
#include "support/ImageFiles.h"

#include <cmath>
#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QPainter>

namespace templates {

namespace {

constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 256}; // pixels
constexpr int kFiner = 4;                               // times as many pixels are drawn and then scaled down
constexpr double kTwips = diagram::kTwipsPerPixel;
constexpr support::Colour kTitleBar = support::Rgb(0x1f, 0x3a, 0x5f), kEdge = support::Rgb(0xa8, 0xb4, 0xc0);
constexpr QRgb kPageEdge = qRgb(0x8a, 0x99, 0xa8);
constexpr double kBorderWidth = 0.35, kLinkWidth = 0.8; // pixels of the icon
constexpr double kTitleSize = 16;                       // points, from which a text without a box is a title
constexpr int kTitleParts = 3;                          // of its width; a title's bar takes one of them
constexpr int kAlmostWhite = 250, kStrong = 150;        // lightness, between which a fill counts as pale

// Pale fills would be white at a few pixels.
support::Colour Stronger(support::Colour colour) {
    const QColor pale = support::ToQColor(colour);
    if (pale.lightness() > kAlmostWhite || pale.lightness() < kStrong) return colour;
    const int lightness = 255 - (255 - pale.lightness()) * 2;
    return support::FromQColor(QColor::fromHsl(pale.hslHue(), pale.hslSaturation(), lightness));
}

// `perPixel` says how many pixels of the slice, at zoom 100, there are for one of the icon. Of texts without
// a box only titles are shown, as bars.
void Simplify(diagram::Node &node, double perPixel) {
    if (node.Transparent()) {
        node.SetHidden(node.Font().Size() < kTitleSize || node.Text().isEmpty());
        node.SetTransparent(false);
        node.SetFillColor(kTitleBar);
        node.SetWidth(node.Width() / kTitleParts);
    }
    const bool white = node.FillColor() == support::kWhite;
    node.SetText({});
    node.SetEvent({});
    node.SetShadow(0);
    node.SetFillColor(Stronger(node.FillColor()));
    node.SetDrawStyle(white ? 0 : diagram::kTransparentLine);
    node.SetDrawWidth(float(perPixel * kBorderWidth));
    node.SetBorderColor(kEdge);
}

void Simplify(diagram::Link &link, double perPixel) {
    link.SetText({});
    link.SetDrawStyle(0);
    link.SetDrawWidth(float(perPixel * kLinkWidth));
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
    painter.setPen(QColor(kPageEdge));
    painter.drawRect(at.x() - 1, at.y() - 1, page.width() + 1, page.height() + 1);
    return square;
}

// The format of Windows icons: a head of 6 bytes, a directory with 16 bytes for each picture, then the
// pictures as PNG.
QByteArray IconFromDrawing(const diagram::Surface &surface) {
    QList<QByteArray> pictures;
    for (const int size : kIconSizes) pictures << support::PngOf(DrawnIcon(surface, size));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(pictures.size());
    constexpr qsizetype kHead = 6, kEntry = 16;
    quint32 offset = quint32(kHead + kEntry * pictures.size());
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        const quint8 size = quint8(kIconSizes[i]); // 0 stands for 256
        stream << size << size << quint8(0) << quint8(0) << quint16(1) << quint16(32);
        stream << quint32(pictures[i].size()) << offset;
        offset += quint32(pictures[i].size());
    }
    for (const QByteArray &picture : pictures) stream.writeRawData(picture.constData(), int(picture.size()));
    return bytes;
}

} // namespace templates
