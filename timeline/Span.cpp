#include "timeline/Span.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"
#include "timeline/ReadDateAsWritten.h"

#include <QCoreApplication>

namespace timeline {

namespace {

using document::tags::kEndDate;

QString DaysInWords(qint64 days) {
    return days == 1 ? QCoreApplication::translate("dates", "one day")
                     : QCoreApplication::translate("dates", "%1 days").arg(days);
}

} // namespace

std::optional<Span> SpanOfNode(const diagram::Node &node) {
    const QString date = DateOfNode(node);
    const std::optional<QDate> first = date.isEmpty() ? std::nullopt : ParseDate(date);
    if (!first) return std::nullopt;
    Span span{*first, EndOfNode(node)};
    if (span.last && *span.last < span.first) span.last.reset();
    return span;
}

// Stored in ISO form, the same in every language: no node shows the end, so nothing translates it.
std::optional<QDate> EndOfNode(const diagram::Node &node) {
    const QDate last = QDate::fromString(document::GetTag(node, kEndDate), Qt::ISODate);
    return IsInYears(last) ? std::optional(last) : std::nullopt;
}

void SetEndOfNode(diagram::Node &node, const std::optional<QDate> &last) {
    const QString text = last ? last->toString(Qt::ISODate) : QString();
    if (document::GetTag(node, kEndDate) != text) document::SetTag(node, kEndDate, text);
}

std::set<QDate> MonthsOfEnds(const diagram::Surface &flow) {
    std::set<QDate> months;
    for (const diagram::Node &node : flow.Nodes()) {
        if (!node.Selectable() || !EndOfNode(node)) continue;
        const std::optional<Span> span = SpanOfNode(node);
        if (span && span->last) months.insert(QDate(span->last->year(), span->last->month(), 1));
    }
    return months;
}

Span BegunOn(const Span &span, const QDate &first) {
    if (!span.last) return {first};
    return {first, span.last->addDays(span.first.daysTo(first))};
}

QString AsWritten(const Span &span) {
    const QString first = FormatDate(span.first, kDayPattern);
    return span.last ? first + QStringLiteral(" - ") + FormatDate(*span.last, kDayPattern) : first;
}

QString InFull(const Span &span) {
    if (!span.last) return InFull(span.first);
    return QCoreApplication::translate("dates", "%1 to %2, %3")
        .arg(InFull(span.first), InFull(*span.last), DaysInWords(span.first.daysTo(*span.last) + 1));
}

} // namespace timeline
