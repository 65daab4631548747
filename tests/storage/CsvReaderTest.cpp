#include "storage/text/CsvReader.h"

#include "storage/Database.h"
#include "storage/text/CsvWriter.h"
#include "support/Error.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QStringEncoder>

using storage::CsvEncoding;
using storage::CsvReader;

namespace {

QStringList Fields(const CsvReader &reader) {
    QStringList fields;
    for (int i = 0; i < reader.FieldCount(); ++i) fields.append(reader.Field(i).toString());
    return fields;
}

QList<QStringList> Read(QByteArray bytes) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file);
    QList<QStringList> records;
    while (reader.Next()) records.append(Fields(reader));
    return records;
}

storage::CsvForm FormOf(QByteArray bytes) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    return storage::RecogniseCsv(file);
}

QByteArray Encoded(const QString &text, QStringConverter::Encoding encoding, bool mark) {
    const auto flag = mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default;
    return QStringEncoder(encoding, flag).encode(text);
}

long ErrorOf(const QByteArray &bytes) {
    return tests::NumberOf([&] { Read(bytes); });
}

using Records = QList<QStringList>;

} // namespace

TEST(CsvReader, GivesNothingForAnEmptyFile) {
    EXPECT_EQ(Read(""), Records());
    EXPECT_EQ(Read("\xEF\xBB\xBF"), Records());
}

TEST(CsvReader, TakesEachKindOfLineEnd) {
    const Records expected{{"a", "b"}, {"c", "d"}};
    for (const char *bytes : {"a,b\r\nc,d\r\n", "a,b\nc,d\n", "a,b\rc,d\r", "a,b\r\nc,d", "a,b\nc,d"})
        EXPECT_EQ(Read(bytes), expected) << bytes;
}

TEST(CsvReader, KeepsSeparatorsQuotesAndLineEndsInsideQuotes) {
    EXPECT_EQ(Read("\"a,b\",\"say \"\"hi\"\"\",\"1\r\n2\n3\r4\"\r\nx\n"),
              (Records{{"a,b", "say \"hi\"", "1\r\n2\n3\r4"}, {"x"}}));
}

TEST(CsvReader, TakesAQuoteInsideOfAFieldAsItIs) {
    EXPECT_EQ(Read("a\"b,5\"\n"), (Records{{"a\"b", "5\""}}));
    EXPECT_EQ(Read("\"a\"b,c\n"), (Records{{"ab", "c"}}));
}

TEST(CsvReader, KeepsEmptyFieldsAndCountsEmptyRecords) {
    EXPECT_EQ(Read("a,,\n\n,\n"), (Records{{"a", "", ""}, {""}, {"", ""}}));
    QByteArray bytes = "a\n\n\"\",\nb\n";
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file);
    reader.Next();
    EXPECT_FALSE(reader.IsEmpty());
    reader.Next();
    EXPECT_TRUE(reader.IsEmpty());
    reader.Next();
    EXPECT_TRUE(reader.IsEmpty());
    reader.Next();
    EXPECT_EQ(reader.Row(), 4);
    EXPECT_EQ(reader.Field(0), u"b");
    EXPECT_EQ(reader.Field(7), QStringView());
    EXPECT_EQ(reader.Field(-1), QStringView());
}

TEST(CsvReader, TellsWhetherARecordBeginsWithAQuote) {
    QByteArray bytes = "a,\"b\"\n\"c\",d\n";
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file);
    reader.Next();
    EXPECT_FALSE(reader.BeginsQuoted());
    reader.Next();
    EXPECT_TRUE(reader.BeginsQuoted());
}

TEST(CsvReader, TellsTheSeparatorByTheHeader) {
    EXPECT_EQ(Read("a;b;c,d\n1;2;3\n").at(0), (QStringList{"a", "b", "c,d"}));
    EXPECT_EQ(Read("a\tb\n1,0\t2\n").at(1), (QStringList{"1,0", "2"}));
    EXPECT_EQ(Read("\"x;y;z\",b\n").at(0), (QStringList{"x;y;z", "b"}));
    EXPECT_EQ(Read("alone\n").at(0), QStringList{"alone"});
}

TEST(CsvReader, TellsTheEncodingByTheBytes) {
    const QString text = QStringLiteral("Type,N\u00E4me\r\nNode,\u20AC \u05D0 \U0001F600\r\n");
    const Records expected{{"Type", QStringLiteral("N\u00E4me")},
                           {"Node", QStringLiteral("\u20AC \u05D0 \U0001F600")}};
    using QStringConverter::Utf16BE, QStringConverter::Utf16LE, QStringConverter::Utf8;
    for (const auto encoding : {Utf8, Utf16LE, Utf16BE})
        for (const bool mark : {true, false})
            EXPECT_EQ(Read(Encoded(text, encoding, mark)), expected) << encoding << mark;
    EXPECT_EQ(FormOf(Encoded(text, Utf16LE, true)).encoding, CsvEncoding::Utf16Le);
    EXPECT_EQ(FormOf(Encoded(text, Utf8, true)).start, 3);
}

