#include "vector/engine/SvgEngine.h"

#include "support/ImageFiles.h"
#include "vector/player/Units.h"

#include <QImage>
#include <utility>

namespace vector {

namespace {

// Of a picture file that every viewer of SVG shows; empty for another.
QByteArray MimeOf(const QByteArray &bytes) {
    if (const support::ImageKind *kind = support::ImageKindOf(bytes)) return kind->mimeType;
    const bool svg = bytes.left(1000).contains("<svg");
    return svg ? QByteArray("image/svg+xml") : QByteArray();
}

} // namespace

bool SvgEngine::begin(QPaintDevice *) {
    out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
            "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" xml:space=\"preserve\"";
    out_.Attribute("width", shown_.width() / kUnitsPerPixel)
        .Attribute("height", shown_.height() / kUnitsPerPixel);
    out_ << " viewBox=\"0 0 ";
    out_.Point({Page().width(), Page().height()}) << "\">\n";
    return true;
}

bool SvgEngine::end() {
    EndClips();
    out_ << "</svg>\n";
    out_.Finish();
    return true;
}

void SvgEngine::TransformChanged() {
    const QTransform &t = Transform();
    transformAttribute_.Clear();
    if (t.isIdentity()) return;
    SvgText &text = transformAttribute_;
    text << " transform=\"matrix(" << QByteArray::number(t.m11()) << " " << QByteArray::number(t.m12()) << " "
         << QByteArray::number(t.m21()) << " " << QByteArray::number(t.m22()) << " ";
    text.Point({t.dx(), t.dy()}) << ")\"";
}

void SvgEngine::SetPen(const QPen &pen) {
    stroke_.Clear();
    if (pen.style() == Qt::NoPen) return;
    SvgText &text = stroke_;
    (text << " stroke=\"").Colour(pen.color().rgb()) << "\"";
    const double width = pen.widthF() > 0 ? pen.widthF() : 1;
    if (width != 1) text.Attribute("stroke-width", width);
    if (pen.color().alpha() < 255) text.Attribute("stroke-opacity", pen.color().alphaF());
    if (pen.style() != Qt::SolidLine) {
        const char *before = " stroke-dasharray=\""; // some readers count a blank at the end as one more
        for (const qreal dash : pen.dashPattern()) (text << std::exchange(before, " ")).Number(dash * width);
        text << "\"";
    }
}

void SvgEngine::SetBrush(const QBrush &brush) {
    fill_.Clear();
    if (brush.style() == Qt::NoBrush) {
        fill_ << " fill=\"none\"";
    } else {
        (fill_ << " fill=\"").Colour(brush.color().rgb()) << "\"";
        if (brush.color().alpha() < 255) fill_.Attribute("fill-opacity", brush.color().alphaF());
    }
}

void SvgEngine::BeginClip(const QPainterPath &path) {
    const QByteArray id = "c" + QByteArray::number(++clipNumber_);
    (out_ << "<clipPath id=\"" << id << "\"><path d=\"").Path(path)
        << "\"/></clipPath>\n<g clip-path=\"url(#" << id << ")\">\n";
}

void SvgEngine::EndShape() { out_ << fill_ << stroke_ << transformAttribute_ << "/>\n"; }

void SvgEngine::drawRects(const QRectF *rects, int count) {
    for (const QRectF *rect = rects; rect != rects + count; ++rect) {
        out_ << "<rect";
        out_.Attribute("x", rect->x())
            .Attribute("y", rect->y())
            .Attribute("width", rect->width())
            .Attribute("height", rect->height());
        EndShape();
    }
}

void SvgEngine::drawEllipse(const QRectF &box) {
    out_ << "<ellipse";
    out_.Attribute("cx", box.center().x()).Attribute("cy", box.center().y());
    out_.Attribute("rx", box.width() / 2).Attribute("ry", box.height() / 2);
    EndShape();
}

void SvgEngine::drawPath(const QPainterPath &path) {
    out_ << (path.fillRule() == Qt::OddEvenFill ? "<path fill-rule=\"evenodd\" d=\"" : "<path d=\"");
    out_.Path(path) << "\"";
    EndShape();
}

void SvgEngine::drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) {
    out_ << (mode == PolylineMode ? "<polyline fill=\"none\" points=\"" : "<polygon points=\"");
    for (int i = 0; i < count; ++i) (i > 0 ? out_ << " " : out_).Point(points[i]);
    out_ << "\"";
    // An attribute must not stand twice.
    if (mode == PolylineMode)
        out_ << stroke_ << transformAttribute_ << "/>\n";
    else
        EndShape();
}

