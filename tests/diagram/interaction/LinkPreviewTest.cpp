// While an end of a link is on its way, the line shown is the one that the link then gets, but that it is
// nudged apart from others when the hand lets go.
#include "diagram/interaction/DrawLink.h"
#include "diagram/interaction/LinkByKeys.h"
#include "diagram/interaction/MoveLinkEnd.h"

#include "diagram/edit/History.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Obstacles.h"
#include "tests/diagram/interaction/StageTest.h"

#include <random>

namespace diagram::testing {

namespace {

class LinkPreview : public ::testing::Test {
protected:
    LinkPreview() { AttachHistory(surface); }

    // A grid of nodes of uneven sizes and shapes.
    void AddNodes(unsigned seed) {
        std::mt19937 random(seed);
        const auto upTo = [&](int most) { return float(random() % unsigned(most)); };
        for (int i = 0; i < 30; ++i) {
            Node &node = surface.Nodes().Add(float(i % 6) * 3000 + upTo(900), float(i / 6) * 2400 + upTo(600),
                                             900 + upTo(900), 600 + upTo(900));
            node.SetShape(int(random() % 9));
        }
    }
    Node &Nth(int i) { return surface.Nodes().Item(i + 1); }
    static PointerInput On(const Node &node) { return {node.Bounds().center(), {}, {15, 15}, {}}; }
    static QPainterPath LineOf(const Gesture &gesture) {
        Overlay overlay;
        gesture.Show(overlay);
        return overlay.line;
    }

    // On the same sides of the same nodes, with no more bends; a route that isn't nudged is the same.
    static void ExpectNearly(const QPainterPath &shown, const QPainterPath &line, const Link &link) {
        const LinkStyleRow *row = FindLinkStyle(link.Style());
        if (!row || row->form != LinkForm::Orthogonal) {
            EXPECT_EQ(shown, line);
            return;
        }
        const auto off = [](const QPointF &a, const QPointF &b) { return (a - b).manhattanLength(); };
        EXPECT_LE(line.elementCount(), shown.elementCount());
        EXPECT_LT(off(shown.elementAt(0), line.elementAt(0)), 900);
        EXPECT_LT(off(shown.currentPosition(), line.currentPosition()), 900);
    }

