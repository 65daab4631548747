// The recent maps as the start page lists them.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <vector>

namespace settings {
class clsMRU;
}

namespace mainwindow {

struct RecentMap {
    // Nobody looks on another machine whether a map is there: that could take long, and would tell it of the
    // user.
    enum class State { There, Gone, OnNetwork };

    QString path;
    QString name;   // of the file, without its ending
    QString folder; // without a separator at its end
    QString when;   // of the last change; empty unless it is there
    State state = State::There;
    friend bool operator==(const RecentMap &, const RecentMap &) = default;
};

// The first `most` of the list, most recent first, those that are gone too. A path that stands there twice
// comes once.
std::vector<RecentMap> RecentMaps(const settings::clsMRU &list, int most, const QDateTime &now,
                                  const QLocale &locale = QLocale());

// "today 14:03", "yesterday", or the date, as one says it at the time `now`.
QString WhenText(const QDateTime &then, const QDateTime &now, const QLocale &locale = QLocale());

} // namespace mainwindow
