#include "output/compound/CompoundFile.h"

#include "support/Error.h"
#include "tests/Errors.h"
#include "tests/output/compound/CompoundReader.h"

namespace compound::testing {

namespace {

const ClassId kKind{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

QByteArray Content(qsizetype size, int seed) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i) bytes[i] = char(i * 7 + i / 251 + seed);
    return bytes;
}

void ExpectReadBack(const std::vector<Stream> &streams) {
    const auto read = ReadCompoundFile(CompoundFile(streams, kKind));
    ASSERT_EQ(read.size(), streams.size());
    for (const Stream &stream : streams)
        EXPECT_EQ(read.at(stream.name), stream.bytes) << qPrintable(stream.name);
}

long ErrorOf(const std::vector<Stream> &streams) {
    return tests::NumberOf([&] { CompoundFile(streams, kKind); });
}

} // namespace

TEST(CompoundFile, KeepsStreamsOfEverySize) {
    for (const qsizetype size : {0, 1, 63, 64, 65, 511, 512, 513, 4095, 4096, 4097, 100000})
        ExpectReadBack({{"A", Content(size, 1)}});
}

TEST(CompoundFile, KeepsManyStreams) {
    std::vector<Stream> streams;
    for (int i = 0; i < 100; ++i) streams.push_back({QStringLiteral("Stream %1").arg(i), Content(i * 97, i)});
    ExpectReadBack(streams);
}

TEST(CompoundFile, HasItsStreamsInABalancedTreeInTheOrderOfTheFormat) {
    CompoundReader reader(
        CompoundFile({{"Pictures", "1"}, {"Current User", "2"}, {"b", "3"}, {"A", "4"}}, kKind));
    EXPECT_EQ(reader.Streams().size(), 4u);
    EXPECT_EQ(reader.Names(), QStringList({"A", "b", "Pictures", "Current User"}));
    EXPECT_LE(reader.Depth(), 3);
}

// The header tells of 109 sectors of the FAT, each of which has 128 numbers.
TEST(CompoundFile, GrowsBeyondWhatTheHeaderTells) {
    ExpectReadBack({{"Large", Content(109 * 128 * 512 - 3000, 5)}, {"Small", Content(10, 6)}});
    ExpectReadBack({{"Large", Content(20'000'000, 5)}, {"Small", Content(10, 6)}});
}

TEST(CompoundFile, HoldsTheKindInItsRoot) {
    EXPECT_TRUE(CompoundFile({{"A", "x"}}, kKind)
                    .contains(QByteArray(reinterpret_cast<const char *>(kKind.data()), 16)));
}

TEST(CompoundFile, RaisesForNamesThatCantStand) {
    EXPECT_EQ(ErrorOf({{QString(), "x"}}), support::kErrInvalidProcedureCall);
    EXPECT_EQ(ErrorOf({{QString(32, u'a'), "x"}}), support::kErrInvalidProcedureCall);
    EXPECT_EQ(ErrorOf({{QString(31, u'a'), "x"}}), 0);
    EXPECT_EQ(ErrorOf({{"same", "x"}, {"SAME", "y"}}), support::kErrInvalidProcedureCall);
}

} // namespace compound::testing
