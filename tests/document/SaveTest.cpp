#include "diagram/model/Properties.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "document/CompactDb.h"
#include "document/FontPool.h"
#include "document/PicturePool.h"
#include "document/Tags.h"
#include "document/TemplateFile.h"
#include "settings/clsMRU.h"
#include "support/AtomicFile.h"
#include "support/clsGUID.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"

#include <functional>
#include <QFile>
#include <QFileInfo>

using namespace document;
using namespace document::testing;

class SaveTest : public MapTest {
protected:
    SaveTest() : window(NewWindow()) {}

    diagram::Surface &Slice(int index = 0) { return window->AddFlow1()[index]; }
    diagram::Node &AddNode(const char *key, const char *text = "") {
        diagram::Node &node = Slice().Nodes().Add(0, 0, 100, 50);
        node.SetKey(QString::fromLatin1(key));
        node.SetText(QString::fromLatin1(text));
        return node;
    }
    QString SavedAs(const char *name) {
        SaveAs(*window, MapFile(QString::fromLatin1(name)));
        return MapFile(QString::fromLatin1(name));
    }
    // Saves, loads into a new window and gives that.
    std::unique_ptr<MemoryWindow> RoundTrip() { return Loaded(SavedAs("trip.map")); }
    int Count(const QString &path, const char *table) {
        return Cell(path, QStringLiteral("SELECT COUNT(*) FROM [%1]").arg(QLatin1String(table))).toInt();
    }

    std::unique_ptr<MemoryWindow> window;
};

namespace {

diagram::NodeData FullNode() {
    diagram::NodeData data;
    data.text = QStringLiteral("It's a 'text'\r\n\u00e4\u4e2d\U0001F600");
    data.event = QStringLiteral("O'Event");
    data.tag = QStringLiteral("|HYPER=Yes|TheDate=It's");
    data.font = diagram::Font(QStringLiteral("Courier 'New'"), 11.25, true, true, true, true);
    data.picture = OneColour(0xFF102030);
    data.left = 12.5F, data.top = 17.25F, data.width = 333.125F, data.height = 0.1F;
    data.drawWidth = 2.5F;
    data.borderColor = 0x123456, data.fillColor = 0x654321,
    data.foreColor = static_cast<std::int32_t>(0x80000005);
    data.xTextMargin = 7, data.yTextMargin = -3;
    data.shape = 77, data.shapeOrientation = 3, data.drawStyle = 4, data.alignment = 2, data.shadow = 3;
    data.picturePos = 9, data.autoSize = 3;
    data.hidden = true, data.selectable = false, data.marked = true, data.transparent = true;
    return data;
}

diagram::LinkData FullLink() {
    diagram::LinkData data;
    data.text = QStringLiteral("label's");
    data.font = diagram::Font(QStringLiteral("Times"), 9.5, false, true);
    data.points = {{1, 2}, {-30.5F, 40.25F}, {500, 600}, {7, 8}};
    data.drawWidth = 3.5F;
    data.foreColor = 0x0000FF, data.lineColor = 0x00FF00;
    data.style = 5, data.arrowSource = 32, data.arrowDest = 17, data.arrowMiddle = 1;
    data.arrowSizeSource = 0, data.arrowSizeDest = 2, data.arrowSizeMiddle = 2;
    data.drawStyle = 6, data.jumpStyle = 2;
    data.hidden = true, data.selectable = false, data.marked = true, data.oriented = false;
    return data;
}

// Fails for properties of `actual` that differ from `expected`, leaving out those named.
template <typename Data>
void ExpectSame(const Data &expected, const Data &actual, const std::vector<std::string> &except) {
    for (const auto &row : diagram::PropertiesOf(expected)) {
        const bool left = std::find(except.begin(), except.end(), row.name) != except.end();
        EXPECT_TRUE(left || row.same(expected, actual)) << row.name;
    }
}

// Fails for properties that have their default value.
template <typename Data>
void ExpectNoDefaults(const Data &data, const std::vector<std::string> &except) {
    for (const auto &row : diagram::PropertiesOf(data)) {
        const bool left = std::find(except.begin(), except.end(), row.name) != except.end();
        EXPECT_TRUE(left || !row.same(data, Data())) << row.name;
    }
}

} // namespace

