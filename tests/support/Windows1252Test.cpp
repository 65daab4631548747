#include "support/Windows1252.h"

#include <gtest/gtest.h>

namespace support {

TEST(Windows1252, HasAllCharactersOfTheCodePageAndKeepsBytesWithoutOne) {
    EXPECT_EQ(FromWindows1252("\x80 \x85 \x96 \x99 \x9F \xE9"),
              QString::fromUtf8("\xE2\x82\xAC \xE2\x80\xA6 \xE2\x80\x93 \xE2\x84\xA2 \xC5\xB8 \xC3\xA9"));
    EXPECT_EQ(FromWindows1252("\x81"), QString(QChar(0x81)));
}

TEST(Windows1252, NoBytesAreNoText) { EXPECT_EQ(FromWindows1252(QByteArrayView()), QString()); }

} // namespace support
