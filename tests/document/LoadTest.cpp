#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/DefaultNodes.h"
#include "document/MemoryGuard.h"
#include "document/RepairMap.h"
#include "document/Tags.h"
#include "support/AtomicFile.h"
#include "support/clsGUID.h"
#include "support/Files.h"
#include "support/OtherDoor.h"
#include "tests/document/MapTest.h"

#include <QFile>

using namespace document;
using namespace document::testing;

class LoadTest : public MapTest {
protected:
    // The error of loading the map; the window is left in window_.
    support::Error ErrorOfLoading(const QString &path) {
        window_ = NewWindow();
        window_->clsSettings().SetDatabase(path);
        return ErrorOf([&] { DoLoad(*window_); });
    }
    std::unique_ptr<MemoryWindow> window_;
};

TEST_F(LoadTest, AMapWithoutSlicesLeavesOneEmptySurfaceAndOneTab) {
    const QString path = Map({});
    const auto window = NewWindow();
    window->AddFlow1()[0].Nodes().Add(0, 0, 10, 10);
    window->AddFlow1().Load(3);
    window->TabStrip().SetTabCount(2);
    window->clsSettings().SetDatabase(path);
    EXPECT_FALSE(DoLoad(*window));
    EXPECT_EQ(window->AddFlow1().Count(), 1);
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Count(), 0);
    EXPECT_EQ(window->TabStrip().TabCount(), 1);
}

TEST_F(LoadTest, GapsInTheIndexesOfSlicesStay) {
    const auto window =
        Loaded(Map({InsertSlice(0, QStringLiteral("first")), InsertSlice(5, QStringLiteral("sixth")),
                    InsertNode(QStringLiteral("n"), 5)}));
    EXPECT_EQ(window->AddFlow1().Indices(), (std::vector<int>{0, 5}));
    EXPECT_EQ(window->AddFlow1()[5].Nodes().Count(), 1);
    EXPECT_EQ(window->TabStrip().TabCount(), 2);
    EXPECT_EQ(window->TabStrip().TabCaption(1), "sixth");
    SaveAs(*window, MapFile(QStringLiteral("b.map")));
    const auto again = Loaded(MapFile(QStringLiteral("b.map")));
    EXPECT_EQ(again->AddFlow1().Indices(), (std::vector<int>{0, 5}));
    EXPECT_EQ(again->TabStrip().TabCaption(1), "sixth");
}

TEST_F(LoadTest, AMapWithoutAFirstSliceLeavesNothingOfTheFormerOne) {
    const QString path = Map({InsertSlice(2, QStringLiteral("third"))});
    const auto window = NewWindow();
    window->AddFlow1()[0].Nodes().Add(0, 0, 10, 10);
    window->clsSettings().SetDatabase(path);
    DoLoad(*window);
    EXPECT_EQ(window->AddFlow1().Indices(), (std::vector<int>{0, 2}));
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Count(), 0);
    EXPECT_EQ(window->TabStrip().TabCaption(1), "third");
}

TEST_F(LoadTest, NegativePlacesAndSizesCountAsPositive) {
    const auto window =
        Loaded(Map({InsertSlice(0, QStringLiteral("s")),
                    InsertNode(QStringLiteral("n"), 0, QStringLiteral("[Left], [Top], [Width], [Height]"),
                               QStringLiteral("-10, -20, -40, -50"))}));
    const diagram::Node &node = window->AddFlow1()[0].Nodes().Item(QStringLiteral("n"));
    EXPECT_EQ(node.Bounds(), QRectF(10, 20, 40, 50));
}

