#include "timeline/DateLanguage.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/DateText.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <QStringList>
#include <vector>

namespace timeline {

namespace {

using document::tags::kTheDate;

constexpr int kHalfCentury = 50;

struct Misread {
    diagram::Node *node;
    QString date;
    bool foreign;
};

// Whether two digits of its year stand for another year than the map's other months say.
bool IsInOtherYears(const QString &date, const QLocale &locale, int century) {
    return HasShortYear(date) && ParseDate(date, locale, century) != ParseDate(date, locale);
}

std::vector<Misread> MisreadDates(const diagram::Surface &flow, const QLocale &locale, int century) {
    std::vector<Misread> dates;
    for (diagram::Node &node : flow.Nodes()) {
        if (!IsTimelineMaterial(node)) continue;
        const QString date = document::GetTag(node, kTheDate);
        const bool foreign = !IsWrittenIn(date, locale);
        if ((foreign || IsInOtherYears(date, locale, century)) && ParseDate(date, locale))
            dates.push_back({&node, date, foreign});
    }
    return dates;
}

void Write(diagram::Node &node, const QDate &date, const QLocale &locale) {
    const bool month = HasMonthForm(node.Text());
    const QString text = FormatDate(date, month ? kMonthPattern : kDayPattern, locale);
    document::SetTag(node, kTheDate, text);
    if (!month) node.SetText(text);
}

} // namespace

int CenturyOf(const diagram::Surface &Flow) {
    int first = 0, last = 0;
    for (const diagram::Node *month : LocateTimelineNodes(Flow)) {
        const QString text = document::GetTag(*month, kTheDate);
        const std::optional<QDate> date = HasShortYear(text) ? std::nullopt : ParseDate(text);
        if (!date) continue;
        first = first == 0 ? date->year() : std::min(first, date->year());
        last = std::max(last, date->year());
    }
    return first == 0 ? kStoredCentury : (first + last) / 2 - kHalfCentury;
}

void TranslateDates(diagram::Surface &Flow, const QLocale &locale) {
    const int century = CenturyOf(Flow);
    const std::vector<Misread> dates = MisreadDates(Flow, locale, century);
    QStringList foreign;
    for (const Misread &misread : dates)
        if (misread.foreign) foreign << misread.date;
    if (!foreign.isEmpty()) NoteDateLanguageOf(foreign);
    for (const Misread &misread : dates)
        if (const auto date = ParseDate(misread.date, locale, century)) Write(*misread.node, *date, locale);
}

} // namespace timeline
