#include "product/help/Flow.h"

#include "product/help/RichText.h"
#include "product/help/Style.h"
#include "product/help/TableRows.h"
#include "support/Error.h"

#include <QDir>
#include <QImage>
#include <QTextList>
#include <QTextTable>

namespace product {

namespace {

using namespace style;

const TextLook kText{kTextSize, kInk};
constexpr double kParagraphGap = Points(7);
constexpr double kItemGap = Points(3);
constexpr double kItemIndent = Points(16);
constexpr double kPictureGap = Points(10);

// The first and the last two lines of a text stay together.
bool KeepsNext(int line, int lines) { return line + 1 < lines && (line == 0 || line == lines - 2); }

Flow Lines(const Layout &layout, double gap, bool heading) {
    Flow flow;
    for (int i = 0; i < layout->lineCount(); ++i) {
        Part part;
        part.piece.height = LineHeight(layout->lineAt(i));
        part.piece.gap = i == 0 ? gap : 0;
        part.piece.keepsNext = heading || KeepsNext(i, layout->lineCount());
        part.paint = [layout, i](QPainter &painter, QPointF at) { PaintLine(*layout, i, painter, at); };
        flow.push_back(part);
    }
    return flow;
}

Flow Heading(const QTextBlock &block, double width) {
    const int level = block.blockFormat().headingLevel();
    const TextLook look{HeadingSize(level), kHeading, true};
    Flow flow = Lines(LayOut(TextOf(block, look), look, width), Points(level < 3 ? 22 : 14), true);
    if (flow.empty()) return flow;
    flow.front().heading = block.text();
    flow.front().level = level;
    flow.back().piece.height += Points(2);
    return flow;
}

Flow Item(const QTextBlock &block, double width) {
    const double indent = kItemIndent * std::max(1, block.textList()->format().indent());
    Flow flow = Lines(LayOut(TextOf(block, kText), kText, width, indent), kItemGap, false);
    if (flow.empty()) return flow;
    const bool numbered = block.textList()->format().style() == QTextListFormat::ListDecimal;
    const QString sign = numbered ? block.textList()->itemText(block) : QString(QChar(0x2022));
    const Layout mark = LayOut(PlainText(sign, kText), kText, width, indent - kItemIndent + Points(3));
    flow.front().paint = [text = flow.front().paint, mark](QPainter &painter, QPointF at) {
        PaintText(*mark, painter, at);
        text(painter, at);
    };
    return flow;
}

QSizeF SizeOnPage(const QSize &pixels, double width) {
    const double shown = std::min(width, pixels.width() * kResolution / kPictureDots);
    return {shown, shown * pixels.height() / pixels.width()};
}

// A picture with a thin frame, and its text below.
Flow Picture(const QTextImageFormat &format, const QString &folder, double width) {
    const QImage image(QDir(folder).filePath(format.name()));
    if (image.isNull())
        throw support::Error(support::kErrFileNotFound, QStringLiteral("velmora-help"),
                             QStringLiteral("%1 can't be read").arg(format.name()));
    const QSizeF size = SizeOnPage(image.size(), width);
    Part part;
    part.piece.height = size.height();
    part.piece.gap = kPictureGap;
    part.piece.keepsNext = true;
    part.paint = [image, size](QPainter &painter, QPointF at) {
        painter.drawImage(QRectF(at, size), image);
        painter.setPen(QPen(kRule, Points(0.6)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(at, size));
    };
    const TextLook look{kSmallSize, kQuiet};
    const QString words = format.property(QTextFormat::ImageAltText).toString();
    Flow flow = Lines(LayOut(PlainText(words, look), look, width), Points(3), false);
    flow.insert(flow.begin(), part);
    flow.back().piece.keepsNext = false;
    return flow;
}

// A line of a block of code.
bool IsCode(const QTextBlock &block) { return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence); }

Flow OfBlock(const QTextBlock &block, const QString &pictures, double width) {
    if (block.blockFormat().headingLevel() > 0) return Heading(block, width);
    const auto first = block.begin();
    if (!first.atEnd() && first.fragment().charFormat().isImageFormat())
        return Picture(first.fragment().charFormat().toImageFormat(), pictures, width);
    if (block.textList()) return Item(block, width);
    if (block.text().trimmed().isEmpty()) return {};
    const bool goesOn = IsCode(block) && IsCode(block.previous());
    return Lines(LayOut(TextOf(block, kText), kText, width), goesOn ? 0 : kParagraphGap, false);
}

// Appends the parts of `more`. The numbers of pieces that they name are moved along.
void Append(Flow &flow, const Flow &more) {
    const int offset = int(flow.size());
    for (Part part : more) {
        if (part.piece.repeat >= 0) part.piece.repeat += offset;
        flow.push_back(part);
    }
}

} // namespace

QString TitleOf(const QTextDocument &document) {
    const QTextBlock first = document.begin();
    return first.blockFormat().headingLevel() == 1 ? first.text() : QString();
}

Flow FlowOf(const QTextDocument &document, const QString &pictures, double width) {
    Flow flow;
    auto it = document.rootFrame()->begin();
    if (!TitleOf(document).isEmpty()) ++it;
    for (; !it.atEnd(); ++it) {
        const auto *table = qobject_cast<QTextTable *>(it.currentFrame());
        if (table) Append(flow, RowsOf(*table, width));
        if (it.currentBlock().isValid()) Append(flow, OfBlock(it.currentBlock(), pictures, width));
    }
    return flow;
}

} // namespace product
