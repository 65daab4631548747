#include "recovery/LostMaps.h"

#include "document/OwnFiles.h"
#include "tests/recovery/JournalTest.h"

#ifndef Q_OS_WIN
#include <csignal>
#endif

namespace recovery {

using namespace testing;

class LostMaps : public JournalTest {};

TEST_F(LostMaps, AreNoneWhileAndAfterNothingWasLeft) {
    EXPECT_TRUE(Lost().empty());
    auto kept = NewKept();
    kept->unsaved = false;
    kept->AddNode(QStringLiteral("saved already"));
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 0);
    kept.reset();
    EXPECT_TRUE(Lost().empty());
}

TEST_F(LostMaps, AreTwoForTwoWindowsTheLatestFirst) {
    auto first = NewKept(), second = NewKept();
    first->Memory().clsSettings().SetDatabase(QStringLiteral("/maps/First.map"));
    first->AddNode(QStringLiteral("a"));
    first->journal.Finish();
    second->AddNode(QStringLiteral("b"));
    second->journal.Finish();
    second->AddNode(QStringLiteral("c"));
    second->journal.Finish();
    first.reset();
    second.reset();
    const std::vector<LostMap> lost = Lost();
    ASSERT_EQ(lost.size(), 2u);
    EXPECT_EQ(lost[0].title, QStringLiteral("Untitled"));
    EXPECT_EQ(lost[0].changes, 2);
    EXPECT_EQ(lost[1].title, QStringLiteral("First.map"));
    EXPECT_EQ(lost[1].path, QStringLiteral("/maps/First.map"));
    EXPECT_EQ(lost[1].changes, 1);
    EXPECT_LE(lost[1].time, lost[0].time);
    EXPECT_GE(lost[1].time, QDateTime::currentDateTime().addSecs(-600));
}

TEST_F(LostMaps, OfAWindowThatIsStillThereAreNotOffered) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 1);
    EXPECT_TRUE(Lost().empty());
    kept.reset();
    EXPECT_EQ(Lost().size(), 1u);
}

TEST_F(LostMaps, AreOfferedOnceAtATime) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    kept.reset();
    {
        const std::vector<LostMap> shown = Lost();
        EXPECT_EQ(shown.size(), 1u);
        EXPECT_TRUE(Lost().empty());
    }
    EXPECT_EQ(Lost().size(), 1u); // to be shown later
}

#ifndef Q_OS_WIN
using LostMapsDeathTest = LostMaps;

TEST_F(LostMapsDeathTest, OfAProgramThatIsKilledAreOfferedByTheNext) {
    EXPECT_EXIT(
        {
            auto kept = NewKept();
            kept->AddNode(QStringLiteral("before the end"));
            kept->journal.Finish();
            std::raise(SIGKILL);
        },
        ::testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(Texts(OnlyLost()), QStringList{QStringLiteral("before the end")});
}

TEST_F(LostMapsDeathTest, OfAProgramThatRunsAreNotOfferedByAnother) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    // A copy of this process is the other program. It lacks the threads of this one, so it can only end at
    // once.
    EXPECT_EXIT(std::_Exit(int(Lost().size())), ::testing::ExitedWithCode(0), "");
    kept.reset();
    EXPECT_EXIT(std::_Exit(int(Lost().size())), ::testing::ExitedWithCode(1), "");
}
#endif

TEST_F(LostMaps, AFolderThatWasMadeAndNeverWrittenToIsSweptAway) {
    const QString path = MakeFolder(Root()).path;
    EXPECT_TRUE(QDir(path).exists());
    EXPECT_TRUE(Lost().empty());
    EXPECT_FALSE(QDir(path).exists());
}

TEST_F(LostMaps, ASavedOrClosedMapLeavesNothing) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 1);
    kept->journal.Drop(); // closed
    kept->unsaved = false;
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 0);
    kept->unsaved = true;
    kept->AddNode(QStringLiteral("b"));
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 1);
    kept->unsaved = false; // saved, or undone
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 0);
}

TEST_F(LostMaps, TheFileMayBeMissing) {
    auto kept = NewKept();
    SaveAs(kept->Memory(), MapFile(QStringLiteral("plan.map")));
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    kept.reset();
    QFile::remove(MapFile(QStringLiteral("plan.map")));
    auto restored = Restored();
    EXPECT_EQ(restored->clsSettings().Database(), MapFile(QStringLiteral("plan.map")));
    EXPECT_EQ(Texts(*restored), QStringList{QStringLiteral("a")});
    EXPECT_TRUE(document::DoSave(*restored));
    EXPECT_EQ(Texts(*Loaded(MapFile(QStringLiteral("plan.map")))), QStringList{QStringLiteral("a")});
}

TEST_F(LostMaps, AFileThatWasChangedMeanwhileIsAskedAboutBeforeItIsSavedOver) {
    auto kept = NewKept();
    const QString path = MapFile(QStringLiteral("plan.map"));
    SaveAs(kept->Memory(), path);
    kept->AddNode(QStringLiteral("mine"));
    kept->journal.Finish();
    kept.reset();
    auto other = NewWindow();
    other->AddFlow1()[0].Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("theirs"));
    QFile::remove(path);
    SaveAs(*other, path);
    auto restored = Restored();
    EXPECT_EQ(Texts(*restored), QStringList{QStringLiteral("mine")});
    desktop.ExpectMessageContaining(QStringLiteral("was changed outside of this window"),
                                    support::Answer::No);
    EXPECT_FALSE(document::DoSave(*restored));
    EXPECT_EQ(Texts(*Loaded(path)), QStringList{QStringLiteral("theirs")});
}

TEST_F(LostMaps, AFileThatStandsAsItWasIsSavedOverWithoutAQuestion) {
    auto kept = NewKept();
    const QString path = MapFile(QStringLiteral("plan.map"));
    SaveAs(kept->Memory(), path);
    kept->AddNode(QStringLiteral("mine"));
    kept->journal.Finish();
    kept.reset();
    auto restored = Restored();
    EXPECT_TRUE(document::DoSave(*restored));
    EXPECT_EQ(MapFiles().filter(QStringLiteral(".bak")), QStringList());
}

} // namespace recovery
