// The mark before texts that a spreadsheet would take for something else than text.
#pragma once

#include <QString>

namespace storage {

// Spreadsheets take a cell that begins with it for text.
inline constexpr QChar kTextMark(u'\'');

// True for a text that a spreadsheet would calculate or turn into a value: one that begins with = + - @, a
// tab or a line end; numbers, dates, times, and True and False, but for whole numbers that come back as they
// were; and a text in which marks stand before such a one.
bool NeedsMark(QStringView text);

// The text with a mark if it needs one, and back. WithoutMark(WithMark(t)) is t, whatever t is. A mark that
// has no reason is part of the text.
QString WithMark(const QString &text);
QStringView WithoutMark(QStringView text);

} // namespace storage
