#include "storage/jet/Values.h"

#include "storage/jet/Failure.h"
#include "StorageFixture.h"

#include <QtEndian>

namespace storage::jet {

namespace {

template <typename Number>
QByteArray Little(Number number) {
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray Numeric(char sign, quint32 low, quint32 next = 0) {
    return QByteArray(1, sign) + QByteArray(8, '\0') + Little(next) + Little(low);
}

} // namespace

TEST(JetValues, DecodeUnicode_ReadsUtf16WithNulAndSurrogates) {
    const QString text = QString::fromUtf8("a\0b \xE2\x80\x93 \xF0\x9F\x8C\x8A", 12);
    const QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    EXPECT_EQ(DecodeUnicode(bytes), text);
    EXPECT_EQ(DecodeUnicode({}), "");
    EXPECT_THROW(DecodeUnicode("abc"), Damaged);
}

TEST(JetValues, DecodeUnicode_ExpandsCompressedText) {
    EXPECT_EQ(DecodeUnicode("\xFF\xFE"
                            "caf\xE9"),
              QString::fromUtf8("caf\xC3\xA9"));
    EXPECT_EQ(DecodeUnicode(QByteArray("\xFF\xFE"
                                       "a\0\x13\x20\0b",
                                       8)),
              QString::fromUtf8("a\xE2\x80\x93"
                                "b"));
    EXPECT_EQ(DecodeUnicode(QByteArray("\xFF\xFE\0\x13\x20\x14\x20", 7)),
              QString::fromUtf8("\xE2\x80\x93\xE2\x80\x94"));
    EXPECT_EQ(DecodeUnicode("\xFF\xFE"), "");
    EXPECT_THROW(DecodeUnicode(QByteArray("\xFF\xFE\0\x13", 4)), Damaged);
}

TEST(JetValues, DecodeWhole_TakesTheSizeOfTheBytes) {
    EXPECT_EQ(DecodeWhole(QByteArray("\xFF", 1)), 255);
    EXPECT_EQ(DecodeWhole(Little(qint16(-2))), -2);
    EXPECT_EQ(DecodeWhole(Little(qint32(-2147483647))), -2147483647);
    EXPECT_EQ(DecodeWhole(Little(qint64(1) << 40)), qint64(1) << 40);
    EXPECT_THROW(DecodeWhole("abc"), Damaged);
    EXPECT_THROW(DecodeWhole({}), Damaged);
}

TEST(JetValues, DecodeSingle_IsExact) {
    EXPECT_EQ(DecodeSingle(Little(16777217.5f)), 16777217.5f);
    EXPECT_EQ(DecodeSingle(Little(0.1f)), 0.1f);
    EXPECT_EQ(DecodeDouble(Little(0.1)), 0.1);
    EXPECT_THROW(DecodeSingle("abc"), Damaged);
    EXPECT_THROW(DecodeDouble("abcd"), Damaged);
}

TEST(JetValues, DecodeMoney_HasFourPlaces) {
    EXPECT_EQ(DecodeMoney(Little(qint64(82500))), 8.25);
    EXPECT_EQ(DecodeMoney(Little(qint64(-1))), -0.0001);
    EXPECT_THROW(DecodeMoney("abcd"), Damaged);
}

TEST(JetValues, DecodeNumeric_ReadsSignWordsAndScale) {
    EXPECT_EQ(DecodeNumeric(Numeric(0, 82500), 4), 8.25);
    EXPECT_EQ(DecodeNumeric(Numeric('\x80', 5), 1), -0.5);
    EXPECT_EQ(DecodeNumeric(Numeric(0, 1, 1), 0), 4294967297.0);
    EXPECT_THROW(DecodeNumeric(Numeric(0, 1), 29), Damaged);
    EXPECT_THROW(DecodeNumeric("abcd", 0), Damaged);
}

TEST(JetValues, DecodeDate_HasFourDigitYears) {
    EXPECT_EQ(DecodeDate(Little(38000.5)), "2004-01-14 12:00:00");
    EXPECT_EQ(DecodeDate(Little(-1.25)), "1899-12-29 06:00:00");
    EXPECT_EQ(DecodeDate(Little(2958465.0)), "9999-12-31 00:00:00");
    EXPECT_THROW(DecodeDate(Little(1e9)), Damaged);
    EXPECT_THROW(DecodeDate(Little(std::numeric_limits<double>::quiet_NaN())), Damaged);
}

TEST(JetValues, DecodeGuid_PutsTheFirstGroupsInOrder) {
    EXPECT_EQ(DecodeGuid(QByteArray::fromHex("33221100554477668899AABBCCDDEEFF")),
              "{00112233-4455-6677-8899-AABBCCDDEEFF}");
    EXPECT_THROW(DecodeGuid("abc"), Damaged);
}

} // namespace storage::jet
