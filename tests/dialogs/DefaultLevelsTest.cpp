// What Default makes of the levels that stand in the form.
#include "tests/dialogs/LevelsFormTest.h"

#include "support/AtomicFile.h"
#include "tests/EnvironmentVariable.h"

#include <QFileInfo>

namespace dialogs::testing {

using ::testing::ElementsAre;

namespace {

const QString kQuestion = QStringLiteral("This will affect all new Maps!\r\rContinue?");

// For the life of the object the program's folder can't be written, and the configuration folder is another
// one.
class ReadOnlyProgram {
public:
    explicit ReadOnlyProgram(const QString &folder) : folder_(folder) {
        QFile::setPermissions(folder_, QFile::ReadOwner | QFile::ExeOwner);
    }
    ~ReadOnlyProgram() {
        QFile::setPermissions(folder_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ReadOnlyProgram(const ReadOnlyProgram &) = delete;
    ReadOnlyProgram &operator=(const ReadOnlyProgram &) = delete;
    QTemporaryDir config;

private:
    QString folder_;
    tests::EnvironmentVariable configHome_{"XDG_CONFIG_HOME", QFile::encodeName(config.path())};
};

} // namespace

TEST_F(LevelsForm, DefaultWritesTheRowsAsTheyStandAndLeavesTheMap) {
    Open();
    Rename(0, QStringLiteral("O'Brien"));
    Select(1);
    Press("cmdDelete");
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Press("cmdDefault");
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Question);
    EXPECT_EQ(desktop.Messages().back().buttons, support::Buttons::YesNo);
    EXPECT_TRUE(IsOpen());
    EXPECT_THAT(LevelNames(), ElementsAre("1", "2", "12", "12 Important"));
    document::cLevels fresh;
    fresh.LoadDefaults();
    EXPECT_THAT(NamesOf(fresh), ElementsAre("O'Brien", "12", "12 Important"));
    EXPECT_TRUE(fresh.Item(1).Selected);
    EXPECT_EQ(fresh.Item(1).Color, 0x111111);
    EXPECT_FALSE(fresh.Item(3).Selected);
}

TEST_F(LevelsForm, DefaultWithoutYesWritesNothing) {
    const QByteArray before = support::ReadWholeFile(ProgramFile(QStringLiteral("template.tpl")));
    Open();
    Press("cmdDelete");
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    Press("cmdDefault");
    EXPECT_EQ(support::ReadWholeFile(ProgramFile(QStringLiteral("template.tpl"))), before);
}

TEST_F(LevelsForm, DefaultOfAnEmptyListLeavesTheTableEmpty) {
    Open();
    for (int at = 0; at < 4; ++at) Press("cmdDelete");
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Press("cmdDefault");
    EXPECT_EQ(NewWindow()->clsSettings().Levels().count(), 0);
    EXPECT_EQ(NewWindow()->clsSettings().Groups().count(), 2) << "the groups stay";
}

TEST_F(LevelsForm, DefaultAsksNothingWhileTheFormIsNotSeen) {
    form = std::make_unique<frmLevels>(argument(), nullptr);
    Press("cmdDelete");
    form->cmdDefault_Click();
    EXPECT_EQ(NewWindow()->clsSettings().Levels().count(), 3);
}

TEST_F(LevelsForm, DefaultInAFolderThatMayNotBeWrittenMakesACopyThatNewMapsUse) {
    const QString delivered = ProgramFile(QStringLiteral("template.tpl"));
    const QByteArray before = support::ReadWholeFile(delivered);
    const ReadOnlyProgram readOnly(QFileInfo(delivered).path());
    Open();
    Rename(0, QStringLiteral("Mine"));
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    desktop.ExpectMessageContaining(readOnly.config.filePath(QStringLiteral("velmora/Velmora/template.tpl")));
    Press("cmdDefault");
    EXPECT_EQ(support::ReadWholeFile(delivered), before);
    EXPECT_EQ(NewWindow()->clsSettings().Levels().Item(1).LevelName, QStringLiteral("Mine"));
    Press("cmdCancel");
    SaveAs(*window, MapFile(QStringLiteral("map.map"))); // begins with the copy too
    EXPECT_EQ(Loaded(MapFile(QStringLiteral("map.map")))->clsSettings().Levels().count(), 4);
}

TEST_F(LevelsForm, ATemplateThatCannotBeReadIsReportedAndStaysAsItIs) {
    support::AtomicFile broken(ProgramFile(QStringLiteral("template.tpl")));
    broken.Write("no database");
    broken.Commit();
    Open();
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    desktop.ExpectMessageContaining(QStringLiteral("(Error #"));
    Press("cmdDefault");
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmLevels: Sub cmdDefault_Click"));
    EXPECT_EQ(support::ReadWholeFile(ProgramFile(QStringLiteral("template.tpl"))), QByteArray("no database"));
}

} // namespace dialogs::testing
