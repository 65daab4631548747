#include "diagram/render/CutText.h"

#include <algorithm>
#include <QFontMetricsF>

namespace diagram {

namespace {

constexpr double kTolerance = 8; // twips by which a line may stick out
constexpr double kSlack = 2;     // twips that rounding may add to a measured width
constexpr QChar kEllipsis(0x2026);

int EndOf(const TextLine &line) { return line.start + line.length; }

bool IsBlank(QStringView text) { return text.trimmed().isEmpty(); }

void DropSpaces(QString &text) {
    while (text.endsWith(u' ')) text.chop(1);
}

// One character as the reader sees it.
void DropCharacter(QString &text) {
    while (!text.isEmpty() && text.back().isMark()) text.chop(1);
    text.chop(text.endsWith(u' ') || text.isEmpty() || !text.back().isLowSurrogate() ? 1 : 2);
    DropSpaces(text);
}

// One line as wide as `limit` at most that ends with an ellipsis.
TextBlock Ended(Faces &faces, QString line, const Font &font, double limit, double scale) {
    DropSpaces(line);
    while (!line.isEmpty() && LayOut(faces, line + kEllipsis, font, 0, 0).width > limit) DropCharacter(line);
    return LayOut(faces, line + kEllipsis, font, 0, scale);
}

} // namespace

int WholeLines(const TextBlock &block, double room) {
    const double between = block.face->height - block.face->ascent - block.face->raw.descent();
    const double end = room + std::max(0.0, between) + kTolerance;
    const auto past = std::ranges::find_if(block.lines, [&](const auto &line) { return line.bottom > end; });
    return int(past - block.lines.begin());
}

bool HasMoreThan(const TextBlock &block, int lines) {
    if (lines >= int(block.lines.size())) return false;
    const int read = lines == 0 ? 0 : EndOf(block.lines[size_t(lines) - 1]);
    return !IsBlank(QStringView(block.text).mid(read));
}

TextBlock CutAfter(Faces &faces, const TextBlock &block, int lines, const WrapWidth &wrap, double scale) {
    TextBlock cut = block;
    cut.lines.resize(size_t(lines));
    TextLine &last = cut.lines.back();
    if (HasMoreThan(block, lines)) {
        const double limit = std::max(wrap.width, block.width) + kSlack;
        TextBlock ended =
            Ended(faces, block.text.mid(last.start, last.length), block.face->key, limit, scale);
        cut.text = block.text.left(last.start) + ended.text;
        last.length = int(ended.text.size());
        last.width = ended.width;
        last.runs = std::move(ended.lines.front().runs);
    }
    cut.width = 0;
    for (const TextLine &line : cut.lines) cut.width = std::max(cut.width, line.width);
    cut.height = last.bottom;
    return cut;
}

InkSpan InkOf(const TextBlock &block, int line) {
    const TextLine &at = block.lines[size_t(line)];
    const QRectF ink = QFontMetricsF(block.face->font).tightBoundingRect(block.text.mid(at.start, at.length));
    return {ink.top(), ink.bottom()};
}

} // namespace diagram
