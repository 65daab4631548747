#include "diagram/render/NodeContent.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Node.h"
#include "diagram/model/TextBeside.h"
#include "diagram/render/CalendarInk.h"
#include "diagram/render/CutText.h"
#include "diagram/render/LayoutMeasure.h"
#include "diagram/render/PicturePainter.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"
#include "vector/engine/ContentTarget.h"

#include <QTransform>

namespace diagram {

namespace {

constexpr int kCentreMiddle = 7, kBesideText = 9; // picture positions
constexpr int kPictureToNode = 1;                 // an AutoSize
constexpr double kGap = 4 * kTwipsPerPixel;       // between picture and text
constexpr double kBorderLine = 1;                 // pixels that a border counts as at least

// How much of the free room lies before the content: left or above. `across` as in Place.
double Before(double room, double content, int across) {
    return across == 0 ? 0 : across == 1 ? room - content : (room - content) / 2;
}
double BeforeDown(double room, double content, int down) {
    return Before(room, content, down == 0 ? 0 : down == 2 ? 1 : 2);
}

bool IsBeside(const NodeData &data) {
    return data.picturePos == kBesideText && !data.picture.IsNull() && data.autoSize != kPictureToNode;
}

// Where the picture and the text stand in the room when the picture goes with the text: above it when the
// text is centred, else on the side to which the text is justified.
struct Together {
    QRectF picture, text;
};

Together PlaceTogether(const QRectF &room, const QSizeF &picture, const QSizeF &text, const Place &place) {
    const bool above = place.across == 2;
    const double gap = text.isEmpty() ? 0 : kGap;
    const QSizeF all =
        above ? QSizeF(std::max(picture.width(), text.width()), picture.height() + gap + text.height())
              : QSizeF(picture.width() + gap + text.width(), std::max(picture.height(), text.height()));
    const QPointF at =
        room.topLeft() + QPointF(Before(room.width(), all.width(), place.across),
                                 std::max(0.0, BeforeDown(room.height(), all.height(), place.down)));
    if (above)
        return {QRectF(at + QPointF((all.width() - picture.width()) / 2, 0), picture),
                QRectF(room.left(), at.y() + picture.height() + gap, room.width(), text.height())};
    const double pictureX = place.across == 0 ? 0 : text.width() + gap,
                 textX = place.across == 0 ? picture.width() + gap : 0;
    return {QRectF(at + QPointF(pictureX, (all.height() - picture.height()) / 2), picture),
            QRectF(at + QPointF(textX, (all.height() - text.height()) / 2), text)};
}

double WidthForText(const NodeData &data, const QRectF &room) {
    const Place place = PlaceOf(data.alignment);
    if (!IsBeside(data) || place.across == 2) return room.width();
    return std::max(room.width() / 3, room.width() - data.picture.SizeInTwips().width() - kGap);
}

// A word that is too long for the shape's text area may reach out of it, as far as the box goes.
WrapWidth WrapOf(const NodeData &data, const QRectF &box, double width) {
    WrapWidth wrap(width, IsBeside(data) ? width : std::max(width, box.width() - 2 * kTwipsPerPixel));
    wrap.room = std::max(box.height(), kTwipsPerPixel);
    return wrap;
}

double BeforeAcross(const QRectF &room, const QRectF &box, double width, int across) {
    const double left = room.left() + Before(room.width(), width, across);
    return std::clamp(left, box.left(), std::max(box.left(), box.right() - width));
}

// Text that is higher than its room starts where it can be read from the beginning.
QRectF TextPlace(const NodeData &data, const QRectF &box, const QRectF &room, const TextBlock &block) {
    const Place place = PlaceOf(data.alignment);
    if (IsBeside(data)) {
        return PlaceTogether(room, data.picture.SizeInTwips(), QSizeF(block.width, block.height), place).text;
    }
    double top = room.top() + BeforeDown(room.height(), block.height, place.down);
    if (block.height > room.height()) {
        const double slack = box.height() - block.height;
        top = slack > 0 ? std::clamp(top, box.top(), box.top() + slack) : box.top() + 1;
    }
    return {BeforeAcross(room, box, block.width, place.across), top, block.width, block.height};
}

void DrawDecoration(Paint &paint, const TextLine &line, const TextBlock &block, const QPointF &baseLine,
                    QRgb colour) {
    const Font &font = block.face->key;
    const auto bar = [&](double below) {
        double height = paint.frame.Length(block.face->thickness),
               top = baseLine.y() + paint.frame.Length(below);
        if (paint.frame.snap) height = std::max(1.0, std::round(height)), top = std::round(top);
        paint.pencil.NoLine();
        paint.pencil.Fill(colour);
        paint.pencil.Smooth(!paint.frame.snap);
        paint.Painter().drawRect(QRectF(baseLine.x(), top, paint.frame.Length(line.width), height));
    };
    if (font.Underline()) bar(block.face->underline);
    if (font.Strike()) bar(block.face->strike);
}

void DrawVectorLine(Paint &paint, const TextBlock &block, const TextLine &line, const QPointF &baseLine,
                    int side, QRgb colour) {
    const QString text = block.text.mid(line.start, line.length);
    if (paint.options.target) {
        const Font &font = block.face->key;
        paint.options.target->DrawLine({baseLine,
                                        line.width,
                                        side,
                                        line.rightToLeft,
                                        text,
                                        {font.Name(), font.Size(), font.Bold(), font.Italic()},
                                        block.face->family,
                                        QColor::fromRgb(colour)});
        return;
    }
    QPainter &painter = paint.Painter();
    paint.pencil.Ink(colour);
    painter.setFont(block.face->font);
    painter.setLayoutDirection(line.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(baseLine, text);
}

constexpr double kTolerance = 8; // twips

bool SticksOutAcross(const QRectF &text, const QRectF &box) {
    return text.left() < box.left() - kTolerance || text.right() > box.right() + kTolerance;
}

bool SticksOut(const QRectF &content, const QRectF &box) {
    return SticksOutAcross(content, box) || content.top() < box.top() - kTolerance ||
           content.bottom() > box.bottom() + kTolerance;
}

} // namespace

QRectF TextRoom(const Node &node) {
    const NodeData &data = node.Data();
    const QRectF area = TextArea(data.shape, data.shapeOrientation, node.ShownBounds());
    const double x = kTwipsPerPixel * (double(data.drawWidth) + std::max(0, data.xTextMargin));
    const double y = kTwipsPerPixel * (double(data.drawWidth) + std::max(0, data.yTextMargin));
    QRectF room = area.adjusted(x, y, -x, -y);
    if (room.width() < kTwipsPerPixel)
        room.setLeft(area.left()), room.setWidth(std::max(area.width(), kTwipsPerPixel));
    if (room.height() < 0) room = QRectF(room.left(), area.center().y(), room.width(), 0);
    return room;
}

QRectF PicturePlace(TextCache &texts, const Node &node) {
    const NodeData &data = node.Data();
    const double border = data.drawStyle == kTransparentLine
                              ? 0
                              : std::max<double>(data.drawWidth, kBorderLine) * kTwipsPerPixel / 2;
    const QRectF box = node.ShownBounds().adjusted(border, border, -border, -border);
    if (data.autoSize == kPictureToNode) {
        const ShapeRow *row = FindShape(data.shape);
        return row && row->form == ShapeForm::Rectangle ? box
                                                        : TextArea(data.shape, data.shapeOrientation, box);
    }
    const QSizeF size = data.picture.SizeInTwips();
    if (IsBeside(data)) {
        const QRectF room = TextRoom(node);
        const QString text = node.ShownText();
        const TextBlock &block =
            texts.Find(text, data.font, WrapOf(data, node.ShownBounds(), WidthForText(data, room)), 0);
        return PlaceTogether(room, size, text.isEmpty() ? QSizeF() : QSizeF(block.width, block.height),
                             PlaceOf(data.alignment))
            .picture;
    }
    if (size.width() >= box.width() && size.height() >= box.height())
        return {node.ShownBounds().topLeft(), size};
    const Place place = PlaceOf(data.picturePos == kBesideText ? kCentreMiddle : data.picturePos);
    return {box.topLeft() + QPointF(Before(box.width(), size.width(), place.across),
                                    BeforeDown(box.height(), size.height(), place.down)),
            size};
}

QRectF TextPlace(TextCache &texts, const Node &node) {
    const NodeData &data = node.Data();
    const QString text = node.ShownText();
    if (text.isEmpty()) return {};
    const QRectF box = node.ShownBounds(), room = TextRoom(node);
    return TextPlace(data, box, room,
                     texts.Find(text, data.font, WrapOf(data, box, WidthForText(data, room)), 0));
}

void DrawBlock(Paint &paint, const TextBlock &block, const QPointF &at, double width, int side, QRgb colour) {
    QPainter &painter = paint.Painter();
    const bool decorated = block.face->key.Underline() || block.face->key.Strike();
    for (const TextLine &line : block.lines) {
        QPointF baseLine = at + QPointF(paint.frame.Length(Before(width, line.width, side)),
                                        paint.frame.Length(line.baseLine));
        if (line.length == 0) continue;
        if (paint.options.vector) {
            DrawVectorLine(paint, block, line, baseLine, side, colour);
        } else {
            if (paint.frame.snap) baseLine.setY(std::round(baseLine.y()));
            paint.pencil.Ink(colour);
            for (const QGlyphRun &run : line.runs) painter.drawGlyphRun(baseLine, run);
        }
        if (decorated) DrawDecoration(paint, line, block, baseLine, colour);
    }
}

namespace {

// The lines of a text that are seen, and where they stand; no block where there is room for none.
struct SeenText {
    const TextBlock *block = nullptr;
    QRectF place;
};

// A single line that is higher than the box, but whose letters have room in it: they stand in its middle.
SeenText PlaceInk(const TextBlock &line, const QRectF &place, const QRectF &box) {
    const InkSpan ink = InkOf(line, 0);
    if (ink.bottom - ink.top > box.height() + kTolerance) return {};
    const double top = box.center().y() - (ink.top + ink.bottom) / 2 - line.lines.front().baseLine;
    return {&line, QRectF(place.left(), top, line.width, line.height)};
}

// `cut(lines)` gives the block with so many lines.
template <typename Cut>
SeenText SeenOf(const Node &node, const QRectF &room, const TextBlock &block, Cut cut) {
    const NodeData &data = node.Data();
    const QRectF box = node.ShownBounds();
    const QRectF place = TextPlace(data, box, room, block);
    if (SticksOutAcross(QRectF(place.left(), 0, std::min(place.width(), block.width), 0), box)) return {};
    const int whole = WholeLines(block, box.bottom() - place.top());
    if (whole == int(block.lines.size())) return {&block, place};
    if (whole == 0 && IsBeside(data)) return {};
    const TextBlock &seen = cut(std::max(1, whole));
    if (IsBeside(data)) return {&seen, place};
    const QRectF newPlace = TextPlace(data, box, room, seen);
    return whole == 0 ? PlaceInk(seen, newPlace, box) : SeenText{&seen, newPlace};
}

void DrawSeen(Paint &paint, const NodeData &data, const SeenText &seen) {
    if (!seen.block) return;
    DrawBlock(paint, *seen.block, paint.frame.Map(seen.place.topLeft()), seen.place.width(),
              PlaceOf(data.alignment).across, ToRgb(data.foreColor));
}

// A vector target is painted once, so nothing goes through the cache.
void DrawVectorText(Paint &paint, const Node &node, const QRectF &room, const WrapWidth &wrap) {
    Faces &faces = paint.caches.faces;
    const TextBlock block = LayOut(faces, node.ShownText(), node.Font(), wrap, 0);
    TextBlock part;
    const auto cut = [&](int lines) -> const TextBlock & {
        return part = CutAfter(faces, block, lines, wrap, 0);
    };
    DrawSeen(paint, node.Data(), SeenOf(node, room, block, cut));
}

QRectF Beside(TextCache &texts, const Node &node) {
    LayoutMeasure measure(texts);
    return TextBeside(node, &measure);
}

// In its own colour, as far as that can be read on the paper.
void DrawTextBeside(Paint &paint, const Node &node, const QRectF &place) {
    const double scale = paint.options.vector ? 0 : paint.frame.Scale();
    const TextBlock &block = paint.caches.texts.Find(node.ShownText(), node.Font(), kWidestBeside, scale);
    const QRgb ink = CalendarInk(paint.paper, ToRgb(node.ForeColor())).Text();
    DrawBlock(paint, block, paint.frame.Map(place.topLeft()), place.width(), 0, ink);
}

} // namespace

bool IsTextCut(TextCache &texts, const Node &node) {
    const NodeData &data = node.Data();
    const QString text = node.ShownText();
    if (text.isEmpty() || !Beside(texts, node).isEmpty()) return false;
    const QRectF room = TextRoom(node);
    const WrapWidth wrap = WrapOf(data, node.ShownBounds(), WidthForText(data, room));
    const TextBlock block = texts.Find(text, data.font, wrap, 0);
    const auto cut = [&](int lines) -> const TextBlock & {
        return texts.Find(text, data.font, wrap, 0, lines);
    };
    const SeenText seen = SeenOf(node, room, block, cut);
    return !seen.block || HasMoreThan(block, int(seen.block->lines.size()));
}

void PaintNodeText(Paint &paint, const Node &node) {
    const NodeData &data = node.Data();
    const QString text = node.ShownText();
    if (text.isEmpty()) return;
    const double scale = paint.frame.Scale();
    if (!paint.options.vector && data.font.Size() * kTwipsPerPoint * scale < kLegiblePixels) return;
    if (const QRectF beside = Beside(paint.caches.texts, node); !beside.isEmpty())
        return DrawTextBeside(paint, node, beside);
    const QRectF room = TextRoom(node);
    const WrapWidth wrap = WrapOf(data, node.ShownBounds(), WidthForText(data, room));
    if (paint.options.vector) return DrawVectorText(paint, node, room, wrap);
    TextCache &texts = paint.caches.texts;
    const auto cut = [&](int lines) -> const TextBlock & {
        return texts.Find(text, data.font, wrap, scale, lines);
    };
    DrawSeen(paint, data, SeenOf(node, room, texts.Find(text, data.font, wrap, scale), cut));
}

void PaintNodePicture(Paint &paint, const Node &node) {
    const QRectF place = PicturePlace(paint.caches.texts, node);
    if (place.isEmpty()) return;
    const ShapeRow *row = FindShape(node.Shape());
    const bool fills = row && row->form == ShapeForm::Rectangle;
    const QRectF inside =
        fills ? node.ShownBounds() : TextArea(node.Shape(), node.ShapeOrientation(), node.ShownBounds());
    if (!SticksOut(place, inside)) return DrawPicture(paint, node.Picture(), place);
    paint.Painter().save();
    paint.Painter().setClipPath(
        Outline(node.Shape(), node.ShapeOrientation(), paint.frame.Map(node.ShownBounds())),
        Qt::IntersectClip);
    DrawPicture(paint, node.Picture(), place);
    paint.Painter().restore();
    paint.pencil.Forget();
}

} // namespace diagram