TEST_F(LoadTest, GroupsAndLevelsComeBackAsKeysAndLostNamesAreDropped) {
    const auto window = Loaded(Map(
        {InsertSlice(0, QStringLiteral("s")), QStringLiteral("INSERT INTO [Groups] VALUES ('here', True)"),
         QStringLiteral("INSERT INTO [Levels] VALUES ('3', True, 255)"),
         InsertNode(QStringLiteral("n"), 0, QStringLiteral("[Group], [Level], [Tag]"),
                    QStringLiteral("'gone,here', 3, '|GROUP={old}|LEVEL={old}|HYPER=Yes'")),
         InsertNode(QStringLiteral("m"), 0, QStringLiteral("[Group], [Level], [Tag]"),
                    QStringLiteral("NULL, 4, '|GROUP={old}|LEVEL={old}'"))}));
    clsfrmMain &settings = window->clsSettings();
    const diagram::Node &n = window->AddFlow1()[0].Nodes().Item(QStringLiteral("n"));
    EXPECT_EQ(GetTag(n, tags::kGroup), settings.Groups().Item(1).Key);
    EXPECT_EQ(GetTag(n, tags::kLevel), settings.Levels().Item(1).Key);
    EXPECT_EQ(GetTag(n, tags::kHyper), "Yes");
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Item(QStringLiteral("m")).Tag(), "|GROUP=|LEVEL=");
}

TEST_F(LoadTest, TheValuesOfASliceBecomeTagsAndProperties) {
    const auto window = Loaded(Map(
        {QStringLiteral("INSERT INTO [Slices] VALUES (0, 'It''s one', 255, '', True, 0, True, 75, 150)")}));
    const diagram::Surface &surface = window->AddFlow1()[0];
    EXPECT_EQ(GetTag(surface, tags::kTimelineAlign), "0");
    EXPECT_EQ(GetTag(surface, tags::kMissing), "True");
    EXPECT_EQ(surface.BackColor(), 255);
    EXPECT_TRUE(surface.GridLines());
    EXPECT_EQ(surface.xZoom(), 75);
    EXPECT_EQ(surface.yZoom(), 150);
    EXPECT_EQ(window->TabStrip().TabCaption(0), "It's one");
}

TEST_F(LoadTest, StatusesComeInTheirOrderAndTheWindowIsReadyAtTheEnd) {
    const QString path = Map({InsertSlice(0, QStringLiteral("a")), InsertSlice(1, QStringLiteral("b"))});
    const auto window = NewWindow();
    window->clsSettings().SetDatabase(path);
    window->clsSettings().Dirty = true;
    DoLoad(*window);
    EXPECT_EQ(window->statuses.join(QLatin1Char('|')),
              "Loading Levels...|Loading Groups...|Loading Nodes...|Loading Links...|Loading "
              "Nodes...|Loading Links...|"
              "Loading Hyperlinks...|Loading Attachments...|");
    EXPECT_EQ(window->calls.join(QLatin1Char('|')),
              "DoEvents|AddFlow1_AfterMove 0|ClickTab|AddFlow1_AfterMove 1|ClickTab|"
              "LoadCombos|DoResize|RefreshMainControls");
    EXPECT_EQ(window->caption, "Velmora - a.map");
    EXPECT_EQ(window->progress.back(), 0);
    EXPECT_EQ(window->pointers, (std::vector<int>{pointer::kHourglass, pointer::kNormal}));
    EXPECT_EQ(window->TabStrip().TheTab(), 0);
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(LoadTest, NodesStandInTheOrderOfStackingAndLinksBetweenThem) {
    const auto window =
        Loaded(Map({InsertSlice(0, QStringLiteral("s")),
                    InsertNode(QStringLiteral("top"), 0, QStringLiteral("[zOrder]"), QStringLiteral("2")),
                    InsertNode(QStringLiteral("low"), 0, QStringLiteral("[zOrder]"), QStringLiteral("0")),
                    InsertLink(QStringLiteral("l"), QStringLiteral("low"), QStringLiteral("top"), 0,
                               QStringLiteral("[Zorder]"), QStringLiteral("1"))}));
    diagram::Surface &surface = window->AddFlow1()[0];
    EXPECT_EQ(surface.Nodes().Item(1).Key(), "low");
    EXPECT_EQ(surface.Nodes().Item(QStringLiteral("low")).ZOrder(), 0);
    EXPECT_EQ(surface.Links()[0]->Zorder(), 1);
    EXPECT_EQ(surface.Nodes().Item(QStringLiteral("top")).ZOrder(), 2);
}

TEST_F(LoadTest, LinkKeysDontLastAndRigidIsNotRead) {
    const auto window = Loaded(Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("a")),
                                    InsertNode(QStringLiteral("b")),
                                    InsertLink(QStringLiteral("l"), QStringLiteral("a"), QStringLiteral("b"),
                                               0, QStringLiteral("[Rigid]"), QStringLiteral("True"))}));
    const diagram::Link &link = *window->AddFlow1()[0].Links()[0];
    EXPECT_EQ(link.Key(), "");
    EXPECT_FALSE(link.Rigid());
    EXPECT_EQ(link.Source().Key(), "a");
}

