#include "storage/Salvage.h"

#include "StorageFixture.h"

#include <QtEndian>
#include <random>

namespace storage::test {

namespace {

constexpr int kPage = 4096;
constexpr int kRows = 600;

class SalvageTest : public StorageTest {
protected:
    SalvageTest() {
        Sample("a.map", kRows);
        bytes_ = Content(Path("a.map"));
    }
    Salvaged Read() {
        WriteContent(Path("a.map"), bytes_);
        return SalvageDatabase(Path("a.map"), {"Nodes", "Links"});
    }
    static int Count(Salvaged &salvaged) {
        return salvaged.database.OpenRecordset("SELECT COUNT(*) FROM Nodes").Long(0);
    }
    static QStringList Keys(Salvaged &salvaged) {
        QStringList keys;
        for (Recordset rows = salvaged.database.OpenRecordset("SELECT [Key] FROM Nodes"); !rows.EndOfFile();
             rows.MoveNext())
            keys += rows.Text(0);
        return keys;
    }
    int Pages() const { return static_cast<int>(bytes_.size()) / kPage; }
    // The pages that hold rows, and the one that leads to them.
    std::vector<int> PagesOfKind(char kind) const {
        std::vector<int> pages;
        for (int page = 1; page < Pages(); ++page)
            if (bytes_[page * kPage] == kind) pages.push_back(page);
        return pages;
    }
    void Spoil(int page) { bytes_.replace(page * kPage, kPage, QByteArray(kPage, '\x55')); }

    QByteArray bytes_;
};

} // namespace

TEST_F(SalvageTest, ASoundFileComesWholeAndInItsOrder) {
    Salvaged salvaged = Read();
    EXPECT_EQ(Count(salvaged), kRows);
    EXPECT_EQ(salvaged.lost, QStringList());
    EXPECT_EQ(Keys(salvaged).first(), "node0");
    EXPECT_EQ(Keys(salvaged).last(), QStringLiteral("node%1").arg(kRows - 1));
    EXPECT_EQ(Content(Path("a.map")), bytes_);
}

TEST_F(SalvageTest, EachDamagedPageCostsItsOwnRowsAlone) {
    const std::vector<int> leaves = PagesOfKind('\x0D');
    ASSERT_GT(leaves.size(), 4U);
    const QByteArray whole = bytes_;
    int most = 0;
    for (const int page : leaves) {
        bytes_ = whole;
        Spoil(page);
        Salvaged salvaged = Read();
        most = std::max(most, kRows - Count(salvaged));
        EXPECT_LT(Count(salvaged), kRows);
        EXPECT_EQ(salvaged.lost.size(), 1) << salvaged.lost.join('|').toStdString();
        QStringList sorted = Keys(salvaged);
        EXPECT_EQ(sorted.removeDuplicates(), 0);
    }
    EXPECT_LT(most, 200);
    bytes_ = whole;
    Spoil(leaves.front());
    Spoil(leaves[leaves.size() / 2]);
    Spoil(leaves.back());
    Salvaged salvaged = Read();
    EXPECT_GT(Count(salvaged), kRows - 3 * most - 1);
    EXPECT_EQ(salvaged.lost.size(), 3);
}

TEST_F(SalvageTest, ARowWhoseLongValueIsLostKeepsItsOtherCells) {
    {
        Database database = OpenDatabase(Path("a.map"));
        database.Execute("UPDATE Nodes SET Data=? WHERE [Key]='node7'", kFailOnError,
                         {QByteArray(60000, 'd')});
    }
    bytes_ = Content(Path("a.map"));
    const qsizetype at = bytes_.indexOf(QByteArray(4000, 'd'));
    ASSERT_GT(at, 0);
    // The chain of pages of the value now leads out of the file.
    qToBigEndian(quint32(0x7FFFFFF), bytes_.data() + at / kPage * kPage);
    Salvaged salvaged = Read();
    EXPECT_EQ(Count(salvaged), kRows);
    EXPECT_EQ(salvaged.lost, QStringList("Nodes, row 8, Data: the value cannot be read"));
    Recordset row =
        salvaged.database.OpenRecordset("SELECT [Key], [Level], [Data] FROM Nodes WHERE [Key]='node7'");
    EXPECT_EQ(row.Long(1), 7);
    EXPECT_TRUE(row.IsNull(2));
}

TEST_F(SalvageTest, AFileWithoutTheTablesOrWithoutAnythingIsAnError) {
    EXPECT_EQ(NumberOf([&] { SalvageDatabase(Path("a.map"), {"Links"}); }), kErrDamaged);
    EXPECT_EQ(NumberOf([&] { SalvageDatabase(Path("none.map"), {"Nodes"}); }), kErrFileNotFound);
    for (const int size : {0, 15, 16, 99, 100, 511, 4095}) {
        WriteContent(Path("a.map"), bytes_.left(size));
        const long number = NumberOf([&] { SalvageDatabase(Path("a.map"), {"Nodes"}); });
        EXPECT_TRUE(number == kErrUnrecognizedFormat || number == kErrDamaged) << size << ' ' << number;
    }
}

TEST_F(SalvageTest, PagesThatLeadToEachOtherEnd) {
    const std::vector<int> inner = PagesOfKind('\x05');
    ASSERT_FALSE(inner.empty());
    // Every way leads to the first leaf, then to the page itself.
    const int page = inner.front() * kPage;
    const int cells = qFromBigEndian<quint16>(bytes_.constData() + page + 3);
    const QByteArray whole = bytes_;
    for (const quint32 target : {quint32(PagesOfKind('\x0D').front() + 1), quint32(inner.front() + 1)}) {
        bytes_ = whole;
        for (int i = 0; i < cells; ++i) {
            const int cell = page + qFromBigEndian<quint16>(bytes_.constData() + page + 12 + 2 * i);
            qToBigEndian(target, bytes_.data() + cell);
        }
        qToBigEndian(target, bytes_.data() + page + 8);
        Salvaged salvaged = Read();
        EXPECT_LE(Count(salvaged), kRows);
    }
}

TEST_F(SalvageTest, RandomDamageEndsInAnErrorOrInTables) {
    const QByteArray whole = bytes_;
    for (int seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        bytes_ = whole;
        for (int i = 0; i < 1 + seed / 4; ++i) bytes_[random() % bytes_.size()] = static_cast<char>(random());
        const long number = NumberOf([&] {
            Salvaged salvaged = Read();
            EXPECT_LE(Count(salvaged), kRows + 200);
        });
        EXPECT_TRUE(number == 0 || number == kErrDamaged || number == kErrUnrecognizedFormat)
            << seed << ' ' << number;
    }
}

} // namespace storage::test
