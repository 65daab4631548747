#include "templates/TemplateDb.h"

#include "diagram/format/SurfaceFile.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "templates/TemplateFiles.h"
#include "tests/Paths.h"
#include "tests/templates/TemplatesTest.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace templates::testing {

namespace {

using TemplateDb = TemplatesTest;
using TemplateKinds = TemplatesTest;

const QString kJetTemplate = ::tests::Data(QStringLiteral("jet/template.mdb"));

} // namespace

TEST_F(TemplateDb, AnEmptyOneHasTheTableOfTwoBinaryFieldsAndNoRecord) {
    QString file = MapFile(QStringLiteral("new.TEM"));
    Write(file, "what stood there");
    CreateTemplateDB(file);
    storage::Database database = storage::OpenDatabase(file);
    ASSERT_EQ(database.TableDefs().size(), 1u);
    const storage::TableDef table = database.Table(QStringLiteral("Template"));
    ASSERT_EQ(table.fields.size(), 2u);
    EXPECT_EQ(table.fields[0].name, QStringLiteral("MAP"));
    EXPECT_EQ(table.fields[0].type, storage::FieldType::LongBinary);
    EXPECT_EQ(table.fields[1].name, QStringLiteral("IMAGE"));
    EXPECT_EQ(table.fields[1].type, storage::FieldType::LongBinary);
    EXPECT_TRUE(database.OpenRecordset(QStringLiteral("SELECT * FROM [Template]")).EndOfFile());
    database.Close();
    EXPECT_EQ(ErrorOf([&] { ReadMap(file); }).Number(), storage::kErrNoCurrentRecord);
}

TEST_F(TemplateDb, AnEmptyNameIsFilledInWithThatOfAFileBesideTheProgram) {
    QString file;
    CreateTemplateDB(file);
    EXPECT_EQ(file, ProgramFile(QStringLiteral("TTemplate.mdb")));
    EXPECT_TRUE(support::FileExists(file));
}

TEST_F(TemplateDb, HoldsBothFilesWhole) {
    QByteArray map(300000, 'm');
    map[7] = '\0';
    const QString file = TemplateOf(QStringLiteral("A.TEM"), map, Icon());
    EXPECT_EQ(ReadMap(file), map);
    EXPECT_EQ(ReadImage(file), Icon());
    EXPECT_EQ(FilesIn(TempFolder()), QStringList()) << "scratch files are gone";
}

TEST_F(TemplateDb, ReplacesAFileAndKeepsIt) {
    const QString file = TemplateOf(QStringLiteral("A.TEM"), "first", Icon());
    const QByteArray before = support::ReadWholeFile(file);
    TemplateOf(QStringLiteral("A.TEM"), "second", Icon());
    EXPECT_EQ(ReadMap(file), QByteArray("second"));
    EXPECT_EQ(support::ReadWholeFile(file + QStringLiteral(".bak")), before);
    EXPECT_EQ(FilesIn(InTemplates(QString())), QStringList({"A.TEM", "A.TEM.bak"}));
}

TEST_F(TemplateDb, AnErrorLeavesTheFormerFileAsItWas) {
    const QString file = TemplateOf(QStringLiteral("A.TEM"), "first", Icon());
    const QByteArray before = support::ReadWholeFile(file);
    const auto make = [&] {
        CreateTemplate(MapFile(QStringLiteral("none")), MapFile(QStringLiteral("none")), file);
    };
    EXPECT_EQ(ErrorOf(make).Number(), support::kErrFileNotFound);
    EXPECT_EQ(support::ReadWholeFile(file), before);
    EXPECT_EQ(FilesIn(InTemplates(QString())), QStringList({"A.TEM"}));
    EXPECT_EQ(FilesIn(TempFolder()), QStringList());
}

TEST_F(TemplateDb, AnOldOneIsReadAndStaysAsItWas) {
    const QString file = InTemplates(QStringLiteral("Old.TEM"));
    support::CopyFileTo(kJetTemplate, file);
    const QByteArray before = support::ReadWholeFile(file);
    const QByteArray json = support::ReadWholeFile(::tests::Data(QStringLiteral("jet/template.json")));
    const QJsonObject row = QJsonDocument::fromJson(json)["tables"]["Template"]["rows"][0].toObject();
    const auto expect = [&](const char *field, const QByteArray &bytes) {
        EXPECT_EQ(bytes.size(), row[QLatin1String(field)]["length"].toInt());
        EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex(),
                  row[QLatin1String(field)]["sha256"].toString().toLatin1());
    };
    expect("MAP", ReadMap(file).value());
    expect("IMAGE", ReadImage(file).value());
    EXPECT_TRUE(IsIcon(ReadImage(file).value()));
    EXPECT_EQ(support::ReadWholeFile(file), before);
}