TEST_F(LoadTest, BendPointsStayWhereTheFileSays) {
    const auto point = [](int index, int x, int y) {
        return QStringLiteral("INSERT INTO [LinkPoints] VALUES (%1, 'l', %2, %3)").arg(index).arg(x).arg(y);
    };
    const auto window =
        Loaded(Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("a")),
                    InsertNode(QStringLiteral("b")),
                    InsertLink(QStringLiteral("l"), QStringLiteral("a"), QStringLiteral("b"), 0,
                               QStringLiteral("[Style]"), QStringLiteral("4")),
                    point(2, 500, 60), point(0, 10, 20), point(1, 300, -40), point(3, 700, 80)}));
    const diagram::Link &link = *window->AddFlow1()[0].Links()[0];
    const std::vector<diagram::Point> expected{{10, 20}, {300, -40}, {500, 60}, {700, 80}};
    EXPECT_EQ(link.Route(), expected);
    EXPECT_FALSE(link.AddPointsMode());
    EXPECT_FALSE(link.MovePointsMode());
}

TEST_F(LoadTest, AGapInTheIndexesOfPointsIsFilledByRepeating) {
    const auto window = Loaded(Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("a")),
                                    InsertNode(QStringLiteral("b")),
                                    InsertLink(QStringLiteral("l"), QStringLiteral("a"), QStringLiteral("b")),
                                    QStringLiteral("INSERT INTO [LinkPoints] VALUES (4, 'l', 7, 8)")}));
    const diagram::Link &link = *window->AddFlow1()[0].Links()[0];
    ASSERT_EQ(link.Route().size(), 5U);
    for (std::size_t i = 2; i < 5; ++i) EXPECT_EQ(link.Route()[i], (diagram::Point{7, 8}));
}

TEST_F(LoadTest, LoadingIsNoStepOfUndoAndSelectsNothing) {
    const auto window = Loaded(Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("a"))}));
    EXPECT_FALSE(window->AddFlow1()[0].CanUndo());
    EXPECT_TRUE(window->AddFlow1()[0].SelectedNodes().empty());
    EXPECT_FALSE(window->AddFlow1()[0].Loading());
}

TEST_F(LoadTest, ANodeKeepsTheSizeThatIsStoredWhateverItsAutoSize) {
    const auto window = Loaded(Map(
        {InsertSlice(0, QStringLiteral("s")),
         InsertNode(QStringLiteral("a"), 0, QStringLiteral("[Width], [Height], [AutoSize], [Description]"),
                    QStringLiteral("30, 30, 3, 'a text that is far too long for such a node'"))}));
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Item(1).Width(), 30);
}

TEST_F(LoadTest, EverySliceGetsTheDefaultsOfTheProgramAndLosesTheirNodes) {
    diagram::Surface defaults;
    LocateTemplateNode(defaults, true)->SetShape(61);
    diagram::SaveFile(defaults, ProgramFile(kTemplateNodeFile));
    const auto window =
        Loaded(Map({InsertSlice(0, QStringLiteral("a")), InsertSlice(1, QStringLiteral("b"))}));
    for (const int index : {0, 1}) {
        EXPECT_EQ(window->AddFlow1()[index].Defaults().shape, 61);
        EXPECT_EQ(window->AddFlow1()[index].Nodes().Count(), 0);
    }
}

