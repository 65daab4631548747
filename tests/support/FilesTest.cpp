#include "support/Files.h"

#include "support/Error.h"
#include "tests/Errors.h"
#include "tests/support/FolderTest.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace support;

namespace {

using FilesInFolder = support::testing::FolderTest;

} // namespace

TEST(Files, AddBackslash_AddsTheEndingOnlyWhereItIsMissing) {
    EXPECT_EQ(AddBackslash("C:\\a", "\\"), "C:\\a\\");
    EXPECT_EQ(AddBackslash("C:\\a\\", "\\"), "C:\\a\\");
    EXPECT_EQ(AddBackslash("", "\\"), "\\");
}

TEST(Files, AddBackslash_OfAFolderKeepsItsSpelling) {
    EXPECT_EQ(AddBackslash(QStringLiteral("C:\\a")), "C:\\a\\");
    EXPECT_EQ(AddBackslash(QStringLiteral("C:\\a\\")), "C:\\a\\");
    EXPECT_EQ(AddBackslash(QStringLiteral("\\\\server\\share")), "\\\\server\\share\\");
    EXPECT_EQ(AddBackslash(QStringLiteral("/home/ann")), "/home/ann/");
    EXPECT_EQ(AddBackslash(QStringLiteral("/home/ann/")), "/home/ann/");
}

TEST(Files, FileTitle_IsWhatStandsBehindTheLastSeparatorOfEitherSpelling) {
    EXPECT_EQ(FileTitle("C:\\a\\b.map"), "b.map");
    EXPECT_EQ(FileTitle("C:b.map"), "C:b.map");
    EXPECT_EQ(FileTitle("/home/ann/b.map"), "b.map");
    EXPECT_EQ(FileTitle("b.map"), "b.map");
    EXPECT_EQ(FileTitle("C:\\a\\"), "");
}

#ifndef Q_OS_WIN
TEST(Files, FileTitle_LeavesABackslashInANameOfAPathWithSlashes) {
    EXPECT_EQ(FileTitle("/home/ann/odd\\name.map"), "odd\\name.map");
}
#endif

TEST(Files, GetFileTitle_CutsAtTheLastPoint) {
    EXPECT_EQ(GetFileTitle("C:\\a\\b.c.d", false), "b.c");
    EXPECT_EQ(GetFileTitle("C:\\a\\b.c.d", true), "b.c.d");
    EXPECT_EQ(GetFileTitle("/x.y/b.c.d", false), "b.c");
}

TEST(Files, GetFileTitle_OfANameWithoutAPointIsAnInvalidArgument) {
    EXPECT_EQ(GetFileTitle("C:\\a.b\\plan", true), "plan");
    const Error error = tests::ErrorOf([&] { GetFileTitle("C:\\a.b\\plan", false); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), "Invalid procedure call or argument");
}

TEST_F(FilesInFolder, FileExists_IsFalseForAFolderAndDirExistsForAFile) {
    Make("a.map");
    EXPECT_TRUE(FileExists(PathOf("a.map")));
    EXPECT_FALSE(DirExists(PathOf("a.map")));
    EXPECT_TRUE(DirExists(folder_.path()));
    EXPECT_FALSE(FileExists(folder_.path()));
}

TEST_F(FilesInFolder, FileExists_AndDirExistsAreBothFalseForWhatIsNotThere) {
    EXPECT_FALSE(FileExists(PathOf("none")));
    EXPECT_FALSE(DirExists(PathOf("none")));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(DirExists(""));
    EXPECT_FALSE(FileExists("Q:\\none\\none.map"));
}

TEST(Files, GetTempFile_MakesAFreshEmptyFileWithThePrefix) {
    const QString first = GetTempFile("Quarterly");
    const QString second = GetTempFile();
    EXPECT_NE(first, second);
    EXPECT_TRUE(FileTitle(first).startsWith("Qua"));
    EXPECT_FALSE(FileTitle(first).startsWith("Quar"));
    EXPECT_TRUE(FileTitle(second).startsWith("ABC"));
    EXPECT_TRUE(FileExists(first));
    EXPECT_EQ(QFile(first).size(), 0);
    EXPECT_EQ(first.left(first.size() - FileTitle(first).size()), AddBackslash(TempPath()));
    Kill(first);
    Kill(second);
    EXPECT_FALSE(FileExists(first));
}

TEST_F(FilesInFolder, GetFiles_MatchesByPatternWithoutRegardToCase) {
    for (const char *name : {"b.map", "A.MAP", "c.tem", "plain"}) Make(name);
    EXPECT_EQ(GetFiles(PathOf("*.map"), fileattributes::kNormal), (QStringList{"A.MAP", "b.map"}));
    EXPECT_EQ(GetFiles(PathOf("?.t*"), fileattributes::kNormal), QStringList{"c.tem"});
    EXPECT_EQ(GetFiles(PathOf("*.*"), fileattributes::kNormal),
              (QStringList{"A.MAP", "b.map", "c.tem", "plain"}));
    EXPECT_EQ(GetFiles(PathOf("*."), fileattributes::kNormal), QStringList{"plain"});
    EXPECT_EQ(GetFiles(PathOf("[b].map"), fileattributes::kNormal), QStringList());
}

