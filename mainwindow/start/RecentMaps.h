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
    // OnNetwork: not looked for, which could take long and would tell the other machine of the user.
    enum class State { There, Gone, OnNetwork };

    QString path;
    QString name;   // of the file, without its ending
    QString folder; // without a separator at its end
    QString when;   // of the last change; empty unless it is there
    State state = State::There;
    friend bool operator==(const RecentMap &, const RecentMap &) = default;
};

// The first `most` paths of the list, most recent first, each once, those of missing maps included.
std::vector<RecentMap> RecentMaps(const settings::clsMRU &list, int most, const QDateTime &now,
                                  const QLocale &locale = QLocale());

// "today 14:03", "yesterday", or the date, as one says it at the time `now`.
QString WhenText(const QDateTime &then, const QDateTime &now, const QLocale &locale = QLocale());

} // namespace mainwindow