TEST_F(LoadTest, HyperlinksAndAttachmentsComeBack) {
    const QString path = Map(
        {InsertSlice(0, QStringLiteral("a")), InsertSlice(1, QStringLiteral("b")),
         QStringLiteral("INSERT INTO [Hyperlinks] VALUES ('n', '', 2, 'm')"),
         QStringLiteral("INSERT INTO [Hyperlinks] VALUES ('o', 'C:\\maps\\other.map', 0, '')"),
         QStringLiteral("INSERT INTO [Attachments] VALUES ('k', 'n', 'C:\\in\\note.txt', True, x'414243')"),
         QStringLiteral("INSERT INTO [Attachments] VALUES ('k', 'm', 'C:\\in\\far.txt', False, NULL)")});
    const auto window = Loaded(path);
    clsfrmMain &settings = window->clsSettings();
    const cHyperlink &link = settings.Hyperlinks().Item(QStringLiteral("n"));
    EXPECT_EQ(link.Node, "n");
    EXPECT_EQ(link.DestNode, "m");
    EXPECT_EQ(link.Slice, 2);
    EXPECT_EQ(link.SliceKey, window->TabStrip().TabKey(1));
    const cHyperlink &far = settings.Hyperlinks().Item(QStringLiteral("o"));
    EXPECT_EQ(far.Map, "C:\\maps\\other.map");
    EXPECT_EQ(far.SliceKey, "");
    const cAttachment &embedded = settings.Attachments().Item(1);
    EXPECT_TRUE(support::CheckGUID(embedded.Key));
    EXPECT_TRUE(embedded.Filename.startsWith(TempFolder() + "/velmora-attachments-"));
    EXPECT_TRUE(embedded.Filename.endsWith(QStringLiteral("/note.txt")));
    EXPECT_EQ(support::ReadWholeFile(embedded.Filename), "ABC");
    EXPECT_EQ(settings.Attachments().Item(2).Filename, "C:\\in\\far.txt");
}

TEST_F(LoadTest, TheLoadStopsWithTheProductsMessageWhenMemoryIsShort) {
    for (const support::MemoryReading &reading :
         {support::MemoryReading{20, std::nullopt}, support::MemoryReading{std::nullopt, 20}}) {
        desktop.memory.reading = reading;
        desktop.ExpectMessage(QStringLiteral("Low on memory"));
        const QString path = MapFile(QStringLiteral("m.map"));
        QFile::remove(path);
        CreateEmptyMap(path);
        Run(path, InsertSlice(0, QStringLiteral("s")));
        const auto window = NewWindow();
        window->clsSettings().Dirty = true;
        window->clsSettings().SetDatabase(path);
        EXPECT_FALSE(DoLoad(*window));
        EXPECT_TRUE(window->clsSettings().Dirty);
        EXPECT_EQ(window->caption, "Untitled - Velmora");
        EXPECT_EQ(window->clsSettings().Database(), "");
        EXPECT_EQ(window->calls.join(QLatin1Char('|')), "DoEvents|DoResize|DrawMenuBar|LoadCombos");
        EXPECT_EQ(window->statuses.back(), "");
        EXPECT_EQ(desktop.Messages().back().title, "");
        desktop.CheckAllAsked();
    }
}

TEST_F(LoadTest, TheLoadGoesOnBelowTheLimitAndTheCommandsUpToIt) {
    desktop.memory.reading = {21, std::nullopt};
    EXPECT_EQ(Loaded(Map({InsertSlice(0, QStringLiteral("s"))}))->caption, "Velmora - a.map");
    desktop.memory.reading = {20, std::nullopt};
    EXPECT_TRUE(MemoryGuard(desktop.Get()));
    desktop.memory.reading = {std::nullopt, 19};
    desktop.ExpectMessage(QStringLiteral("Low on memory"));
    EXPECT_FALSE(MemoryGuard(desktop.Get()));
}

namespace {

// Runs short after a number of looks.
class FailingMemory : public support::MemoryProbe {
public:
    support::MemoryReading Read() override { return {looks-- > 0 ? 60 : 0, std::nullopt}; }
    int looks = 0;
};

} // namespace

TEST_F(LoadTest, SlicesReadBeforeMemoryRanShortStay) {
    FailingMemory memory;
    memory.looks = 3; // a slice, its first node, the next slice
    support::Desktop outside = support::WithDoor(desktop.Get(), memory);
    MemoryWindow window(outside);
    window.clsSettings().SetDatabase(
        Map({InsertSlice(0, QStringLiteral("a")), InsertSlice(1, QStringLiteral("b")),
             InsertSlice(2, QStringLiteral("c")), InsertNode(QStringLiteral("n"))}));
    desktop.ExpectMessage(QStringLiteral("Low on memory"));
    DoLoad(window);
    EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 1);
    EXPECT_EQ(window.TabStrip().TabCount(), 2);
}

