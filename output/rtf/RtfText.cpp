#include "output/rtf/RtfText.h"

#include <optional>
#include <QList>

namespace output {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsControl(char32_t letter) {
    return (letter < 0x20 && letter != U'\t') || (letter >= 0x7F && letter < 0xA0);
}

// The number behind \u is a signed one of sixteen bits.
void PutUnit(QByteArray &out, char16_t unit) {
    out += "\\u";
    out += QByteArray::number(int(std::int16_t(unit)));
    out += '?';
}

void PutUnicode(QByteArray &out, char32_t letter) {
    if (QChar::isNonCharacter(letter)) letter = kReplacement;
    if (QChar::requiresSurrogates(letter)) {
        PutUnit(out, QChar::highSurrogate(letter));
        PutUnit(out, QChar::lowSurrogate(letter));
    } else {
        PutUnit(out, char16_t(letter));
    }
}

void Put(QByteArray &out, char32_t letter) {
    if (IsControl(letter)) return;
    if (letter == U'\t')
        out += "\\tab ";
    else if (letter == U'\\' || letter == U'{' || letter == U'}')
        (out += '\\') += char(letter);
    else if (letter < 0x80)
        out += char(letter);
    else
        PutUnicode(out, letter);
}

// None for letters without a direction of their own, such as those of numbers.
std::optional<bool> GoesRightToLeft(char32_t letter) {
    switch (QChar::direction(letter)) {
    case QChar::DirR:
    case QChar::DirAL:
        return true;
    case QChar::DirL:
        return false;
    default:
        return std::nullopt;
    }
}

} // namespace

QByteArray RtfText(const QString &text) {
    QByteArray out;
    out.reserve(text.size() + text.size() / 4);
    for (const char32_t letter : text.toUcs4())
        Put(out, QChar::isSurrogate(letter) || letter > 0x10FFFF ? kReplacement : letter);
    return out;
}

std::vector<RtfStretch> StretchesOf(const QString &text, bool rightToLeft) {
    std::vector<RtfStretch> stretches;
    qsizetype begin = 0, at = 0;
    const auto end = [&](bool next) {
        if (at > begin) stretches.push_back({text.mid(begin, at - begin), rightToLeft});
        begin = at;
        rightToLeft = next;
    };
    while (at < text.size()) {
        const bool isPair =
            at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
        const char32_t letter =
            isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
        const std::optional<bool> goes = GoesRightToLeft(letter);
        if (goes && *goes != rightToLeft) end(*goes);
        at += isPair ? 2 : 1;
    }
    end(rightToLeft);
    return stretches;
}

} // namespace output
