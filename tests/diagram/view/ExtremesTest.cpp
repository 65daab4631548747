// Nodes of no size, turned ones and ones at the ends of the range of floats: the hand can still do
// everything.
#include "diagram/hit/Grips.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <cmath>
#include <limits>

namespace diagram::testing {

class Extremes : public ViewTest {
protected:
    void ExpectFinite() const {
        for (const Node &node : surface.Nodes())
            for (const float value : {node.Left(), node.Top(), node.Width(), node.Height()})
                EXPECT_TRUE(std::isfinite(value));
        for (const auto &link : surface.Links())
            for (const Point &point : link->Route())
                EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
};

TEST_F(Extremes, NodeWithoutSize_IsPickedMovedAndResized) {
    Node &node = AddNode("none", 200, 200, 0, 0);
    Settle();
    const QPoint at = At(node.Bounds().center());
    Click(at);
    ASSERT_TRUE(node.Selected());
    Drag(at, at + QPoint(50, 40), Qt::AltModifier);
    EXPECT_EQ(QPointF(node.Left(), node.Top()), QPointF(250 * 15, 240 * 15));
    const QPoint corner = At(HandlePlaces(node.Bounds(), 150)[4]);
    Drag(corner, corner + QPoint(80, 60), Qt::AltModifier);
    EXPECT_EQ(node.Bounds().size(), QSizeF(80 * 15, 60 * 15));
    ExpectFinite();
}

TEST_F(Extremes, TurnedShapes_AreResizedByTheirBox) {
    for (int turn = 0; turn < 4; ++turn) {
        Node &node = AddNode("", 100, 100, 100, 60);
        node.SetShape(13);
        node.SetShapeOrientation(turn);
        node.SetSelected(true);
        Settle();
        Drag(Handle(node, 4), Handle(node, 4) + QPoint(30, 20), Qt::AltModifier);
        EXPECT_EQ(node.Bounds(), QRectF(1500, 1500, 130 * 15, 80 * 15)) << turn;
        surface.Remove(node);
    }
}

TEST_F(Extremes, EndsOfTheRange_StayFinite) {
    constexpr float kMost = kLargestCoordinate;
    Node &far = surface.Nodes().Add(kMost, kMost, 1500, 900);
    Node &wide = surface.Nodes().Add(0, 0, kMost, kMost);
    Node &tiny = surface.Nodes().Add(3000, 3000, std::numeric_limits<float>::denorm_min(), 1500);
    wide.SendToBack();
    AddLink(far, tiny);
    AddLink(wide, tiny);
    surface.Screen().SetSnapToGrid(true);
    Settle();
    EXPECT_FALSE(Seen().isNull());
    Click(QPoint(300, 300));
    EXPECT_TRUE(wide.Selected());
    Drag(QPoint(300, 300), QPoint(340, 350));
    Drag(At(HandlePlaces(wide.Bounds(), 150)[0]), QPoint(60, 60));
    far.SetSelected(true);
    Settle();
    Drag(QPoint(300, 300), QPoint(250, 260), Qt::ControlModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Drag(QPoint(500, 200), QPoint(560, 260));
    Drag(QPoint(500, 200), QPoint(560, 260), Qt::ShiftModifier);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Insert);
    for (const int angle : {-1200, 2400, -600}) Wheel(QPoint(400, 300), angle, Qt::ControlModifier);
    surface.SetxZoom(0);
    Settle();
    EXPECT_FALSE(Seen().isNull());
    ExpectFinite();
    while (surface.CanUndo()) surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(far.Left(), kMost);
}

} // namespace diagram::testing
