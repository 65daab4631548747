#include "output/package/Package.h"

#include "output/package/Xml.h"
#include "output/package/Zip.h"
#include "support/Error.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"
#include "tests/output/package/ZipReader.h"

#include <gtest/gtest.h>
#include <QXmlStreamReader>

namespace package::testing {

namespace {

const QString kNull(QChar(0));

QByteArray EntryOf(const Package &file, const QString &name) {
    for (const ReadEntry &entry : ReadZip(file.File()))
        if (entry.name == name) return entry.bytes;
    return {};
}

} // namespace

TEST(Zip, HoldsOneAndTwoEntriesInTheirOrder) {
    EXPECT_EQ(ReadZip(ZipFile({{"b.txt", "two", true}})).at(0).bytes, "two");
    const auto read = ReadZip(ZipFile({{"b.txt", QByteArray(1000, 'b'), true}, {"ä/a.png", "one", false}}));
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].name, "b.txt");
    EXPECT_EQ(read[0].bytes, QByteArray(1000, 'b'));
    EXPECT_TRUE(read[0].packed);
    EXPECT_EQ(read[1].name, QStringLiteral("ä/a.png"));
    EXPECT_EQ(read[1].bytes, "one");
    EXPECT_FALSE(read[1].packed);
}

TEST(Zip, GivesTheSameBytesAtAnyTimeAndPlace) {
    const std::vector<ZipEntry> entries{{"a", "content", true}};
    const QByteArray here = ZipFile(entries);
    const tests::EnvironmentVariable elsewhere("TZ", "Pacific/Auckland");
    EXPECT_EQ(ZipFile(entries), here);
}

TEST(Zip, RaisesForANameThatStandsTwice) {
    EXPECT_EQ(tests::NumberOf([&] {
                  ZipFile({{"a", "1", true}, {"a", "2", true}});
              }),
              support::kErrInvalidProcedureCall);
}

TEST(Xml, KeepsOnlyWhatXmlHasAPlaceFor) {
    const QString bad =
        QStringLiteral("a") + kNull + QStringLiteral("b\x01\x1F\tc\n\uFFFE\uFFFFd") + QChar(0xD83D);
    EXPECT_EQ(XmlText(bad), QStringLiteral("ab\tc\nd"));
    const QString emoji = QString::fromUtf8("\xF0\x9F\x98\x80 \xD7\xA9 \xE4\xB8\xAD");
    EXPECT_EQ(XmlText(emoji), emoji);
    EXPECT_EQ(XmlText(QString(QChar(0xDE00)) + QChar(0xD83D)), QString());
}

TEST(Xml, WritesTextsAsTexts) {
    Xml xml;
    xml.Open("r", {{"a", "\"<&>\n"}}).Leaf("t", "</t> & \x02").Raw("<u/>").Empty("v", {{"n", 7}});
    QXmlStreamReader reader(xml.Document());
    QStringList read;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            read << reader.name().toString();
            for (const auto &attribute : reader.attributes()) read << attribute.value().toString();
        }
        if (reader.isCharacters()) read << reader.text().toString();
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    EXPECT_EQ(read, (QStringList{"r", "\"<&>\n", "t", "</t> & ", "u", "v", "7"}));
}

TEST(Package, RelatesPartsFromWhereTheyStand) {
    EXPECT_EQ(RelativeName("", "ppt/presentation.xml"), "ppt/presentation.xml");
    EXPECT_EQ(RelativeName("ppt/presentation.xml", "ppt/slides/slide1.xml"), "slides/slide1.xml");
    EXPECT_EQ(RelativeName("ppt/slides/slide1.xml", "ppt/media/image1.png"), "../media/image1.png");
    EXPECT_EQ(RelativeName("a/b.xml", "c/d.xml"), "../c/d.xml");
}

TEST(Package, TellsTheKindsOfPartsAndTheirRelations) {
    Package file;
    file.Add("ppt/main.xml", "application/main+xml", "<m/>");
    file.AddMedia("ppt/media/one.png", "image/png", "picture");
    EXPECT_EQ(file.Relate("", "officeDocument", "ppt/main.xml"), "rId1");
    EXPECT_EQ(file.Relate("ppt/main.xml", "image", "ppt/media/one.png"), "rId1");
    EXPECT_EQ(file.Relate("ppt/main.xml", "http://other/kind", "ppt/media/one.png"), "rId2");
    EXPECT_TRUE(file.Has("ppt/main.xml"));
    EXPECT_FALSE(file.Has("ppt/other.xml"));
    EXPECT_EQ(ReadZip(file.File()).at(0).name, "[Content_Types].xml");
    const QByteArray types = EntryOf(file, "[Content_Types].xml");
    EXPECT_TRUE(types.contains("PartName=\"/ppt/main.xml\" ContentType=\"application/main+xml\""))
        << types.data();
    EXPECT_TRUE(types.contains("Extension=\"png\" ContentType=\"image/png\""));
    const QByteArray relations = EntryOf(file, "ppt/_rels/main.xml.rels");
    EXPECT_TRUE(relations.contains("Target=\"media/one.png\"")) << relations.data();
    EXPECT_TRUE(relations.contains("relationships/image\""));
    EXPECT_TRUE(relations.contains("http://other/kind"));
    EXPECT_TRUE(EntryOf(file, "_rels/.rels").contains("Target=\"ppt/main.xml\""));
}

} // namespace package::testing
