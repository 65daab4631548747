// The binary form, read back record by record.
#include "output/powerpoint/PptRecords.h"
#include "tests/output/compound/CompoundReader.h"
#include "tests/output/powerpoint/PptxTest.h"

#include <gmock/gmock.h>
#include <QProcess>
#include <QStandardPaths>

namespace powerpoint::testing {

using namespace binary;

namespace {

struct ReadRecord {
    int type, version, instance;
    QByteArray content;
    std::vector<ReadRecord> records;
};

// The records of those bytes; those of a container too. Fails where they don't end with the bytes.
std::vector<ReadRecord> RecordsOf(const QByteArray &bytes) {
    constexpr int kHead = 8;
    std::vector<ReadRecord> records;
    qsizetype at = 0;
    while (at + kHead <= bytes.size()) {
        const int first = qFromLittleEndian<quint16>(bytes.constData() + at);
        const auto length = qsizetype(qFromLittleEndian<quint32>(bytes.constData() + at + 4));
        ReadRecord record{qFromLittleEndian<quint16>(bytes.constData() + at + 2),
                          first & 0xF,
                          first >> 4,
                          bytes.mid(at + kHead, length),
                          {}};
        EXPECT_LE(at + kHead + length, bytes.size()) << record.type;
        if (record.version == 0xF) record.records = RecordsOf(record.content);
        records.push_back(record);
        at += kHead + length;
    }
    EXPECT_EQ(at, bytes.size());
    return records;
}

void Collect(const std::vector<ReadRecord> &records, int type, std::vector<ReadRecord> &found) {
    for (const ReadRecord &record : records) {
        if (record.type == type) found.push_back(record);
        Collect(record.records, type, found);
    }
}

std::vector<ReadRecord> All(const std::vector<ReadRecord> &records, int type) {
    std::vector<ReadRecord> found;
    Collect(records, type, found);
    return found;
}

quint32 Number(const QByteArray &bytes, int at) { return qFromLittleEndian<quint32>(bytes.constData() + at); }
int Short(const QByteArray &bytes, int at) { return qFromLittleEndian<qint16>(bytes.constData() + at); }

class PptTest : public PptxTest {
protected:
    QString Binary() const { return MapFile(QStringLiteral("out.ppt")); }
    void Write(const PowerpointOptions &options) {
        ASSERT_TRUE(CreatePowerpoint(Binary(), *window, options));
        streams = compound::testing::ReadCompoundFile(support::ReadWholeFile(Binary()));
        records = RecordsOf(streams["PowerPoint Document"]);
    }
    QStringList Titles() const {
        QStringList titles;
        for (const ReadRecord &slide : All(records, kSlide))
            for (const ReadRecord &text : All(slide.records, kTextChars))
                titles << QString(reinterpret_cast<const QChar *>(text.content.constData()),
                                  text.content.size() / 2);
        return titles;
    }

