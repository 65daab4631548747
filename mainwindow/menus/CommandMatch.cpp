#include "mainwindow/menus/CommandMatch.h"

#include <algorithm>
#include <utility>

namespace mainwindow {

namespace {

// How well a command fits; smaller is better, kNoFit not at all.
enum Fit { kBeginsWithQuery, kWordsOfCaption, kInCaption, kElsewhere, kNoFit };

bool BeginsAWord(const QString &text, const QString &part) {
    for (qsizetype at = text.indexOf(part, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(part, at + 1, Qt::CaseInsensitive))
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
    return false;
}

Fit FitOfWord(const SearchTexts &command, const QString &word) {
    if (BeginsAWord(command.caption, word)) return kWordsOfCaption;
    if (command.caption.contains(word, Qt::CaseInsensitive)) return kInCaption;
    return command.others.contains(word, Qt::CaseInsensitive) ? kElsewhere : kNoFit;
}

Fit FitOf(const SearchTexts &command, const QStringList &words) {
    Fit worst = kBeginsWithQuery;
    for (const QString &word : words) worst = std::max(worst, FitOfWord(command, word));
    return command.caption.startsWith(words.join(u' '), Qt::CaseInsensitive) ? kBeginsWithQuery : worst;
}

} // namespace

QString PlainCaption(const QString &caption) {
    QString plain = caption;
    plain.replace(QStringLiteral("&&"), QString(QChar::Null));
    plain.remove(u'&').replace(QChar::Null, u'&');
    while (plain.endsWith(u'.')) plain.chop(1);
    return plain;
}

std::vector<int> MatchingCommands(const std::vector<SearchTexts> &commands, const QString &query) {
    const QStringList words = query.simplified().split(u' ', Qt::SkipEmptyParts);
    std::vector<std::pair<Fit, int>> fits;
    for (int at = 0; at < int(commands.size()); ++at)
        if (const Fit fit = FitOf(commands[std::size_t(at)], words); fit != kNoFit)
            fits.emplace_back(fit, at);
    std::sort(fits.begin(), fits.end());
    std::vector<int> positions;
    for (const auto &[fit, at] : fits) positions.push_back(at);
    return positions;
}

} // namespace mainwindow
