#include "diagram/render/TextBlock.h"

#include "diagram/render/CutText.h"

#include <algorithm>
#include <QTextLayout>

namespace diagram {

namespace {

constexpr double kNoWidth = 1e7;   // twips: a width at which nothing is wrapped
constexpr int kAlwaysWhole = 500;  // characters; short texts are laid out once for all heights
constexpr double kNarrowest = 0.1; // of a character that takes room, as a share of the font's height
constexpr double kSlack = 2;       // twips; a text measured without wrapping fits the width measured

bool IsPlain(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        const ushort code = c.unicode();
        return (code >= Face::kFirst && code < Face::kPast) || code == '\r' || code == '\n';
    });
}

// Calls `paragraph(start, length)` for each stretch between line ends; a text that ends in one has an empty
// last line.
template <typename Paragraph>
void ForParagraphs(const QString &text, Paragraph paragraph) {
    int start = 0;
    const int size = int(text.size());
    for (int i = 0; i <= size; ++i) {
        if (i < size && text[i] != u'\r' && text[i] != u'\n') continue;
        paragraph(start, i - start);
        if (i + 1 < size && text[i] == u'\r' && text[i + 1] == u'\n') ++i;
        start = i + 1;
    }
}

struct Builder {
    Faces &faces;
    TextBlock &block;
    double limit;
    double scale;
    double room; // 0 for no end

    TextLine &AddLine(int start, int length, double width, double ascent, double height) {
        TextLine line;
        line.start = start, line.length = length, line.width = width;
        line.baseLine = block.height + ascent;
        block.height += height;
        line.bottom = block.height;
        block.width = std::max(block.width, width);
        block.lines.push_back(std::move(line));
        return block.lines.back();
    }

    // Plain text needs no shaping: one character is one glyph, and its width stands in a table.
    double WidthAt(int i) const {
        return block.face->widths[std::size_t(block.text[i].unicode() - Face::kFirst)];
    }

    double LongestPlainWord() const {
        double longest = 0, word = 0;
        for (int i = 0; i < block.text.size(); ++i) {
            const ushort code = block.text[i].unicode();
            word = code == ' ' || code == '\r' || code == '\n' ? 0 : word + WidthAt(i);
            longest = std::max(longest, word);
        }
        return longest;
    }

    double LongestShapedWord() const {
        QString text = block.text;
        text.replace(u'\r', u' ').replace(u'\n', u' ');
        QTextLayout layout(text, block.face->font);
        layout.beginLayout();
        layout.createLine().setLineWidth(limit);
        layout.endLayout();
        return layout.minimumWidth();
    }

    bool IsFull() const { return room > 0 && block.height > room; }

    void AddPlainLine(int start, int length, double width) {
        while (length > 0 && block.text[start + length - 1] == u' ') width -= WidthAt(start + --length);
        TextLine &line = AddLine(start, length, width, block.face->ascent, block.face->height);
        if (scale <= 0 || length == 0) return;
        QList<quint32> glyphs(length);
        QList<QPointF> places(length);
        double x = 0;
        for (int i = 0; i < length; ++i) {
            glyphs[i] = block.face->glyphs[std::size_t(block.text[start + i].unicode() - Face::kFirst)];
            places[i] = {x * scale, 0};
            x += WidthAt(start + i);
        }
        QGlyphRun run;
        run.setRawFont(faces.Scaled(block.face->raw, block.face->raw.pixelSize() * scale));
        run.setGlyphIndexes(glyphs);
        run.setPositions(places);
        line.runs.push_back(run);
    }

    // Greedy: a line takes words while they fit; a word that fits no line is broken where it must be.
    void AddPlainParagraph(int start, int length) {
        const int end = start + length;
        int from = start, breakAt = -1;
        double width = 0, breakWidth = 0;
        for (int i = start; i < end && !IsFull(); ++i) {
            const double glyph = WidthAt(i);
            if (block.text[i] != u' ' && width + glyph > limit && i > from) {
                const bool atWord = breakAt > from;
                AddPlainLine(from, (atWord ? breakAt : i) - from, atWord ? breakWidth : width);
                width -= atWord ? breakWidth : width;
                from = atWord ? breakAt : i;
                breakAt = -1;
            }
            width += glyph;
            if (block.text[i] == u' ' || block.text[i] == u'-') breakAt = i + 1, breakWidth = width;
        }
        if (!IsFull()) AddPlainLine(from, end - from, width);
    }

    void AddRuns(TextLine &line, const QTextLine &from) {
        for (const QGlyphRun &run : from.glyphRuns()) {
            QList<QPointF> places = run.positions();
            const QPointF start(from.position().x(), from.position().y() + from.ascent());
            for (QPointF &place : places) place = (place - start) * scale;
            QGlyphRun scaled;
            scaled.setRawFont(faces.Scaled(run.rawFont(), run.rawFont().pixelSize() * scale));
            scaled.setGlyphIndexes(run.glyphIndexes());
            scaled.setPositions(places);
            line.runs.push_back(scaled);
        }
    }

