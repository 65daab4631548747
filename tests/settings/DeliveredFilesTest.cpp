#include "settings/DeliveredFiles.h"

#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/EnvironmentVariable.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace settings;

namespace {

const QString kName = QStringLiteral("template.tpl");

// A program's folder with the file in it, and an empty configuration folder.
class DeliveredFiles : public ::testing::Test {
protected:
    DeliveredFiles() {
        support::SetProgramPath(program.path());
        ProductTerms terms;
        terms.TITLE = QStringLiteral("Velmora");
        SetTerms(terms);
        support::CopyFileTo(Written(config.filePath(QStringLiteral("bytes"))), Delivered());
    }
    ~DeliveredFiles() override {
        SetReadOnly(program.path(), false);
        support::SetProgramPath(QString());
        SetTerms({});
    }
    static QString Written(const QString &path) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    static void SetReadOnly(const QString &path, bool on) {
        const auto reading = QFile::ReadOwner | QFile::ExeOwner;
        QFile::setPermissions(path, on ? reading : reading | QFile::WriteOwner);
    }
    QString Delivered() const { return program.filePath(kName); }
    QString Own() const { return config.filePath(QStringLiteral("velmora/Velmora/") + kName); }

    QTemporaryDir program, config;
    support::testing::ScriptedDesktop desktop;

private:
    const tests::EnvironmentVariable configHome{"XDG_CONFIG_HOME", QFile::encodeName(config.path())};
};

} // namespace

TEST_F(DeliveredFiles, StandInTheProgramsFolderWhileThatMayBeWritten) {
    EXPECT_EQ(PathToRead(kName), Delivered());
    EXPECT_EQ(PathToWrite(kName), Delivered());
    EXPECT_FALSE(QFile::exists(config.filePath(QStringLiteral("velmora"))));
}

TEST_F(DeliveredFiles, AFolderThatMayNotBeWrittenGivesWayToTheUsersOwn) {
    SetReadOnly(program.path(), true);
    EXPECT_EQ(PathToRead(kName), Delivered()) << "there is no copy yet";
    EXPECT_EQ(PathToWrite(kName), Own());
    Written(PathToWrite(kName));
    EXPECT_EQ(PathToRead(kName), Own());
}

TEST_F(DeliveredFiles, AFileThatMayNotBeWrittenGivesWayToTheUsersOwn) {
    SetReadOnly(Delivered(), true);
    EXPECT_EQ(PathToWrite(kName), Own());
}

// What is written is what is read, whatever stands in the other place.
TEST_F(DeliveredFiles, ACopyOfFormerTimesIsPassedOverWhereTheProgramsFolderMayBeWritten) {
    Written(Own());
    EXPECT_EQ(PathToRead(kName), Delivered());
    EXPECT_EQ(PathToWrite(kName), Delivered());
}

TEST_F(DeliveredFiles, AMissingFileIsLookedForInTheProgramsFolder) {
    EXPECT_EQ(PathToRead(QStringLiteral("Template.nd")), program.filePath(QStringLiteral("Template.nd")));
}

TEST_F(DeliveredFiles, AConfigurationFolderThatCannotBeMadeIsAnErrorWithItsPath) {
    const QString aFile = config.filePath(QStringLiteral("bytes"));
    const tests::EnvironmentVariable noFolder("XDG_CONFIG_HOME", QFile::encodeName(aFile));
    SetReadOnly(program.path(), true);
    const support::Error error = tests::ErrorOf([&] { PathToWrite(kName); });
    EXPECT_EQ(error.Number(), support::kErrPathNotFound);
    EXPECT_TRUE(error.Description().contains(QStringLiteral("bytes/velmora/Velmora")));
}

TEST_F(DeliveredFiles, TheUserIsToldOfCopiesAlone) {
    TellOfOwnCopies({Delivered()});
    EXPECT_TRUE(desktop.Messages().empty());
    desktop.ExpectMessage(QStringLiteral("The folder of the program may not be written:\r\n%1\r\n\r\n"
                                         "What you chose is kept for you alone, in\r\n%2")
                              .arg(program.path(), Own()));
    TellOfOwnCopies({Delivered(), Own()});
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Information);
}
