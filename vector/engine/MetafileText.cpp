#include "vector/engine/MetafileText.h"

#include "vector/player/Units.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <QFont>
#include <QTextLayout>

namespace vector {

namespace {

QFont FontFor(const TextFont &font) {
    QFont made(font.name);
    made.setPixelSize(std::max(1, int(std::round(font.points * kUnitsPerPoint))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setKerning(false);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

// How deep each character is embedded, even from left to right and odd from right to left: what Unicode's
// bidirectional algorithm (UAX 9) gives for a line without explicit marks.
std::vector<int> LevelsOf(const QString &text, bool rightToLeft) {
    const int base = rightToLeft ? 1 : 0;
    std::vector<int> levels(std::size_t(text.size()), -1);
    int strong = base;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar::Direction direction = text[i].isSurrogate() ? QChar::DirON : text[i].direction();
        int &level = levels[std::size_t(i)];
        if (direction == QChar::DirL) level = 2 * base, strong = 0;
        if (direction == QChar::DirR || direction == QChar::DirAL) level = strong = 1;
        if (direction == QChar::DirAN) level = 2;
        if (direction == QChar::DirEN) level = strong == 1 ? 2 : 2 * base;
    }
    // What has no direction of its own goes with its neighbours when these agree.
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (levels[i] >= 0) continue;
        std::size_t end = i;
        while (end < levels.size() && levels[end] < 0) ++end;
        const int before = i > 0 ? levels[i - 1] : base, after = end < levels.size() ? levels[end] : base;
        const bool odd = before > 0 && after > 0 && (before % 2 == 1 || after % 2 == 1);
        std::fill(levels.begin() + std::ptrdiff_t(i), levels.begin() + std::ptrdiff_t(end),
                  before == after ? before
                  : odd           ? 1
                                  : base);
    }
    return levels;
}

// Neighbouring characters of one level.
struct LevelRun {
    qsizetype from, count;
    int level;
};

// The runs from left to right: whatever stands at a level or deeper is turned round, from the deepest level
// on.
std::vector<LevelRun> LevelRunsOf(const QString &text, bool rightToLeft) {
    const std::vector<int> levels = LevelsOf(text, rightToLeft);
    std::vector<LevelRun> runs;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (runs.empty() || runs.back().level != levels[i]) runs.push_back({qsizetype(i), 0, levels[i]});
        ++runs.back().count;
    }
    for (int level = 2; level > 0; --level)
        for (auto from = runs.begin(); from != runs.end();) {
            from = std::find_if(from, runs.end(), [&](const LevelRun &run) { return run.level >= level; });
            const auto end =
                std::find_if(from, runs.end(), [&](const LevelRun &run) { return run.level < level; });
            std::reverse(from, end);
            from = end;
        }
    return runs;
}

// How far each character of a text of one direction goes, with the forms that it has beside its neighbours.
std::vector<double> ShapedWidths(const QString &text, const QFont &font, bool rightToLeft) {
    QTextLayout layout(text, font);
    QTextOption option(Qt::AlignLeft);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    std::vector<double> widths;
    for (int i = 0; i < int(text.size()); ++i)
        widths.push_back(std::abs(line.cursorToX(i + 1) - line.cursorToX(i)));
    return widths;
}

double SumOf(const std::vector<double> &widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }

// Without the blanks at its ends, which readers put on either side.
MetafileRun RunOf(const QString &text, const std::vector<double> &widths, bool rightToLeft, double left,
                  double scale) {
    qsizetype from = 0, end = text.size();
    while (from < end && text[from].isSpace()) ++from;
    while (end > from && text[end - 1].isSpace()) --end;
    MetafileRun run{left, rightToLeft, text.mid(from, end - from), {}};
    for (qsizetype i = 0; i < text.size(); ++i) {
        const double width = widths[std::size_t(i)];
        const bool inside = i >= from && i < end, onTheLeft = rightToLeft ? i >= end : i < from;
        if (inside) run.advances.push_back(int(std::lround(width * scale)));
        if (onTheLeft) run.left += width;
    }
    return run;
}

} // namespace

double MetafileText::Measured::WidthOf(const QString &character) {
    const auto width = widths.constFind(character);
    if (width != widths.constEnd()) return *width;
    return *widths.insert(character, metrics.horizontalAdvance(character));
}

MetafileText::Measured &MetafileText::MeasuredOf(const TextFont &font) {
    const auto found = measured_.find(font);
    return found != measured_.end() ? *found : *measured_.insert(font, {QFontMetricsF(FontFor(font)), {}});
}

// A pair of units has its width at the first, and a mark stands on the character before it.
std::vector<double> MetafileText::Widths(const TextPiece &piece) {
    const QString &text = piece.text;
    Measured &measured = MeasuredOf(piece.font);
    std::vector<double> widths;
    widths.reserve(std::size_t(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool none = text[i].isLowSurrogate() || text[i].isMark();
        const QString character = text.mid(i, text[i].isHighSurrogate() ? 2 : 1);
        widths.push_back(none ? 0 : measured.WidthOf(character));
    }
    return widths;
}

QPainterPath OutlinesOf(const TextPiece &piece) {
    const QFont font = FontFor(piece.font);
    const double natural = QFontMetricsF(font).horizontalAdvance(piece.text);
    QPainterPath letters;
    letters.setFillRule(Qt::WindingFill);
    letters.addText({0, 0}, font, piece.text);
    QTransform place = QTransform::fromTranslate(piece.baseLine.x(), piece.baseLine.y());
    if (natural > 0) place.scale(piece.width / natural, 1);
    return place.map(letters);
}

bool IsIntricate(const QString &text) {
    const auto isIntricate = [](QChar c) {
        constexpr ushort kFirst = 0x590, kPunctuation = 0x2000, kSymbolsEnd = 0x2E80;
        return c.unicode() >= kFirst && (c.unicode() < kPunctuation || c.unicode() >= kSymbolsEnd);
    };
    return std::any_of(text.begin(), text.end(), isIntricate);
}

std::vector<MetafileRun> MetafileText::Runs(const TextPiece &piece, double scale) {
    if (!IsIntricate(piece.text)) return {{0, false, piece.text, Advances(piece, scale)}};
    const std::vector<LevelRun> levels = LevelRunsOf(piece.text, piece.rightToLeft);
    std::vector<std::vector<double>> widths;
    double natural = 0;
    for (const LevelRun &run : levels) {
        widths.push_back(
            ShapedWidths(piece.text.mid(run.from, run.count), FontFor(piece.font), run.level % 2 == 1));
        natural += SumOf(widths.back());
    }
    const double fit = natural > 0 && piece.width > 0 ? piece.width / natural : 1;
    std::vector<MetafileRun> runs;
    double left = 0;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        for (double &width : widths[i]) width *= fit;
        const QString text = piece.text.mid(levels[i].from, levels[i].count);
        runs.push_back(RunOf(text, widths[i], levels[i].level % 2 == 1, left, scale));
        left += SumOf(widths[i]);
    }
    std::erase_if(runs, [](const MetafileRun &run) { return run.text.isEmpty(); });
    return runs;
}

std::vector<int> MetafileText::Advances(const TextPiece &piece, double scale) {
    const std::vector<double> widths = Widths(piece);
    const double sum = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double fit = sum > 0 && piece.width > 0 ? piece.width / sum * scale : scale;
    std::vector<int> advances;
    advances.reserve(widths.size());
    double at = 0;
    for (const double width : widths) {
        const double next = at + width * fit;
        advances.push_back(int(std::round(next)) - int(std::round(at)));
        at = next;
    }
    return advances;
}

} // namespace vector