    std::map<QString, QByteArray> streams;
    std::vector<ReadRecord> records;
};

} // namespace

TEST_F(PptTest, SlidesStandInTheOrderOfTheArrayWithTheirTitles) {
    AddSlice(QStringLiteral("Second")), AddSlice(QString::fromUtf8("Third \xD7\xA9\r\nline"));
    Write(kAllTitled);
    EXPECT_EQ(All(records, kSlide).size(), 3u);
    EXPECT_EQ(Titles(), (QStringList{"First", "Second", QString::fromUtf8("Third \xD7\xA9\vline")}));
    EXPECT_EQ(All(records, kMaster).size(), 1u);
}

TEST_F(PptTest, ABlankSlideHasThePictureAlone) {
    AddNode(0, 0, QString()).SetBounds(0, 0, 15000, 3000);
    Write(kAllBlank);
    EXPECT_TRUE(Titles().isEmpty());
    const auto anchors = All(All(records, kSlide).at(0).records, kArtAnchor);
    ASSERT_EQ(anchors.size(), 1u);
    const QByteArray &place = anchors[0].content; // top, left, right, bottom, in eighths of a point
    EXPECT_EQ(Short(place, 0), 0);
    EXPECT_EQ(Short(place, 2), 0);
    EXPECT_EQ(Short(place, 4), 700 * 8);
}

TEST_F(PptTest, ThePictureStandsBelowTheTitle) {
    AddNode(0, 0, QString()).SetBounds(0, 0, 15000, 3000);
    Write(kAllTitled);
    const auto anchors = All(All(records, kSlide).at(0).records, kArtAnchor);
    ASSERT_EQ(anchors.size(), 2u);
    EXPECT_EQ(Short(anchors[1].content, 0), 146 * 8);
    EXPECT_EQ(Short(anchors[1].content, 2), 36 * 8);
    EXPECT_EQ(Short(anchors[1].content, 4), (36 + 628) * 8);
}

TEST_F(PptTest, PicturesAreMetafilesThatUnpack) {
    AddSlice(QStringLiteral("Second"));
    AddNode(0, 0, QStringLiteral("idea"));
    Write(kAllBlank);
    const auto pictures = RecordsOf(streams["Pictures"]);
    ASSERT_EQ(pictures.size(), 2u);
    for (const ReadRecord &picture : pictures) {
        constexpr int kSize = 16, kPacked = 50;
        QByteArray packed = picture.content.mid(kPacked);
        packed.prepend(QByteArray(4, '\0'));
        qToBigEndian(Number(picture.content, kSize), packed.data());
        const QByteArray emf = qUncompress(packed);
        EXPECT_EQ(emf.size(), qsizetype(Number(picture.content, kSize)));
        EXPECT_EQ(emf.mid(40, 4), " EMF");
    }
    const auto entries = All(records, kArtPicture);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(Number(entries[1].content, 28), pictures[0].content.size() + 8); // where the second one stands
}

TEST_F(PptTest, TheDirectoryLeadsToEachObject) {
    AddSlice(QStringLiteral("Second"));
    Write(kAllTitled);
    const QByteArray &document = streams["PowerPoint Document"];
    const auto edit = qsizetype(Number(streams["Current User"], 16));
    const auto user = RecordsOf(document.mid(edit)).at(0);
    EXPECT_EQ(user.type, kUserEdit);
    const auto directory = RecordsOf(document.mid(qsizetype(Number(user.content, 12)))).at(0);
    ASSERT_EQ(directory.type, kPersistDirectory);
    EXPECT_EQ(Number(directory.content, 0), 4u << 20 | 1);
    const int expected[] = {kDocument, kMaster, kSlide, kSlide};
    for (int i = 0; i < 4; ++i) {
        const auto at = qsizetype(Number(directory.content, 4 + 4 * i));
        EXPECT_EQ(qFromLittleEndian<quint16>(document.constData() + at + 2), expected[i]) << i;
    }
}

TEST_F(PptTest, IdentitiesOfShapesStandOnce) {
    AddSlice(QStringLiteral("Second"));
    Write(kAllTitled);
    std::set<quint32> ids;
    const auto shapes = All(records, kArtShapeHead);
    for (const ReadRecord &shape : shapes) ids.insert(Number(shape.content, 0));
    EXPECT_EQ(ids.size(), shapes.size());
    EXPECT_GT(Number(All(records, kArtGroupHead).at(0).content, 0), *ids.rbegin());
}

TEST_F(PptTest, AwkwardTitlesAndEmptySlicesAreTaken) {
    window->TabStrip().SetCaption(QString(QChar(0)) + QStringLiteral("a\x01\tb") + QChar(0xD83D));
    AddSlice(QString()), AddSlice(QString(100000, u'w'));
    Write({kLayoutTitle, false, true});
    EXPECT_EQ(All(records, kSlide).size(), 3u);
    EXPECT_EQ(Titles().value(0), QStringLiteral("a\tb"));
}

TEST_F(PptTest, TheSameMapGivesTheSameBytes) {
    AddNode(0, 0, QStringLiteral("idea"));
    Write(kAllTitled);
    const QByteArray first = support::ReadWholeFile(Binary());
    Write(kAllTitled);
    EXPECT_EQ(support::ReadWholeFile(Binary()), first);
}

TEST_F(PptTest, PropertiesTellTitleAndFilter) {
    Write(kAllBlank);
    const output::MapOutput map = output::ReadMap(*window);
    const QByteArray properties = streams["\x05SummaryInformation"];
    EXPECT_TRUE(properties.contains(map.title.toUtf8()));
    EXPECT_TRUE(properties.contains(output::FilterText(map.filter).toUtf8()));
}

TEST_F(PptTest, OleFileFindsNoFault) {
    const QString python = QStringLiteral("/usr/bin/python3");
    if (QProcess::execute(python, {"-c", "import olefile"}) != 0) GTEST_SKIP() << "olefile is not installed";
    for (int i = 1; i < 30; ++i) AddSlice(QStringLiteral("More")), AddNode(0, 0, QStringLiteral("idea"), i);
    Write(kAllTitled);
    QProcess process;
    process.start(python, {"-c",
                           "import olefile,sys\n"
                           "o=olefile.OleFileIO(sys.argv[1], raise_defects=olefile.DEFECT_UNSURE)\n"
                           "for s in o.listdir(): o.openstream(s).read()\n"
                           "assert not o.parsing_issues, o.parsing_issues\n"
                           "print(o.get_metadata().title.decode())",
                           Binary()});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(process.readAllStandardOutput().trimmed(), output::ReadMap(*window).title.toUtf8());
}

} // namespace powerpoint::testing
