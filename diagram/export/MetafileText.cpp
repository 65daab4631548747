#include "diagram/export/MetafileText.h"

#include "diagram/model/Font.h"
#include "diagram/render/ContentTarget.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <QFont>

namespace diagram {

namespace {

constexpr double kTwipsPerPoint = 20;

// What the code page has at 0x80 to 0x9F.
constexpr ushort kHighHalf[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QFont FontFor(const Font &font) {
    QFont made(font.Name());
    made.setPixelSize(std::max(1, int(std::round(font.Size() * kTwipsPerPoint))));
    made.setBold(font.Bold());
    made.setItalic(font.Italic());
    made.setKerning(false);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

int InCodePage(QChar c) {
    const ushort code = c.unicode();
    if (code < 0x20) return ' ';
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return code;
    const auto found = std::find(std::begin(kHighHalf), std::end(kHighHalf), code);
    return found == std::end(kHighHalf) ? -1 : 0x80 + int(found - std::begin(kHighHalf));
}

int BestInCodePage(QChar c) {
    if (c.isLowSurrogate()) return 0;
    const int exact = InCodePage(c);
    if (exact >= 0) return exact;
    const QString parts = c.isSurrogate() ? QString() : QString(c).normalized(QString::NormalizationForm_KD);
    const int plain = parts.isEmpty() ? -1 : InCodePage(parts[0]);
    return plain >= 0 ? plain : '?';
}

} // namespace

const QFontMetricsF &MetafileText::MetricsOf(const Font &font) {
    const auto found = metrics_.find(font.Hash());
    if (found != metrics_.end()) return found->second;
    return metrics_.emplace(font.Hash(), QFontMetricsF(FontFor(font))).first->second;
}

double MetafileText::WidthOf(const QString &text, const Font &font) {
    QHash<QString, double> &known = widths_[font.Hash()];
    const auto width = known.constFind(text);
    return width != known.constEnd() ? *width : *known.insert(text, MetricsOf(font).horizontalAdvance(text));
}

// A pair of units has its width at the first, and a mark stands on the character before it.
std::vector<double> MetafileText::Widths(const TextPiece &piece) {
    const QString &text = piece.text;
    std::vector<double> widths;
    widths.reserve(std::size_t(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool none = text[i].isLowSurrogate() || text[i].isMark();
        const QString character = text.mid(i, text[i].isHighSurrogate() ? 2 : 1);
        widths.push_back(none ? 0 : WidthOf(character, piece.font));
    }
    return widths;
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

QByteArray ToWindows1252(const QString &text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) bytes.append(char(BestInCodePage(c)));
    return bytes;
}

} // namespace diagram