TEST_F(SaveTest, EveryPropertyOfANodeComesBack) {
    diagram::NodeData data = FullNode();
    data.key = support::GetGUID();
    ExpectNoDefaults(data, {"ZOrder", "Zorder"});
    Slice().Restore(Slice().NextId(), data);
    const auto loaded = RoundTrip();
    diagram::NodeData back = loaded->AddFlow1()[0].Nodes().Item(1).Data();
    EXPECT_EQ(back.tag, data.tag + "|GROUP=|LEVEL=");
    ExpectSame(data, back, {"ZOrder", "Tag"});
}

TEST_F(SaveTest, EveryPropertyOfALinkComesBackButRigidAndTheKey) {
    diagram::Node &a = AddNode("a"), &b = AddNode("b");
    diagram::LinkData data = FullLink();
    data.key = QStringLiteral("k");
    data.rigid = true;
    data.source = b.Id(), data.destination = a.Id();
    data.ownBends = data.addPointsMode = data.movePointsMode = true;
    ExpectNoDefaults(data, {"ZOrder", "Zorder"});
    data.addPointsMode = data.movePointsMode = false;
    diagram::Link &link = Slice().Restore(Slice().NextId(), data);
    const auto loaded = RoundTrip();
    const diagram::Link &back = *loaded->AddFlow1()[0].Links()[0];
    EXPECT_EQ(back.Source().Key(), "b");
    EXPECT_EQ(back.Destination().Key(), "a");
    EXPECT_TRUE(back.OwnBends());
    ExpectSame(link.Data(), back.Data(), {"Zorder", "Key", "Rigid"});
    EXPECT_FALSE(back.Rigid());
    EXPECT_TRUE(
        Cell(window->clsSettings().Database(), QStringLiteral("SELECT [Rigid] FROM [Links]")).toBool());
}

TEST_F(SaveTest, AWholeMapComesBack) {
    clsfrmMain &settings = window->clsSettings();
    window->TabStrip().SetTabCount(2);
    window->TabStrip().SetCaption(QStringLiteral("First's"));
    window->TabStrip().SetTheTab(1);
    window->TabStrip().SetCaption(QStringLiteral("Second \u4e2d"));
    diagram::Surface &second = window->AddFlow1().Load(1);
    second.SetBackColor(0x00FFEE);
    second.SetPicture(OneColour(0xFFAA0000));
    second.SetGridLines(true);
    second.SetxZoom(150);
    second.SetyZoom(150);
    SetTag(second, tags::kTimelineAlign, QStringLiteral("4"));
    SetTag(second, tags::kMissing, QStringLiteral("True"));
    second.Nodes().Add(5, 6, 7, 8).SetKey(QStringLiteral("other"));

    diagram::Node &a = AddNode("a", "A"), &b = AddNode("b", "B"), &c = AddNode("c", "C");
    a.Links().Add(b).SetText(QStringLiteral("ab"));
    b.Links().Add(c);
    c.Links().Add(c);
    a.SetZOrder(4);
    Slice().Links()[0]->SetZorder(0);
    settings.Groups().Create(QStringLiteral("G"), true);
    SetTag(a, tags::kGroup, settings.Groups().Item(3).Key + "," + settings.Groups().Item(2).Key);
    SetTag(b, tags::kLevel, settings.Levels().Item(2).Key);
    QString key = QStringLiteral("a"), none;
    cHyperlink &link = settings.Hyperlinks().add(key);
    link.Node = key, link.Slice = 2, link.DestNode = QStringLiteral("other's");
    cAttachment &attachment = settings.Attachments().add(none);
    attachment.Node = QStringLiteral("b"), attachment.Embed = true;
    attachment.Filename = ProgramFile(QStringLiteral("template.tpl"));
    const auto normalised = [](QStringList lines) { // tags that a load fills in
        return lines.replaceInStrings(QStringLiteral("tag |TM_ALIGN=0|MISSING=False"), QStringLiteral("tag "))
            .replaceInStrings(QStringLiteral("|GROUP=|LEVEL="), QString())
            .replaceInStrings(QStringLiteral("|LEVEL=|GROUP="), QString());
    };
    const auto loaded = RoundTrip();
    ExpectSameLines(normalised(Describe(*loaded)), normalised(Describe(*window)));
    EXPECT_EQ(support::ReadWholeFile(loaded->clsSettings().Attachments().Item(1).Filename),
              support::ReadWholeFile(TemplatePath()));
    EXPECT_EQ(loaded->clsSettings().Hyperlinks().Item(QStringLiteral("a")).SliceKey,
              loaded->TabStrip().TabKey(1));
}

