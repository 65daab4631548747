// What applying the node dialog does to nodes.
#include "diagram/model/Actions.h"
#include "support/Error.h"
#include "tests/dialogs/NodeDialogTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AdjustLinks.h"

namespace dialogs::testing {

namespace {

const QString kDay = QStringLiteral("14 March 2004");

NodeEdit OtherLook() {
    NodeEdit edit;
    edit.look.drawStyle = 2;
    edit.look.drawWidth = 9;
    edit.look.picturePos = 3;
    edit.look.shadow = 4;
    edit.look.shape = 77;
    edit.look.shapeOrientation = 1;
    edit.look.alignment = 5;
    edit.xTextMargin = 60;
    edit.yTextMargin = 7;
    edit.Picture = document::testing::OneColour(qRgb(1, 2, 3));
    edit.look.foreColor = 0x111111;
    edit.look.fillColor = 0x222222;
    edit.look.borderColor = 0x333333;
    edit.look.font = diagram::Font(QStringLiteral("Courier"), 14, true, false, true, true);
    edit.look.autoSize = 1;
    return edit;
}

void ExpectLook(const diagram::Node &node, const NodeEdit &edit) {
    EXPECT_EQ(node.DrawStyle(), edit.look.drawStyle);
    EXPECT_EQ(node.DrawWidth(), edit.look.drawWidth);
    EXPECT_EQ(node.PicturePos(), edit.look.picturePos);
    EXPECT_EQ(node.Shadow(), edit.look.shadow);
    EXPECT_EQ(node.Shape(), edit.look.shape);
    EXPECT_EQ(node.ShapeOrientation(), edit.look.shapeOrientation);
    EXPECT_EQ(node.Alignment(), edit.look.alignment);
    EXPECT_EQ(node.xTextMargin(), edit.xTextMargin);
    EXPECT_EQ(node.yTextMargin(), edit.yTextMargin);
    EXPECT_EQ(node.Picture(), edit.Picture);
    EXPECT_EQ(node.ForeColor(), edit.look.foreColor);
    EXPECT_EQ(node.FillColor(), edit.look.fillColor);
    EXPECT_EQ(node.BorderColor(), edit.look.borderColor);
    EXPECT_EQ(node.Font(), edit.look.font);
    EXPECT_EQ(node.AutoSize(), edit.look.autoSize);
}

} // namespace

class NodeEdits : public NodeDialogTest {
protected:
    NodeEdits() : other(AddNode(QStringLiteral("other"))) {}
    diagram::Node &other;
};

TEST_F(NodeEdits, TheEditOfANodeChangesNothingOfIt) {
    Apply(*node, OtherLook());
    Date(*node, kDay);
    const diagram::NodeData before = node->Data();
    Apply(*node, EditOf(*node));
    EXPECT_EQ(diagram::Difference(before, node->Data()), diagram::Change::None);
    EXPECT_EQ(timeline::DateOfNode(*node), kDay);
}

TEST_F(NodeEdits, TheLookGoesToEverySelectedNodeAndTheTextsToOneAlone) {
    other.SetSelected(true);
    diagram::Node &unselected = AddNode();
    NodeEdit edit = OtherLook();
    edit.Text = QStringLiteral("new");
    edit.Event = QStringLiteral("notes");
    Apply(*node, edit);
    ExpectLook(*node, edit);
    ExpectLook(other, edit);
    ExpectLook(unselected, EditOf(AddNode()));
    EXPECT_EQ(node->Text(), QStringLiteral("new"));
    EXPECT_EQ(node->Event(), QStringLiteral("notes"));
    EXPECT_EQ(other.Text(), QStringLiteral("other"));
    EXPECT_TRUE(other.Event().isEmpty());
}

TEST_F(NodeEdits, ANodeBesideTheSelectionIsEditedAlone) {
    const NodeEdit edit = OtherLook();
    Apply(other, edit, false);
    ExpectLook(other, edit);
    EXPECT_EQ(node->Shape(), 1);
}

TEST_F(NodeEdits, WithoutASelectionTheNodeIsEdited) {
    flow.UnselectAll();
    Apply(*node, OtherLook());
    ExpectLook(*node, OtherLook());
}

TEST_F(NodeEdits, TextsThatWereNotEditedStay) {
    node->SetText(QStringLiteral("hard\u00a0blank\r\nline"));
    Apply(*node, OtherLook());
    EXPECT_EQ(node->Text(), QStringLiteral("hard\u00a0blank\r\nline"));
}

TEST_F(NodeEdits, WithoutAMembershipTheTagsStay) {
    document::SetTag(*node, document::tags::kLevel, QStringLiteral("gone"));
    document::SetTag(*node, document::tags::kGroup, QStringLiteral("a,b"));
    Apply(*node, OtherLook());
    EXPECT_EQ(LevelOf(*node), QStringLiteral("gone"));
    EXPECT_EQ(GroupsOf(*node), QStringLiteral("a,b"));
}

TEST_F(NodeEdits, AMembershipGoesToEverySelectedNodeByItsKeys) {
    other.SetSelected(true);
    NodeEdit edit;
    edit.membership = Membership{QStringLiteral("Second"), {QStringLiteral("Red"), QStringLiteral("Blue")}};
    Apply(*node, edit);
    for (const diagram::Node *edited : {node, &other}) {
        EXPECT_EQ(LevelOf(*edited), LevelKey(2));
        EXPECT_EQ(GroupsOf(*edited), GroupKey(1) + u',' + GroupKey(3));
    }
}

TEST_F(NodeEdits, OfTwoLevelsOfOneNameTheFirstIsWritten) {
    window.clsSettings().Levels().Create(QStringLiteral("First"), true, 0);
    NodeEdit edit;
    edit.membership.emplace().level = QStringLiteral("First");
    Apply(*node, edit);
    EXPECT_EQ(LevelOf(*node), LevelKey(1));
    EXPECT_TRUE(GroupsOf(*node).isEmpty());
}

TEST_F(NodeEdits, NamesWithApostropheAndCommaAreFound) {
    window.clsSettings().Levels().Create(QStringLiteral("O'Brien, A"), true, 0);
    window.clsSettings().Groups().Create(QStringLiteral("a, b"), true);
    NodeEdit edit;
    edit.membership = Membership{QStringLiteral("O'Brien, A"), {QStringLiteral("a, b")}};
    Apply(*node, edit);
    EXPECT_EQ(LevelOf(*node), LevelKey(4));
    EXPECT_EQ(GroupsOf(*node), GroupKey(4));
}

TEST_F(NodeEdits, ANodeWithoutAKeyGetsOneBeforeWhatHangsOnIt) {
    node->SetKey(QString());
    QString seen;
    ApplyNodeEdit(Argument(*node), EditOf(*node), [&] {
        seen = node->Key();
        EXPECT_EQ(node->Shape(), 1);
    });
    EXPECT_FALSE(seen.isEmpty());
    EXPECT_EQ(node->Key(), seen);
    Apply(*node, EditOf(*node));
    EXPECT_EQ(node->Key(), seen);
}

TEST_F(NodeEdits, AnApplyIsOneStepOfUndo) {
    node->SetKey(QStringLiteral("key"));
    other.SetSelected(true);
    const diagram::NodeData before = node->Data(), otherBefore = other.Data();
    NodeEdit edit = OtherLook();
    edit.Text = QStringLiteral("new");
    edit.membership.emplace().level = QStringLiteral("Second");
    edit.date = {true, QDate(2004, 3, 14)};
    Apply(*node, edit);
    flow.Undo();
    EXPECT_EQ(diagram::Difference(before, node->Data()), diagram::Change::None);
    EXPECT_EQ(diagram::Difference(otherBefore, other.Data()), diagram::Change::None);
    EXPECT_TRUE(timeline::DateOfNode(*node).isEmpty());
    EXPECT_FALSE(flow.CanUndo());
    flow.Redo();
    ExpectLook(other, edit);
    EXPECT_EQ(timeline::DateOfNode(*node), kDay);
}

TEST_F(NodeEdits, MarkTheMapAndCloseTheirGroupAfterAnErrorToo) {
    window.clsSettings().Dirty = false;
    EXPECT_EQ(document::testing::ErrorOf([&] {
                  ApplyNodeEdit(Argument(*node), OtherLook(), [] {
                      throw support::Error(53, QStringLiteral("Files"), QStringLiteral("File not found"));
                  });
              }).Number(),
              53);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(flow.Actions().Log()->Depth(), 0);
    ExpectLook(*node, OtherLook());
    flow.Undo();
    EXPECT_EQ(node->Shape(), 1);
}

TEST_F(NodeEdits, MarkTheMapWhateverTheyChange) {
    node->SetKey(QStringLiteral("key"));
    window.clsSettings().Dirty = false;
    Apply(*node, EditOf(*node));
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_FALSE(flow.CanUndo());
}

TEST_F(NodeEdits, ADateTakesThePlaceOfTheFormerOne) {
    NodeEdit edit = EditOf(*node);
    edit.date = {true, QDate(2004, 3, 14)};
    Apply(*node, edit);
    EXPECT_EQ(timeline::DateOfNode(*node), kDay);
    edit.date.value = QDate(2005, 1, 2);
    Apply(*node, edit);
    EXPECT_EQ(timeline::DateOfNode(*node), QStringLiteral("02 January 2005"));
    EXPECT_EQ(node->Links().Count(), 1);
}

TEST_F(NodeEdits, WithoutADateTheLinksToTheTimelineGoAndOthersStay) {
    Date(*node, kDay);
    node->Links().Add(other);
    NodeEdit edit = EditOf(*node);
    edit.date = {};
    Apply(*node, edit);
    ASSERT_EQ(node->Links().Count(), 1);
    EXPECT_EQ(&node->Links().Item(1).Destination(), &other);
}

TEST_F(NodeEdits, ADateThatCannotBeReadStays) {
    Date(*node, kDay);
    node->Links().Item(1).Destination().SetText(QStringLiteral("some day"));
    EXPECT_EQ(DayTextOf(*node), QStringLiteral("some day"));
    Apply(*node, EditOf(*node));
    EXPECT_EQ(DayTextOf(*node), QStringLiteral("some day"));
}

TEST_F(NodeEdits, OnlyTheNodeShownTakesTheDate) {
    other.SetSelected(true);
    Date(other, kDay);
    NodeEdit edit = EditOf(*node);
    edit.date = {true, QDate(2005, 1, 2)};
    Apply(*node, edit);
    EXPECT_EQ(timeline::DateOfNode(other), kDay);
}

TEST_F(NodeEdits, TheLinkToItsDayFollowsANodeThatTakesAnotherSize) {
    other.SetTop(9000); // clear of the strip
    other.SetSelected(true);
    Date(other, kDay);
    NodeEdit edit = EditOf(*node);
    edit.Picture = document::testing::OneColour(qRgb(1, 2, 3), 200);
    edit.look.autoSize = 2;
    Apply(*node, edit);
    ASSERT_EQ(other.Width(), 3000);
    const std::vector<diagram::Point> route = other.Links().Item(1).Route();
    timeline::AdjustLinks(other, true); // as after a move
    EXPECT_EQ(other.Links().Item(1).Route(), route);
}

TEST_F(NodeEdits, WithoutATimelineADateAsksForOne) {
    document::MemoryWindow bare{desktop.Get(), document::EmptyPools{}};
    diagram::Surface &surface = bare.AddFlow1()[0];
    diagram::Node &lone = surface.Nodes().Add(0, 0, 900, 600);
    NodeEdit edit = EditOf(lone);
    edit.date = {true, QDate(2004, 3, 14)};
    desktop.ExpectMessageContaining(QStringLiteral("You have not configured your timeline Ideas yet."),
                                    support::Answer::No);
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &setup) {
        EXPECT_TRUE(setup.pressOk);
        setup.TemplateNode->SetWidth(2000);
        setup.TemplateNode->SetHeight(500);
        return true;
    });
    ApplyNodeEdit({bare, surface, lone, false}, edit);
    EXPECT_EQ(timeline::DateOfNode(lone), kDay);
}

} // namespace dialogs::testing
