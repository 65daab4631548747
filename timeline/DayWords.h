// The words of other languages that dates are typed with: those that the names of days and months, which Qt
// knows, stand between.
#pragma once

#include <QLocale>
#include <QString>

namespace timeline {

// A text that was made Plain, with the words of that language put into English and all else as it is: "next
// freitag" for "nächsten freitag", "2 days ago" for "vor 2 tagen". The text itself where the language has no
// table here: there are tables for Dutch, French, German, Italian and Spanish.
QString WithEnglishWords(const QString &plain, const QLocale &locale);

} // namespace timeline
