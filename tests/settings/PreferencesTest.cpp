#include "settings/clsMRU.h"
#include "settings/clsRB.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/cRegistry.h"
#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace settings;
using support::RegistryRoot;
using support::RegistryType;

namespace {

constexpr char kPlace[] = "SOFTWARE\\Orbelle\\Velmora";
constexpr char kRecent[] = "SOFTWARE\\Tessor\\Edition\\MRU";

class Preferences : public ::testing::Test {
protected:
    Preferences() {
        ProductTerms terms;
        terms.TITLE = "Edition";
        SetTerms(terms);
    }
    ~Preferences() override { SetTerms({}); }

    void SetText(RegistryRoot root, const QString &path, const QString &name, const QString &text) {
        desktop_.registry.Write(root, path, name, {RegistryType::String, text});
    }
    QString TextAt(const QString &path, const QString &name) {
        const auto value = desktop_.registry.Read(RegistryRoot::CurrentUser, path, name);
        return value ? value->data.toString() : QString("(none)");
    }
    QString Order() { return TextAt(kRecent, "Order"); }

    support::testing::ScriptedDesktop desktop_;
};

using RecentFiles = Preferences;
using RememberedAnswer = Preferences;

} // namespace

TEST_F(Preferences, GetSet_PrefersTheUserThenTheMachineThenTheDefault) {
    EXPECT_EQ(GetSet("Footer"), "");
    EXPECT_EQ(GetSet("Footer", "none"), "none");
    SetText(RegistryRoot::LocalMachine, kPlace, "Footer", "machine");
    EXPECT_EQ(GetSet("Footer", "none"), "machine");
    SetText(RegistryRoot::CurrentUser, kPlace, "Footer", "user");
    EXPECT_EQ(GetSet("Footer", "none"), "user");
    SetText(RegistryRoot::CurrentUser, kPlace, "Footer", "");
    EXPECT_EQ(GetSet("Footer", "none"), "");
}

TEST_F(Preferences, GetSet_GivesANumberAsText) {
    desktop_.registry.Write(RegistryRoot::CurrentUser, kPlace, "Ori", {RegistryType::Number, quint32(2)});
    EXPECT_EQ(GetSet("Ori"), "2");
}

TEST_F(Preferences, SaveSet_WritesTheUsersValueOnly) {
    SaveSet("LastPath", "/home/ann");
    EXPECT_EQ(TextAt(kPlace, "LastPath"), "/home/ann");
    EXPECT_FALSE(desktop_.registry.KeyExists(RegistryRoot::LocalMachine, kPlace));
    EXPECT_EQ(GetSet("LastPath"), "/home/ann");
}

TEST_F(Preferences, GetStartupEnabled_IsOnUnlessTheSettingIsANumberOtherThanZero) {
    EXPECT_TRUE(GetStartupEnabled());
    for (const auto &[text, on] :
         {std::pair{"1", false}, {"0", true}, {"", true}, {"no", true}, {"-1", false}}) {
        SaveSet("DontStartup", text);
        EXPECT_EQ(GetStartupEnabled(), on) << text;
    }
    SaveStartupEnabled(false);
    EXPECT_EQ(TextAt(kPlace, "DontStartup"), "1");
    SaveStartupEnabled(true);
    EXPECT_EQ(TextAt(kPlace, "DontStartup"), "0");
    EXPECT_TRUE(GetStartupEnabled());
}

TEST_F(RecentFiles, AddFile_PutsNewFilesInFreeSlotsAndInFront) {
    clsMRU mru;
    mru.AddFile("C:\\one.map");
    mru.AddFile("C:\\two.map");
    EXPECT_EQ(mru.File2('a'), "C:\\one.map");
    EXPECT_EQ(mru.File2('b'), "C:\\two.map");
    EXPECT_EQ(mru.File2('c'), "");
    EXPECT_EQ(Order(), "ba");
    EXPECT_EQ(mru.File(1), "C:\\two.map");
    EXPECT_EQ(mru.File(2), "C:\\one.map");
    EXPECT_EQ(mru.File(3), "");
    EXPECT_EQ(mru.File(0), "");
}

TEST_F(RecentFiles, AddFile_OfAPathInOtherCaseReusesTheSlotAndMovesItToTheFront) {
    clsMRU mru;
    mru.AddFile("C:\\One.map");
    mru.AddFile("C:\\two.map");
    mru.AddFile("c:\\ONE.MAP");
    EXPECT_EQ(Order(), "ab");
    EXPECT_EQ(mru.File(1), "c:\\ONE.MAP");
    EXPECT_EQ(mru.File2('c'), "");
}

#ifndef Q_OS_WIN
TEST_F(RecentFiles, FilesThatDifferInCaseAloneAreTwoWhereTheFileSystemHasTwo) {
    QDir folder(QDir::tempPath() + QStringLiteral("/velmora recent two").toLower());
    ASSERT_TRUE(folder.mkpath("."));
    const QStringList paths{folder.filePath("plan.map"), folder.filePath("Plan.map")};
    for (const QString &path : paths) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const bool areTwo = folder.entryList(QDir::Files).size() == 2;
    clsMRU mru;
    for (const QString &path : paths) mru.AddFile(path);
    EXPECT_EQ(Order(), areTwo ? "ba" : "a");
    if (areTwo) {
        EXPECT_EQ(mru.GetFiles(5), QStringList({paths[1], paths[0]}));
    }
    folder.removeRecursively();
}

