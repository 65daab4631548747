#include "timeline/DateLanguage.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/DateText.h"
#include "timeline/TimelineNodes.h"

#include <QStringList>
#include <vector>

namespace timeline {

namespace {

using document::tags::kTheDate;

struct Foreign {
    diagram::Node *node;
    QString date;
};

std::vector<Foreign> ForeignDates(const diagram::Surface &flow, const QLocale &locale) {
    std::vector<Foreign> dates;
    for (diagram::Node &node : flow.Nodes()) {
        if (!IsTimelineMaterial(node)) continue;
        const QString date = document::GetTag(node, kTheDate);
        if (!IsWrittenIn(date, locale) && ParseDate(date, locale)) dates.push_back({&node, date});
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

void TranslateDates(diagram::Surface &Flow, const QLocale &locale) {
    const std::vector<Foreign> dates = ForeignDates(Flow, locale);
    if (dates.empty()) return;
    QStringList texts;
    for (const Foreign &foreign : dates) texts << foreign.date;
    NoteDateLanguageOf(texts);
    for (const Foreign &foreign : dates)
        if (const auto date = ParseDate(foreign.date, locale)) Write(*foreign.node, *date, locale);
}

} // namespace timeline
