#include "support/AtomicFile.h"

#include "support/Error.h"
#include "support/Files.h"
#include "tests/support/FolderTest.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#ifndef Q_OS_WIN
#include <csignal>
#include <sys/resource.h>
#endif

using namespace support;

namespace {

using AtomicFiles = support::testing::FolderTest;

} // namespace

TEST_F(AtomicFiles, Commit_ReplacesTheTargetAndLeavesNothingElse) {
    Make("a.map", "old");
    AtomicFile file(PathOf("a.map"));
    file.Write("new content");
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "old");
    file.Commit();
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "new content");
    EXPECT_EQ(Names(), QStringList{"a.map"});
}

TEST_F(AtomicFiles, Append_AddsToWhatTheNewFileHolds) {
    AtomicFile file(PathOf("a.map"));
    for (const char *part : {"a", "", "bc"}) file.Append(part);
    file.Commit();
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "abc");
}

TEST_F(AtomicFiles, Commit_MakesATargetThatDidNotExist) {
    AtomicFile file(PathOf("ü 'quoted'.map"));
    file.Write("x");
    file.Commit();
    EXPECT_EQ(Names(), QStringList{QString("ü 'quoted'.map")});
}

TEST_F(AtomicFiles, WithoutCommit_TheTargetStaysAndTheNewFileGoes) {
    Make("a.map", "old");
    {
        AtomicFile file(PathOf("a.map"));
        file.Write("half");
    }
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "old");
    EXPECT_EQ(Names(), QStringList{"a.map"});
}

TEST_F(AtomicFiles, Path_MayBeWrittenByOthersBeforeCommit) {
    AtomicFile file(PathOf("a.map"));
    QFile other(file.Path());
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("by another library");
    other.close();
    file.Commit();
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "by another library");
}

TEST_F(AtomicFiles, Commit_KeepsThePermissionsOfTheTarget) {
    Make("a.map", "old");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QFile::setPermissions(PathOf("a.map"), permissions);
    AtomicFile file(PathOf("a.map"));
    file.Commit();
    EXPECT_EQ(QFile::permissions(PathOf("a.map")), permissions);
}

TEST_F(AtomicFiles, Construction_RefusesAFolderAMissingFolderAndAReadOnlyFile) {
    QDir(folder_.path()).mkdir("sub");
    Make("locked.map", "old");
    QFile::setPermissions(PathOf("locked.map"), QFile::ReadOwner);
    ExpectError(75, "sub", [&] { AtomicFile file(PathOf("sub")); });
    ExpectError(76, "none/a.map", [&] { AtomicFile file(PathOf("none/a.map")); });
    ExpectError(75, "locked.map", [&] { AtomicFile file(PathOf("locked.map")); });
    EXPECT_EQ(Names(), QStringList{"locked.map"});
}

#ifndef Q_OS_WIN
TEST_F(AtomicFiles, ATargetThatIsALinkStandsForItsFile) {
    Make("real.map", "old");
    ASSERT_TRUE(QFile::link(PathOf("real.map"), PathOf("link.map")));
    AtomicFile file(PathOf("link.map"));
    file.Write("new");
    file.Commit();
    EXPECT_EQ(ReadWholeFile(PathOf("real.map")), "new");
    EXPECT_TRUE(QFileInfo(PathOf("link.map")).isSymLink());
}

// A limit on the size of files stands in for a disk without room.
TEST_F(AtomicFiles, ADiskWithoutRoom_IsError61AndLeavesTheTargetWhole) {
    Make("a.map", "old");
    Make("big", QByteArray(100000, 'x'));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{65536, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    ExpectError(61, "a.map", [&] {
        AtomicFile file(PathOf("a.map"));
        file.Write(QByteArray(100000, 'x'));
    });
    ExpectError(61, "a.map", [&] { CopyFileTo(PathOf("big"), PathOf("a.map")); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "old");
    EXPECT_EQ(Names(), (QStringList{"a.map", "big"}));
}
#endif

TEST_F(AtomicFiles, CopyFileTo_CopiesAllBytesOverAnOldTarget) {
    QByteArray content(3000000, '\0');
    for (qsizetype i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 7);
    Make("from", content);
    Make("to", "old");
    CopyFileTo(PathOf("from"), PathOf("to"));
    EXPECT_EQ(ReadWholeFile(PathOf("to")), content);
    EXPECT_EQ(Names(), (QStringList{"from", "to"}));
}

TEST_F(AtomicFiles, CopyFileTo_OfAnEmptyFileMakesAnEmptyFile) {
    Make("from", "");
    CopyFileTo(PathOf("from"), PathOf("to"));
    EXPECT_EQ(ReadWholeFile(PathOf("to")), "");
}

TEST_F(AtomicFiles, CopyFileTo_NamesTheFileThatIsMissing) {
    Make("to", "old");
    ExpectError(53, "none", [&] { CopyFileTo(PathOf("none"), PathOf("to")); });
    ExpectError(75, "", [&] { CopyFileTo(folder_.path(), PathOf("to")); });
    ExpectError(76, "none/to", [&] { CopyFileTo(PathOf("to"), PathOf("none/to")); });
    EXPECT_EQ(ReadWholeFile(PathOf("to")), "old");
}

TEST_F(AtomicFiles, ReplaceFile_PutsTheNewFileInThePlaceOfTheOld) {
    Make("new", "new");
    Make("a.map", "old");
    FlushToDisk(PathOf("new"));
    ReplaceFile(PathOf("new"), PathOf("a.map"));
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "new");
    EXPECT_EQ(Names(), QStringList{"a.map"});
    ExpectError(53, "new", [&] { ReplaceFile(PathOf("new"), PathOf("a.map")); });
    ExpectError(53, "new", [&] { FlushToDisk(PathOf("new")); });
    EXPECT_EQ(ReadWholeFile(PathOf("a.map")), "new");
}

TEST_F(AtomicFiles, SweepNewFiles_DeletesThoseOfKilledSavesAlone) {
    AtomicFile writing(PathOf("plan.map"));
    writing.Write("half");
    for (const char *left : {".plan.map.0abc9.new", ".plan.map.bak.0abc9.new", ".plan.map.12.bak.0abc9.new"})
        Make(left);
    const QStringList others{".other.map.0abc9.new", ".plan.map.0abc9.new.txt", ".plan.map.My notes.new"};
    for (const QString &name : others) Make(name);
    SweepNewFiles(PathOf("plan.map"));
    EXPECT_TRUE(QFile::exists(writing.Path()));
    writing.Commit();
    EXPECT_EQ(ReadWholeFile(PathOf("plan.map")), "half");
    EXPECT_EQ(Names(), others + QStringList("plan.map"));
}