TEST_F(FilesInFolder, GetFiles_GivesFoldersAndHiddenNamesOnlyWhenAsked) {
    Make("a.map");
    Make(".secret");
    QDir(folder_.path()).mkdir("sub");
    EXPECT_EQ(GetFiles(PathOf("*.*"), fileattributes::kNormal), QStringList{"a.map"});
    EXPECT_EQ(GetFiles(PathOf("*.*"), fileattributes::kDirectory), (QStringList{".", "..", "a.map", "sub"}));
    EXPECT_EQ(GetFiles(PathOf("*.*"), fileattributes::kHidden), (QStringList{".secret", "a.map"}));
}

TEST(Files, GetFiles_OfAMissingFolderIsEmpty) {
    EXPECT_EQ(GetFiles("/none/of/this/*.*", fileattributes::kNormal), QStringList());
}

TEST_F(FilesInFolder, GetFileAttribs_TellsFoldersReadOnlyAndHidden) {
    Make("a.map");
    Make(".hidden");
    EXPECT_EQ(GetFileAttribs(PathOf("a.map")), fileattributes::kNormal);
    EXPECT_EQ(GetFileAttribs(PathOf(".hidden")), fileattributes::kHidden);
    EXPECT_TRUE(GetFileAttribs(folder_.path()) & fileattributes::kDirectory);
    QFile::setPermissions(PathOf("a.map"), QFile::ReadOwner);
    EXPECT_EQ(GetFileAttribs(PathOf("a.map")), fileattributes::kReadOnly);
    EXPECT_EQ(tests::NumberOf([&] { GetFileAttribs(PathOf("none")); }), 53);
}

TEST_F(FilesInFolder, Kill_RefusesAReadOnlyFileUntilClearReadOnly) {
    Make("a.map");
    QFile::setPermissions(PathOf("a.map"), QFile::ReadOwner);
    EXPECT_EQ(tests::NumberOf([&] { Kill(PathOf("a.map")); }), 75);
    EXPECT_TRUE(FileExists(PathOf("a.map")));
    ClearReadOnly(PathOf("a.map"));
    Kill(PathOf("a.map"));
    EXPECT_FALSE(FileExists(PathOf("a.map")));
    EXPECT_EQ(tests::NumberOf([&] { Kill(PathOf("a.map")); }), 53);
}

TEST(Files, ProgramPath_IsTheExecutablesFolderUntilSet) {
    EXPECT_TRUE(GetFiles(AddBackslash(ProgramPath()) + "test_support*", 0).size() >= 1);
    SetProgramPath("/somewhere/else");
    EXPECT_EQ(ProgramPath(), "/somewhere/else");
    SetProgramPath(QString());
    EXPECT_NE(ProgramPath(), "/somewhere/else");
}

TEST_F(FilesInFolder, IsSameFile_IsAsTheFileSystemHasIt) {
    Make("plan.map"), Make("other.map");
    EXPECT_TRUE(IsSameFile(PathOf("plan.map"), PathOf("plan.map")));
    EXPECT_TRUE(IsSameFile(PathOf("plan.map"), PathOf("./plan.map")));
    EXPECT_FALSE(IsSameFile(PathOf("plan.map"), PathOf("other.map")));
    const bool takesAnyCase = QFile::exists(PathOf("PLAN.MAP"));
    Make("PLAN.MAP");
    EXPECT_EQ(IsSameFile(PathOf("plan.map"), PathOf("PLAN.MAP")), takesAnyCase);
}

TEST_F(FilesInFolder, IsSameFile_OfWhatIsNotThereGoesByTheCaseOfThePlatform) {
    EXPECT_TRUE(IsSameFile(PathOf("a.map"), PathOf("A.MAP"), Qt::CaseInsensitive));
    EXPECT_FALSE(IsSameFile(PathOf("a.map"), PathOf("A.MAP"), Qt::CaseSensitive));
    EXPECT_FALSE(IsSameFile(PathOf("a.map"), PathOf("b.map"), Qt::CaseInsensitive));
    EXPECT_TRUE(IsSameFile("C:\\Maps\\Plan.map", "c:\\maps\\plan.map"));
}

#ifndef Q_OS_WIN
TEST_F(FilesInFolder, IsSameFile_FollowsLinks) {
    Make("plan.map");
    ASSERT_TRUE(QFile::link(PathOf("plan.map"), PathOf("shown.map")));
    EXPECT_TRUE(IsSameFile(PathOf("plan.map"), PathOf("shown.map")));
}
#endif