TEST_F(RecentFiles, AddFile_StoresTheLongForm) {
    clsMRU mru;
    mru.AddFile("/plans/../plans/one.map");
    mru.AddFile("/plans/one.map");
    EXPECT_EQ(Order(), "a");
    EXPECT_EQ(mru.File(1), "/plans/one.map");
}
#endif

TEST_F(RecentFiles, AddFile_ToAFullListOverwritesSlotAEachTimeAndKeepsTwentySixLetters) {
    clsMRU mru;
    for (int i = 0; i < 26; ++i) mru.AddFile(QString("C:\\%1.map").arg(i));
    EXPECT_EQ(Order(), "zyxwvutsrqponmlkjihgfedcba");
    mru.AddFile("C:\\new1.map");
    EXPECT_EQ(Order(), "azyxwvutsrqponmlkjihgfedcb");
    EXPECT_EQ(mru.File(1), "C:\\new1.map");
    mru.AddFile("C:\\new2.map");
    EXPECT_EQ(Order(), "azyxwvutsrqponmlkjihgfedcb");
    EXPECT_EQ(mru.File2('a'), "C:\\new2.map");
    EXPECT_EQ(mru.File2('b'), "C:\\1.map");
}

TEST_F(RecentFiles, AddFile_ToAFullListTakesTheLastLetterOfAnOrderUnderTheClassesRoot) {
    clsMRU mru;
    for (int i = 0; i < 26; ++i) mru.AddFile(QString("C:\\%1.map").arg(i));
    SetText(RegistryRoot::ClassesRoot, kRecent, "Order", "abcdefghijklmnopqrstuvwxyz");
    mru.AddFile("C:\\new.map");
    EXPECT_EQ(mru.File2('z'), "C:\\new.map");
    EXPECT_EQ(mru.File2('a'), "C:\\0.map");
}

TEST_F(RecentFiles, GetFiles_LeavesOutItsUpperLimitAndMissingFiles) {
    const QTemporaryDir folder;
    clsMRU mru;
    QStringList paths;
    for (int i = 0; i < 6; ++i) {
        paths.prepend(folder.filePath(QString("%1.map").arg(i)));
        QFile file(paths.first());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        mru.AddFile(paths.first());
    }
    EXPECT_EQ(mru.GetFiles(5, 1).size(), 4);
    EXPECT_EQ(mru.GetFiles(5, 0), mru.GetFiles(5, 1));
    EXPECT_EQ(mru.GetFiles(100, 1).size(), 6);
    EXPECT_EQ(mru.GetFiles(3, 2).size(), 1);
    EXPECT_EQ(mru.GetFiles(1, 1).size(), 0);
    QFile::remove(paths[0]);
    EXPECT_EQ(mru.GetFiles(5, 1).size(), 3);
    EXPECT_EQ(mru.File(1), paths[0]);
}

TEST_F(RecentFiles, GetFiles_GivesPathsThatOpen) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("Mixed Case.map");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    clsMRU mru;
    mru.AddFile(path);
    const QStringList files = mru.GetFiles(5);
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(QFile::exists(files[0]));
    EXPECT_EQ(files[0].toLower(), path.toLower());
}

TEST_F(RecentFiles, GetFiles_GivesLowerCaseWhereThatNamesTheFile) {
    const QDir folder(QDir::tempPath());
    const QString path = folder.filePath("velmora recent lower.map").toLower();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    clsMRU mru;
    mru.AddFile(path);
    EXPECT_EQ(mru.GetFiles(5), QStringList{path});
    file.remove();
}

TEST_F(RememberedAnswer, DisplayPrompt_AsksEachTimeWhileNothingIsSaved) {
    for (const std::int32_t answer : {clsRB::kNew, clsRB::kUpdate}) {
        clsRB prompt;
        EXPECT_TRUE(prompt.GetDisplayPrompt());
        desktop_.ExpectForm<clsRB>([&](clsRB &asked) {
            EXPECT_TRUE(asked.Force);
            asked.Choice = answer;
            asked.SaveValue = false;
            return true;
        });
        EXPECT_EQ(prompt.DisplayPrompt(true), answer);
    }
}

TEST_F(RememberedAnswer, DisplayPrompt_KeepsASavedAnswerUntilResetPrompt) {
    clsRB prompt;
    desktop_.ExpectForm<clsRB>([](clsRB &asked) {
        EXPECT_FALSE(asked.Force);
        asked.Choice = clsRB::kUpdate;
        asked.SaveValue = true;
        return true;
    });
    EXPECT_EQ(prompt.DisplayPrompt(false), clsRB::kUpdate);
    const auto stored = desktop_.registry.Read(RegistryRoot::CurrentUser, "SOFTWARE\\Edition", "RB_Bar");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->type, RegistryType::Number);
    EXPECT_EQ(clsRB().DisplayPrompt(false), clsRB::kUpdate);
    EXPECT_FALSE(clsRB().GetDisplayPrompt());
    prompt.ResetPrompt();
    EXPECT_TRUE(clsRB().GetDisplayPrompt());
}

TEST_F(RememberedAnswer, DisplayPrompt_NeverSavesACancel) {
    desktop_.ExpectForm<clsRB>([](clsRB &asked) {
        asked.SaveValue = true;
        return false;
    });
    EXPECT_EQ(clsRB().DisplayPrompt(false), clsRB::kCancel);
    EXPECT_TRUE(clsRB().GetDisplayPrompt());
}
