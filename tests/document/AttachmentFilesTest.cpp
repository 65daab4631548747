// The files of embedded attachments while their map is open.
#include "diagram/model/Surface.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"

#include <QFile>
#include <QFileInfo>

using namespace document;
using namespace document::testing;

class AttachmentFilesTest : public MapTest {
protected:
    // A map with one node "n" of the text "Harbour" and embedded files under the names, of which each holds
    // its number, counted from 1.
    QString Map(const char *file, const QStringList &names) {
        const QString path = EmptyMap(QString::fromLatin1(file));
        storage::Database database = storage::OpenDatabase(path);
        database.Execute(InsertSlice(0, QStringLiteral("s")));
        database.Execute(
            InsertNode(QStringLiteral("n"), 0, QStringLiteral("[Description]"), QStringLiteral("'Harbour'")));
        for (int i = 0; i < names.size(); ++i)
            database.Execute(QStringLiteral("INSERT INTO [Attachments] VALUES (NULL, 'n', ?, True, ?)"),
                             storage::kFailOnError, {names[i], QByteArray::number(i + 1)});
        return path;
    }
    static QString File(MapWindow &window, int position = 1) {
        return window.clsSettings().Attachments().Item(position).Filename;
    }
    static QByteArray Bytes(MapWindow &window, int position = 1) {
        return support::ReadWholeFile(File(window, position));
    }
    QStringList InTempFolder() const {
        return QDir(TempFolder()).entryList({QStringLiteral("velmora-attachments-*")}, QDir::Dirs);
    }
};

TEST_F(AttachmentFilesTest, FilesOfOneTitleStandApartInOneMapAndInTwoWindows) {
    const QString own = QDir(TempFolder()).filePath(QStringLiteral("notes.txt"));
    QFile users(own);
    ASSERT_TRUE(users.open(QIODevice::WriteOnly));
    users.write("the user's own");
    users.close();
    const auto one =
        Loaded(Map("a.map", {"C:\\x\\notes.txt", "/home/y/notes.txt", "2", "notes.txt", "other.txt"}));
    const auto two = Loaded(Map("b.map", {"notes.txt"}));
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(Bytes(*one, i), QByteArray::number(i));
    for (const int i : {1, 2, 4}) EXPECT_EQ(support::FileTitle(File(*one, i)), "notes.txt");
    EXPECT_EQ(support::FileTitle(File(*one, 3)), "2");
    EXPECT_EQ(Bytes(*two), "1");
    EXPECT_EQ(support::ReadWholeFile(own), "the user's own");
    EXPECT_EQ(InTempFolder().size(), 2);
    // They are saved as what they are, and come back so.
    ASSERT_TRUE(DoSave(*one));
    const auto again = Loaded(MapFile(QStringLiteral("a.map")));
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(Bytes(*again, i), QByteArray::number(i));
}

TEST_F(AttachmentFilesTest, TheFolderGoesWithTheWindowAndWithTheNextMap) {
    auto window = Loaded(Map("a.map", {"one.txt", "one.txt"}));
    const QString first = File(*window);
    EXPECT_FALSE(QFileInfo(QFileInfo(first).path()).permissions() &
                 (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther));
    window->clsSettings().SetDatabase(Map("b.map", {"two.txt"}));
    DoLoad(*window);
    EXPECT_FALSE(QFileInfo::exists(first));
    EXPECT_EQ(InTempFolder().size(), 1);
    EXPECT_EQ(support::FileTitle(File(*window)), "two.txt");
    window.reset();
    EXPECT_TRUE(InTempFolder().isEmpty());
}

TEST_F(AttachmentFilesTest, NoNameLeadsOutOfTheFolder) {
    const QStringList names = {QString(),
                               QStringLiteral("."),
                               QStringLiteral(".."),
                               QStringLiteral("../../../out.txt"),
                               QStringLiteral("/home/x\\..\\.."),
                               QStringLiteral("C:\\"),
                               QStringLiteral("CON"),
                               QStringLiteral(".lock"),
                               QString(4000, QLatin1Char('x')) + ".txt",
                               QStringLiteral("new\nline\t.txt"),
                               QString::fromUtf8("\xe5\x9c\xb0\xe5\x9b\xbe.txt")};
    const auto window = Loaded(Map("a.map", names));
    const QString folder = QDir(TempFolder()).filePath(InTempFolder().value(0)) + "/";
    for (int i = 1; i <= names.size(); ++i) {
        EXPECT_EQ(Bytes(*window, i), QByteArray::number(i)) << names[i - 1].toStdString();
        const QString canonical = QFileInfo(File(*window, i)).canonicalFilePath();
        EXPECT_TRUE(canonical.startsWith(QFileInfo(folder).canonicalFilePath() + "/"))
            << canonical.toStdString();
    }
    ASSERT_TRUE(DoSave(*window));
    const auto again = Loaded(MapFile(QStringLiteral("a.map")));
    for (int i = 1; i <= names.size(); ++i) EXPECT_EQ(Bytes(*again, i), QByteArray::number(i));
}

