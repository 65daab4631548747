#include "document/WhereItIs.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace document;

namespace {

class WhereItIsTest : public ::testing::Test {
protected:
    QString Saved(const QString &name) {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        return path;
    }
    QString Map() const { return folder.filePath("plans/map.map"); }
    QTemporaryDir folder;
};

} // namespace

TEST_F(WhereItIsTest, APathThatLeadsSomewhereStays) {
    const QString file = Saved("elsewhere/notes.txt");
    Saved("plans/notes.txt");
    EXPECT_EQ(WhereItIs(file, Map()), file);
    EXPECT_EQ(WhereItIs(folder.filePath("elsewhere"), Map()), folder.filePath("elsewhere"));
}

TEST_F(WhereItIsTest, OneThatIsGoneIsLookedForBelowTheMapsFolder) {
    const QString file = Saved("plans/files/notes.txt"), beside = Saved("plans/other.txt");
    for (const char *stored : {"/former/plans/files/notes.txt", "C:\\former\\plans\\files\\notes.txt",
                               "C:/former/files/notes.txt", "\\\\server\\share\\files\\notes.txt"})
        EXPECT_EQ(WhereItIs(QLatin1String(stored), Map()), file) << stored;
    EXPECT_EQ(WhereItIs("/former/other.txt", Map()), beside);
    EXPECT_EQ(WhereItIs("/former/files", Map()), folder.filePath("plans/files"));
}

TEST_F(WhereItIsTest, TheLongestEndThatIsThereIsMeant) {
    Saved("plans/notes.txt");
    const QString deep = Saved("plans/a/b/notes.txt");
    EXPECT_EQ(WhereItIs("/former/a/b/notes.txt", Map()), deep);
    EXPECT_EQ(WhereItIs("/former/x/b/notes.txt", Map()), folder.filePath("plans/notes.txt"));
}

TEST_F(WhereItIsTest, WhatIsNowhereStaysAsItIsNamed) {
    Saved("notes.txt"); // beside the map's folder, not below it
    for (const char *stored :
         {"", "/former/notes.txt", "/former/../../notes.txt", "..\\notes.txt", "/", "C:\\", "gone.txt"})
        EXPECT_EQ(WhereItIs(QLatin1String(stored), Map()), QLatin1String(stored)) << stored;
    Saved("plans/notes.txt");
    EXPECT_EQ(WhereItIs("/former/notes.txt", QString()), "/former/notes.txt") << "a map without a file";
}

TEST_F(WhereItIsTest, APathOfAnyLengthIsLookedForByItsEnd) {
    const QString file = Saved("plans/notes.txt");
    QString stored;
    for (int i = 0; i < 200'000; ++i) stored += "/a";
    EXPECT_EQ(WhereItIs(stored + "/notes.txt", Map()), file);
    EXPECT_EQ(WhereItIs(stored, Map()), stored);
}

TEST_F(WhereItIsTest, APathWithoutARootIsOneBelowTheMap) {
    const QString file = Saved("plans/files/notes.txt");
    EXPECT_EQ(WhereItIs("files/notes.txt", Map()), file);
    EXPECT_EQ(WhereItIs("files\\notes.txt", Map()), file);
}

TEST_F(WhereItIsTest, AnotherMachineIsKnownByItsName) {
    EXPECT_TRUE(IsOnNetwork("\\\\server\\share\\a.txt"));
    EXPECT_TRUE(IsOnNetwork("//server/share/a.txt"));
    EXPECT_FALSE(IsOnNetwork("/server/a.txt"));
    EXPECT_FALSE(IsOnNetwork("C:\\a.txt"));
}
