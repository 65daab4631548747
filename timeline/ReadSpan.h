// A date or a time from one date to another, as a person writes it in a box.
#pragma once

#include "timeline/ReadDateAsWritten.h"
#include "timeline/Span.h"

namespace timeline {

struct SpanRead {
    std::optional<Span> span;
    QString told; // the dates in full, or why there are none, for the person who types
};

// Whatever ReadDateAsWritten reads, or two of these with a hyphen, a dash, "to" or "until" between them: 14
// Mar - 2 Apr, 14 - 20 March, from Monday to +2w. The second is seen from the first, and a period is its last
// day there. Or how long it lasts, the first day counted: 14 Mar for 2w.
SpanRead ReadSpanAsWritten(const QString &text, const DateView &view, const QLocale &locale = QLocale());

} // namespace timeline
