#include "dialogs/HyperlinkEdit.h"

#include "tests/dialogs/AttachTest.h"
#include "tests/document/Slices.h"
#include "tests/Paths.h"

namespace dialogs::testing {

using document::cHyperlink;

class HyperlinkEdits : public AttachTest {
protected:
    HyperlinkEdits() {
        window->TabStrip().SetCaption(QStringLiteral("Page 0"));
        for (const char *caption : {"Page 1", "Page 2"})
            document::testing::AddSlice(*window, QLatin1String(caption));
    }
    cHyperlink &Link(const char *node, const QString &map, int slice, QString key = {}) {
        cHyperlink &hyperlink = Settings().Hyperlinks().add(key);
        hyperlink.Node = QLatin1String(node);
        hyperlink.Map = map;
        hyperlink.Slice = std::int16_t(slice);
        hyperlink.DestNode = QStringLiteral("far");
        return hyperlink;
    }
    void Apply(const HyperlinkEdit &edit, const char *node = "a") {
        ApplyHyperlink(*window, Node(node), edit);
    }
    QString Hyper(const char *node = "a") { return document::GetTag(Node(node), document::tags::kHyper); }
    int Count() { return Settings().Hyperlinks().count(); }
    const cHyperlink &Item(int position = 1) { return Settings().Hyperlinks().Item(position); }
    QString OtherMap() {
        const QString path = EmptyMap("other.map");
        for (const int index : {4, 0, 2})
            Run(path, document::testing::InsertSlice(index, QStringLiteral("Other %1").arg(index)));
        return path;
    }
};

TEST_F(HyperlinkEdits, ATickAndASliceMakeTheRecordAndTheTag) {
    Apply({true, QString(), 2});
    ASSERT_EQ(Count(), 1);
    EXPECT_EQ(Item().Key, "a");
    EXPECT_EQ(Item().Node, "a");
    EXPECT_EQ(Item().Map, "");
    EXPECT_EQ(Item().Slice, 2);
    EXPECT_EQ(Item().DestNode, "");
    EXPECT_EQ(Hyper(), "Yes");
    EXPECT_TRUE(Settings().Dirty);
    Apply({true, "/other.map", 4});
    ASSERT_EQ(Count(), 1);
    EXPECT_EQ(Item().Map, "/other.map");
    EXPECT_EQ(Item().Slice, 4);
}

TEST_F(HyperlinkEdits, ATickWithoutASliceRemovesTheRecordAndWritesNo) {
    Apply({true, QString(), 2});
    Apply({true, QString(), std::nullopt});
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Hyper(), "No");
}

TEST_F(HyperlinkEdits, WithoutTheTickTheRecordGoesAndTheTagSaysNo) {
    Link("b", QString(), 1, "b");
    Apply({true, QString(), 2});
    Apply({false, QString(), 2});
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Item().Node, "b");
    EXPECT_EQ(Hyper(), "No");
    EXPECT_EQ(Hyper("b"), "");
}

TEST_F(HyperlinkEdits, OfSeveralRecordsTheFirstIsReplaced) {
    Link("a", "/first.map", 1);
    Link("b", "/b.map", 1);
    Link("a", "/second.map", 1, "a");
    Apply({true, "/third.map", 2});
    ASSERT_EQ(Count(), 3);
    EXPECT_EQ(Item(1).Map, "/b.map");
    EXPECT_EQ(Item(2).Map, "/second.map");
    EXPECT_EQ(Item(3).Map, "/third.map");
}

TEST_F(HyperlinkEdits, WhatLeadsToTheSamePlaceKeepsItsDestinationNode) {
    Link("a", "/gone.map", 3, "a");
    Apply({true, "/gone.map", 3});
    EXPECT_EQ(Item().DestNode, "far");
    Apply({true, "/gone.map", 4});
    EXPECT_EQ(Item().DestNode, "");
    Link("b", QString(), 3, "b").SliceKey = window->TabStrip().TabKey(1); // it was moved to the second place
    Apply({true, QString(), 2}, "b");
    EXPECT_EQ(Item(2).DestNode, "far");
    EXPECT_EQ(Item(2).SliceKey, window->TabStrip().TabKey(1));
    Apply({true, QString(), 3}, "b");
    EXPECT_EQ(Item(2).SliceKey, "");
}

