// Values from the bytes that rows of a Jet file hold. Formats after the notes on the Jet format that come
// with the mdbtools and Jackcess projects. Bytes that are no value of the type raise Damaged.
#pragma once

#include <cstdint>
#include <QByteArray>
#include <QString>

namespace storage::jet {

// Text of Jet 4: UTF-16 in little-endian order, or behind the bytes FF FE compressed: one byte a character,
// and a zero byte changes to two bytes a character and back.
QString DecodeUnicode(const QByteArray &bytes);

// Little-endian numbers of 1, 2, 4 and 8 bytes; a byte is unsigned.
std::int64_t DecodeWhole(const QByteArray &bytes);
float DecodeSingle(const QByteArray &bytes);
double DecodeDouble(const QByteArray &bytes);
// A whole number of ten-thousandths in 8 bytes.
double DecodeMoney(const QByteArray &bytes);
// A sign byte (80 is minus) and 16 bytes: words of 32 bits, the most significant first, each in little-endian
// order. `scale` is the number of decimal places, 0 to 28.
double DecodeNumeric(const QByteArray &bytes, int scale);
// The text of a date, from days since 30 December 1899; the fraction is the time of the day on both sides of
// it.
QString DecodeDate(const QByteArray &bytes);
// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}".
QString DecodeGuid(const QByteArray &bytes);

} // namespace storage::jet