    Surface surface;
    Scene scene{surface};
    TestStage stage;
};

} // namespace

TEST_F(LinkPreview, OfALinkByKeys_ShowsWhereItStartsAndWhereItEnds) {
    AddNodes(7);
    for (const LinkSide side : {LinkSide::Source, LinkSide::Destination}) {
        SCOPED_TRACE(int(side));
        const LinkByKeys gesture(scene, stage, LooseEnd(Nth(4), side), Nth(9));
        Overlay overlay;
        gesture.Show(overlay);
        ASSERT_EQ(overlay.linkEnds.size(), 2U);
        const LinkEndMark &fixed = overlay.linkEnds[0], &chosen = overlay.linkEnds[1];
        EXPECT_EQ(fixed.isSource, side == LinkSide::Destination);
        EXPECT_NE(chosen.isSource, fixed.isSource);
        EXPECT_EQ(fixed.outline, scene.NodeOutline(Nth(4)));
        EXPECT_EQ(chosen.outline, scene.NodeOutline(Nth(9)));
        EXPECT_TRUE(chosen.lit);
        EXPECT_FALSE(fixed.lit);
        EXPECT_TRUE(fixed.named && chosen.named);
        const QPointF from = overlay.line.elementAt(0), to = overlay.line.currentPosition();
        EXPECT_EQ(chosen.joint, chosen.isSource ? from : to);
        EXPECT_EQ(fixed.joint, fixed.isSource ? from : to);
    }
}

TEST_F(LinkPreview, OfALoopByKeys_NamesBothEnds) {
    AddNodes(7);
    const LinkByKeys gesture(scene, stage, LooseEnd(Nth(4), LinkSide::Destination), Nth(4));
    Overlay overlay;
    gesture.Show(overlay);
    ASSERT_EQ(overlay.linkEnds.size(), 2U);
    EXPECT_TRUE(overlay.linkEnds[0].named && overlay.linkEnds[1].named);
    EXPECT_NE(overlay.linkEnds[0].isSource, overlay.linkEnds[1].isSource);
    EXPECT_TRUE(overlay.linkEnds[0].outline.isEmpty()) << "the node is lit once";
}

TEST_F(LinkPreview, OfADraggedLink_LightsTheNodeAndWhereItWouldJoin) {
    AddNodes(7);
    DrawLink gesture(scene, stage, Nth(4), 1, On(Nth(4)));
    gesture.Move(On(Nth(9)));
    Overlay overlay;
    gesture.Show(overlay);
    ASSERT_EQ(overlay.linkEnds.size(), 2U);
    EXPECT_TRUE(overlay.linkEnds[0].outline.isEmpty());
    EXPECT_EQ(overlay.linkEnds[0].joint, overlay.line.elementAt(0));
    EXPECT_EQ(overlay.linkEnds[1].outline, scene.NodeOutline(Nth(9)));
    EXPECT_EQ(overlay.linkEnds[1].joint, overlay.line.currentPosition());
    EXPECT_TRUE(overlay.linkEnds[1].lit);
}

TEST_F(LinkPreview, OfAnEndThatIsMoved_IsTheRouteThatTheLinkGets) {
    AddNodes(7);
    for (const LinkStyleRow &row : LinkStyleTable()) {
        for (const LinkSide side : {LinkSide::Source, LinkSide::Destination}) {
            SCOPED_TRACE(row.value * 10 + int(side));
            Link &link = Nth(3).Links().Add(Nth(20));
            Nth(14).Links().Add(Nth(20));
            link.SetStyle(row.value);
            for (const int to : {14, 29, 6, 20, 3}) {
                MoveLinkEnd gesture(scene, stage, link, side);
                gesture.Move(On(Nth(to)));
                const QPainterPath shown = LineOf(gesture);
                gesture.Commit(On(Nth(to)));
                ExpectNearly(shown, scene.LinkPath(link), link);
            }
        }
    }
}

TEST_F(LinkPreview, OfANewLink_IsTheRouteThatItGets) {
    AddNodes(11);
    Nth(4).Links().Add(Nth(21));
    Nth(21).Links().Add(Nth(4));
    for (const LinkSide side : {LinkSide::Source, LinkSide::Destination}) {
        for (const int to : {21, 4, 9}) {
            LinkByKeys gesture(scene, stage, LooseEnd(Nth(4), side), Nth(to));
            const QPainterPath shown = LineOf(gesture);
            gesture.Commit({});
            EXPECT_EQ(shown, scene.LinkPath(*surface.Links().back())) << to;
            EXPECT_EQ(&surface.Links().back()->Source(), side == LinkSide::Source ? &Nth(to) : &Nth(4));
        }
    }
}

TEST_F(LinkPreview, OfANewLinkInTheBestStyle_IsTheRouteThatItGets) {
    AddNodes(11);
    scene.SetStyleToDraw(kAutomaticStyle);
    for (const int to : {21, 9, 16}) {
        LinkByKeys gesture(scene, stage, LooseEnd(Nth(4), LinkSide::Destination), Nth(to));
        const QPainterPath shown = LineOf(gesture);
        gesture.Commit({});
        const Link &link = *surface.Links().back();
        ExpectNearly(shown, scene.LinkPath(link), link);
        EXPECT_EQ(FindLinkStyle(link.Style())->form, LinkForm::Orthogonal);
        EXPECT_EQ(link.Style(), StyleFor(link, kAutomaticStyle));
    }
}

TEST_F(LinkPreview, ALinkThatIsThereKeepsItsStyle) {
    AddNodes(11);
    scene.SetStyleToDraw(kAutomaticStyle);
    Link &link = Nth(4).Links().Add(Nth(21));
    LinkByKeys gesture(scene, stage, LooseEnd(link, LinkSide::Destination), Nth(9));
    gesture.Commit({});
    EXPECT_EQ(&link.Destination(), &Nth(9));
    EXPECT_EQ(link.Style(), 0);
}

TEST_F(LinkPreview, GoesRoundWhatLiesInBetween) {
    constexpr int kHvh = 5;
    Node &a = surface.Nodes().Add(0, 3000, 1500, 900);
    Node &b = surface.Nodes().Add(9000, 0, 1500, 900);
    Node &c = surface.Nodes().Add(9000, 6000, 1500, 900);
    Node &between = surface.Nodes().Add(4500, 3900, 1500, 3000);
    Link &link = a.Links().Add(b);
    link.SetStyle(kHvh);
    MoveLinkEnd gesture(scene, stage, link, LinkSide::Destination);
    gesture.Move(On(c));
    const QPolygonF line = LineOf(gesture).toSubpathPolygons().value(0);
    ASSERT_EQ(line.size(), 4);
    for (int i = 1; i < line.size(); ++i) EXPECT_FALSE(Meets(between.Bounds(), line[i - 1], line[i])) << i;
    EXPECT_GT(line[1].x(), between.Bounds().right()) << "the route in the middle is blocked";
}

TEST_F(LinkPreview, OverEmptySurface_EndsAtThePointerInTheStyleOfTheLink) {
    constexpr int kHvh = 5;
    Node &a = surface.Nodes().Add(0, 0, 1500, 900);
    Node &b = surface.Nodes().Add(9000, 0, 1500, 900);
    Link &link = a.Links().Add(b);
    link.SetStyle(kHvh);
    for (const LinkSide side : {LinkSide::Source, LinkSide::Destination}) {
        MoveLinkEnd gesture(scene, stage, link, side);
        gesture.Move({QPointF(5000, 5000), {}, {15, 15}, {}});
        const QPolygonF line = LineOf(gesture).toSubpathPolygons().value(0);
        ASSERT_EQ(line.size(), 4);
        const QPointF end = side == LinkSide::Source ? line.front() : line.back();
        EXPECT_LT((end - QPointF(5000, 5000)).manhattanLength(), 2);
        for (int i = 1; i < 4; ++i)
            EXPECT_EQ(i % 2 ? line[i].y() : line[i].x(), i % 2 ? line[i - 1].y() : line[i - 1].x());
        gesture.Cancel();
    }
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(LinkPreview, KeepsTheBendsThatTheUserMade) {
    Node &a = surface.Nodes().Add(0, 0, 1500, 900);
    Node &b = surface.Nodes().Add(9000, 0, 1500, 900);
    Node &c = surface.Nodes().Add(9000, 6000, 1500, 900);
    Link &link = a.Links().Add(b);
    link.Points().Insert(1, {3000, 4000});
    MoveLinkEnd gesture(scene, stage, link, LinkSide::Destination);
    gesture.Move(On(c));
    const QPainterPath shown = LineOf(gesture);
    ASSERT_EQ(shown.elementCount(), 3);
    EXPECT_EQ(QPointF(shown.elementAt(1)), QPointF(3000, 4000));
    gesture.Commit(On(c));
    EXPECT_EQ(shown, scene.LinkPath(link));
}

} // namespace diagram::testing
