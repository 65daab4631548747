#include "support/FileNames.h"

#include <QRegularExpression>

namespace support {

namespace {

constexpr qsizetype kMostBytes = 200;
constexpr qsizetype kLongestEnding = 20;

bool IsRefused(QChar character, NameRules rules) {
    if (character.unicode() < u' ' || character == QChar(0x7F)) return true;
    if (rules == NameRules::Posix) return character == u'/';
    return QStringLiteral("/\\:*?\"<>|").contains(character);
}

QString WithoutRefused(QString name, NameRules rules) {
    for (QChar &character : name)
        if (IsRefused(character, rules)) character = QLatin1Char('_');
    return name;
}

// Names of devices, with any ending; a point or a blank at the end would be dropped.
QString WithoutReserved(QString name) {
    static const QRegularExpression device(
        QStringLiteral(
            "\\A(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9\u00b9\u00b2\u00b3])\\s*(\\.|\\z)"),
        QRegularExpression::CaseInsensitiveOption);
    if (device.match(name).hasMatch()) name.prepend(QLatin1Char('_'));
    if (name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' '))) name += QLatin1Char('_');
    return name;
}

void ChopCharacter(QString &text) { text.chop(text.size() > 1 && text.back().isLowSurrogate() ? 2 : 1); }

QString Shortened(const QString &name) {
    if (name.toUtf8().size() <= kMostBytes) return name;
    const qsizetype point = name.lastIndexOf(QLatin1Char('.'));
    QString ending = point > 0 ? name.mid(point) : QString();
    if (ending.toUtf8().size() > kLongestEnding) ending.clear();
    QString start = name.left(std::min(name.size() - ending.size(), kMostBytes));
    while ((start + ending).toUtf8().size() > kMostBytes) ChopCharacter(start);
    return start + ending;
}

} // namespace

QString SafeFileName(const QString &title, NameRules rules) {
    QString name = Shortened(WithoutRefused(title, rules));
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        name.prepend(QLatin1Char('_'));
    return rules == NameRules::Windows ? WithoutReserved(name) : name;
}

} // namespace support
