#include "output/mapimport/DoImportMap.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"
#include "tests/Paths.h"

namespace output::testing {

using namespace document;
using document::testing::Describe;
using document::testing::ErrorOf;
using document::testing::ExpectSameLines;
using document::testing::MapTest;

class DoImportMapTest : public MapTest {
protected:
    DoImportMapTest() {
        window->TabStrip().SetCaption(QStringLiteral("Mine"));
        window->AddFlow1()[0].Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("My node"));
    }
    // Another map with two slices, a node "A" on the first and a node "B" on the second.
    void MakeOther() {
        Slice(0, "First", "A");
        other->AddFlow1().Load(1);
        other->TabStrip().SetTabCount(2);
        Slice(1, "Second", "B");
    }
    void Slice(int tab, const char *caption, const char *text) {
        other->TabStrip().SetTheTab(tab);
        other->TabStrip().SetCaption(QLatin1String(caption));
        diagram::Node &node = other->AddFlow1()[tab].Nodes().Add(100, 200, 900, 600);
        node.SetText(QLatin1String(text));
        node.SetKey(QLatin1String("{%1}").arg(QLatin1String(text)));
        node.Links().Add(node);
    }
    void SaveOther() { SaveAs(*other, path); }
    void Import() { DoImportMap(*window, path); }
    diagram::Surface &Surface(int index) { return window->AddFlow1()[index]; }
    diagram::Node &Node(int index) { return Surface(index).Nodes().Item(1); }
    cHyperlink &LinkOther(const char *from, int slice, const char *to) {
        QString key = QLatin1String("{%1}").arg(QLatin1String(from));
        cHyperlink &hyperlink = other->clsSettings().Hyperlinks().add(key);
        hyperlink.Node = key;
        hyperlink.Slice = std::int16_t(slice);
        hyperlink.DestNode = *to ? QLatin1String("{%1}").arg(QLatin1String(to)) : QString();
        return hyperlink;
    }
    cAttachment &AttachOther(const char *node, const QString &file, bool embed) {
        QString key;
        cAttachment &attachment = other->clsSettings().Attachments().add(key);
        attachment.Node = QLatin1String("{%1}").arg(QLatin1String(node));
        attachment.Filename = file;
        attachment.Embed = embed;
        return attachment;
    }
    QString AFile(const QString &name, const QByteArray &bytes) {
        support::AtomicFile file(name);
        file.Write(bytes);
        file.Commit();
        return name;
    }

    std::unique_ptr<MemoryWindow> window = NewWindow(), other = NewWindow();
    QString path = MapFile(QStringLiteral("other.map"));
};

TEST_F(DoImportMapTest, AppendsTheSlicesWithTheirCaptionsAndSelectsTheLast) {
    MakeOther();
    SaveOther();
    Import();
    ASSERT_EQ(window->TabStrip().TabCount(), 3);
    EXPECT_EQ(window->TabStrip().TabCaption(0), QStringLiteral("Mine"));
    EXPECT_EQ(window->TabStrip().TabCaption(1), QStringLiteral("First"));
    EXPECT_EQ(window->TabStrip().TabCaption(2), QStringLiteral("Second"));
    EXPECT_EQ(window->TabStrip().TheTab(), 2);
    EXPECT_EQ(Node(0).Text(), QStringLiteral("My node"));
    EXPECT_EQ(Node(1).Text(), QStringLiteral("A"));
    EXPECT_EQ(Node(2).Text(), QStringLiteral("B"));
    EXPECT_EQ(Surface(1).Links().size(), 1u);
    EXPECT_TRUE(window->clsSettings().Dirty);
}

TEST_F(DoImportMapTest, TellsItsSteps) {
    MakeOther();
    SaveOther();
    Import();
    EXPECT_EQ(window->statuses,
              (QStringList{"Preparing for import...", "Importing First...", "Importing Second...", ""}));
    EXPECT_EQ(window->pointers.front(), pointer::kHourglass);
    EXPECT_EQ(window->pointers.back(), pointer::kNormal);
}

TEST_F(DoImportMapTest, NodesGetNewKeysSoThatTheSameMapCanComeTwice) {
    MakeOther();
    SaveOther();
    Import();
    Import();
    ASSERT_EQ(window->TabStrip().TabCount(), 5);
    EXPECT_EQ(Node(1).Key().size(), 38);
    EXPECT_NE(Node(1).Key(), Node(3).Key());
    EXPECT_NE(Node(1).Key(), QStringLiteral("{A}"));
}

TEST_F(DoImportMapTest, LooksAndBackgroundComeAlong) {
    MakeOther();
    diagram::Surface &first = other->AddFlow1()[0];
    first.SetBackColor(0x123456);
    first.SetPicture(document::testing::OneColour(qRgb(1, 2, 3)));
    diagram::Node &node = first.Nodes().Item(1);
    node.SetEvent(QStringLiteral("second text"));
    node.SetFont(diagram::Font(QStringLiteral("Serif"), 21, true));
    node.SetPicture(document::testing::OneColour(qRgb(9, 9, 9)));
    SaveOther();
    Import();
    EXPECT_EQ(Surface(1).BackColor(), 0x123456);
    EXPECT_FALSE(Surface(1).Picture().IsNull());
    EXPECT_EQ(Node(1).Event(), QStringLiteral("second text"));
    EXPECT_EQ(Node(1).Font().Size(), 21);
    EXPECT_FALSE(Node(1).Picture().IsNull());
}