void SvgEngine::DrawImageFile(const QRectF &place, quintptr identity, const QByteArray &mime,
                              const QByteArray &bytes) {
    int &number = pictures_[identity];
    if (number == 0) {
        number = int(pictures_.size());
        out_ << "<defs><image id=\"p" << QByteArray::number(number)
             << "\" width=\"1\" height=\"1\" preserveAspectRatio=\"none\" xlink:href=\"data:" << mime
             << ";base64," << bytes.toBase64() << "\"/></defs>\n";
    }
    out_ << "<use xlink:href=\"#p" << QByteArray::number(number) << "\" transform=\"";
    out_ << "translate(";
    out_.Point(Transform().map(place.topLeft())) << ") scale(";
    out_.Point({place.width() * Transform().m11(), place.height() * Transform().m22()}) << ")\"/>\n";
}

void SvgEngine::PutImage(const QRectF &place, const QImage &image) {
    DrawImageFile(place, quintptr(image.cacheKey()), support::kPng.mimeType, support::PngOf(image));
}

void SvgEngine::DrawPicture(const QRectF &place, const PictureSource &picture) {
    CatchUp();
    const QByteArray mime = MimeOf(picture.Bytes());
    const bool written = pictures_.contains(picture.Identity());
    if (!mime.isEmpty() || written) return DrawImageFile(place, picture.Identity(), mime, picture.Bytes());
    const QImage image = picture.ImageFor(PixelsFor(place));
    if (!image.isNull())
        DrawImageFile(place, picture.Identity(), support::kPng.mimeType, support::PngOf(image));
}

// The families are the one asked for, the one found for it here, and any without serifs.
const QByteArray &SvgEngine::FontAttributes(const TextFont &font, const QString &family) {
    QByteArray &known = fonts_[font];
    if (!known.isEmpty()) return known;
    SvgText text;
    text << " font-family=\"";
    for (QString name : {font.name, family}) {
        name.remove(QLatin1Char('\'')).remove(QLatin1Char('\\'));
        if (!name.isEmpty()) (text << "'").Escaped(name) << "',";
    }
    text << "sans-serif\"";
    text.Attribute("font-size", font.points * kUnitsPerPoint);
    if (font.bold) text << " font-weight=\"bold\"";
    if (font.italic) text << " font-style=\"italic\"";
    return known = text.Bytes();
}

// Another machine may lack the font: the text is held at the side to which it is justified. One from right to
// left is held in its middle, which is the same whichever of its ends a viewer takes for the start.
void SvgEngine::DrawLine(const TextPiece &piece) {
    CatchUp();
    constexpr const char *kAnchors[] = {"", " text-anchor=\"end\"", " text-anchor=\"middle\""};
    const int side = piece.rightToLeft ? kTextMiddle : piece.side;
    out_ << "<text";
    out_.Attribute("x", piece.baseLine.x() + kTextHeldAt[side] * piece.width)
        .Attribute("y", piece.baseLine.y());
    out_ << kAnchors[side] << (piece.rightToLeft ? " direction=\"rtl\"" : "")
         << FontAttributes(piece.font, piece.family);
    if (piece.colour.rgb() != qRgb(0, 0, 0)) (out_ << " fill=\"").Colour(piece.colour.rgb()) << "\"";
    out_ << transformAttribute_ << ">";
    out_.Escaped(piece.text) << "</text>\n";
}

} // namespace vector