TEST(CsvReader, TakesBytesThatAreNoUtf8ForWindows1252) {
    EXPECT_EQ(Read("a,\x80 \xE4 \x93x\x94\n"),
              (Records{{"a", QStringLiteral("\u20AC \u00E4 \u201Cx\u201D")}}));
    EXPECT_EQ(Read("a,Caf\xE9"), (Records{{"a", QStringLiteral("Caf\u00E9")}})) << "at the very end";
    // Far behind the place where a first look ends.
    const QByteArray far = "a,b\n" + QByteArray(300000, 'x') + ",\xE4\n";
    EXPECT_EQ(Read(far).at(1).at(1), QStringLiteral("\u00E4"));
}

TEST(CsvReader, KeepsCharactersThatFallBetweenTwoPieces) {
    for (int shift = 0; shift < 5; ++shift) {
        const QByteArray bytes =
            "a,b\n" + QByteArray(65536 - 6 + shift, 'x') + "\xF0\x9F\x98\x80,\"y\r\nz\"\r\n";
        EXPECT_EQ(Read(bytes).at(1).at(0).right(2), QStringLiteral("\U0001F600"));
        EXPECT_EQ(Read(bytes).size(), 2);
    }
}

TEST(CsvReader, KeepsNulAndOtherControlCharacters) {
    EXPECT_EQ(Read(QByteArray("\xEF\xBB\xBFType,x\0y\x01\n", 13)).at(0).at(1),
              QString::fromLatin1("x\0y\x01", 4));
}

TEST(CsvReader, RefusesQuotesThatNeverClose) {
    EXPECT_EQ(ErrorOf("a,b\n\"c,d\n"), storage::kErrExternalFormat);
    try {
        Read("a,b\n\"c,d\n");
    } catch (const support::Error &error) {
        EXPECT_TRUE(error.Description().startsWith(
            QStringLiteral("External table isn't in the expected format.\r\n\r\nRow 2")));
    }
}

TEST(CsvReader, RefusesMoreFieldsThanAnyTableHas) {
    EXPECT_EQ(ErrorOf(QByteArray(4095, ',')), 0);
    EXPECT_EQ(ErrorOf(QByteArray(5000, ',')), storage::kErrExternalFormat);
}

TEST(CsvReader, RefusesARecordWithoutEnd) {
    EXPECT_EQ(ErrorOf(QByteArray(70 * 1024 * 1024, 'x')), storage::kErrExternalFormat);
}

TEST(CsvReader, ReadsAMillionRows) {
    QByteArray bytes;
    for (int i = 0; i < 1000000; ++i) bytes += "Node,\"a b\",17\r\n";
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    CsvReader reader(file);
    while (reader.Next()) ASSERT_EQ(reader.FieldCount(), 3);
    EXPECT_EQ(reader.Row(), 1000001);
    EXPECT_EQ(reader.Percent(), 100);
}

TEST(CsvWriter, WritesOneForm) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    storage::CsvWriter writer(file, {"Type", "Key"});
    writer.Text("say \"hi\"\r\n");
    writer.Long(-5);
    writer.Single(0.1f);
    writer.Single(100000);
    writer.Double(1.5);
    writer.Null();
    writer.Text("=1");
    writer.Text("");
    writer.EndRecord();
    writer.Finish();
    EXPECT_EQ(file.data(),
              "\xEF\xBB\xBFType, Key\r\n\"say \"\"hi\"\"\r\n\",-5,0.1,100000,1.5,,\"'=1\",\"\"\r\n");
}

TEST(CsvWriter, RaisesDiskFullWhereTheDeviceTakesNoMore) {
    QBuffer file; // was never opened
    storage::CsvWriter writer(file, {"Type"});
    EXPECT_EQ(tests::NumberOf([&] { writer.Finish(); }), support::kErrDiskFull);
}

TEST(CsvWriter, WritesNumbersThatReadBackAsTheSame) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    storage::CsvWriter writer(file, {"x"});
    const float singles[] = {0, -0.1f, 1.0f / 3, 16777216, 123456.78f, 3.4e38f, 1e-38f, -12345678};
    for (const float single : singles) writer.Single(single), writer.EndRecord();
    writer.Finish();
    const Records records = Read(file.data());
    for (int i = 0; i < int(std::size(singles)); ++i)
        EXPECT_EQ(records.at(i + 1).at(0).toFloat(), singles[i]);
}
