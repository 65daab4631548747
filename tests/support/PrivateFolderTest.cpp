#include "support/PrivateFolder.h"

#include "tests/EnvironmentVariable.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace support {

namespace {

const QString kPurpose = QStringLiteral("trial");

// A temporary folder of the test's own.
class PrivateFolderTest : public ::testing::Test {
protected:
    QStringList Names() const {
        return QDir(temp_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    QString Path(const QString &name) const { return temp_.filePath(name); }
    // What a killed process leaves: the folder with its content, and a lock that nobody holds.
    QString MakeLeftOver(const QString &name) {
        const QString path = Path(name);
        EXPECT_TRUE(QDir().mkdir(path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        Write(path + "/.lock");
        Write(path + "/notes.txt");
        return path;
    }
    static void Write(const QString &path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

private:
    const QTemporaryDir temp_;
    const tests::EnvironmentVariable variable_{"TMPDIR", temp_.path().toLocal8Bit()};
};

} // namespace

TEST_F(PrivateFolderTest, OnlyTheUserMayReadItAndItGoesWithItsContent) {
    QString path;
    {
        const PrivateFolder one(kPurpose), two(kPurpose);
        path = one.Path();
        EXPECT_NE(path, two.Path());
        EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                                   QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
                  QFile::Permissions());
        EXPECT_TRUE(platform::IsPrivateFolder(path));
        EXPECT_TRUE(QDir().mkpath(path + "/2"));
        Write(path + "/2/notes.txt");
    }
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_TRUE(Names().isEmpty());
}

TEST_F(PrivateFolderTest, ASweepTakesWhatNobodyHoldsAlone) {
    const PrivateFolder held(kPurpose);
    Write(held.Path() + "/notes.txt");
    const QString left = MakeLeftOver("velmora-trial-AbCdEf");
    const QString other = MakeLeftOver("velmora-else-AbCdEf");
    SweepPrivateFolders(kPurpose);
    EXPECT_FALSE(QFileInfo::exists(left));
    EXPECT_TRUE(QFileInfo::exists(held.Path() + "/notes.txt"));
    EXPECT_TRUE(QFileInfo::exists(other));
}

TEST_F(PrivateFolderTest, ASweepLeavesWhatIsNoPrivateFolderOrJustMade) {
    const QString open = MakeLeftOver("velmora-trial-open");
    QFile::setPermissions(open, QFile::permissions(open) | QFile::ReadOther | QFile::ExeOther);
    const QString target = MakeLeftOver("precious");
    QFile::link(target, Path("velmora-trial-link"));
    const QString fresh = MakeLeftOver("velmora-trial-fresh");
    QFile::remove(fresh + "/.lock");
    SweepPrivateFolders(kPurpose);
    for (const QString &path : {open, target, fresh}) EXPECT_TRUE(QFileInfo::exists(path + "/notes.txt"));
}

TEST_F(PrivateFolderTest, ALastingFolderIsFoundAgainAndIsNeverSomebodyElses) {
    const QString open = MakeLeftOver("velmora-trial-aaaaaa");
    QFile::setPermissions(open, QFile::permissions(open) | QFile::WriteOther | QFile::ExeOther);
    const QString folder = LastingPrivateFolder(kPurpose);
    EXPECT_NE(folder, open);
    EXPECT_EQ(LastingPrivateFolder(kPurpose), folder);
    EXPECT_EQ(LastingPrivateFolders(kPurpose), QStringList(folder));
    EXPECT_TRUE(platform::IsPrivateFolder(folder));
}

} // namespace support