TEST_F(SaveTest, ANeverSavedMapAsksForANameOnce) {
    desktop.ExpectSaveFile(MapFile(QStringLiteral("named.map")));
    EXPECT_TRUE(DoSave(*window));
    EXPECT_EQ(window->clsSettings().Database(), MapFile(QStringLiteral("named.map")));
    EXPECT_TRUE(DoSave(*window));
    EXPECT_EQ(desktop.dialogs.shownFiles.size(), 1U);
}

TEST_F(SaveTest, ACancelledDialogChangesNothingNotEvenTheStatus) {
    window->clsSettings().Dirty = true;
    desktop.ExpectSaveFile(QString());
    EXPECT_FALSE(DoSave(*window));
    EXPECT_TRUE(window->statuses.isEmpty());
    EXPECT_TRUE(window->pointers.empty());
    EXPECT_TRUE(window->clsSettings().Dirty);
    EXPECT_EQ(window->clsSettings().Database(), "");
}

TEST_F(SaveTest, NodesWithoutAKeyGetOneAndTheirLinksUseIt) {
    diagram::Node &a = AddNode(""), &b = AddNode("");
    a.Links().Add(b);
    const QString path = SavedAs("a.map");
    EXPECT_TRUE(support::CheckGUID(a.Key()));
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [KeySource] FROM [Links]")), a.Key());
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [KeyDest] FROM [Links]")), b.Key());
    const QString kept = a.Key();
    SavedAs("a.map");
    EXPECT_EQ(a.Key(), kept);
}

TEST_F(SaveTest, ALinkIsWrittenOnceWithANewKeyEachTime) {
    diagram::Node &a = AddNode("a"), &b = AddNode("b");
    const diagram::Link &link = a.Links().Add(b);
    a.Links().Add(a);
    const QString path = SavedAs("a.map");
    EXPECT_EQ(Count(path, "Links"), 2);
    const QString former = link.Key();
    SavedAs("a.map");
    EXPECT_NE(link.Key(), former);
    EXPECT_EQ(Count(path, "Links"), 2);
    EXPECT_EQ(
        Cell(path, QStringLiteral("SELECT MAX([Index]) FROM [LinkPoints] WHERE [Link]='%1'").arg(link.Key())),
        int(link.Route().size()) - 1);
}

TEST_F(SaveTest, ApostrophesComeBackEverywhere) {
    clsfrmMain &settings = window->clsSettings();
    const QString text = QStringLiteral("'it''s' 'n'");
    diagram::Node &node = AddNode("a");
    node.SetText(text);
    node.SetEvent(text);
    node.Links().Add(node).SetText(text);
    window->TabStrip().SetCaption(text);
    SetTag(node, tags::kGroup, settings.Groups().Create(text, false).Key);
    SetTag(node, tags::kLevel, settings.Levels().Create(text, false, 5).Key);
    QString key = QStringLiteral("a");
    settings.Hyperlinks().add(key).Map = text;
    settings.Hyperlinks().Item(key).Node = key;
    const auto loaded = RoundTrip();
    const diagram::Node &back = loaded->AddFlow1()[0].Nodes().Item(1);
    EXPECT_EQ(back.Text(), text);
    EXPECT_EQ(back.Event(), text);
    EXPECT_EQ(back.Links().Item(1).Text(), text);
    EXPECT_EQ(loaded->TabStrip().TabCaption(0), text);
    EXPECT_EQ(loaded->clsSettings().Groups().GroupNameForKey(GetTag(back, tags::kGroup)), text);
    EXPECT_EQ(loaded->clsSettings().Levels().Item(5).LevelName, text);
    EXPECT_EQ(loaded->clsSettings().Hyperlinks().Item(key).Map, text);
}

TEST_F(SaveTest, ALevelIsStoredAsTheNumberThatItsNameBeginsWith) {
    diagram::Node &node = AddNode("a");
    const auto stored = [&](const QString &name) {
        SetTag(node, tags::kLevel, window->clsSettings().Levels().KeyForLevelName(name));
        return Cell(SavedAs("a.map"), QStringLiteral("SELECT [Level] FROM [Nodes]")).toDouble();
    };
    EXPECT_EQ(stored(QStringLiteral("2")), 2);
    EXPECT_EQ(stored(QStringLiteral("12 Important")), 12);
    const auto loaded = Loaded(MapFile(QStringLiteral("a.map")));
    EXPECT_EQ(loaded->clsSettings().Levels().LevelNameForKey(
                  GetTag(loaded->AddFlow1()[0].Nodes().Item(1), tags::kLevel)),
              "12");
    window->clsSettings().Levels().Create(QStringLiteral("'High'"), false, 0);
    EXPECT_EQ(stored(QStringLiteral("'High'")), 0);
    EXPECT_EQ(stored(QStringLiteral("no such level")), 0);
}

