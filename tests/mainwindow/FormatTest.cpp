#include "mainwindow/commands/FormatCommands.h"

#include "diagram/shapes/Shapes.h"
#include "mainwindow/controls/ShapeMenu.h"
#include "mainwindow/edits/TextAlignment.h"
#include "support/OtherDoor.h"
#include "tests/mainwindow/FailingBoxes.h"
#include "tests/mainwindow/WindowTest.h"

namespace mainwindow::testing {

using Format = WindowTest;

TEST(AlignmentInFamily, ChangesTheFamilyAndKeepsThePlaceInIt) {
    for (int alignment = 0; alignment <= 8; ++alignment)
        for (const int base : {0, 3, 6}) EXPECT_EQ(AlignmentInFamily(alignment, base), base + alignment % 3);
    EXPECT_EQ(AlignmentInFamily(9, 3), 9);
    EXPECT_EQ(AlignmentInFamily(-1, 3), -1);
}

TEST(ShapeEntries, HoldAllShapesWithTheirCaptions) {
    const std::vector<ShapeEntry> entries = ShapeEntries();
    ASSERT_EQ(entries.size(), 44u);
    EXPECT_EQ(entries.front().tag, 0);
    EXPECT_EQ(entries.front().caption, QStringLiteral("Ellipse"));
    EXPECT_EQ(entries.back().tag, 77);
    for (const ShapeEntry &entry : entries)
        if (entry.tag == 65) {
            EXPECT_EQ(entry.caption, QStringLiteral("Punched Tape"));
        }
}

TEST_F(Format, FontButtonsFlipEachItemByItself) {
    frmMain &window = NewWindow();
    diagram::Node &bold = AddNode(window, 0, 0);
    diagram::Node &plain = AddNode(window, 3000, 0);
    diagram::Link &link = bold.Links().Add(plain);
    bold.SetFont(diagram::Font(QStringLiteral("Arial"), 10, true));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSelectAll"));
    window.tlbFormat_ButtonClick(QStringLiteral("BOLD"));
    EXPECT_FALSE(bold.Font().Bold());
    EXPECT_TRUE(plain.Font().Bold());
    EXPECT_TRUE(link.Font().Bold());
    window.tlbFormat_ButtonClick(QStringLiteral("ITALIC"));
    window.tlbFormat_ButtonClick(QStringLiteral("ULINE"));
    EXPECT_TRUE(plain.Font().Italic());
    EXPECT_TRUE(plain.Font().Underline());
}

// Alignments are families of three, top, middle and bottom: left has the values from 0 on, right those from
// 3, center those from 6. The buttons change the family and keep the place in it.
TEST_F(Format, LeftCenterAndRightChangeTheFamilyOfEverySelectedNode) {
    frmMain &window = NewWindow();
    std::vector<diagram::Node *> nodes;
    for (int alignment = 0; alignment <= 8; ++alignment) {
        nodes.push_back(&AddNode(window, float(alignment) * 2000, 0));
        nodes.back()->SetSelected(true);
    }
    diagram::Node &other = AddNode(window, 0, 3000);
    other.SetAlignment(4);
    for (const auto &[key, base] : {std::pair{"LEFT", 0}, {"CENTER", 6}, {"RIGHT", 3}}) {
        for (int alignment = 0; alignment <= 8; ++alignment)
            nodes[std::size_t(alignment)]->SetAlignment(alignment);
        window.tlbFormat_ButtonClick(QLatin1String(key));
        for (int alignment = 0; alignment <= 8; ++alignment)
            EXPECT_EQ(nodes[std::size_t(alignment)]->Alignment(), base + alignment % 3) << key << alignment;
        EXPECT_EQ(other.Alignment(), 4);
    }
    window.CurrentSurface().Undo();
    EXPECT_EQ(nodes[7]->Alignment(), 7);
}

TEST_F(Format, AlignmentOfLinksChangesNothing) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 0, 0);
    node.Links().Add(AddNode(window, 3000, 0)).SetSelected(true);
    const int before = node.Alignment();
    window.tlbFormat_ButtonClick(QStringLiteral("LEFT"));
    EXPECT_EQ(node.Alignment(), before);
}

TEST_F(Format, FrontAndBackRestack) {
    frmMain &window = NewWindow();
    diagram::Node &low = AddNode(window, 0, 0);
    diagram::Node &high = AddNode(window, 100, 100);
    low.SetSelected(true);
    window.tlbFormat_ButtonClick(QStringLiteral("FRONT"));
    EXPECT_GT(low.ZOrder(), high.ZOrder());
    window.tlbFormat_ButtonClick(QStringLiteral("BACK"));
    EXPECT_LT(low.ZOrder(), high.ZOrder());
}

TEST_F(Format, NewAddsASelectedElementInOneStep) {
    frmMain &window = NewWindow();
    AddNode(window, 5000, 5000).SetSelected(true);
    window.tlbFormat_ButtonMenuClick(8);
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    const diagram::Node &node = window.CurrentSurface().Nodes().Item(2);
    EXPECT_EQ(node.Shape(), 8);
    EXPECT_EQ(node.Bounds(), QRectF(0, 0, 1300, 1300));
    EXPECT_EQ(node.FillColor(), 0x222222);
    EXPECT_EQ(window.CurrentSurface().SelectedNodes(),
              std::vector<diagram::Node *>{const_cast<diagram::Node *>(&node)});
    window.CurrentSurface().Undo();
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    window.tlbFormat_ButtonClick(QStringLiteral("NEW"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(2).Shape(), 0);
}

TEST_F(Format, AnErrorOfAButtonLeavesNoGroupOpen) {
    FailingBoxes boxes;
    support::Desktop failing = support::WithDoor(desktop.Get(), boxes);
    frmMain window(failing);
    desktop.ExpectMessageContaining(QStringLiteral("No box"));
    window.tlbFormat_ButtonClick(QStringLiteral("NOTHING"));
    for (int i = 0; i < 2; ++i) window.tlbFormat_ButtonClick(QStringLiteral("NEW"));
    window.CurrentSurface().Undo();
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Format, AnUnknownButtonIsTold) {
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("Unknow Key NOTHING"));
    window.tlbFormat_ButtonClick(QStringLiteral("NOTHING"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

} // namespace mainwindow::testing
