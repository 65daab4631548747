#include "tests/recovery/JournalTest.h"

namespace recovery {

using namespace testing;

class Gathering : public JournalTest {};

TEST_F(Gathering, WaitsWhileTheWindowIsBusy) {
    auto kept = NewKept();
    kept->busy = true;
    kept->AddNode(QStringLiteral("half loaded"));
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 0);
    kept->busy = false;
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 1);
}

TEST_F(Gathering, KeepsWhatIsBeingTyped) {
    auto kept = NewKept();
    diagram::Node &node = kept->AddNode(QStringLiteral("before"));
    kept->unsaved = false;
    kept->typed = TypedText{0, node.Id(), QStringLiteral("bef")};
    kept->journal.Finish();
    EXPECT_EQ(node.Text(), QStringLiteral("before"));
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), QStringList{QStringLiteral("bef")});
    kept->typed->text = QStringLiteral("behind");
    kept->journal.Finish();
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), QStringList{QStringLiteral("behind")});
    kept->unsaved = true; // something else was edited meanwhile
    kept->typed.reset();  // and the typing given up
    kept->journal.Finish();
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), QStringList{QStringLiteral("before")});
    kept->unsaved = false;
    kept->journal.Finish();
    EXPECT_EQ(Folders(), 0);
}

TEST_F(Gathering, FollowsUndoAndRedo) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->AddNode(QStringLiteral("b"));
    kept->journal.Finish();
    kept->Slice(0).Undo();
    kept->journal.Finish();
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), QStringList{QStringLiteral("a")});
    kept->Slice(0).Redo();
    kept->journal.Finish();
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(Gathering, LeavesOutHowFarThePageHasGrown) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->Slice(0).PageGrown(150, 300);
    kept->journal.Finish();
    const auto map = ReadJournal(JournalBytes());
    ASSERT_FALSE(map.slices.empty());
    EXPECT_EQ(map.slices.begin()->second.surface.grownLeft, 0);
    EXPECT_EQ(map.slices.begin()->second.surface.grownTop, 0);
}

TEST_F(Gathering, WritesNothingWhileNothingChanges) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    const qsizetype size = JournalBytes().size();
    kept->Slice(0).Nodes().Item(1).SetSelected(true);
    kept->journal.Finish();
    kept->journal.Finish();
    EXPECT_EQ(JournalBytes().size(), size);
    EXPECT_EQ(kept->journal.Changes(), 1);
}

TEST_F(Gathering, WritesOfAnEditOnlyWhatChanged) {
    auto kept = NewKept();
    for (int i = 0; i < 1000; ++i) kept->AddNode(QString::number(i));
    kept->journal.Finish();
    const qsizetype size = JournalBytes().size();
    kept->Slice(0).Nodes().Item(500).SetText(QStringLiteral("other"));
    kept->journal.Finish();
    EXPECT_LT(JournalBytes().size() - size, 1000);
}

TEST_F(Gathering, TellsOnceThatTheFolderCannotBeWrittenAndLeavesEditingAlone) {
    QFile inTheWay(Root());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    auto kept = NewKept();
    for (int i = 0; i < 3; ++i) {
        kept->AddNode(QStringLiteral("a"));
        kept->journal.Finish();
        QCoreApplication::sendPostedEvents();
    }
    EXPECT_EQ(kept->failures.size(), 1);
    EXPECT_EQ(kept->Slice(0).Nodes().Count(), 3);
}

TEST_F(Gathering, StartsByItselfSoonAfterAnEdit) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("a"));
    while (Folders() == 0 ||
           !QFile::exists(JournalPath(Root() + u'/' +
                                      QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0))))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(Texts(ReadJournal(JournalBytes())), QStringList{QStringLiteral("a")});
}

TEST_F(Gathering, AnEditDuringAGestureCountsOnceItHasEnded) {
    auto kept = NewKept();
    diagram::Node &node = kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    kept->Slice(0).BeginAction(0);
    for (int i = 1; i < 4; ++i) {
        node.SetLeft(float(i) * 100);
        kept->journal.Finish();
    }
    EXPECT_EQ(kept->journal.Changes(), 1);
    kept->Slice(0).EndAction();
    kept->journal.Finish();
    EXPECT_EQ(kept->journal.Changes(), 2);
}

TEST_F(Gathering, TheJournalWhoseWorkItGoesOnWithGoesOnceItIsWritten) {
    auto first = NewKept();
    first->AddNode(QStringLiteral("a"));
    first->journal.Finish();
    first.reset();
    std::vector<LostMap> lost = Lost();
    ASSERT_EQ(lost.size(), 1u);
    auto second = NewKept();
    Restore(second->Memory(), ReadLostMap(lost[0]), lost[0].folder.path);
    second->journal.Supersede(std::move(lost[0].folder));
    EXPECT_EQ(Folders(), 1);
    second->journal.Finish();
    EXPECT_EQ(Folders(), 1);
    second.reset();
    EXPECT_EQ(Texts(*Restored()), QStringList{QStringLiteral("a")});
}

} // namespace recovery