TEST_F(HyperlinkEdits, ANodeWithoutAKeyGetsOne) {
    diagram::Node &node = Surface().Nodes().Add(0, 0, 100, 100);
    ApplyHyperlink(*window, node, {true, QString(), 1});
    EXPECT_FALSE(node.Key().isEmpty());
    EXPECT_EQ(Item().Node, node.Key());
}

TEST_F(HyperlinkEdits, ThisMapsSlicesCountFromOneAndAnothersByTheirIndex) {
    EXPECT_EQ(SlicesOfThisMap(*window),
              (std::vector<LinkSlice>{{"Page 0", 1}, {"Page 1", 2}, {"Page 2", 3}}));
    EXPECT_EQ(SlicesOfMap(*window, OtherMap()),
              (std::vector<LinkSlice>{{"Other 0", 0}, {"Other 2", 2}, {"Other 4", 4}}));
    EXPECT_TRUE(SlicesOfMap(*window, EmptyMap("none.map")).empty());
}

TEST_F(HyperlinkEdits, ReadingAnotherMapLeavesItAsItIs) {
    const QString path = OtherMap();
    Run(path, "ALTER TABLE [Nodes] DROP COLUMN [Alignment]; ALTER TABLE [Slices] DROP COLUMN [xZoom]");
    const QByteArray before = support::ReadWholeFile(path);
    const QStringList files = MapFiles();
    EXPECT_EQ(SlicesOfMap(*window, path).size(), 3u);
    EXPECT_EQ(support::ReadWholeFile(path), before);
    EXPECT_EQ(MapFiles(), files);
}

TEST_F(HyperlinkEdits, MapsOfTheOlderDatabaseFormAreReadToo) {
    for (const char *name : {"jet/plan.mdb", "jet/plan97.mdb"}) {
        const QString path = MapFile("old.map");
        support::CopyFileTo(tests::Data(QLatin1String(name)), path);
        const QByteArray before = support::ReadWholeFile(path);
        EXPECT_FALSE(SlicesOfMap(*window, path).empty()) << name;
        EXPECT_EQ(support::ReadWholeFile(path), before) << name;
    }
}

TEST_F(HyperlinkEdits, AMapThatMovedWithThisOneIsFound) {
    OtherMap();
    Settings().SetDatabase(MapFile("plan.map"));
    EXPECT_EQ(SlicesOfMap(*window, "/former/place/other.map").size(), 3u);
    EXPECT_EQ(SlicesOfMap(*window, "C:\\former\\other.map").size(), 3u);
}

TEST_F(HyperlinkEdits, WhatIsNoMapIsAnError) {
    const auto number = [&](const QString &path) {
        return document::testing::ErrorOf([&] { SlicesOfMap(*window, path); }).Number();
    };
    EXPECT_EQ(number(MapFile("gone.map")), storage::kErrFileNotFound);
    EXPECT_EQ(number(Saved("text.map", "no map")), storage::kErrUnrecognizedFormat);
    QDir().mkdir(MapFile("folder.map"));
    EXPECT_EQ(number(MapFile("folder.map")), storage::kErrCannotOpenFile);
    storage::CreateDatabase(MapFile("tables.map")).CreateTable({"T", {{"a"}}});
    EXPECT_EQ(number(MapFile("tables.map")), storage::kErrTableNotFound);
    const QString path = OtherMap();
    storage::Database other = storage::OpenDatabase(path);
    other.Execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE");
    EXPECT_EQ(number(path), storage::kErrFileInUse);
}

TEST_F(HyperlinkEdits, ThisMapItselfIsReadAsItWasSaved) {
    SaveAndOpen();
    window->TabStrip().SetTheTab(0);
    window->TabStrip().SetCaption("Unsaved");
    EXPECT_EQ(SlicesOfMap(*window, Settings().Database()).front(), (LinkSlice{"Page 0", 0}));
}

TEST_F(HyperlinkEdits, TheKeyOfASliceTellsWhereItStandsNow) {
    cHyperlink &hyperlink = Link("a", QString(), 3, "a");
    EXPECT_EQ(PositionOf(*window, hyperlink), 3);
    hyperlink.SliceKey = window->TabStrip().TabKey(0);
    EXPECT_EQ(PositionOf(*window, hyperlink), 1);
    hyperlink.SliceKey = "{gone}";
    EXPECT_EQ(PositionOf(*window, hyperlink), 3);
}

} // namespace dialogs::testing
