// Texts to numbers and back the way map files and settings rely on, whatever the user's locale.
#pragma once

#include <cstdint>
#include <QString>

namespace support {

// The number at the beginning of `text`: a sign, digits, a decimal point, an exponent behind E or D, or &H
// and &O digits. Reading ends at the first character that cannot belong to the number; blanks, tabs and line
// feeds are skipped wherever they stand. No number gives 0. Hexadecimal and octal numbers of up to 16 bits
// come back signed in 16 bits, longer ones signed in 32. Error 6 "Overflow" above the range of a double, and
// for more than 32 bits.
double Val(const QString &text);

// "True" and "False" in any case, and texts that are a number as a whole (0 is false). Error 13 "Type
// mismatch" for everything else, the empty text included.
bool CBool(const QString &text);

// Rounds to the nearest integer, halves to the even one. Error 6 "Overflow" outside the range.
std::int32_t CLng(double number);
std::int16_t CInt(double number);

// A number as text: up to 7 significant digits for a float, 15 for a double, "." as the decimal point.
QString CStr(float number);
QString CStr(double number);

} // namespace support
