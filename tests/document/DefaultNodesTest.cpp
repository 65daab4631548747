#include "document/DefaultNodes.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "tests/document/MapTest.h"

#include <QFile>

using namespace document;
using namespace document::testing;

namespace {
const QString kTimelineText = QStringLiteral("TIMELINE TEMPLATE NODE");
}

class DefaultNodesTest : public MapTest {
protected:
    // Writes a default node file; the node has the shape.
    void WriteDefault(const QString &file, const QString &text, int shape) {
        diagram::Surface defaults;
        AddHiddenNode(defaults, text).SetShape(shape);
        diagram::SaveFile(defaults, ProgramFile(file));
    }
    diagram::Surface surface;
};

TEST_F(DefaultNodesTest, LocateTemplateNode_TwiceGivesTheSameNode) {
    EXPECT_EQ(LocateTemplateNode(surface, false), nullptr);
    EXPECT_EQ(surface.Nodes().Count(), 0);
    diagram::Node *node = LocateTemplateNode(surface, true);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(LocateTemplateNode(surface, true), node);
    CreateTemplateNode(surface);
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_TRUE(node->Hidden());
    EXPECT_FALSE(node->Selectable());
    EXPECT_EQ(node->Width(), 0);
    EXPECT_EQ(node->Text(), "TEMPLATE NODE");
}

TEST_F(DefaultNodesTest, AUsersNodeWithThatTextIsNotTheDefaultNode) {
    diagram::Node &users = surface.Nodes().Add(0, 0, 100, 100);
    users.SetText(kTemplateNodeText);
    EXPECT_EQ(LocateTemplateNode(surface, false), nullptr);
    EXPECT_NE(LocateTemplateNode(surface, true), &users);
}

TEST_F(DefaultNodesTest, ApplyDefaults_WithoutADefaultNodeChangesNothing) {
    const int shape = surface.Defaults().shape;
    ApplyDefaults(surface);
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_EQ(surface.Defaults().shape, shape);
}

TEST_F(DefaultNodesTest, ApplyDefaults_GivesNewNodesTheWholeLookOfTheDefaultNode) {
    diagram::Node &node = *LocateTemplateNode(surface, true);
    node.SetShape(52);
    node.SetShapeOrientation(1);
    node.SetShadow(2);
    node.SetDrawStyle(3);
    node.SetBorderColor(0x010203);
    node.SetFillColor(0x040506);
    node.SetFont(diagram::Font(QStringLiteral("Courier"), 17, true));
    node.SetForeColor(0x070809);
    node.SetAlignment(4);
    node.SetAutoSize(1);
    node.SetDrawWidth(5);
    node.SetPicturePos(6);
    ApplyDefaults(surface);
    const diagram::Node &fresh = surface.Nodes().Add(10, 10, 300, 200);
    EXPECT_EQ(fresh.Shape(), 52);
    EXPECT_EQ(fresh.ShapeOrientation(), 1);
    EXPECT_EQ(fresh.Shadow(), 2);
    EXPECT_EQ(fresh.DrawStyle(), 3);
    EXPECT_EQ(fresh.BorderColor(), 0x010203);
    EXPECT_EQ(fresh.FillColor(), 0x040506);
    EXPECT_EQ(fresh.Font(), diagram::Font(QStringLiteral("Courier"), 17, true));
    EXPECT_EQ(fresh.ForeColor(), 0x070809);
    EXPECT_EQ(fresh.Alignment(), 4);
    EXPECT_EQ(fresh.AutoSize(), 1);
    EXPECT_EQ(fresh.DrawWidth(), 5);
    EXPECT_EQ(fresh.PicturePos(), 6);
    EXPECT_EQ(fresh.Width(), 300);
    EXPECT_FALSE(fresh.Hidden());
}

TEST_F(DefaultNodesTest, LoadDefaults_WithoutFilesOnlySetsTheGrid) {
    surface.Nodes().Add(0, 0, 10, 10);
    surface.Screen().SetGridStyle(0);
    surface.Screen().SetGridColor(0);
    LoadDefaults(surface);
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(surface.Screen().GridStyle(), 2);
    EXPECT_EQ(surface.Screen().GridColor(), 0xE0E0E0);
}

TEST_F(DefaultNodesTest, LoadDefaults_LoadsTheTimelineFileAloneWithoutApplyingIt) {
    WriteDefault(QStringLiteral("Template.tnd"), kTimelineText, 60);
    LoadDefaults(surface);
    EXPECT_NE(FindHiddenNode(surface, kTimelineText), nullptr);
    EXPECT_NE(surface.Defaults().shape, 60);
}

TEST_F(DefaultNodesTest, LoadDefaults_LoadsBothFilesAndAppliesTheDefaultNode) {
    WriteDefault(QStringLiteral("Template.tnd"), kTimelineText, 60);
    WriteDefault(QStringLiteral("Template.nd"), kTemplateNodeText, 61);
    LoadDefaults(surface);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    const diagram::Node *timeline = FindHiddenNode(surface, kTimelineText);
    ASSERT_NE(timeline, nullptr);
    EXPECT_EQ(timeline->Shape(), 60);
    EXPECT_FALSE(timeline->Selectable());
    EXPECT_EQ(surface.Defaults().shape, 61);
}

TEST_F(DefaultNodesTest, LoadDefaults_TwiceGivesEachNodeOnce) {
    WriteDefault(QStringLiteral("Template.tnd"), kTimelineText, 60);
    WriteDefault(QStringLiteral("Template.nd"), kTemplateNodeText, 61);
    LoadDefaults(surface);
    LoadDefaults(surface);
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(DefaultNodesTest, LoadDefaults_KeepsATimelineNodeThatTheSecondFileHasItself) {
    WriteDefault(QStringLiteral("Template.tnd"), kTimelineText, 60);
    WriteDefault(QStringLiteral("Template.nd"), kTimelineText, 61);
    LoadDefaults(surface);
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(surface.Nodes().Item(1).Shape(), 61);
}

TEST_F(DefaultNodesTest, LoadDefaults_TellsABrokenFileOnceAndGoesOnWithTheOther) {
    const QString broken[] = {QStringLiteral("Template.nd"), QStringLiteral("Template.tnd")};
    for (const QString &name : broken) {
        WriteDefault(QStringLiteral("Template.tnd"), kTimelineText, 60);
        WriteDefault(QStringLiteral("Template.nd"), kTemplateNodeText, 61);
        ASSERT_TRUE(QFile::resize(ProgramFile(name), 20));
        desktop.ExpectMessageContaining(name);
        diagram::Surface fresh, another;
        LoadDefaults(fresh);
        LoadDefaults(another);
        for (diagram::Surface *each : {&fresh, &another}) {
            ASSERT_EQ(each->Nodes().Count(), 1);
            EXPECT_EQ(each->Nodes().Item(1).Shape(), name == broken[0] ? 60 : 61);
        }
        EXPECT_EQ(fresh.Defaults().shape == 61, name == broken[1]);
    }
}