    // Any script; each paragraph takes its direction from its own text.
    void AddShapedParagraph(int start, int length) {
        QTextLayout layout(block.text.mid(start, length), block.face->font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setTabStopDistance(block.face->height * 4);
        layout.setTextOption(option);
        layout.setCacheEnabled(false);
        layout.beginLayout();
        double below = block.height; // lines that lie outside of the room aren't needed
        for (QTextLine from; (room <= 0 || below <= room) && (from = layout.createLine()).isValid();) {
            from.setLineWidth(limit);
            below += std::max(block.face->height, from.height());
        }
        layout.endLayout();
        for (int i = 0; i < layout.lineCount(); ++i) {
            const QTextLine from = layout.lineAt(i);
            // Lines right to left start at the far end of the line's width.
            const double height = std::max(block.face->height, from.height());
            const double ascent = std::max(block.face->ascent, from.ascent());
            TextLine &line =
                AddLine(start + from.textStart(), from.textLength(), from.naturalTextWidth(), ascent, height);
            line.rightToLeft = layout.textOption().textDirection() == Qt::RightToLeft ||
                               block.text.mid(start, length).isRightToLeft();
            if (scale > 0) AddRuns(line, from);
            ShiftToStart(line);
        }
        if (layout.lineCount() == 0) AddLine(start, 0, 0, block.face->ascent, block.face->height);
    }

    // A line that is laid out from the right has its glyphs at the far end of the width: brings the first to
    // 0.
    static void ShiftToStart(TextLine &line) {
        double left = 1e12;
        for (const QGlyphRun &run : line.runs)
            for (const QPointF &place : run.positions()) left = std::min(left, place.x());
        if (line.runs.empty() || std::abs(left) < 1) return;
        for (QGlyphRun &run : line.runs) {
            QList<QPointF> places = run.positions();
            for (QPointF &place : places) place.rx() -= left;
            run.setPositions(places);
        }
    }
};

// The height at which the layout may stop, for long texts; 0 for none.
double RoomFor(const QString &text, const WrapWidth &wrap) {
    return text.size() > kAlwaysWhole ? std::max(0.0, wrap.room) : 0;
}

// The part of the text that can be seen, and a little more.
QString SeenPart(const QString &text, const WrapWidth &wrap, const Face &face) {
    double most = kMostCharacters;
    const double room = RoomFor(text, wrap);
    if (room > 0 && wrap.width > 0 && face.height > 0) {
        const double line = std::max(wrap.width, wrap.widest) / (face.height * kNarrowest) + 1;
        most = std::min(most, kAlwaysWhole + line * (room / face.height + 2));
    }
    return text.left(qsizetype(most));
}

} // namespace

TextBlock LayOut(Faces &faces, const QString &text, const Font &font, const WrapWidth &wrap, double scale) {
    TextBlock block;
    block.face = faces.Find(font);
    block.text = SeenPart(text, wrap, *block.face);
    const double limit = wrap.width > 0 ? wrap.width + kSlack : kNoWidth;
    Builder builder{faces, block, limit, scale, RoomFor(text, wrap)};
    const bool plain = block.face->plain && IsPlain(block.text);
    if (wrap.width > 0 && wrap.widest > wrap.width) {
        const double longest = plain ? builder.LongestPlainWord() : builder.LongestShapedWord();
        builder.limit = std::clamp(longest, wrap.width, wrap.widest) + kSlack;
    }
    ForParagraphs(block.text, [&](int start, int length) {
        if (builder.IsFull()) return;
        if (plain)
            builder.AddPlainParagraph(start, length);
        else
            builder.AddShapedParagraph(start, length);
    });
    return block;
}

namespace {

constexpr std::size_t kMostBytes = 2u << 20;

std::size_t BytesOf(const TextBlock &block) {
    std::size_t bytes = 400 + 2 * std::size_t(block.text.size());
    for (const TextLine &line : block.lines) bytes += 300 + 24 * std::size_t(line.length);
    return bytes;
}

} // namespace

std::size_t TextCache::KeyHash::operator()(const Key &key) const {
    return qHashMulti(key.font.Hash(), key.text, key.width, key.widest, key.room, key.scale, key.lines);
}

const TextBlock &TextCache::Find(const QString &text, const Font &font, const WrapWidth &wrap, double scale,
                                 int lines) {
    Key key{text, font, int(wrap.width), int(wrap.widest), int(RoomFor(text, wrap)), float(scale), lines};
    const auto found = index_.find(key);
    if (found != index_.end()) {
        if (found->second != entries_.begin()) entries_.splice(entries_.begin(), entries_, found->second);
        return found->second->block;
    }
    TextBlock block = lines > 0 ? CutAfter(faces_, Find(text, font, wrap, scale), lines, wrap, scale)
                                : LayOut(faces_, text, font, wrap, scale);
    entries_.push_front({key, std::move(block), 0});
    Entry &entry = entries_.front();
    entry.bytes = BytesOf(entry.block);
    bytes_ += entry.bytes;
    index_.emplace(std::move(key), entries_.begin());
    Trim();
    return entry.block;
}

// The entry in use stays, however large.
void TextCache::Trim() {
    while (bytes_ > kMostBytes && entries_.size() > 1) {
        bytes_ -= entries_.back().bytes;
        index_.erase(entries_.back().key);
        entries_.pop_back();
    }
}

void TextCache::Clear() {
    index_.clear();
    entries_.clear();
    bytes_ = 0;
}

} // namespace diagram
