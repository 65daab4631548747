#include "diagram/interaction/Selecting.h"

#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"

#include <gtest/gtest.h>

namespace diagram::testing {

namespace {

QString Keys(const std::vector<Node *> &nodes) {
    QString keys;
    for (const Node *node : nodes) keys += node->Key();
    return keys;
}

Node &Add(Surface &surface, const char *key, float left, float top, float width = 100, float height = 100) {
    Node &node = surface.Nodes().Add(left, top, width, height);
    node.SetKey(QString::fromLatin1(key));
    return node;
}

class CountingEvents : public SurfaceEvents {
public:
    void AfterSelect(Surface &) override { ++selects; }
    int selects = 0;
};

} // namespace

TEST(ReadingOrder, GoesLineByLine) {
    Surface surface;
    Add(surface, "d", 0, 300);
    Add(surface, "c", 400, 0);
    Add(surface, "b", 200, 40);
    Add(surface, "a", 0, 20);
    Add(surface, "e", 300, 310);
    EXPECT_EQ(Keys(ReadingOrder(surface)), QStringLiteral("abcde"));
}

TEST(ReadingOrder, NodeAroundOthers_ComesFirstAndTheOthersLineByLine) {
    Surface surface;
    Add(surface, "e", 100, 600);
    Add(surface, "d", 500, 350);
    Add(surface, "c", 600, 110);
    Add(surface, "b", 100, 100);
    Add(surface, "a", 0, 0, 1000, 1000);
    EXPECT_EQ(Keys(ReadingOrder(surface)), QStringLiteral("abcde"));
}

TEST(ReadingOrder, PassesOverHiddenAndUnselectableNodes) {
    Surface surface;
    Add(surface, "a", 0, 0).SetHidden(true);
    Add(surface, "b", 100, 0).SetSelectable(false);
    Add(surface, "c", 200, 0);
    EXPECT_EQ(Keys(ReadingOrder(surface)), QStringLiteral("c"));
}

TEST(NextInReadingOrder, StartsAtTheEndsAndStopsThere) {
    Surface surface;
    Node &a = Add(surface, "a", 0, 0);
    Node &b = Add(surface, "b", 200, 0);
    EXPECT_EQ(NextInReadingOrder(surface, surface.SelectedNode(), 1), &a);
    EXPECT_EQ(NextInReadingOrder(surface, surface.SelectedNode(), -1), &b);
    b.SetSelected(true);
    EXPECT_EQ(NextInReadingOrder(surface, surface.SelectedNode(), 1), nullptr);
    EXPECT_EQ(NextInReadingOrder(surface, surface.SelectedNode(), -1), &a);
}

TEST(LiesInside, CountsOnlyWhatLiesWholeInside) {
    Surface surface;
    Node &a = Add(surface, "a", 100, 100);
    Node &b = Add(surface, "b", 400, 100);
    Node &c = Add(surface, "c", 950, 100);
    Link &inside = a.Links().Add(b);
    Link &across = b.Links().Add(c);
    const QRectF area(0, 0, 1000, 1000);
    EXPECT_TRUE(LiesInside(a, area) && LiesInside(b, area) && LiesInside(inside, area));
    EXPECT_FALSE(LiesInside(c, area));
    EXPECT_EQ(LiesInside(across, area), area.contains(ToQPointF(across.Route().back())));
}

TEST(ChangeSelection, RaisesAfterSelectOnlyForADifference) {
    Surface surface;
    CountingEvents events;
    surface.SetEvents(&events);
    Node &a = Add(surface, "a", 0, 0);
    SelectOnly(a);
    SelectOnly(a);
    SelectToo(a);
    EXPECT_EQ(events.selects, 1);
    SelectNothing(surface);
    SelectNothing(surface);
    EXPECT_EQ(events.selects, 2);
}

} // namespace diagram::testing
