#include "document/Tags.h"
#include "recovery/JournalFile.h"
#include "recovery/Records.h"
#include "support/AtomicFile.h"
#include "tests/recovery/JournalTest.h"

#include <QFileInfo>

namespace recovery {

using namespace testing;
using diagram::testing::Dice;

namespace {

constexpr int kEdits = 60;

void FillPools(KeptWindow &kept) {
    document::clsfrmMain &settings = kept.Memory().clsSettings();
    settings.Levels().Create(QStringLiteral("Überlevel"), true, 0x123456);
    settings.Groups().Create(QStringLiteral("A 'group'"), true);
    QString key = QStringLiteral("{NODE}");
    document::cHyperlink &hyperlink = settings.Hyperlinks().add(key);
    hyperlink.Node = key;
    hyperlink.Map = QStringLiteral("/other/plan.map");
    hyperlink.Slice = 2;
    hyperlink.DestNode = QStringLiteral("{DEST}");
    QString none;
    document::cAttachment &attachment = settings.Attachments().add(none);
    attachment.Node = key;
    attachment.Filename = QStringLiteral("/some/where/a.txt");
    document::KeepView(settings, QStringLiteral("Ansicht ü"));
    document::KeepView(settings, QStringLiteral("Second"));
}

// Three slices, one slot left out, each full of chance.
std::unique_ptr<KeptWindow> Filled(std::unique_ptr<KeptWindow> kept, unsigned seed) {
    Dice dice(seed);
    document::MemoryWindow &window = kept->Memory();
    window.TabStrip().SetTabCount(3);
    window.AddFlow1().Load(1);
    window.AddFlow1().Load(3);
    int tab = 0;
    for (const int index : window.AddFlow1().Indices()) {
        window.TabStrip().SetTheTab(tab++);
        window.TabStrip().SetCaption(QStringLiteral("Slice %1 ü").arg(index));
        diagram::testing::Fill(kept->Slice(index), dice, kEdits);
    }
    window.TabStrip().SetTheTab(0);
    FillPools(*kept);
    return kept;
}

void EditAll(KeptWindow &kept, Dice &dice, int edits) {
    for (const int index : kept.Memory().AddFlow1().Indices())
        for (int i = 0; i < edits; ++i) diagram::testing::EditAnything(kept.Slice(index), dice);
}

} // namespace

class RoundTrip : public JournalTest {};

TEST_F(RoundTrip, EveryPropertyAndPoolComesBack) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        auto kept = Filled(NewKept(), seed);
        kept->journal.Finish();
        const QString before = Whole(kept->Memory());
        kept.reset();
        auto restored = Restored();
        EXPECT_EQ(diagram::testing::Differing(Whole(*restored), before), "");
        EXPECT_EQ(restored->TabStrip().TabCaption(2), QStringLiteral("Slice 3 ü"));
        EXPECT_TRUE(restored->clsSettings().Dirty);
        for (LostMap &lost : Lost()) RemoveFolder(std::move(lost.folder));
    }
}

TEST_F(RoundTrip, ViewsThatAreKeptRenamedAndDeletedLaterComeBackTheirTicksToo) {
    auto kept = Filled(NewKept(), 1);
    kept->journal.Finish();
    document::clsfrmMain &settings = kept->Memory().clsSettings();
    document::RenameView(settings, QStringLiteral("Second"), QStringLiteral("Later"));
    document::DeleteView(settings, QStringLiteral("Ansicht ü"));
    settings.Levels().Item(1).Selected = !settings.Levels().Item(1).Selected;
    document::KeepView(settings, QStringLiteral("Third"));
    kept->journal.Finish();
    const auto ticks = document::LevelNames(settings, settings.Views[1]);
    const auto groups = document::GroupNames(settings, settings.Views[1]);
    kept.reset();
    const auto window = Restored();
    document::clsfrmMain &read = window->clsSettings();
    ASSERT_EQ(read.Views.size(), 2U);
    EXPECT_EQ(read.Views[0].Name, QStringLiteral("Later"));
    EXPECT_EQ(read.Views[1].Name, QStringLiteral("Third"));
    EXPECT_EQ(document::LevelNames(read, read.Views[1]), ticks);
    EXPECT_EQ(document::GroupNames(read, read.Views[1]), groups);
    EXPECT_EQ(document::TickView(read, read.Views[1]), QStringList());
}