TEST_F(LoadTest, AFileThatIsNoDatabaseLeavesTheWindowAsItWas) {
    const auto window = Loaded(Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("n"))}));
    const QStringList before = Describe(*window);
    const QString path = MapFile(QStringLiteral("text.map"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    window->clsSettings().SetDatabase(path);
    const support::Error error = ErrorOf([&] { DoLoad(*window); });
    EXPECT_EQ(error.Number(), storage::kErrUnrecognizedFormat);
    EXPECT_TRUE(error.Source().endsWith(QStringLiteral("\r\nDoLoad")));
    ExpectSameLines(Describe(*window), before);
    EXPECT_EQ(window->clsSettings().Database(), path);
}

TEST_F(LoadTest, AMissingTableOfLevelsOrGroupsLeavesThoseOfTheWindow) {
    ErrorOfLoading(Map({QStringLiteral("DROP TABLE [Levels]")}));
    EXPECT_EQ(window_->clsSettings().Levels().count(), 4);
    EXPECT_EQ(window_->clsSettings().Groups().count(), 2);
    QFile::remove(MapFile(QStringLiteral("a.map")));
    ErrorOfLoading(Map({QStringLiteral("DROP TABLE [Groups]")}));
    EXPECT_EQ(window_->clsSettings().Levels().count(), 0);
    EXPECT_EQ(window_->clsSettings().Groups().count(), 2);
}

TEST_F(LoadTest, ACancelledDialogEndsTheLoadAtOnce) {
    const auto window = NewWindow();
    desktop.ExpectOpenFile(QString());
    EXPECT_FALSE(DoLoad(*window));
    EXPECT_TRUE(window->statuses.isEmpty());
    EXPECT_TRUE(window->calls.isEmpty());
}

TEST_F(LoadTest, ADiagramFileGoesIntoTheHighestOfTheFirstTwoSlots) {
    diagram::Surface drawn;
    drawn.Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("flat"));
    const QString path = MapFile(QStringLiteral("flat.flt"));
    diagram::SaveFile(drawn, path);
    const auto window = NewWindow();
    window->AddFlow1().Load(1);
    window->AddFlow1().Load(4);
    window->clsSettings().SetDatabase(path);
    LoadDiagramFile(*window, path);
    EXPECT_EQ(window->AddFlow1().UBound(), 1);
    EXPECT_EQ(window->AddFlow1()[1].Nodes().Item(1).Text(), "flat");
    EXPECT_EQ(window->clsSettings().Database(), "");
}

TEST_F(LoadTest, ACompanionFileReplacesTheSliceWhenTheUserSaysThatItLooksWrong) {
    const QString path = Map({InsertSlice(0, QStringLiteral("s")), InsertNode(QStringLiteral("n"))});
    diagram::Surface companion;
    companion.Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("from the companion"));
    diagram::SaveFile(companion, path + "0.tlt");
    desktop.ExpectMessage(QStringLiteral("Does this look right?"), support::Answer::Yes);
    EXPECT_EQ(Loaded(path)->AddFlow1()[0].Nodes().Item(1).Key(), "n");
    desktop.ExpectMessage(QStringLiteral("Does this look right?"), support::Answer::No);
    EXPECT_EQ(Loaded(path)->AddFlow1()[0].Nodes().Item(1).Text(), "from the companion");
}