TEST_F(TemplateDb, ADatabaseWithoutTheTableHasNeither) {
    const QString map = EmptyMap(QStringLiteral("plan.map"));
    EXPECT_FALSE(ReadMap(map));
    EXPECT_FALSE(ReadImage(map));
}

TEST_F(TemplateDb, ATableOfThatNameWithOtherFieldsIsAnError) {
    const QString file = MapFile(QStringLiteral("other.TEM"));
    storage::Database database = storage::CreateDatabase(file);
    database.CreateTable({QStringLiteral("Template"), {{QStringLiteral("A"), storage::FieldType::Long}}});
    database.Execute(QStringLiteral("INSERT INTO [Template] ([A]) VALUES (1)"));
    database.Close();
    EXPECT_EQ(ErrorOf([&] { ReadMap(file); }).Number(), storage::kErrFieldNotFound);
}

TEST_F(TemplateDb, AnIconIsKnownByItsContent) {
    EXPECT_TRUE(IsIcon(Icon()));
    EXPECT_FALSE(IsIcon({}));
    EXPECT_FALSE(IsIcon("no icon"));
    EXPECT_FALSE(IsIcon(OneColour(qRgb(1, 2, 3)).Bytes())) << "a picture of another form";
    EXPECT_FALSE(IsIcon(Icon().left(30))) << "cut off";
}

TEST_F(TemplateKinds, TheEndingIsTheLastThreeCharactersInWhateverCase) {
    for (const char *name : {"A.TEM", "A.tem", "A.Tem", "/x y/ä'.tem", "item"})
        EXPECT_TRUE(HasTemplateEnding(QString::fromUtf8(name))) << name;
    for (const char *name : {"A.ico", "A.TEM.bak", "", "em"})
        EXPECT_FALSE(HasTemplateEnding(QString::fromUtf8(name))) << name;
}

TEST_F(TemplateKinds, AFlatOneIsWhatTheLoaderTakes) {
    const auto isFlat = [](const QString &file) {
        bool result = false;
        TestTemplateFile(file, result);
        return result;
    };
    const QString flat = FlatTemplate(QStringLiteral("A.TEM"));
    EXPECT_TRUE(isFlat(flat));
    EXPECT_FALSE(isFlat(Template(QStringLiteral("B.TEM"))));
    EXPECT_FALSE(
        isFlat(Write(InTemplates(QStringLiteral("C.TEM")), support::ReadWholeFile(flat).chopped(1))));
    EXPECT_FALSE(isFlat(InTemplates(QStringLiteral("none.TEM"))));
    EXPECT_FALSE(isFlat(InTemplates(QString()))) << "a folder";
}

TEST_F(TemplateKinds, BothGiveTheirSurfaceFile) {
    const QString flat = FlatTemplate(QStringLiteral("A.TEM"));
    EXPECT_EQ(SurfaceFileOf(flat), support::ReadWholeFile(flat));
    diagram::Surface surface;
    diagram::LoadBytes(surface, SurfaceFileOf(Template(QStringLiteral("B.TEM"), QStringLiteral("Other"))));
    EXPECT_EQ(Texts(surface), QStringList({"Other"}));
}

TEST_F(TemplateKinds, WhatIsNoTemplateGivesAnErrorWithItsName) {
    const QString map = EmptyMap(QStringLiteral("plan.map"));
    const QString text = Write(InTemplates(QStringLiteral("text.TEM")), "some text");
    const QString none = InTemplates(QStringLiteral("none.TEM"));
    const std::pair<QString, long> cases[] = {{map, storage::kErrTableNotFound},
                                              {text, storage::kErrUnrecognizedFormat},
                                              {none, storage::kErrFileNotFound}};
    for (const auto &each : cases) {
        const auto &[file, number] = each;
        const support::Error error = ErrorOf([&] { SurfaceFileOf(each.first); });
        EXPECT_EQ(error.Number(), number) << file.toStdString();
        EXPECT_TRUE(error.Description().contains(file)) << error.Description().toStdString();
    }
}

} // namespace templates::testing
