#include "templates/LoadTemplate.h"

#include "diagram/format/SurfaceFile.h"
#include "document/DefaultNodes.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "templates/SaveAsTemplate.h"
#include "templates/TemplateFiles.h"
#include "tests/Paths.h"
#include "tests/templates/TemplatesTest.h"
#include "timeline/TimelineNodes.h"

namespace templates::testing {

namespace {

class LoadingTemplate : public TemplatesTest {
protected:
    // The slice saved with its background; the file's path.
    QString Saved(const QString &name = QStringLiteral("A.TEM")) {
        const QString icon = Write(MapFile(QStringLiteral("icon.ico")), Icon());
        SaveAsTemplate(*window, Flow(), icon, InTemplates(name));
        return InTemplates(name);
    }
    // Of a second window, into which templates come.
    diagram::Surface &Target() { return target->AddFlow1()[0]; }
    void Load(const QString &file) { LoadTemplate(*target, Target(), file); }

    std::unique_ptr<document::MemoryWindow> target = NewWindow();
};

} // namespace

TEST_F(LoadingTemplate, AFlatOneTakesThePlaceOfWhatIsThere) {
    Target().Nodes().Add(0, 0, 100, 100).SetText(QStringLiteral("Former"));
    Load(FlatTemplate(QStringLiteral("A.TEM")));
    EXPECT_EQ(Texts(Target()), QStringList({"Idea"}));
    EXPECT_TRUE(target->clsSettings().Dirty);
}

TEST_F(LoadingTemplate, SoDoesADatabase) {
    Load(Template(QStringLiteral("A.TEM"), QStringLiteral("Plan")));
    EXPECT_EQ(Texts(Target()), QStringList({"Plan"}));
}

TEST_F(LoadingTemplate, TheFileItselfIsOnlyRead) {
    for (const QString &file : {FlatTemplate(QStringLiteral("A.TEM")), Template(QStringLiteral("B.TEM"))}) {
        const QByteArray before = support::ReadWholeFile(file);
        Load(file);
        EXPECT_EQ(support::ReadWholeFile(file), before);
    }
    EXPECT_EQ(FilesIn(TempFolder()), QStringList());
}

TEST_F(LoadingTemplate, BackgroundComesAlongAndTheNodeThatCarriedItGoes) {
    AddNode(QStringLiteral("Idea"));
    Flow().SetPicture(OneColour(qRgb(1, 2, 3)));
    Flow().SetBackColor(0x00AABBCC);
    Load(Saved());
    EXPECT_TRUE(Target().Picture() == Flow().Picture());
    EXPECT_EQ(Target().BackColor(), 0x00AABBCCu);
    EXPECT_EQ(DiagramNode(Target()), nullptr);
    EXPECT_NE(DiagramNode(Flow()), nullptr) << "it stays where it was saved";
}

TEST_F(LoadingTemplate, ASliceWithoutBackgroundTakesAFormerOneAway) {
    AddNode(QStringLiteral("Idea"));
    Target().SetPicture(OneColour(qRgb(1, 2, 3)));
    Target().SetBackColor(0x00AABBCC);
    Load(Saved());
    EXPECT_TRUE(Target().Picture().IsNull());
    EXPECT_EQ(Target().BackColor(), support::kWhite);
}

TEST_F(LoadingTemplate, AFlatOneWithoutThatNodeLeavesTheBackground) {
    Target().SetBackColor(0x00AABBCC);
    Load(FlatTemplate(QStringLiteral("A.TEM")));
    EXPECT_EQ(Target().BackColor(), 0x00AABBCCu);
}

TEST_F(LoadingTemplate, UndoBringsBackAllThatStoodThereAtOnce) {
    AddNode(QStringLiteral("New")).Links().Add(AddNode(QStringLiteral("Newer")));
    Flow().SetBackColor(0x00AABBCC);
    const QString file = Saved();
    Target().SetPicture(OneColour(qRgb(9, 9, 9)));
    Target().SetTag(QStringLiteral("|TM_ALIGN=2"));
    diagram::Node &former = Target().Nodes().Add(100, 100, 900, 600);
    former.Links().Add(Target().Nodes().Add(4000, 100, 900, 600));
    document::BeginAction(Target());
    former.SetText(QStringLiteral("Former"));
    Target().EndAction();
    const QByteArray before = ContentOf(Target());
    Load(file);
    const QByteArray after = ContentOf(Target());
    EXPECT_EQ(Texts(Target()), QStringList({"New", "Newer"}));
    Target().Undo();
    EXPECT_TRUE(ContentOf(Target()) == before);
    Target().Redo();
    EXPECT_TRUE(ContentOf(Target()) == after);
    Target().Undo(), Target().Undo();
    EXPECT_EQ(Target().Nodes().Item(1).Text(), QString()) << "the history before the load is there";
}

TEST_F(LoadingTemplate, RoutesOfLinksAreThoseThatWereSaved) {
    diagram::Node &a = AddNode(QStringLiteral("A")), &b = AddNode(QStringLiteral("B"));
    b.SetBounds(6000, 3000, 1500, 900);
    AddNode(QStringLiteral("between")).SetBounds(3000, 1500, 900, 900);
    const diagram::Link &link = a.Links().Add(b);
    const auto route = link.Route();
    Load(Saved());
    ASSERT_EQ(Target().Links().size(), 1u);
    EXPECT_EQ(Target().Links().front()->Route(), route);
}

TEST_F(LoadingTemplate, WhatIsNoTemplateLeavesTheSliceAsItWas) {
    Target().Nodes().Add(0, 0, 100, 100).SetText(QStringLiteral("Former"));
    const QByteArray before = ContentOf(Target());
    const QByteArray whole = support::ReadWholeFile(FlatTemplate(QStringLiteral("A.TEM")));
    const std::pair<QString, long> cases[] = {
        {::tests::Data(QStringLiteral("jet/template.mdb")), 321}, // of another program
        {Write(InTemplates(QStringLiteral("cut.TEM")), whole.chopped(1)), storage::kErrUnrecognizedFormat},
        {TemplateOf(QStringLiteral("map.TEM"), whole.chopped(1), Icon()), 321},
        {EmptyMap(QStringLiteral("plan.map")), storage::kErrTableNotFound},
        {InTemplates(QStringLiteral("none.TEM")), storage::kErrFileNotFound}};
    for (const auto &each : cases) {
        const auto &[file, number] = each;
        EXPECT_EQ(ErrorOf([&] { Load(each.first); }).Number(), number) << file.toStdString();
        EXPECT_TRUE(ContentOf(Target()) == before);
        EXPECT_FALSE(Target().CanUndo());
        EXPECT_FALSE(target->clsSettings().Dirty);
    }
}

TEST_F(LoadingTemplate, NodesAndLinksGetNewKeys) {
    diagram::Node &node = AddNode(QStringLiteral("A"));
    node.SetKey(QStringLiteral("{K}"));
    node.Links().Add(AddNode(QStringLiteral("B"))).SetKey(QStringLiteral("{L}"));
    const QString file = Saved();
    Load(file);
    const QString first = Target().Nodes().Item(1).Key();
    EXPECT_NE(first, QStringLiteral("{K}"));
    EXPECT_EQ(first.size(), 38);
    EXPECT_EQ(Target().Links().front()->Key().size(), 38);
    Load(file);
    EXPECT_NE(Target().Nodes().Item(1).Key(), first) << "each time anew";
}

TEST_F(LoadingTemplate, LevelsAndGroupsGoByTheirNames) {
    using namespace document::tags;
    diagram::Node &node = AddNode(QStringLiteral("A"));
    document::SetTag(node, kLevel, window->clsSettings().Levels().KeyForLevelName(QStringLiteral("12")));
    document::SetTag(node, kGroup,
                     window->clsSettings().Groups().KeyForGroupName(QStringLiteral("O'Brien,Sales")));
    Load(Saved());
    const diagram::Node &loaded = Target().Nodes().Item(1);
    EXPECT_EQ(target->clsSettings().Levels().LevelNameForKey(LevelOf(loaded)), QStringLiteral("12"));
    EXPECT_EQ(target->clsSettings().Groups().GroupNameForKey(GroupOf(loaded)),
              QStringLiteral("O'Brien,Sales"));
}

TEST_F(LoadingTemplate, InsertingAddsTheContentSelectedAroundThePoint) {
    AddNode(QStringLiteral("A")).Links().Add(AddNode(QStringLiteral("B")));
    Flow().Nodes().Item(2).SetBounds(3000, 0, 1500, 900);
    Flow().SetBackColor(0x00AABBCC);
    const QString file = Saved();
    Target().Nodes().Add(0, 0, 100, 100).SetText(QStringLiteral("Former"));
    const QByteArray before = ContentOf(Target());
    InsertTemplate(*target, Target(), file, QPointF(10000, 5000));
    EXPECT_EQ(Texts(Target()), QStringList({"Former", "A", "B"}));
    EXPECT_EQ(Target().BackColor(), support::kWhite);
    EXPECT_EQ(Target().SelectedNodes().size(), 2u);
    EXPECT_EQ(Target().SelectedLinks().size(), 1u);
    EXPECT_EQ(Target().Nodes().Item(2).Bounds(), QRectF(10000 - 2250, 5000 - 450, 1500, 900));
    EXPECT_TRUE(target->clsSettings().Dirty);
    EXPECT_EQ(DiagramNode(Target()), nullptr);
    Target().Undo();
    EXPECT_TRUE(ContentOf(Target()) == before);
    EXPECT_FALSE(Target().CanUndo()) << "one step";
}

TEST_F(LoadingTemplate, InsertingTwiceGivesTwoOfEverythingWithTheirOwnKeys) {
    const QString file = Template(QStringLiteral("A.TEM"));
    for (int i = 0; i < 2; ++i) InsertTemplate(*target, Target(), file, QPointF(3000, 3000));
    EXPECT_EQ(Texts(Target()), QStringList({"Idea", "Idea"}));
    EXPECT_NE(Target().Nodes().Item(1).Key(), Target().Nodes().Item(2).Key());
    EXPECT_EQ(Target().SelectedNodes().size(), 1u) << "the second";
}

TEST_F(LoadingTemplate, InsertingLeavesMonthsAndDefaultNodesBehind) {
    timeline::LocateTimelineNode(Flow(), QStringLiteral("05 May 2024"), true,
                                 &AddNode(QStringLiteral("Dated")));
    document::LocateTemplateNode(Flow(), true);
    const QString file = Saved();
    InsertTemplate(*target, Target(), file, QPointF(0, 0));
    EXPECT_EQ(Target().Nodes().Count(), 1);
    EXPECT_EQ(Texts(Target()), QStringList({"Dated"}));
    EXPECT_TRUE(Target().Links().empty());
}

TEST_F(LoadingTemplate, InsertingShowsWhatAFilterHadHidden) {
    AddNode(QStringLiteral("A")).Links().Add(AddNode(QStringLiteral("B"))).SetHidden(true);
    Flow().Nodes().Item(2).SetHidden(true);
    InsertTemplate(*target, Target(), Saved(), QPointF(0, 0));
    EXPECT_EQ(Texts(Target()), QStringList({"A", "B"}));
    EXPECT_FALSE(Target().Links().front()->Hidden());
}

TEST_F(LoadingTemplate, InsertingAnEmptyOneChangesNothing) {
    InsertTemplate(*target, Target(), Saved(), QPointF(0, 0));
    EXPECT_FALSE(Target().CanUndo());
    EXPECT_FALSE(target->clsSettings().Dirty);
}

TEST_F(LoadingTemplate, APreviewHasTheBackgroundAndTheKeysOfTheFile) {
    AddNode(QStringLiteral("A")).SetKey(QStringLiteral("{K}"));
    Flow().SetBackColor(0x00AABBCC);
    diagram::Surface preview;
    ReadTemplate(preview, Saved());
    EXPECT_EQ(Texts(preview), QStringList({"A"}));
    EXPECT_EQ(preview.Nodes().Item(1).Key(), QStringLiteral("{K}"));
    EXPECT_EQ(preview.BackColor(), 0x00AABBCCu);
    EXPECT_EQ(DiagramNode(preview), nullptr);
}

} // namespace templates::testing