TEST_F(SaveTest, OnlyThreeZoomsAreStored) {
    for (const auto &[zoom, stored] : {std::pair{75, 75}, {100, 100}, {150, 150}, {120, 0}, {0, 0}}) {
        Slice().SetxZoom(zoom);
        Slice().SetyZoom(33);
        const QString path = SavedAs("z.map");
        EXPECT_EQ(Cell(path, QStringLiteral("SELECT [xZoom] FROM [Slices]")), stored);
        EXPECT_EQ(Cell(path, QStringLiteral("SELECT [yZoom] FROM [Slices]")), stored);
    }
}

TEST_F(SaveTest, PicturesAreNotSharedAndFontsAre) {
    for (int i = 0; i < 10; ++i) {
        diagram::Node &node = AddNode("");
        node.SetPicture(OneColour(0xFF00FF00));
        node.SetFont(diagram::Font(QStringLiteral("Arial"), i < 5 ? 10 : 11));
    }
    const QString path = SavedAs("a.map");
    EXPECT_EQ(Count(path, "Pictures"), 10);
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT COUNT(DISTINCT [Key]) FROM [Pictures]")), 10);
    EXPECT_EQ(Count(path, "Fonts"), 2);
}

TEST_F(SaveTest, TheSettingsRowTellsWhoAndWhen) {
    desktop.clock.now = QDateTime(QDate(2026, 11, 21), QTime(5, 47, 12));
    const QString path = SavedAs("a.map");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Author] FROM [Settings]")), "tester ");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Modified] FROM [Settings]")), "tester ");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [CreateTime] FROM [Settings]")), "21 Nov 2026 05:4712");
    EXPECT_EQ(Count(path, "Settings"), 1);
}

TEST_F(SaveTest, AnAuthorInTheTemplateSurvives) {
    Run(TemplatePath(), QStringLiteral("INSERT INTO [Settings] VALUES ('first ', 'then', 'x', 'x')"));
    const QString path = SavedAs("a.map");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Author] FROM [Settings]")), "first ");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Modified] FROM [Settings]")), "tester ");
}

TEST_F(SaveTest, StatusesComeInTheirOrderAndTheWindowIsReadyAtTheEnd) {
    window->TabStrip().SetTabCount(2);
    window->AddFlow1().Load(1);
    window->TabStrip().SetTheTab(1);
    window->clsSettings().Dirty = true;
    QString none;
    window->clsSettings().Attachments().add(none).Filename = QStringLiteral("far.txt");
    const QString path = SavedAs("a.map");
    EXPECT_EQ(
        window->statuses.join(QLatin1Char('|')),
        "Preparing to save...|Saving slice name...|Saving Nodes...|Saving Links...|Saving slice name...|"
        "Saving Nodes...|Saving Links...|Saving Groups...|Saving Levels...|Saving HyperLinks...|"
        "Saving Attachments (far.txt)...||Optimizing File...|");
    EXPECT_EQ(window->TabStrip().TheTab(), 1);
    EXPECT_EQ(window->caption, "Velmora - a.map");
    EXPECT_FALSE(window->clsSettings().Dirty);
    EXPECT_EQ(window->pointers.back(), pointer::kNormal);
    EXPECT_EQ(settings::clsMRU(desktop.registry).File(1), path);
}

TEST_F(SaveTest, BothTextsAreWrittenApartWhileBothAreShown) {
    AddNode("a", "first").SetEvent(QStringLiteral("second"));
    Slice().Screen().SetShowsBothTexts(true);
    const QString path = SavedAs("a.map");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Description] FROM [Nodes]")), "first");
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Event] FROM [Nodes]")), "second");
    EXPECT_TRUE(Slice().Screen().ShowsBothTexts());
}

TEST_F(SaveTest, SavingIsNoStepOfUndo) {
    AddNode("");
    SavedAs("a.map");
    EXPECT_FALSE(Slice().CanUndo());
}

