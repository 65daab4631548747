#include "diagram/export/SvgEngine.h"

#include "diagram/model/Font.h"
#include "diagram/model/Picture.h"
#include "diagram/shapes/Measures.h"

#include <QBuffer>
#include <QImage>
#include <QPen>
#include <QPixmap>

namespace diagram {

namespace {

struct FileMark {
    const char *start;
    const char *mime;
};
// Picture files that every viewer of SVG shows.
constexpr FileMark kFileMarks[] = {
    {"\x89PNG", "image/png"}, {"\xFF\xD8\xFF", "image/jpeg"}, {"GIF8", "image/gif"}};

QByteArray MimeOf(const QByteArray &bytes) {
    for (const FileMark &mark : kFileMarks)
        if (bytes.startsWith(mark.start)) return mark.mime;
    const bool svg = bytes.left(1000).contains("<svg");
    return svg ? QByteArray("image/svg+xml") : QByteArray();
}

QByteArray AsPng(const QImage &image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QPainterPath PathOf(const QRegion &region) {
    QPainterPath path;
    path.addRegion(region);
    return path;
}

} // namespace

SvgEngine::SvgEngine() : QPaintEngine(AllFeatures) {}

bool SvgEngine::begin(QPaintDevice *) { return true; }

bool SvgEngine::end() {
    CloseGroups();
    return true;
}

void SvgEngine::updateState(const QPaintEngineState &changed) {
    const QPaintEngine::DirtyFlags dirty = changed.state();
    if (!dirty) return;
    if (dirty & DirtyTransform) {
        transform_ = changed.transform();
        transformAttribute_.clear();
        if (!transform_.isIdentity()) {
            SvgText text;
            text << " transform=\"matrix(" << QByteArray::number(transform_.m11()) << " "
                 << QByteArray::number(transform_.m12()) << " " << QByteArray::number(transform_.m21()) << " "
                 << QByteArray::number(transform_.m22()) << " ";
            text.Point({transform_.dx(), transform_.dy()}) << ")\"";
            transformAttribute_ = text.Bytes();
        }
    }
    if (dirty & DirtyPen) SetPen(changed.pen());
    if (dirty & DirtyBrush) SetBrush(changed.brush());
    if (dirty & DirtyClipPath) SetClip(transform_.map(changed.clipPath()), changed.clipOperation());
    if (dirty & DirtyClipRegion)
        SetClip(transform_.map(PathOf(changed.clipRegion())), changed.clipOperation());
}

void SvgEngine::SetPen(const QPen &pen) {
    stroke_.clear();
    if (pen.style() == Qt::NoPen) return;
    SvgText text;
    text << " stroke=\"" << SvgColour(pen.color().rgb()) << "\"";
    const double width = pen.widthF() > 0 ? pen.widthF() : 1;
    if (width != 1) text.Attribute("stroke-width", width);
    if (pen.color().alpha() < 255) text.Attribute("stroke-opacity", pen.color().alphaF());
    if (pen.style() != Qt::SolidLine) {
        text << " stroke-dasharray=\"";
        for (const qreal dash : pen.dashPattern()) text.Number(dash * width) << " ";
        text << "\"";
    }
    stroke_ = text.Bytes();
}

void SvgEngine::SetBrush(const QBrush &brush) {
    SvgText text;
    if (brush.style() == Qt::NoBrush) {
        text << " fill=\"none\"";
    } else {
        text << " fill=\"" << SvgColour(brush.color().rgb()) << "\"";
        if (brush.color().alpha() < 255) text.Attribute("fill-opacity", brush.color().alphaF());
    }
    fill_ = text.Bytes();
}

void SvgEngine::SetClip(const QPainterPath &path, Qt::ClipOperation operation) {
    if (operation != Qt::IntersectClip) CloseGroups();
    if (operation == Qt::NoClip) return;
    const QByteArray id = "c" + QByteArray::number(++clips_);
    (out_ << "<clipPath id=\"" << id << "\"><path d=\"").Path(path)
        << "\"/></clipPath>\n<g clip-path=\"url(#" << id << ")\">\n";
    ++groups_;
}

void SvgEngine::CloseGroups() {
    for (; groups_ > 0; --groups_) out_ << "</g>\n";
}

// What the painter would have told before it draws something itself; pens and brushes don't matter.
void SvgEngine::CatchUp() {
    if (state->state() & (DirtyTransform | DirtyClipPath | DirtyClipRegion)) syncState();
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

void SvgEngine::drawLines(const QLineF *lines, int count) {
    for (int i = 0; i < count; ++i) {
        const QPointF ends[] = {lines[i].p1(), lines[i].p2()};
        drawPolygon(ends, 2, PolylineMode);
    }
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
    out_.Point(transform_.map(place.topLeft())) << ") scale(";
    out_.Point({place.width() * transform_.m11(), place.height() * transform_.m22()}) << ")\"/>\n";
}

void SvgEngine::drawImage(const QRectF &place, const QImage &image, const QRectF &part,
                          Qt::ImageConversionFlags) {
    const bool whole = part == QRectF(image.rect());
    const QImage shown = whole ? image : image.copy(part.toAlignedRect());
    DrawImageFile(place, quintptr(shown.cacheKey()), "image/png", AsPng(shown));
}

void SvgEngine::drawPixmap(const QRectF &place, const QPixmap &pixmap, const QRectF &part) {
    drawImage(place, pixmap.toImage(), part, Qt::AutoColor);
}

void SvgEngine::DrawPicture(const QRectF &place, const diagram::Picture &picture) {
    CatchUp();
    const QByteArray mime = MimeOf(picture.Bytes());
    const bool written = pictures_.contains(picture.Identity());
    if (!mime.isEmpty() || written) return DrawImageFile(place, picture.Identity(), mime, picture.Bytes());
    if (!picture.Image().isNull())
        DrawImageFile(place, picture.Identity(), "image/png", AsPng(picture.Image()));
}

// The font that was asked for, the one found for it here, and any without serifs.
QByteArray SvgEngine::FontAttributes(const Font &font, const QString &family) {
    QByteArray &known = fonts_[font.Hash()];
    if (!known.isEmpty()) return known;
    SvgText text;
    text << " font-family=\"";
    for (QString name : {font.Name(), family}) {
        name.remove(QLatin1Char('\'')).remove(QLatin1Char('\\'));
        if (!name.isEmpty()) (text << "'").Escaped(name) << "',";
    }
    text << "sans-serif\"";
    text.Attribute("font-size", font.Size() * 20);
    if (font.Bold()) text << " font-weight=\"bold\"";
    if (font.Italic()) text << " font-style=\"italic\"";
    return known = text.Bytes();
}

// Another machine may lack the font: the text is held at the side to which it is justified.
void SvgEngine::DrawLine(const TextPiece &piece) {
    CatchUp();
    constexpr double kHeld[] = {0, 1, 0.5};
    constexpr const char *kAnchors[] = {"", " text-anchor=\"end\"", " text-anchor=\"middle\""};
    const int side = piece.rightToLeft ? 2 : piece.side;
    out_ << "<text";
    out_.Attribute("x", piece.baseLine.x() + kHeld[side] * piece.width).Attribute("y", piece.baseLine.y());
    out_ << kAnchors[side] << (piece.rightToLeft ? " direction=\"rtl\"" : "")
         << FontAttributes(piece.font, piece.family);
    if (piece.colour.rgb() != qRgb(0, 0, 0)) out_ << " fill=\"" << SvgColour(piece.colour.rgb()) << "\"";
    out_ << transformAttribute_ << ">";
    out_.Escaped(piece.text) << "</text>\n";
}

void SvgEngine::drawTextItem(const QPointF &at, const QTextItem &text) {
    const QFont font = text.font();
    const double points = font.pixelSize() > 0 ? font.pixelSize() / 20.0 : font.pointSizeF();
    const Font plain(font.family(), points, font.bold(), font.italic());
    DrawLine({at, text.width(), 0, false, text.text(), plain, QString(), state->pen().color()});
}

int SvgDevice::metric(PaintDeviceMetric metric) const {
    constexpr int kTwipsPerInch = 1440;
    switch (metric) {
    case PdmWidth:
        return int(size_.width());
    case PdmHeight:
        return int(size_.height());
    case PdmWidthMM:
        return int(size_.width() / kTwipsPerInch * 25.4);
    case PdmHeightMM:
        return int(size_.height() / kTwipsPerInch * 25.4);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kTwipsPerInch;
    case PdmNumColors:
        return 1 << 24;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return int(devicePixelRatioFScale());
    default:
        return 0;
    }
}

QByteArray SvgDevice::File() const {
    SvgText file;
    file.Reserve(engine_.Body().size() + 500);
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
            "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" xml:space=\"preserve\"";
    file.Attribute("width", size_.width() / kTwipsPerPixel)
        .Attribute("height", size_.height() / kTwipsPerPixel);
    file << " viewBox=\"0 0 ";
    file.Point({size_.width(), size_.height()}) << "\">\n" << engine_.Body() << "</svg>\n";
    return file.Bytes();
}

} // namespace diagram
