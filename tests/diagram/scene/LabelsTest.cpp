// Where the labels of links stand among everything else.
#include "diagram/edit/History.h"
#include "diagram/geometry/Crossing.h"
#include "diagram/model/Routing.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "tests/diagram/model/RandomSurface.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

class HundredTwipsALetter : public TextMeasure {
public:
    QSizeF Measure(const QString &text, const Font &, double) override {
        return {100.0 * double(text.size()), 220};
    }
};

// Nodes while they are dragged.
class Dragged {
public:
    Dragged(Surface &surface, std::vector<Node *> nodes) : trial_(surface, {}, {}), nodes_(std::move(nodes)) {
        for (const Node *node : nodes_) from_.push_back(node->Bounds().topLeft());
    }
    void MoveBy(const QPointF &way) const {
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            nodes_[i]->SetLeft(float(from_[i].x() + way.x()));
            nodes_[i]->SetTop(float(from_[i].y() + way.y()));
        }
    }

private:
    RouteTrial trial_;
    std::vector<Node *> nodes_;
    std::vector<QPointF> from_;
};

struct Labelled {
    HundredTwipsALetter measure;
    Surface surface;
    Scene scene{surface};
    Labelled() { surface.SetMeasure(&measure); }
    ~Labelled() { surface.SetMeasure(nullptr); }
    Node &Box(float left, float top, float width = 1000, float height = 600) {
        return surface.Nodes().Add(left, top, width, height);
    }
    Link &Join(Node &from, Node &to, const char *text, int style = 0) {
        Link &link = from.Links().Add(to);
        link.SetStyle(style);
        link.SetText(QString::fromUtf8(text));
        return link;
    }
    QRectF Label(const Link &link) { return scene.LabelBounds(link); }
};

std::map<ItemId, QRectF> AllLabels(Scene &scene) {
    std::map<ItemId, QRectF> labels;
    for (const auto &link : scene.Model().Links()) labels[link->Id()] = scene.LabelBounds(*link);
    return labels;
}

// A grid of nodes with labelled links of all styles to near ones.
void Fill(Labelled &map, Dice &dice, int columns, int rows) {
    std::vector<Node *> nodes;
    for (int i = 0; i < columns * rows; ++i)
        nodes.push_back(&map.Box(float(i % columns) * 3400 + dice.Real(0, 500),
                                 float(i / columns) * 2400 + dice.Real(0, 400)));
    for (int i = 0; i < columns * rows; ++i) {
        const int to = std::clamp(i + dice.Roll(-1, 1) + columns * dice.Roll(-1, 1), 0, columns * rows - 1);
        if (to != i)
            map.Join(*nodes[std::size_t(i)], *nodes[std::size_t(to)], dice.Flip() ? "yes" : "approved",
                     dice.Roll(0, 14));
    }
}

void ChangeSomething(Surface &surface, Dice &dice) {
    Node &node = AnyNode(surface, dice);
    Link &link = AnyLink(surface, dice);
    switch (dice.Roll(0, 8)) {
    case 0:
        node.SetHidden(!node.Hidden());
        break;
    case 1:
        link.SetText(dice.Text());
        break;
    case 2:
        link.SetStyle(dice.Roll(0, 14));
        break;
    case 3:
        link.SetHidden(!link.Hidden());
        break;
    case 4:
        link.BringToFront();
        break;
    case 5:
        link.SendToBack();
        break;
    case 6:
        surface.Remove(link);
        break;
    default:
        node.SetLeft(node.Left() + dice.Real(-2500, 2500));
        break;
    }
}

} // namespace

TEST(Labels, OfTwoLinksThatCrossDontLieOnEachOther) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(6000, 6000), &c = map.Box(6000, 0), &d = map.Box(0, 6000);
    Link &one = map.Join(a, b, "falling"), &two = map.Join(c, d, "rising");
    EXPECT_FALSE(map.Label(one).intersects(map.Label(two)));
}

TEST(Labels, OfParallelLinksDontLieOnEachOther) {
    Labelled map;
    Node &a = map.Box(0, 0, 2000), &b = map.Box(0, 6000, 2000);
    Link &one = map.Join(a, b, "out"), &two = map.Join(b, a, "back");
    EXPECT_FALSE(map.Label(one).intersects(map.Label(two)));
    for (const Link *link : {&one, &two}) {
        const Link &other = link == &one ? two : one;
        EXPECT_FALSE(RunsThrough(map.Label(*link), ToQPointF(other.Route()[0]), ToQPointF(other.Route()[1])));
    }
}