TEST_F(DoImportMapTest, LevelsAndGroupsAreFoundByName) {
    MakeOther();
    diagram::Node &node = other->AddFlow1()[0].Nodes().Item(1);
    SetTag(node, tags::kGroup, other->clsSettings().Groups().KeyForGroupName("O'Brien"));
    SetTag(node, tags::kLevel, other->clsSettings().Levels().KeyForLevelName("12"));
    SaveOther();
    Import();
    clsfrmMain &settings = window->clsSettings();
    EXPECT_EQ(settings.Groups().GroupNameForKey(GetTag(Node(1), tags::kGroup)), QStringLiteral("O'Brien"));
    EXPECT_EQ(settings.Levels().LevelNameForKey(GetTag(Node(1), tags::kLevel)), QStringLiteral("12"));
}

TEST_F(DoImportMapTest, AnUnknownLevelOrGroupIsToldAndTheFirstTickedOneTaken) {
    MakeOther();
    diagram::Node &node = other->AddFlow1()[0].Nodes().Item(1);
    SetTag(node, tags::kGroup, other->clsSettings().Groups().Create("Elsewhere", true).Key);
    SetTag(node, tags::kLevel, other->clsSettings().Levels().Create("77", true, 0).Key);
    other->clsSettings().Groups().Create("Nobody's", true);
    SaveOther();
    desktop.ExpectMessageContaining(QStringLiteral("the level 77\rthe group Elsewhere"));
    Import();
    clsfrmMain &settings = window->clsSettings();
    EXPECT_EQ(GetTag(Node(1), tags::kGroup), settings.Groups().FirstSelectedGroup()->Key);
    EXPECT_EQ(GetTag(Node(1), tags::kLevel), settings.Levels().FirstSelectedLevel()->Key);
    EXPECT_FALSE(desktop.messageBoxes.shown.at(0).text.contains(QStringLiteral("Nobody's")));
}

TEST_F(DoImportMapTest, HyperlinksInsideTheOtherMapLeadToTheNewSlices) {
    MakeOther();
    LinkOther("A", 2, "B");
    LinkOther("B", 1, "");
    SaveOther();
    Import();
    const cHyperlink &there = window->clsSettings().Hyperlinks().Item(Node(1).Key());
    EXPECT_EQ(there.Node, Node(1).Key());
    EXPECT_EQ(there.Slice, 3);
    EXPECT_EQ(there.SliceKey, window->TabStrip().TabKey(2));
    EXPECT_EQ(there.DestNode, Node(2).Key());
    EXPECT_EQ(window->clsSettings().Hyperlinks().Item(Node(2).Key()).Slice, 2);
}

TEST_F(DoImportMapTest, HyperlinksToOtherMapsKeepTheirPlaceWithTheirPathWrittenOut) {
    MakeOther();
    QDir(MapFile(QString())).mkdir("sub");
    AFile(MapFile("sub/third.map"), "x");
    LinkOther("A", 4, "X").Map = QStringLiteral("sub/third.map");
    SaveOther();
    Import();
    const cHyperlink &hyperlink = window->clsSettings().Hyperlinks().Item(Node(1).Key());
    EXPECT_TRUE(support::IsSameFile(hyperlink.Map, MapFile("sub/third.map"))) << hyperlink.Map.toStdString();
    EXPECT_EQ(hyperlink.Slice, 4);
    EXPECT_EQ(hyperlink.DestNode, QStringLiteral("{X}"));
}

TEST_F(DoImportMapTest, AHyperlinkThatLeadsNowhereIsTold) {
    MakeOther();
    LinkOther("A", 9, "");
    SaveOther();
    desktop.ExpectMessageContaining(QStringLiteral("a hyperlink to slice 9"));
    Import();
    EXPECT_EQ(window->clsSettings().Hyperlinks().count(), 0);
}

TEST_F(DoImportMapTest, EmbeddedAttachmentsOutliveTheOtherMap) {
    MakeOther();
    AttachOther("A", AFile(MapFile("note.txt"), "bytes"), true);
    SaveOther();
    Import();
    support::Kill(path);
    ASSERT_EQ(window->clsSettings().Attachments().count(), 1);
    const cAttachment &attachment = window->clsSettings().Attachments().Item(1);
    EXPECT_EQ(attachment.Node, Node(1).Key());
    EXPECT_TRUE(attachment.Embed);
    EXPECT_TRUE(window->clsSettings().AttachmentFolder().Holds(attachment.Filename));
    EXPECT_EQ(support::ReadWholeFile(attachment.Filename), "bytes");
    EXPECT_EQ(support::FileTitle(attachment.Filename), QStringLiteral("note.txt"));
    SaveAs(*window, MapFile("mine.map"));
    EXPECT_EQ(Loaded(MapFile("mine.map"))->clsSettings().Attachments().count(), 1);
}

