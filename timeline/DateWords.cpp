#include "timeline/DateWords.h"

#include "diagram/model/Node.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"

namespace timeline {

QStringList DateWords::operator()(const diagram::Node &node) {
    const QString written = DateOfNode(node);
    const std::optional<QDate> date = written.isEmpty() ? std::nullopt : ParseDate(written);
    if (!date) return {};
    QStringList words{FormatDate(*date, kDayPattern), InFull(*date)};
    if (Meant(node.Owner()) == date) words << sought_;
    return words;
}

std::optional<QDate> DateWords::Meant(const diagram::Surface &flow) {
    const auto known = meant_.constFind(&flow);
    if (known != meant_.constEnd()) return *known;
    return *meant_.insert(&flow, ReadDateAsWritten(sought_, ViewFrom(today_, flow)).date);
}

} // namespace timeline
