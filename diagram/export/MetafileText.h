// Text as metafiles keep it: how far each character goes, and the bytes of the Western code page.
#pragma once

#include <QByteArray>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <unordered_map>
#include <vector>

namespace diagram {

class Font;
struct TextPiece;

class MetafileText {
public:
    // For each UTF-16 unit of the piece the way to the next, in order of reading; their sum is the width
    // times the scale, rounded.
    std::vector<int> Advances(const TextPiece &piece, double scale);

private:
    const QFontMetricsF &MetricsOf(const Font &font);
    double WidthOf(const QString &text, const Font &font); // of one character
    std::vector<double> Widths(const TextPiece &piece);

    std::unordered_map<std::size_t, QFontMetricsF> metrics_; // by the font's hash
    std::unordered_map<std::size_t, QHash<QString, double>> widths_;
};

// One byte for each UTF-16 unit; what the code page lacks becomes its plain letter or '?', and the second
// half of a pair 0.
QByteArray ToWindows1252(const QString &text);

} // namespace diagram