TEST_F(DoImportMapTest, LinkedAttachmentsAreFoundFromTheOtherMapsFolder) {
    MakeOther();
    AFile(MapFile("note.txt"), "bytes");
    AttachOther("B", QStringLiteral("note.txt"), false);
    SaveOther();
    Import();
    const cAttachment &attachment = window->clsSettings().Attachments().Item(1);
    EXPECT_FALSE(attachment.Embed);
    EXPECT_TRUE(support::IsSameFile(attachment.Filename, MapFile("note.txt")));
    EXPECT_EQ(attachment.Node, Node(2).Key());
}

TEST_F(DoImportMapTest, AnAttachmentOfANodeThatIsNotThereIsTold) {
    MakeOther();
    AttachOther("gone", AFile(MapFile("note.txt"), "bytes"), true);
    SaveOther();
    desktop.ExpectMessageContaining(QStringLiteral("the attachment note.txt"));
    Import();
    EXPECT_EQ(window->clsSettings().Attachments().count(), 0);
}

TEST_F(DoImportMapTest, TheOtherFileAndTheRecentFilesStayAsTheyAre) {
    for (const char *name : {"jet/plan.mdb", "map/old.map", "map/plan.map"}) {
        const QString copy = MapFile(QStringLiteral("copy.map"));
        support::CopyFileTo(tests::Data(QLatin1String(name)), copy);
        const QByteArray before = support::ReadWholeFile(copy);
        const int tabs = window->TabStrip().TabCount();
        desktop.ExpectMessageContaining(QStringLiteral("could not be brought along"));
        DoImportMap(*window, copy);
        EXPECT_TRUE(support::ReadWholeFile(copy) == before) << name;
        EXPECT_GT(window->TabStrip().TabCount(), tabs) << name;
        EXPECT_EQ(MapFiles(), QStringList{"copy.map"});
    }
    EXPECT_TRUE(QDir(TempFolder()).entryList(QDir::Files).isEmpty());
}

TEST_F(DoImportMapTest, AFileThatIsNoMapLeavesTheWindowAsItWas) {
    const QStringList before = Describe(*window);
    AFile(path, QByteArray(5000, 'x'));
    const support::Error error = ErrorOf([this] { Import(); });
    EXPECT_EQ(error.Number(), storage::kErrUnrecognizedFormat);
    EXPECT_TRUE(error.Source().contains(QStringLiteral("DoImportMap")));
    path = MapFile("none.map");
    EXPECT_EQ(ErrorOf([this] { Import(); }).Number(), storage::kErrFileNotFound);
    ExpectSameLines(Describe(*window), before);
    EXPECT_FALSE(window->clsSettings().Dirty);
    EXPECT_EQ(window->statuses.last(), QString());
    EXPECT_EQ(window->pointers.back(), pointer::kNormal);
}

TEST_F(DoImportMapTest, AMapThatIsDamagedInTheMiddleLeavesTheWindowAsItWas) {
    MakeOther();
    SaveOther();
    Run(path, QStringLiteral("UPDATE [Nodes] SET [Shape]=40 WHERE [Slice]=1"));
    const QStringList before = Describe(*window);
    EXPECT_EQ(ErrorOf([this] { Import(); }).Number(), 380);
    ExpectSameLines(Describe(*window), before);
}

TEST_F(DoImportMapTest, WithoutMemoryNothingComes) {
    MakeOther();
    SaveOther();
    desktop.memory.reading = {20, std::nullopt};
    desktop.ExpectMessage(QStringLiteral("Low on memory"), support::Answer::Ok);
    Import();
    EXPECT_EQ(window->TabStrip().TabCount(), 1);
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(DoImportMapTest, AMapWithoutSlicesBringsOneEmptyOne) {
    CreateEmptyMap(path);
    Import();
    EXPECT_EQ(window->TabStrip().TabCount(), 2);
    EXPECT_EQ(Surface(1).Nodes().Count(), 0);
}

TEST_F(DoImportMapTest, GivingUpAtAnySliceLeavesTheWindowAsItWas) {
    MakeOther();
    LinkOther("A", 2, "B");
    SaveOther();
    window->clsSettings().Dirty = false;
    QStringList missing;
    for (int questions : {0, 1}) {
        EXPECT_FALSE(BringMap(
            *window, path, [&] { return questions-- > 0; }, missing));
        EXPECT_EQ(window->TabStrip().TabCount(), 1);
        EXPECT_EQ(window->TabStrip().TheTab(), 0);
        EXPECT_EQ(window->AddFlow1().Count(), 1);
        EXPECT_TRUE(window->clsSettings().Hyperlinks().count() == 0);
        EXPECT_FALSE(window->clsSettings().Dirty);
        EXPECT_EQ(window->statuses.last(), QString());
        EXPECT_TRUE(missing.isEmpty());
    }
    EXPECT_TRUE(BringMap(
        *window, path, [] { return true; }, missing));
    EXPECT_EQ(window->TabStrip().TabCount(), 3);
}

} // namespace output::testing