TEST_F(RoundTrip, WhatIsEditedLaterComesBackToo) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        auto kept = Filled(NewKept(), seed);
        Dice dice(seed + 100);
        for (int step = 0; step < 6; ++step) {
            kept->journal.Finish();
            EditAll(*kept, dice, 12);
            kept->Slice(1).BeginAction(0);
            diagram::testing::EditAnything(kept->Slice(1), dice);
            kept->Slice(1).EndAction();
            if (dice.Flip()) kept->Slice(1).Undo();
        }
        kept->journal.Finish();
        const QString before = Whole(kept->Memory());
        kept.reset();
        EXPECT_EQ(diagram::testing::Differing(Whole(*Restored()), before), "");
        for (LostMap &lost : Lost()) RemoveFolder(std::move(lost.folder));
    }
}

TEST_F(RoundTrip, SlicesThatComeAndGoAndAreNamedAnew) {
    auto kept = NewKept();
    kept->AddNode(QStringLiteral("first"));
    kept->journal.Finish();
    document::MemoryWindow &window = kept->Memory();
    window.AddFlow1().Load(1);
    window.TabStrip().SetTabCount(2);
    window.TabStrip().SetTheTab(1);
    window.TabStrip().SetCaption(QStringLiteral("Second"));
    kept->AddNode(QStringLiteral("on the second"), 1);
    kept->journal.Finish();
    window.AddFlow1().Load(2);
    window.TabStrip().SetTabCount(3);
    kept->AddNode(QStringLiteral("goes"), 2);
    kept->journal.Finish();
    window.AddFlow1().Unload(2);
    window.TabStrip().SetTabCount(2);
    kept->journal.Finish();
    window.TabStrip().SetTheTab(1);
    window.TabStrip().SetCaption(QStringLiteral("Named anew")); // nobody is told
    kept->journal.Finish();
    kept.reset();
    auto restored = Restored();
    EXPECT_EQ(Texts(*restored), (QStringList{QStringLiteral("first"), QStringLiteral("on the second")}));
    EXPECT_EQ(restored->TabStrip().TabCount(), 2);
    EXPECT_EQ(restored->TabStrip().TabCaption(1), QStringLiteral("Named anew"));
}

TEST_F(RoundTrip, AHyperlinkLeadsToTheSameSliceUnderItsNewKey) {
    auto kept = NewKept();
    document::MemoryWindow &window = kept->Memory();
    window.AddFlow1().Load(1);
    window.TabStrip().SetTabCount(2);
    QString key = QStringLiteral("{A}");
    window.clsSettings().Hyperlinks().add(key).SliceKey = window.TabStrip().TabKey(1);
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    kept.reset();
    auto restored = Restored();
    EXPECT_EQ(restored->clsSettings().Hyperlinks().Item(1).SliceKey, restored->TabStrip().TabKey(1));
}

TEST_F(RoundTrip, GroupsAndLevelsKeepTheKeysThatNodesHold) {
    auto kept = NewKept();
    document::cLevel &level = kept->Memory().clsSettings().Levels().Create(QStringLiteral("Mine"), true, 1);
    document::SetTag(kept->AddNode(QStringLiteral("a")), document::tags::kLevel, level.Key);
    kept->journal.Finish();
    kept.reset();
    auto restored = Restored();
    const QString tag = document::GetTag(restored->AddFlow1()[0].Nodes().Item(1), document::tags::kLevel);
    EXPECT_EQ(restored->clsSettings().Levels().LevelNameForKey(tag), QStringLiteral("Mine"));
}

TEST_F(RoundTrip, OneHundredThousandNodesAreComplete) {
    constexpr int kNodes = 100000;
    auto kept = NewKept();
    diagram::Surface &surface = kept->Slice(0);
    for (int i = 0; i < kNodes; ++i)
        surface.Nodes()
            .Add(float(i % 300) * 1500, float(i / 300) * 900, 1200, 600)
            .SetText(QString::number(i));
    for (int i = 2; i <= kNodes; i += 100) surface.Nodes().Item(i - 1).Links().Add(surface.Nodes().Item(i));
    kept->journal.Finish();
    surface.Nodes().Item(kNodes).SetText(QStringLiteral("the last"));
    kept->journal.Finish();
    kept.reset();
    const KeptMap map = OnlyLost();
    ASSERT_EQ(map.slices.size(), 1u);
    EXPECT_EQ(map.slices.begin()->second.nodes.size(), std::size_t(kNodes));
    EXPECT_EQ(map.slices.begin()->second.links.size(), std::size_t(kNodes / 100));
    EXPECT_EQ(map.slices.begin()->second.nodes.rbegin()->second.text, QStringLiteral("the last"));
    EXPECT_FALSE(map.damaged);
}

