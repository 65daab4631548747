// Dates in texts, as the engine's CDATE reads them.
#pragma once

#include <QString>

namespace storage {

// The date and time that a text means, as "yyyy-MM-dd HH:mm:ss", so that texts compare as dates do.
// Understands ISO dates, numbers in the order of the locale, month names of the locale and of English (also
// without a day, which is then the first), times with and without AM and PM, and day numbers counted from 30
// December 1899. Empty when the text is no date.
QString ReadDate(const QString &text);

// The moment that a day number counted from 30 December 1899 means, in the same form; empty outside the years
// 100 to 9999.
QString DateTextOfSerial(double days);

} // namespace storage
