#include "mainwindow/start/RecentMaps.h"

#include "document/WhereItIs.h"
#include "settings/clsMRU.h"
#include "support/clsPaths.h"
#include "support/Files.h"
#include "support/FileStem.h"

#include <algorithm>
#include <QCoreApplication>
#include <QFileInfo>

namespace mainwindow {

namespace {

constexpr int kSlots = 26; // of the list
const QString kDatePattern = QStringLiteral("d MMM yyyy");

QString Tr(const char *text) { return QCoreApplication::translate("StartPage", text); }

RecentMap Described(const QString &path, const QDateTime &now, const QLocale &locale) {
    RecentMap map{path, support::FileStem(path), support::clsPaths().DoGetFilePath(path), {}, {}};
    if (document::IsOnNetwork(path))
        map.state = RecentMap::State::OnNetwork;
    else if (!support::FileExists(path))
        map.state = RecentMap::State::Gone;
    else
        map.when = WhenText(QFileInfo(path).lastModified(), now, locale);
    return map;
}

// Without seconds, which the C locale has even in its short format.
QString TimeText(const QTime &time, const QLocale &locale) {
    return locale.toString(time, locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss")));
}

} // namespace

QString WhenText(const QDateTime &then, const QDateTime &now, const QLocale &locale) {
    const qint64 days = then.date().daysTo(now.date());
    if (days == 0) return Tr("today %1").arg(TimeText(then.time(), locale));
    if (days == 1) return Tr("yesterday");
    return locale.toString(then.date(), kDatePattern);
}

std::vector<RecentMap> RecentMaps(const settings::clsMRU &list, int most, const QDateTime &now,
                                  const QLocale &locale) {
    std::vector<RecentMap> maps;
    for (int position = 1; position <= kSlots && int(maps.size()) < most; ++position) {
        const QString path = list.File(position);
        const bool listed = std::ranges::any_of(maps, [&](const RecentMap &map) { return map.path == path; });
        if (!path.isEmpty() && !listed) maps.push_back(Described(path, now, locale));
    }
    return maps;
}

} // namespace mainwindow
