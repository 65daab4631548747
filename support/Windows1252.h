// Windows-1252, the code page of older Western texts.
#pragma once

#include <array>
#include <QByteArrayView>
#include <QString>

namespace support {

// What the bytes 0x80 to 0x9F mean; the five that have no meaning stay the control characters that they are
// in Latin 1.
inline constexpr std::array<char16_t, 32> kWindows1252From80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t FromWindows1252(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kWindows1252From80[byte - 0x80] : char16_t(byte);
}

inline QString FromWindows1252(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text.append(QChar(FromWindows1252(static_cast<unsigned char>(byte))));
    return text;
}

} // namespace support
