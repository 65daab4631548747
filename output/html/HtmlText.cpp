#include "output/html/HtmlText.h"

#include <QUrl>

namespace output {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsAllowed(char32_t letter) {
    if (letter < 0x20) return letter == U'\t';
    return !(letter >= 0x7F && letter < 0xA0) && !QChar::isNonCharacter(letter);
}

void Put(QString &out, char32_t letter) {
    if (!IsAllowed(letter)) return;
    switch (letter) {
    case U'&':
        out += QLatin1String("&amp;");
        break;
    case U'<':
        out += QLatin1String("&lt;");
        break;
    case U'>':
        out += QLatin1String("&gt;");
        break;
    case U'"':
        out += QLatin1String("&quot;");
        break;
    default:
        out += QChar::fromUcs4(letter);
    }
}

} // namespace

QString HtmlText(const QString &text) {
    QString out;
    out.reserve(text.size() + text.size() / 8);
    for (const char32_t letter : text.toUcs4())
        Put(out, QChar::isSurrogate(letter) || letter > 0x10FFFF ? kReplacement : letter);
    return out;
}

QString AddressOf(const QString &fileName) { return QString::fromLatin1(QUrl::toPercentEncoding(fileName)); }

} // namespace output
