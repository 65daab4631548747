#include "support/ManyFiles.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "tests/support/FolderTest.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>

using namespace support;

namespace {

using ManyFiles = support::testing::FolderTest;

} // namespace

TEST_F(ManyFiles, ReplaceFiles_PutsAllInTheirPlacesOverWhatWasThere) {
    WriteNewFile(PathOf("a.htm"), "old");
    QDir(folder_.path()).mkdir(QStringLiteral("new"));
    WriteNewFile(PathOf("new/a.htm"), "a");
    WriteNewFile(PathOf("new/b.htm"), "b");
    EXPECT_EQ(ReadWholeFile(PathOf("a.htm")), "old");
    ReplaceFiles(PathOf("new"), {"a.htm", "b.htm"}, folder_.path());
    EXPECT_EQ(ReadWholeFile(PathOf("a.htm")), "a");
    EXPECT_EQ(ReadWholeFile(PathOf("b.htm")), "b");
    EXPECT_TRUE(QDir(PathOf("new")).isEmpty());
    ReplaceFiles(PathOf("new"), {}, folder_.path());
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden), (QStringList{"a.htm", "b.htm"}));
}

TEST_F(ManyFiles, ReplaceFiles_ReplacesNoneWhereOneIsMissing) {
    WriteNewFile(PathOf("a.htm"), "old");
    QDir(folder_.path()).mkdir(QStringLiteral("new"));
    WriteNewFile(PathOf("new/a.htm"), "a");
    ExpectError(kErrFileNotFound, "b.htm", [&] {
        ReplaceFiles(PathOf("new"), {"a.htm", "b.htm"}, folder_.path());
    });
    EXPECT_EQ(ReadWholeFile(PathOf("a.htm")), "old");
    EXPECT_TRUE(QFile::exists(PathOf("new/a.htm")));
}

TEST_F(ManyFiles, WriteNewFile_LeavesAFileThatIsThereAlone) {
    WriteNewFile(PathOf("a.htm"), "old");
    ExpectError(kErrPathFileAccess, "a.htm", [&] { WriteNewFile(PathOf("a.htm"), "new"); });
    ExpectError(kErrPathNotFound, "gone/a.htm", [&] { WriteNewFile(PathOf("gone/a.htm"), "new"); });
    EXPECT_EQ(ReadWholeFile(PathOf("a.htm")), "old");
}