TEST_F(AttachmentFilesTest, AMapWhoseUnpackedFilesHaveGoneIsSavedFromTheFormerMap) {
    const QString path = Map("a.map", {"notes.txt", "notes.txt", "other.txt"});
    const auto window = Loaded(path);
    for (int i = 1; i <= 3; ++i) ASSERT_TRUE(QFile::remove(File(*window, i)));
    SaveAs(*window, MapFile(QStringLiteral("b.map")));
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(Bytes(*Loaded(MapFile(QStringLiteral("b.map"))), i), QByteArray::number(i));
    // The second save takes them from what the first one wrote.
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(DoSave(*window));
    EXPECT_EQ(Bytes(*Loaded(MapFile(QStringLiteral("b.map"))), 2), "2");
}

TEST_F(AttachmentFilesTest, AFileThatIsThereIsSavedAsItStandsNotAsTheFormerMapHasIt) {
    const auto window = Loaded(Map("a.map", {"notes.txt"}));
    support::AtomicFile file(File(*window));
    file.Write("edited");
    file.Commit();
    ASSERT_TRUE(DoSave(*window));
    EXPECT_EQ(Bytes(*Loaded(MapFile(QStringLiteral("a.map")))), "edited");
}

TEST_F(AttachmentFilesTest, WhatTheFormerMapHasNoMoreIsAnErrorThatNamesTheNode) {
    const QString path = Map("a.map", {"notes.txt"});
    const auto window = Loaded(path);
    QFile::remove(File(*window));
    QFile::remove(path);
    window->clsSettings().SetDatabase(MapFile(QStringLiteral("b.map")));
    const support::Error error = ErrorOf([&] { DoSave(*window); });
    EXPECT_EQ(error.Number(), support::kErrFileNotFound);
    EXPECT_EQ(error.Description().toStdString(), "File not found: " + File(*window).toStdString() +
                                                     "\r\n\r\nIt is attached to the node 'Harbour'.");
    EXPECT_FALSE(support::FileExists(MapFile(QStringLiteral("b.map"))));
}

TEST_F(AttachmentFilesTest, OneWithoutANameIsAFileOnlyIfItHasBytes) {
    const QString path = Map("a.map", {QString(), QString()});
    Run(path, "UPDATE [Attachments] SET [Data]=NULL WHERE [Data]=X'32'");
    const auto window = Loaded(path);
    EXPECT_EQ(Bytes(*window, 1), "1");
    EXPECT_EQ(File(*window, 2), QString());
    ASSERT_TRUE(DoSave(*window));
    ASSERT_TRUE(DoSave(*window)) << "and every later save";
    const auto again = Loaded(path);
    EXPECT_EQ(Bytes(*again, 1), "1");
    EXPECT_EQ(File(*again, 2), QString());
    EXPECT_TRUE(again->clsSettings().Attachments().Item(2).Embed);
}

TEST_F(AttachmentFilesTest, TheStatusNamesEachFileThatIsSaved) {
    const auto window = Loaded(Map("a.map", {"notes.txt", "other.txt"}));
    window->statuses.clear();
    ASSERT_TRUE(DoSave(*window));
    for (const int i : {1, 2})
        EXPECT_TRUE(window->statuses.contains("Saving Attachments (" + File(*window, i) + ")..."));
}

TEST_F(AttachmentFilesTest, TheFoldersOfKilledProcessesAreSweptAndThoseOfOpenWindowsStay) {
    const auto window = Loaded(Map("a.map", {"notes.txt"}));
    const QString left = TempFolder() + "/velmora-attachments-killed";
    ASSERT_TRUE(QDir().mkdir(left));
    QFile::setPermissions(left, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile lock(left + "/.lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    SweepAttachmentFolders();
    EXPECT_FALSE(QFileInfo::exists(left));
    EXPECT_EQ(Bytes(*window), "1");
}