TEST(Labels, MakeRoomForANodeThatComesAndComeBackWhenItGoes) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(9000, 0);
    Link &link = map.Join(a, b, "label", 1);
    const QRectF before = map.Label(link);
    Node &block = map.Box(4700, -200, 600, 900);
    EXPECT_FALSE(map.Label(link).intersects(block.Bounds()));
    EXPECT_TRUE(map.scene.Bounds(link).contains(map.Label(link)));
    block.SetHidden(true);
    EXPECT_EQ(map.Label(link), before);
    block.SetHidden(false);
    EXPECT_NE(map.Label(link), before);
    block.SetLeft(20000);
    EXPECT_EQ(map.Label(link), before);
}

TEST(Labels, MakeRoomForAnotherLabelThatComesAndComeBackWhenItGoes) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(6000, 6000), &c = map.Box(6000, 0), &d = map.Box(0, 6000);
    Link &under = map.Join(a, b, ""), &over = map.Join(c, d, "upper", 1);
    const QRectF alone = map.Label(over);
    under.SetText(QStringLiteral("lower"));
    EXPECT_FALSE(map.Label(under).intersects(map.Label(over)));
    under.SetText({});
    EXPECT_EQ(map.Label(over), alone);
}

TEST(Labels, AFrameAroundAnEndIsNoObstacle) {
    Labelled map;
    Node &frame = map.Box(-1000, -1000, 12000, 4000);
    frame.SendToBack();
    Link &link = map.Join(map.Box(0, 0), map.Box(9000, 0), "label");
    EXPECT_EQ(map.Label(link).center(), QPointF(5000, 300));
}

TEST(Labels, AreDamagedWhereTheyStoodAndStand) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(9000, 0), &block = map.Box(4700, 5000, 600, 900);
    Link &link = map.Join(a, b, "label", 1);
    const QRectF before = map.Label(link);
    map.scene.TakeDamage();
    block.SetTop(-200);
    const Scene::Damage damage = map.scene.TakeDamage();
    const auto covers = [&](const QRectF &box) {
        return damage.everything ||
               std::ranges::any_of(damage.areas, [&](const QRectF &area) { return area.contains(box); });
    };
    EXPECT_TRUE(covers(before));
    EXPECT_TRUE(covers(map.Label(link)));
}

TEST(Labels, AnswerForATextThatIsntThereYet) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(9000, 0);
    const Link &link = map.Join(a, b, "");
    EXPECT_TRUE(map.Label(link).isEmpty());
    EXPECT_EQ(map.scene.LabelPlace(link, {900, 300}).center(), QPointF(5000, 300));
}

TEST(Labels, FarFromWhatMovesStay) {
    Dice dice(5);
    Labelled map;
    Fill(map, dice, 10, 10);
    const auto before = AllLabels(map.scene);
    Node &node = map.surface.Nodes().Item(1);
    node.SetLeft(node.Left() + 300);
    const auto after = AllLabels(map.scene);
    int changed = 0;
    for (const auto &[id, box] : before) changed += after.at(id) != box;
    EXPECT_LE(changed, 12);
}

TEST(Labels, StayWhileANodeIsDraggedOverThemAndGiveWayWhenItIsLetGo) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(9000, 0), &block = map.Box(4700, 5000, 600, 900);
    Node &c = map.Box(0, 5000);
    const Link &link = map.Join(a, b, "label", 1);
    const Link &own = map.Join(block, c, "own", 1);
    const QRectF before = map.Label(link), ownBefore = map.Label(own);
    {
        const Dragged dragged(map.surface, {&block});
        dragged.MoveBy(QPointF(0, -5200));
        EXPECT_EQ(map.Label(link), before);
        EXPECT_NE(map.Label(own), ownBefore);
    }
    EXPECT_FALSE(map.Label(link).intersects(block.Bounds()));
}

TEST(Labels, GoAlongWithLinksThatAreMovedAsAWhole) {
    Labelled map;
    Node &a = map.Box(0, 0), &b = map.Box(9000, 0), &block = map.Box(4700, -200, 600, 900);
    const Link &link = map.Join(a, b, "label", 1);
    const QRectF before = map.Label(link);
    {
        const Dragged dragged(map.surface, {&a, &b});
        dragged.MoveBy(QPointF(150, 6000));
        EXPECT_EQ(map.Label(link), before.translated(150, 6000)) << "not yet in the middle";
    }
    EXPECT_EQ(map.Label(link).center(), QPointF(5150, 6300));
    EXPECT_FALSE(map.Label(link).intersects(block.Bounds()));
}

