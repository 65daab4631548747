// What counts as unsaved work, and what is none.
#include "document/UnsavedWork.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"
#include "tests/document/MapTest.h"

#include <QFile>

using namespace document;
using namespace document::testing;

namespace {

void WriteFile(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

class UnsavedWorkTest : public MapTest {
protected:
    UnsavedWorkTest() {
        const std::unique_ptr<MemoryWindow> first = NewWindow();
        Fill(*first);
        path = MapFile(QStringLiteral("plan.map"));
        SaveAs(*first, path);
        window = Loaded(path);
    }
    // Two slices with a node each, a hyperlink and an attachment.
    void Fill(MemoryWindow &to) {
        to.AddFlow1().Load(1);
        to.TabStrip().SetTabCount(2);
        for (const int slice : {0, 1}) {
            to.TabStrip().SetTheTab(slice);
            to.TabStrip().SetCaption(QStringLiteral("Slice %1").arg(slice));
            to.AddFlow1()[slice].Nodes().Add(0, 0, 900, 600).SetKey(QStringLiteral("n%1").arg(slice));
        }
        QString key = QStringLiteral("n0");
        cHyperlink &hyperlink = to.clsSettings().Hyperlinks().add(key);
        hyperlink.Node = key;
        hyperlink.Slice = 2;
        const QString file = MapFile(QStringLiteral("notes.txt"));
        WriteFile(file, "notes");
        QString attached;
        cAttachment &attachment = to.clsSettings().Attachments().add(attached);
        attachment.Node = key;
        attachment.Filename = file;
        attachment.Embed = true;
    }
    bool Unsaved() { return HasUnsavedWork(*window); }
    diagram::Surface &Slice(int index = 0) { return window->AddFlow1()[index]; }
    diagram::Node &Node() { return Slice().Nodes().Item(1); }

    QString path;
    std::unique_ptr<MemoryWindow> window;
};

TEST_F(UnsavedWorkTest, AMapThatWasJustLoadedOrSavedHasNone) {
    EXPECT_FALSE(Unsaved());
    Node().SetText(QStringLiteral("new"));
    EXPECT_TRUE(Unsaved());
    EXPECT_TRUE(DoSave(*window));
    EXPECT_FALSE(Unsaved());
    EXPECT_TRUE(DoSave(*window));
    EXPECT_FALSE(Unsaved());
    EXPECT_FALSE(HasUnsavedWork(*Loaded(path)));
}

TEST_F(UnsavedWorkTest, AWindowThatWasNeverMarkedHasSome) { EXPECT_TRUE(HasUnsavedWork(*NewWindow())); }

TEST_F(UnsavedWorkTest, EitherDirtyOrUnsavedWorkMustBeAskedAbout) {
    EXPECT_FALSE(MustAskBeforeLosing(*window));
    window->clsSettings().Dirty = true;
    EXPECT_TRUE(MustAskBeforeLosing(*window));
    window->clsSettings().Dirty = false;
    Node().SetText(QStringLiteral("new"));
    EXPECT_TRUE(MustAskBeforeLosing(*window));
}

TEST_F(UnsavedWorkTest, EachSliceCountsAndUndoOfAllIsNone) {
    for (const int slice : {1, 0}) {
        const diagram::ActionGroup group(Slice(slice));
        Slice(slice).Nodes().Item(1).SetText(QStringLiteral("new"));
    }
    Slice(1).Undo();
    EXPECT_TRUE(Unsaved());
    Slice(0).Undo();
    EXPECT_FALSE(Unsaved());
}

TEST_F(UnsavedWorkTest, AStepThatWasSavedIsWorkOnceItIsTakenBack) {
    {
        const diagram::ActionGroup group(Slice());
        Node().SetText(QStringLiteral("new"));
    }
    EXPECT_TRUE(DoSave(*window));
    Slice().Undo();
    EXPECT_TRUE(Unsaved());
    Slice().Redo();
    EXPECT_FALSE(Unsaved());
}

TEST_F(UnsavedWorkTest, SlicesCountByNumberNameAndPlace) {
    window->TabStrip().SetTheTab(1);
    EXPECT_FALSE(Unsaved()) << "the current tab";
    window->TabStrip().SetCaption(QStringLiteral("Renamed"));
    EXPECT_TRUE(Unsaved());
    window->TabStrip().SetCaption(QStringLiteral("Slice 1"));
    EXPECT_FALSE(Unsaved());
    window->AddFlow1().Unload(1);
    EXPECT_TRUE(Unsaved());
    window->AddFlow1().Load(1);
    EXPECT_TRUE(Unsaved());
}

TEST_F(UnsavedWorkTest, PoolsCountButNotTheTicksOfTheFilter) {
    clsfrmMain &settings = window->clsSettings();
    for (cLevel &level : settings.Levels()) level.Selected = !level.Selected;
    for (cGroup &group : settings.Groups()) group.Selected = !group.Selected;
    EXPECT_FALSE(Unsaved());
    const std::vector<std::function<void()>> writes{
        [&] { settings.Levels().Create(QStringLiteral("9"), true, 0); },
        [&] { settings.Levels().Item(1).Color += 1; },
        [&] { settings.Groups().Create(QStringLiteral("New"), true); },
        [&] { settings.Groups().Item(1).GroupName = QStringLiteral("Renamed"); },
        [&] { settings.Hyperlinks().Item(1).DestNode = QStringLiteral("n1"); },
        [&] { settings.Hyperlinks().Clear(); },
        [&] { settings.Attachments().Item(1).Embed = false; },
        [&] { settings.Attachments().Clear(); },
    };
    for (std::size_t i = 0; i < writes.size(); ++i) {
        writes[i]();
        EXPECT_TRUE(Unsaved()) << "write " << i;
        MarkSaved(*window);
    }
}

TEST_F(UnsavedWorkTest, AnEmbeddedFileThatAnotherProgramHasWrittenIsWork) {
    WriteFile(window->clsSettings().Attachments().Item(1).Filename, "other notes");
    EXPECT_TRUE(Unsaved());
}

TEST_F(UnsavedWorkTest, ASaveThatFailsLeavesWhatItWas) {
    Slice().Nodes().Add(0, 3000, 100, 100); // without a key
    MarkSaved(*window);
    QString key;
    cAttachment &attachment = window->clsSettings().Attachments().add(key);
    attachment.Embed = true;
    attachment.Filename = MapFile(QStringLiteral("gone.txt"));
    MarkSaved(*window);
    EXPECT_NE(ErrorOf([&] { DoSave(*window); }).Number(), 0);
    EXPECT_FALSE(Unsaved()) << "keys given by a save are no work";
    Node().SetText(QStringLiteral("new"));
    EXPECT_NE(ErrorOf([&] { DoSave(*window); }).Number(), 0);
    EXPECT_TRUE(Unsaved());
}