namespace {

struct BadMap {
    const char *what;
    long number;
    QStringList statements;
};

QString Update(const char *sql) { return QString::fromLatin1(sql); }

// Two slices, two nodes, a link between them, and a font.
QStringList SoundMap() {
    return {InsertSlice(0, QStringLiteral("s")),
            InsertSlice(1, QStringLiteral("t")),
            InsertNode(QStringLiteral("a")),
            InsertNode(QStringLiteral("b")),
            InsertLink(QStringLiteral("l"), QStringLiteral("a"), QStringLiteral("b")),
            QStringLiteral("INSERT INTO [Fonts] VALUES ('f', 'Arial', 8, 0, 0, 0, 0)")};
}

// What each adds to that, or changes of it.
std::vector<BadMap> BadMaps() {
    const QString a = QStringLiteral("a"), l = QStringLiteral("l");
    return {
        {"a link to an unknown key", 5, {InsertLink(QStringLiteral("m"), a, QStringLiteral("nobody"))}},
        {"a link from an unknown key", 5, {InsertLink(QStringLiteral("m"), QStringLiteral("nobody"), a)}},
        {"a link to a node of another slice", 5, {Update("UPDATE [Nodes] SET [Slice]=1 WHERE [Key]='b'")}},
        {"a node key twice", 457, {InsertNode(a)}},
        {"a picture that is none",
         481,
         {Update("INSERT INTO [Pictures] VALUES ('p', x'00112233')"),
          Update("UPDATE [Nodes] SET [Picture]='p'")}},
        {"an empty picture",
         481,
         {Update("INSERT INTO [Pictures] VALUES ('p', NULL)"), Update("UPDATE [Slices] SET [Picture]='p'")}},
        {"a slice index below 0", 340, {InsertSlice(-3, QStringLiteral("x"))}},
        {"a slice index of more than 16 bits", 6, {InsertSlice(70000, QStringLiteral("x"))}},
        {"a slice index twice", 360, {InsertSlice(1, QStringLiteral("x"))}},
        {"a shape that is none", 380, {Update("UPDATE [Nodes] SET [Shape]=20")}},
        {"an orientation out of range", 380, {Update("UPDATE [Nodes] SET [ShapeOrientation]=4")}},
        {"a number of more than 32 bits", 6, {Update("UPDATE [Nodes] SET [FillColor]=99999999999")}},
        {"a size that is no single", 6, {Update("UPDATE [Nodes] SET [Width]=1e300")}},
        {"a place beyond the surface", 380, {Update("UPDATE [Nodes] SET [Left]=3e38")}},
        {"a negative line width", 380, {Update("UPDATE [Links] SET [DrawWidth]=-1")}},
        {"an arrow head that is none", 380, {Update("UPDATE [Links] SET [ArrowDest]=33")}},
        {"a zoom out of range", 380, {Update("UPDATE [Slices] SET [xZoom]=-5")}},
        {"a font of no size",
         380,
         {Update("UPDATE [Fonts] SET [Size]=0"), Update("UPDATE [Nodes] SET [Font]='f'")}},
        {"a point far behind the last",
         9,
         {Update("INSERT INTO [LinkPoints] VALUES (2000000000, 'l', 1, 1)")}},
        {"a point before the first", 9, {Update("INSERT INTO [LinkPoints] VALUES (-1, 'l', 1, 1)")}},
        {"a point out of range", 380, {Update("INSERT INTO [LinkPoints] VALUES (0, 'l', 3e38, 1)")}},
        {"a text for a place", 13, {Update("UPDATE [Nodes] SET [Left]='far'")}},
        {"a text for a shape", 13, {Update("UPDATE [Nodes] SET [Shape]='oval'")}},
        {"an empty text for a colour", 13, {Update("UPDATE [Nodes] SET [FillColor]=''")}},
        {"a text for a switch", 13, {Update("UPDATE [Nodes] SET [Hidden]='perhaps'")}},
        {"bytes for a level", 13, {Update("UPDATE [Nodes] SET [Level]=x'41'")}},
        {"a text for a node's slice", 13, {Update("UPDATE [Nodes] SET [Slice]='first' WHERE [Key]='b'")}},
        {"a text for a link's style", 13, {Update("UPDATE [Links] SET [Style]='bent'")}},
        {"a text for a point's place", 13, {Update("INSERT INTO [LinkPoints] VALUES (0, 'l', 1, 'low')")}},
        {"a text for a font's size", 13, {Update("UPDATE [Fonts] SET [Size]='large'")}},
        {"a text for a slice's index", 13, {Update("UPDATE [Slices] SET [Index]='next' WHERE [Index]=1")}},
        {"a text for a hyperlink's slice",
         13,
         {Update("INSERT INTO [Hyperlinks] VALUES ('a', '', 'there', '')")}},
        {"a text for a level's colour", 13, {Update("INSERT INTO [Levels] VALUES ('9', True, 'red')")}},
        {"two hyperlinks of one node",
         457,
         {Update("INSERT INTO [Hyperlinks] VALUES ('a', '', 1, '')"),
          Update("INSERT INTO [Hyperlinks] VALUES ('a', '', 1, '')")}},
        {"a hyperlink's slice out of range",
         6,
         {Update("INSERT INTO [Hyperlinks] VALUES ('a', '', 99999, '')")}},
        {"no table of links", storage::kErrTableNotFound, {Update("DROP TABLE [Links]")}},
        {"no table of nodes", storage::kErrFieldNotFound, {Update("DROP TABLE [Nodes]")}},
        {"no table of levels", storage::kErrTableNotFound, {Update("DROP TABLE [Levels]")}},
        {"no table of attachments", storage::kErrTableNotFound, {Update("DROP TABLE [Attachments]")}},
        {"nodes without a column",
         storage::kErrFieldNotFound,
         {Update("ALTER TABLE [Nodes] DROP COLUMN [Shadow]")}},
        {"slices without yZoom",
         storage::kErrFieldNotFound,
         {Update("ALTER TABLE [Slices] DROP COLUMN [yZoom]")}},
        {"links without a column",
         storage::kErrFieldNotFound,
         {Update("ALTER TABLE [Links] DROP COLUMN [KeyDest]")}},
    };
}

} // namespace

