// Which commands the words of a search mean.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace mainwindow {

// The caption as it reads: without the mark of its access key and without dots at its end.
QString PlainCaption(const QString &caption);

// What a command is found by: first the caption, then whatever else describes it.
struct SearchTexts {
    QString caption;
    QString others;
};

// The positions of those that have every word of `query`, as the beginning of a word or somewhere within one,
// upper and lower case alike: captions that begin with the query first, then those with words that do, then
// the others; within each in the order given. All of them for an empty query.
std::vector<int> MatchingCommands(const std::vector<SearchTexts> &commands, const QString &query);

} // namespace mainwindow