TEST_F(RoundTrip, EmbeddedFilesComeAlong) {
    auto kept = NewKept();
    const QString first = MapFile(QStringLiteral("a/same.txt")),
                  second = MapFile(QStringLiteral("b/same.txt"));
    document::cAttachments &attachments = kept->Memory().clsSettings().Attachments();
    for (const QString &path : {first, second}) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(path.toUtf8());
        file.close();
        QString key;
        document::cAttachment &attachment = attachments.add(key);
        attachment.Embed = true;
        attachment.Filename = path;
    }
    kept->AddNode(QStringLiteral("a"));
    kept->journal.Finish();
    kept.reset();
    QFile::remove(first);
    QFile::remove(second);
    auto restored = Restored();
    document::cAttachments &found = restored->clsSettings().Attachments();
    ASSERT_EQ(found.count(), 2);
    EXPECT_EQ(support::ReadWholeFile(found.Item(1).Filename), first.toUtf8());
    EXPECT_EQ(support::ReadWholeFile(found.Item(2).Filename), second.toUtf8());
    EXPECT_NE(found.Item(1).Filename, first);
    EXPECT_EQ(QFileInfo(found.Item(2).Filename).fileName(), QStringLiteral("same.txt"));
    SaveAs(*restored, MapFile(QStringLiteral("again.map")));
}

TEST_F(RoundTrip, AnEmbeddedFileThatIsStillThereIsLeftWhereItIs) {
    auto kept = NewKept();
    QFile file(MapFile(QStringLiteral("mine.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    QString key;
    document::cAttachment &attachment = kept->Memory().clsSettings().Attachments().add(key);
    attachment.Embed = true;
    attachment.Filename = file.fileName();
    kept->journal.Finish();
    kept.reset();
    EXPECT_EQ(Restored()->clsSettings().Attachments().Item(1).Filename, file.fileName());
}

TEST_F(RoundTrip, AJournalThatHasGrownIsWrittenAnewAndHoldsTheSame) {
    JournalFile file(Root());
    file.SetMostBytes(20000);
    Step step{true, {}, {QDateTime::currentDateTime(), 1, MapFrame()}};
    step.commit.frame->slices = {{1, 0, QStringLiteral("Map 1"), {}}};
    SlicePart part;
    part.slice = 1;
    part.whole = true;
    part.surface.emplace();
    for (diagram::ItemId id = 1; id <= 20; ++id) {
        part.nodes.push_back({id, {}});
        part.nodes.back().data.font = diagram::Font(QStringLiteral("Font %1").arg(id), 10);
    }
    step.parts = {part};
    file.Write(step);
    qsizetype largest = 0;
    for (int edit = 1; edit <= 400; ++edit) {
        part.whole = false;
        part.surface.reset();
        part.nodes = {{diagram::ItemId(edit % 20 + 1), {}}};
        part.nodes.front().data.text = QString(200, u'x') + QString::number(edit);
        part.nodes.front().data.font = diagram::Font(QStringLiteral("Font %1").arg(edit % 7), 10);
        file.Write({false, {part}, {QDateTime::currentDateTime(), edit, std::nullopt}});
        largest = std::max(largest, JournalBytes().size());
    }
    EXPECT_LT(largest, 60000);
    const KeptMap map = ReadJournal(JournalBytes());
    EXPECT_FALSE(map.damaged);
    EXPECT_EQ(map.changes, 400);
    ASSERT_EQ(map.slices.at(1).nodes.size(), 20u);
    for (int edit = 381; edit <= 400; ++edit) {
        const diagram::NodeData &node = map.slices.at(1).nodes.at(diagram::ItemId(edit % 20 + 1));
        EXPECT_TRUE(node.text.endsWith(QString::number(edit)));
        EXPECT_EQ(node.font.Name(), QStringLiteral("Font %1").arg(edit % 7));
    }
}

} // namespace recovery