// More than are worth being looked at one by one.
TEST(Labels, OfAWholeMapThatIsDraggedGoAlongAndFollowInTheEndFromWhatStandsThere) {
    Dice dice(4);
    Labelled map;
    Fill(map, dice, 14, 12);
    Node &fixed = map.Box(60000, 0);
    const auto before = AllLabels(map.scene);
    {
        std::vector<Node *> nodes;
        for (Node &node : map.surface.Nodes())
            if (&node != &fixed) nodes.push_back(&node);
        const Dragged dragged(map.surface, nodes);
        for (const QPointF &way : {QPointF(300, 150), QPointF(600, -75)}) {
            dragged.MoveBy(way);
            int elsewhere = 0;
            for (const auto &[id, box] : AllLabels(map.scene)) {
                const QPointF off = box.center() - before.at(id).center() - way;
                elsewhere += off.manhattanLength() > 2;
            }
            EXPECT_LE(elsewhere, int(before.size()) / 10) << "only links that are routed otherwise there";
        }
        nodes.front()->SetText(QStringLiteral("changed"));
        map.surface.Links().front()->SetText(QStringLiteral("another"));
        AllLabels(map.scene);
    }
    Scene fresh(map.surface);
    EXPECT_EQ(AllLabels(map.scene), AllLabels(fresh));
}

class LabelledMap : public ::testing::TestWithParam<unsigned> {};

// Whatever has been done, a scene that is built anew has the labels in the same places.
TEST_P(LabelledMap, LabelsFollowFromWhatStandsThere) {
    Dice dice(GetParam());
    Labelled map;
    AttachHistory(map.surface);
    Fill(map, dice, 8, 5);
    for (int step = 0; step < 40; ++step) {
        ChangeSomething(map.surface, dice);
        Scene fresh(map.surface);
        ASSERT_EQ(AllLabels(map.scene), AllLabels(fresh)) << "step " << step;
    }
}

// However nodes have been dragged, the labels stand in the end as if nothing had been.
TEST_P(LabelledMap, LabelsAfterADragFollowFromWhatStandsThere) {
    Dice dice(GetParam());
    Labelled map;
    AttachHistory(map.surface);
    Fill(map, dice, 8, 5);
    AllLabels(map.scene);
    for (int drag = 0; drag < 8; ++drag) {
        {
            const Dragged dragged(map.surface, {&AnyNode(map.surface, dice), &AnyNode(map.surface, dice)});
            for (int step = 0; step < 5; ++step) {
                dragged.MoveBy(QPointF(dice.Real(-2500, 2500), dice.Real(-2500, 2500)));
                AllLabels(map.scene);
            }
            if (drag % 3 == 0) dragged.MoveBy({});
        }
        Scene fresh(map.surface);
        ASSERT_EQ(AllLabels(map.scene), AllLabels(fresh)) << "drag " << drag;
    }
}

// The same of a long drag in which other things change as well.
TEST_P(LabelledMap, LabelsAfterADragWithChangesFollowFromWhatStandsThere) {
    Dice dice(GetParam() + 100);
    Labelled map;
    AttachHistory(map.surface);
    Fill(map, dice, 8, 5);
    AllLabels(map.scene);
    for (int drag = 0; drag < 4; ++drag) {
        {
            const Dragged dragged(map.surface, {&AnyNode(map.surface, dice)});
            for (int step = 0; step < 20; ++step) {
                dragged.MoveBy(QPointF(dice.Real(-6000, 6000), dice.Real(-6000, 6000)));
                if (dice.Roll(0, 3) == 0) ChangeSomething(map.surface, dice);
                AllLabels(map.scene);
            }
            if (dice.Flip()) dragged.MoveBy({});
        }
        Scene fresh(map.surface);
        ASSERT_EQ(AllLabels(map.scene), AllLabels(fresh)) << "drag " << drag;
    }
}

// Two labels lie on one another only where neither has another place.
TEST_P(LabelledMap, LabelsCoverNeitherNodesNorEachOther) {
    Dice dice(GetParam());
    Labelled map;
    Fill(map, dice, 8, 5);
    for (const auto &link : map.surface.Links()) {
        const QRectF box = map.Label(*link);
        for (const Node &node : map.surface.Nodes())
            EXPECT_FALSE(box.intersects(node.Bounds())) << GetParam();
        for (const auto &other : map.surface.Links()) {
            if (other == link) continue;
            EXPECT_FALSE(box.intersects(map.Label(*other))) << GetParam();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LabelledMap, ::testing::Range(1U, 21U));
