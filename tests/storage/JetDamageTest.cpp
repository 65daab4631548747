#include "storage/jet/JetFile.h"
#include "storage/JetImport.h"
#include "storage/Salvage.h"
#include "StorageFixture.h"
#include "tests/Paths.h"

#include <map>
#include <QtEndian>
#include <random>

namespace storage::test {

namespace {
constexpr int kPage = 4096;
constexpr int kRowCountAt = 16; // in a table's definition
constexpr int kSlotsAt = 14;    // on a data page: the first row's offset
constexpr int kDataRowsAt = 12;
constexpr int kChainPiece = 4000;                    // bytes of a chained value on each page
constexpr int kChainRowAt = kPage - 4 - kChainPiece; // where they start, behind the pointer to the next piece

QString Data(const QString &name) { return tests::Data(QStringLiteral("jet/") + name); }

quint32 Number32(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}
quint16 Number16(const QByteArray &bytes, qsizetype at) {
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}
// All cells of all tables.
QString Everything(const QString &path) {
    Database database = OpenDatabase(path);
    QString all;
    for (const TableDef &table : database.TableDefs()) {
        for (Recordset rows = database.OpenRecordset("SELECT * FROM " + table.name); !rows.EndOfFile();
             rows.MoveNext()) {
            for (int i = 0; i < rows.FieldCount(); ++i)
                all += (rows.IsNull(i) ? QString(u'0') : QString::fromLatin1(rows.Bytes(i).toHex())) + u',';
        }
    }
    return all;
}
} // namespace

// Files that were changed on purpose.
class JetDamageTest : public StorageTest {
protected:
    JetDamageTest() {
        jet::JetFile file(Data("old.mdb"));
        for (const jet::JetTable &table : file.UserTables())
            definitions_[table.Name()] = table.Page() * qsizetype(kPage);
    }
    void SetRowCount(const QString &table, quint32 count) {
        qToLittleEndian(count, bytes_.data() + definitions_.at(table) + kRowCountAt);
    }
    quint32 RowCount(const QString &table) { return Number32(bytes_, definitions_.at(table) + kRowCountAt); }
    // The place of the first data page of a table with at least `rows` rows.
    qsizetype DataPage(const QString &table, int rows) {
        const auto owner = static_cast<quint32>(definitions_.at(table) / kPage);
        for (qsizetype at = 0; at < bytes_.size(); at += kPage) {
            if (bytes_[at] == 1 && Number32(bytes_, at + 4) == owner &&
                Number16(bytes_, at + kDataRowsAt) >= rows)
                return at;
        }
        ADD_FAILURE() << "no data page";
        return 0;
    }
    quint16 Slot(qsizetype page, int row) { return Number16(bytes_, page + kSlotsAt + row * 2); }
    void SetSlot(qsizetype page, int row, int value) {
        qToLittleEndian(static_cast<quint16>(value), bytes_.data() + page + kSlotsAt + row * 2);
    }
    // Takes the template's file and gives its column MAP a new value, chained over new pages at the end of
    // the file.
    QByteArray AppendChain(int length) {
        bytes_ = Content(Data("template.mdb"));
        const QByteArray head("\xAF\x13\0", 3); // the length of the old value
        for (headAt_ = bytes_.indexOf(head); headAt_ >= 0; headAt_ = bytes_.indexOf(head, headAt_ + 1)) {
            if (bytes_[headAt_ + 3] == 0 || bytes_[headAt_ + 3] == 0x40) break;
        }
        EXPECT_GE(headAt_, 0);
        SetLength(length);
        qToLittleEndian(static_cast<quint32>(bytes_.size() / kPage) << 8, bytes_.data() + headAt_ + 4);
        QByteArray value(length, '\0');
        for (int i = 0; i < length; ++i) value[i] = static_cast<char>(i * 31 + i / 256);
        for (int at = 0; at < length; at += kChainPiece)
            AppendPiece(value.mid(at, kChainPiece), at + kChainPiece < length);
        return value;
    }
    void AppendPiece(const QByteArray &piece, bool hasNext) {
        QByteArray page(kPage, '\0');
        page[0] = 1;
        page[1] = 1;
        page.replace(4, 4, "LVAL");
        page[kDataRowsAt] = 1;
        const auto start = static_cast<quint16>(kPage - 4 - piece.size());
        qToLittleEndian(start, page.data() + kSlotsAt);
        const auto next = static_cast<quint32>(bytes_.size() / kPage + 1) << 8;
        qToLittleEndian(hasNext ? next : 0, page.data() + start);
        page.replace(start + 4, piece.size(), piece);
        bytes_ += page;
    }
    void SetLength(quint32 length) { qToLittleEndian(length, bytes_.data() + headAt_); }
    QStringList Groups() {
        WriteContent(Path("changed.map"), bytes_);
        Database database = OpenDatabase(Path("changed.map"));
        QStringList names;
        for (Recordset rows = database.OpenRecordset("SELECT [Group] FROM Groups"); !rows.EndOfFile();
             rows.MoveNext())
            names += rows.Text(0);
        return names;
    }
    long OpenNumber() {
        WriteContent(Path("changed.map"), bytes_);
        return NumberOf([&] { OpenDatabase(Path("changed.map")); });
    }
    QByteArray bytes_ = Content(Data("old.mdb"));

private:
    qsizetype headAt_ = 0;
    std::map<QString, qsizetype> definitions_;
};

TEST_F(JetDamageTest, RowCount_MustBeThatOfTheDefinition) {
    ASSERT_EQ(OpenNumber(), 0);
    const quint32 count = RowCount("Groups");
    ASSERT_EQ(count, 2u);
    SetRowCount("Groups", count + 1);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
    SetRowCount("Groups", count - 1);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
}

TEST_F(JetDamageTest, DeletedRow_DoesNotAppear) {
    const QStringList before = Groups();
    ASSERT_EQ(before.size(), 2);
    const qsizetype page = DataPage("Groups", 2);
    SetSlot(page, 0, Slot(page, 0) | 0xC000);
    SetRowCount("Groups", 1);
    EXPECT_EQ(Groups(), before.mid(1));
}

TEST_F(JetDamageTest, DeletedRowThatGaveUpItsPlace_LeavesItsNeighbourWhole) {
    const QStringList before = Groups();
    const qsizetype page = DataPage("Groups", 2);
    const int first = Slot(page, 0);
    SetSlot(page, 0, 0xD000);
    // The second row now reaches to where the first one ended; move it there.
    const int second = Slot(page, 1);
    const QByteArray row = bytes_.mid(page + second, first - second);
    bytes_.replace(page + kPage - row.size(), row.size(), row);
    SetSlot(page, 1, static_cast<int>(kPage - row.size()));
    SetRowCount("Groups", 1);
    EXPECT_EQ(Groups(), before.mid(1));
}

TEST_F(JetDamageTest, GhostOfADeletedRowThatHadMoved_DoesNotAppear) {
    const QStringList before = Groups();
    const qsizetype page = DataPage("Groups", 2);
    SetSlot(page, 1, Slot(page, 1) | 0x8000); // what is left of it when its pointer is gone
    SetRowCount("Groups", 1);
    EXPECT_EQ(Groups(), before.mid(0, 1));
}

TEST_F(JetDamageTest, RowThatHasMoved_IsReadWhereItsPointerStands) {
    const QStringList before = Groups();
    const qsizetype page = DataPage("Groups", 2);
    const int first = Slot(page, 0);
    qToLittleEndian(static_cast<quint32>(page / kPage << 8 | 1), bytes_.data() + page + first);
    SetSlot(page, 0, first | 0x4000);
    SetSlot(page, 1, Slot(page, 1) | 0x8000);
    SetRowCount("Groups", 1);
    EXPECT_EQ(Groups(), before.mid(1));
}

TEST_F(JetDamageTest, PointerInACircleOrToAnotherTable_IsDamage) {
    const qsizetype page = DataPage("Groups", 2);
    const int first = Slot(page, 0);
    SetSlot(page, 0, first | 0x4000);
    qToLittleEndian(static_cast<quint32>(page / kPage << 8), bytes_.data() + page + first);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
    qToLittleEndian(static_cast<quint32>(DataPage("Levels", 1) / kPage << 8), bytes_.data() + page + first);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
    qToLittleEndian(quint32(0x00FFFF00), bytes_.data() + page + first);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
}

TEST_F(JetDamageTest, LostLongValue_IsDamage) {
    bool found = false;
    for (qsizetype at = 0; at < bytes_.size() && !found; at += kPage) {
        found = bytes_[at] == 1 && bytes_.mid(at + 4, 4) == "LVAL";
        if (found) bytes_.replace(at, kPage, QByteArray(kPage, '\0'));
    }
    ASSERT_TRUE(found);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
}

TEST_F(JetDamageTest, LongValueOverManyPages_IsReadWhole) {
    const QByteArray value = AppendChain(200000);
    WriteContent(Path("long.map"), bytes_);
    Database database = OpenDatabase(Path("long.map"));
    EXPECT_EQ(database.OpenRecordset("SELECT MAP FROM Template").Bytes(0), value);
}

TEST_F(JetDamageTest, LongValueInACircle_IsDamage) {
    AppendChain(40000);
    const quint32 first = static_cast<quint32>(bytes_.size() / kPage - 2) << 8;
    qToLittleEndian(first, bytes_.data() + bytes_.size() - kPage + kChainRowAt); // the last page leads back
    SetLength(60000);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
}

TEST_F(JetDamageTest, LongValueLongerThanTheFile_IsDamage) {
    AppendChain(40000);
    SetLength(0x3FFFFFFF);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
}

TEST_F(JetDamageTest, OtherVersions_AreNotRecognized) {
    bytes_[0x14] = 2;
    EXPECT_EQ(OpenNumber(), kErrUnrecognizedFormat);
}

TEST_F(JetDamageTest, CutOffFile_DoesNotOpen) {
    for (const char *name : {"old.mdb", "plan97.mdb"}) {
        const QByteArray whole = Content(Data(name));
        const int page = whole[0x14] == 0 ? kPage / 2 : kPage;
        for (const qsizetype size : {whole.size() - 1, whole.size() - page + 1, whole.size() / 2 + 7,
                                     qsizetype(page), qsizetype(page - 1), qsizetype(20)}) {
            bytes_ = whole.left(size);
            const long number = OpenNumber();
            EXPECT_TRUE(number == kErrDamaged || number == kErrUnrecognizedFormat) << name << ' ' << size;
        }
    }
}

TEST_F(JetDamageTest, FileCutBetweenPages_OpensOnlyWhenNothingIsLost) {
    for (const char *name : {"old.mdb", "plan97.mdb", "plan.mdb"}) {
        const QByteArray whole = Content(Data(name));
        const QString complete = Everything(Data(name));
        const int page = whole[0x14] == 0 ? kPage / 2 : kPage;
        int opened = 0;
        for (qsizetype size = whole.size() - page; size > 0; size -= page) {
            WriteContent(Path("cut.map"), whole.left(size));
            const long number = NumberOf([&] {
                EXPECT_EQ(Everything(Path("cut.map")), complete) << name << ' ' << size;
                ++opened;
            });
            EXPECT_TRUE(number == 0 || number == kErrDamaged) << name << ' ' << size;
        }
        EXPECT_LE(opened, 1) << name; // the last page of one of the files is a spare one
    }
}

TEST_F(JetDamageTest, RandomDamage_EndsInAnErrorOrInReadableTables) {
    constexpr int kSeeds = 60;
    constexpr int kMilliseconds = 5000;
    const char *const files[] = {"plan.mdb", "plan97.mdb", "old.mdb"};
    for (int seed = 0; seed < kSeeds; ++seed) {
        std::mt19937 random(seed);
        bytes_ = Content(Data(files[seed % 3]));
        const bool onlyDefinitions = seed % 2 == 0; // the first pages lead to all others
        const auto reach = static_cast<unsigned>(onlyDefinitions ? 24 * kPage / 2 : bytes_.size());
        for (int i = 0; i < 1 + seed; ++i) bytes_[random() % (reach - 64) + 64] = static_cast<char>(random());
        WriteContent(Path("changed.map"), bytes_);
        const long number = NumberOf([&] { ImportJet(Path("changed.map"), kMilliseconds); });
        EXPECT_TRUE(number == 0 || number == kErrDamaged || number == kErrUnrecognizedFormat)
            << seed << ' ' << number;
    }
}

TEST_F(JetDamageTest, SalvageOfRandomDamageEndsInAnErrorOrInReadableTables) {
    constexpr int kSeeds = 40;
    constexpr int kMilliseconds = 5000;
    const char *const files[] = {"plan.mdb", "plan97.mdb", "old.mdb"};
    int salvaged = 0;
    for (int seed = 0; seed < kSeeds; ++seed) {
        std::mt19937 random(seed + 1000);
        bytes_ = Content(Data(files[seed % 3]));
        for (int i = 0; i < 1 + seed * 2; ++i)
            bytes_[random() % (bytes_.size() - 64) + 64] = static_cast<char>(random());
        WriteContent(Path("changed.map"), bytes_);
        QStringList lost;
        const long number = NumberOf([&] { SalvageJet(Path("changed.map"), lost, kMilliseconds); });
        EXPECT_TRUE(number == 0 || number == kErrDamaged || number == kErrUnrecognizedFormat)
            << seed << ' ' << number;
        salvaged += number == 0;
    }
    EXPECT_GT(salvaged, kSeeds / 2);
}

TEST_F(JetDamageTest, SalvageTakesWhatAnImportRefuses) {
    SetRowCount("Groups", RowCount("Groups") + 1);
    EXPECT_EQ(OpenNumber(), kErrDamaged);
    Salvaged salvaged = SalvageDatabase(Path("changed.map"), {"Groups"});
    EXPECT_EQ(salvaged.database.OpenRecordset("SELECT COUNT(*) FROM Groups").Long(0), 2);
    EXPECT_EQ(salvaged.lost, QStringList("Groups, 1 rows cannot be read"));
}

TEST_F(JetDamageTest, SalvageOfASoundFileIsTheFile) {
    for (const char *name : {"plan.mdb", "plan97.mdb", "old.mdb"}) {
        Database whole = OpenDatabase(Data(name));
        QStringList names;
        for (const TableDef &table : whole.TableDefs()) names += table.name;
        Salvaged salvaged = SalvageDatabase(Data(name), names);
        EXPECT_EQ(salvaged.lost, QStringList());
        for (const QString &table : names) {
            const QString count = "SELECT COUNT(*) FROM [" + table + "]";
            EXPECT_EQ(salvaged.database.OpenRecordset(count).Long(0), whole.OpenRecordset(count).Long(0));
        }
    }
}

} // namespace storage::test
