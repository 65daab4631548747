#include "timeline/DateWords.h"

#include "diagram/model/Node.h"
#include "timeline/DateText.h"
#include "timeline/Span.h"

namespace timeline {

QStringList DateWords::operator()(const diagram::Node &node) {
    const std::optional<Span> span = SpanOfNode(node);
    if (!span) return {};
    QStringList words{FormatDate(span->first, kDayPattern), InFull(span->first)};
    if (span->last) words << FormatDate(*span->last, kDayPattern) << InFull(*span->last);
    const std::optional<QDate> meant = Meant(node.Owner());
    if (meant && (meant == span->first || meant == span->last)) words << sought_;
    return words;
}

std::optional<QDate> DateWords::Meant(const diagram::Surface &flow) {
    const auto known = meant_.constFind(&flow);
    if (known != meant_.constEnd()) return *known;
    return *meant_.insert(&flow, ReadDateAsWritten(sought_, ViewFrom(today_, flow)).date);
}

} // namespace timeline