TEST_F(LoadTest, EachBadMapGivesItsErrorAndLeavesAWindowThatWorks) {
    for (const BadMap &bad : BadMaps()) {
        SCOPED_TRACE(bad.what);
        QFile::remove(MapFile(QStringLiteral("a.map")));
        const QString path = Map(SoundMap() + bad.statements);
        const support::Error error = ErrorOfLoading(path);
        EXPECT_EQ(error.Number(), bad.number) << error.what();
        EXPECT_TRUE(error.Source().endsWith(QStringLiteral("DoLoad")));
        EXPECT_FALSE(error.Description().isEmpty());
        EXPECT_TRUE(window_->pointers.empty() || window_->pointers.back() == pointer::kNormal);
        for (const int index : window_->AddFlow1().Indices())
            EXPECT_FALSE(window_->AddFlow1()[index].Loading());
        // The window works on: it is saved elsewhere, and loads another map.
        window_->clsSettings().Attachments().Clear();
        SaveAs(*window_, MapFile(QStringLiteral("elsewhere.map")));
        DoLoad(*window_);
        EXPECT_EQ(window_->caption, "Velmora - elsewhere.map");
    }
}

TEST_F(LoadTest, EachBadMapIsRepairedIntoOneThatLoadsWithAllItsNodesAndHasNothingWrong) {
    for (const BadMap &bad : BadMaps()) {
        SCOPED_TRACE(bad.what);
        for (const char *name : {"a.map", "repaired.map", "again.map"})
            QFile::remove(MapFile(QLatin1String(name)));
        const QString path = Map(SoundMap() + bad.statements);
        const QByteArray before = support::ReadWholeFile(path);
        const QString repaired = MapFile(QStringLiteral("repaired.map"));
        EXPECT_FALSE(RepairMap(path, repaired).IsClean());
        EXPECT_EQ(support::ReadWholeFile(path), before);
        EXPECT_EQ(ErrorOfLoading(repaired).Number(), 0);
        int nodes = 0;
        for (const int index : window_->AddFlow1().Indices())
            nodes += window_->AddFlow1()[index].Nodes().Count();
        EXPECT_GE(nodes, QByteArray(bad.what) == "no table of nodes" ? 0 : 2);
        const RepairReport again = RepairMap(repaired, MapFile(QStringLiteral("again.map")));
        for (const Repair &repair : again.repairs) ADD_FAILURE() << RepairText(repair).toStdString();
        EXPECT_TRUE(again.lost.isEmpty());
    }
}

TEST_F(LoadTest, NullsReadAsNothing) {
    const auto window = Loaded(
        Map({QStringLiteral("INSERT INTO [Slices] ([Index]) VALUES (0)"), InsertNode(QStringLiteral("a")),
             InsertLink(QStringLiteral("l"), QStringLiteral("a"), QStringLiteral("a"))}));
    const diagram::Node &node = window->AddFlow1()[0].Nodes().Item(1);
    EXPECT_EQ(node.Event(), "");
    EXPECT_EQ(node.Width(), 0);
    EXPECT_EQ(node.Font(), diagram::Font());
    EXPECT_EQ(window->AddFlow1()[0].Links().size(), 1U);
    EXPECT_EQ(window->AddFlow1()[0].xZoom(), 0);
}
