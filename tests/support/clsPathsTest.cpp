#include "support/clsPaths.h"

#include "support/cRegistry.h"
#include "support/Files.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/EnvironmentVariable.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace support;

TEST(clsPaths, DoGetFilePath_IsTheFolderUpToTheLastSeparator) {
    const clsPaths paths;
    EXPECT_EQ(paths.DoGetFilePath("C:\\a\\b.map"), "C:\\a");
    EXPECT_EQ(paths.DoGetFilePath("C:\\b.map"), "C:\\");
    EXPECT_EQ(paths.DoGetFilePath("/a/b/c.map"), "/a/b");
    EXPECT_EQ(paths.DoGetFilePath("/c.map"), "/");
    EXPECT_EQ(paths.DoGetFilePath("c.map"), "");
    EXPECT_EQ(paths.DoGetFileTitle("C:\\a\\b.map"), "b.map");
}

#ifndef Q_OS_WIN
TEST(clsPaths, LongName_IsAbsoluteAndClean) {
    const clsPaths paths;
    EXPECT_EQ(paths.LongName("/a/./b/../c.map"), "/a/c.map");
    EXPECT_EQ(paths.LongName("c.map"), QDir::currentPath() + "/c.map");
    EXPECT_EQ(paths.LongName(""), "");
}

TEST(clsPaths, LongName_LeavesAPathOfAnotherPlatformAsItIs) {
    EXPECT_EQ(clsPaths().LongName("C:\\PLANS~1\\b.map"), "C:\\PLANS~1\\b.map");
    EXPECT_EQ(clsPaths().LongName2("C:\\PLANS~1\\b.map"), "C:\\PLANS~1\\b.map");
    EXPECT_EQ(clsPaths().shortName("/a/long name.map"), "/a/long name.map");
}

TEST(clsPaths, LongName2_SpellsEachPartAsItsFolderDoes) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath("Plans/.Hidden");
    QFile file(folder.filePath("Plans/.Hidden/Q1.Map"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(clsPaths().LongName2(folder.filePath("plans/.hidden/q1.map")),
              folder.filePath("Plans/.Hidden/Q1.Map"));
    EXPECT_EQ(clsPaths().LongName2(folder.filePath("plans/none.map")), folder.filePath("Plans/none.map"));
}
#endif

TEST(clsPaths, GetMyDocsPath_TakesTheRegistrysFolderFirst) {
    support::testing::ScriptedDesktop desktop;
    const QTemporaryDir documents;
    desktop.registry.Write(RegistryRoot::CurrentUser,
                           "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                           "Personal", {RegistryType::String, documents.path()});
    EXPECT_EQ(clsPaths().GetMyDocsPath(), AddBackslash(QDir::toNativeSeparators(documents.path())));
}

#ifdef Q_OS_LINUX
TEST(clsPaths, GetMyDocsPath_FallsBackToTheDocumentsFolderAndThenToTheProgramsFolder) {
    support::testing::ScriptedDesktop desktop;
    const QTemporaryDir home;
    const tests::EnvironmentVariable homeFolder("HOME", home.path().toLocal8Bit());
    const tests::EnvironmentVariable configHome("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    EXPECT_EQ(clsPaths().GetMyDocsPath(), AddBackslash(ProgramPath()));
    QDir(home.path()).mkdir("Documents");
    EXPECT_EQ(clsPaths().GetMyDocsPath(), home.filePath("Documents/"));
}
#endif

TEST(clsPaths, GetWinDir_AndGetSysDirEndInASeparator) {
    for (const QString &folder : {clsPaths().GetWinDir(), clsPaths().GetSysDir()}) {
        EXPECT_TRUE(DirExists(folder));
        EXPECT_EQ(LastSeparator(folder), folder.size() - 1);
    }
}