TEST_F(SaveTest, ASaveThatFailsLeavesFileAndWindowAsTheyWere) {
    const QString path = SavedAs("a.map");
    const QByteArray before = support::ReadWholeFile(path);
    const QStringList files = MapFiles();
    QString none;
    cAttachment &gone = window->clsSettings().Attachments().add(none);
    gone.Embed = true, gone.Filename = MapFile(QStringLiteral("vanished.txt"));
    window->clsSettings().Dirty = true;
    const support::Error error = ErrorOf([&] { DoSave(*window); });
    EXPECT_EQ(error.Number(), support::kErrFileNotFound);
    EXPECT_TRUE(error.Source().endsWith(QStringLiteral("DoSave")));
    EXPECT_EQ(support::ReadWholeFile(path), before);
    EXPECT_EQ(MapFiles(), files);
    EXPECT_TRUE(window->clsSettings().Dirty);
    EXPECT_EQ(window->statuses.back(), "");
    EXPECT_EQ(window->pointers.back(), pointer::kNormal);
}

TEST_F(SaveTest, ASaveWithoutATemplateLeavesTheOldFile) {
    const QString path = SavedAs("a.map");
    const QByteArray before = support::ReadWholeFile(path);
    QFile::remove(TemplatePath());
    EXPECT_EQ(ErrorOf([&] { DoSave(*window); }).Number(), support::kErrFileNotFound);
    EXPECT_EQ(support::ReadWholeFile(path), before);
    EXPECT_EQ(MapFiles(), QStringList(QStringLiteral("a.map")));
}

TEST_F(SaveTest, AFolderOrAMissingFolderAsTargetIsAnErrorAndTheOldPathStays) {
    const QString path = SavedAs("a.map");
    for (const QString &target : {MapFile(QString()), MapFile(QStringLiteral("no/such/folder.map"))}) {
        window->clsSettings().SetDatabase(QString());
        desktop.ExpectSaveFile(target);
        EXPECT_NE(ErrorOf([&] { DoSave(*window); }).Number(), 0);
        EXPECT_EQ(window->clsSettings().Database(), "");
    }
    EXPECT_EQ(MapFiles(), QStringList(QStringLiteral("a.map")));
}

TEST_F(SaveTest, PathsWithQuotesBlanksAndOtherScriptsWork) {
    AddNode("a", "text");
    for (const char *name :
         {"it's a map.map", "two  blanks .map", "\xe5\x9c\xb0\xe5\x9b\xbe.map", "100%_;--.map"}) {
        const QString path = MapFile(QString::fromUtf8(name));
        SaveAs(*window, path);
        EXPECT_EQ(Loaded(path)->AddFlow1()[0].Nodes().Count(), 1) << name;
    }
}

TEST_F(SaveTest, AFileOfTheWindowsOwnIsSavedOverWithoutACopy) {
    SavedAs("a.map");
    SavedAs("a.map");
    const auto other = Loaded(MapFile(QStringLiteral("a.map")));
    EXPECT_TRUE(DoSave(*other));
    EXPECT_EQ(MapFiles(), QStringList(QStringLiteral("a.map")));
    EXPECT_EQ(other->statuses.back(), "");
}

TEST_F(SaveTest, AForeignFileIsKeptBesideAndNoOlderCopyIsOverwritten) {
    const auto write = [&](const char *name, const char *bytes) {
        support::AtomicFile file(MapFile(QString::fromLatin1(name)));
        file.Write(bytes);
        file.Commit();
    };
    write("a.map", "foreign");
    write("a.map.bak", "older");
    SavedAs("a.map");
    EXPECT_EQ(support::ReadWholeFile(MapFile(QStringLiteral("a.map.bak"))), "older");
    EXPECT_EQ(support::ReadWholeFile(MapFile(QStringLiteral("a.map.1.bak"))), "foreign");
    EXPECT_EQ(window->statuses.back(), "The former file was kept as a.map.1.bak");
    SavedAs("a.map");
    EXPECT_EQ(MapFiles().size(), 3);
    EXPECT_EQ(window->statuses.back(), "");
}

namespace {
const QString kChangedQuestion =
    QStringLiteral("a.map was changed outside of this window since it was opened."
                   "\r\n\r\nDo you want to save over those changes?");
QString TheirNode() {
    return InsertNode(QStringLiteral("theirs"), 0, QStringLiteral("[Description]"),
                      QStringLiteral("'%1'").arg(QString(20000, QLatin1Char('x'))));
}
} // namespace

TEST_F(SaveTest, AFileThatSomebodyElseWroteSinceIsSavedOverOnlyWhenTheUserSaysSoAndKept) {
    const QString path = SavedAs("a.map");
    Run(path, TheirNode());
    window->clsSettings().Dirty = true;
    desktop.ExpectMessage(kChangedQuestion, support::Answer::No);
    EXPECT_FALSE(DoSave(*window));
    EXPECT_TRUE(window->clsSettings().Dirty);
    EXPECT_EQ(Cell(path, QStringLiteral("SELECT [Key] FROM [Nodes]")), "theirs");
    desktop.ExpectMessage(kChangedQuestion, support::Answer::Yes);
    EXPECT_TRUE(DoSave(*window));
    EXPECT_EQ(Cell(path + ".bak", QStringLiteral("SELECT [Key] FROM [Nodes]")), "theirs");
    EXPECT_TRUE(DoSave(*window)) << "asked once";
}

TEST_F(SaveTest, AMapChangedSinceItWasOpenedIsAskedAboutAndOneThatIsGoneIsNot) {
    const QString path = SavedAs("a.map");
    const auto other = Loaded(path);
    Run(path, TheirNode());
    desktop.ExpectMessage(kChangedQuestion, support::Answer::No);
    EXPECT_FALSE(DoSave(*other));
    QFile::remove(path);
    EXPECT_TRUE(DoSave(*other));
}

TEST_F(SaveTest, AMapWhoseLoadEndedInTheMiddleIsKept) {
    AddNode("a");
    const QString path = SavedAs("a.map");
    const auto other = Loaded(path);
    Run(path, InsertNode(QStringLiteral("a")));
    EXPECT_EQ(ErrorOf([&] { DoLoad(*other); }).Number(), support::kErrKeyInUse);
    desktop.ExpectSaveFile(path);
    EXPECT_TRUE(DoSave(*other));
    EXPECT_EQ(desktop.dialogs.shownFiles.back().startFolder, path);
    EXPECT_EQ(Count(path + ".bak", "Nodes"), 2);
}

TEST_F(SaveTest, TheTemporaryFolderGetsAFolderOfSafetyCopiesAndOneOfEmbeddedFiles) {
    AddNode("a").SetPicture(OneColour(0xFF00FF00));
    QString none;
    cAttachment &attachment = window->clsSettings().Attachments().add(none);
    attachment.Embed = true, attachment.Filename = TemplatePath();
    auto loaded = RoundTrip();
    EXPECT_TRUE(DoSave(*loaded));
    const auto left = [&] {
        return QDir(TempFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size();
    };
    EXPECT_EQ(left(), 2);
    loaded.reset();
    EXPECT_EQ(left(), 1);
    EXPECT_EQ(QDir(SafetyCopyFolder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(SaveTest, CompanionsAreWrittenOnlyUnderTheSwitch) {
    const QString path = SavedAs("a.map");
    EXPECT_FALSE(support::FileExists(path + "0.tlt"));
    SetWritesCompanions(true);
    SavedAs("a.map");
    EXPECT_TRUE(support::FileExists(path + "0.tlt"));
}

TEST_F(SaveTest, LocateFontAndLocatePictureWorkOnAnOpenMap) {
    const QString path = EmptyMap(QStringLiteral("a.map"));
    storage::Database database = storage::OpenDatabase(path);
    diagram::Font font(QStringLiteral("It's"), 9, true);
    const QString key = LocateFont(database, font, true);
    EXPECT_EQ(LocateFont(database, font, true), key);
    diagram::Font back;
    EXPECT_EQ(LocateFont(database, back, false, key), key);
    EXPECT_EQ(back, font);
    EXPECT_EQ(LocateFont(database, back, false, QStringLiteral("nobody")), "nobody");
    EXPECT_EQ(back, diagram::Font());

    diagram::Picture picture = OneColour(0xFF0000FF), other;
    const QString pictureKey = LocatePicture(database, QString(), picture, true);
    EXPECT_TRUE(support::CheckGUID(pictureKey));
    EXPECT_NE(LocatePicture(database, QString(), picture, true), pictureKey);
    EXPECT_EQ(LocatePicture(database, pictureKey, other, false), pictureKey);
    EXPECT_EQ(other, picture);
    diagram::Picture none;
    EXPECT_EQ(LocatePicture(database, QString(), none, true), "");
    EXPECT_EQ(LocatePicture(database, QStringLiteral("nobody"), none, false), "");
    EXPECT_TRUE(none.IsNull());
}
