#include "diagram/model/Properties.h"

#include "diagram/edit/History.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <string_view>
#include <tuple>

using namespace diagram;
using namespace diagram::testing;

namespace {

// Doesn't compile when a member comes or goes: its row comes or goes too.
[[maybe_unused]] auto MembersOf(const NodeLook &look) {
    const auto &[font, drawWidth, borderColor, fillColor, foreColor, shape, shapeOrientation, drawStyle,
                 alignment, shadow, picturePos, autoSize] = look;
    return std::tie(font, drawWidth, borderColor, fillColor, foreColor, shape, shapeOrientation, drawStyle,
                    alignment, shadow, picturePos, autoSize);
}

// Nothing in it is as in a look that nobody has set.
NodeLook FullLook() {
    NodeLook look;
    look.font = Font(QStringLiteral("Courier"), 12, true);
    look.drawWidth = 2.5F;
    look.borderColor = 1, look.fillColor = 2, look.foreColor = 3;
    look.shape = 50, look.shapeOrientation = 1, look.drawStyle = 2, look.alignment = 3;
    look.shadow = 4, look.picturePos = 5, look.autoSize = 1;
    return look;
}

const PropertyRow<NodeData> &NodeRowNamed(std::string_view name) {
    for (const auto &row : NodeProperties())
        if (row.name == name) return row;
    throw std::runtime_error("no row of that name");
}

// Counts what observers are told of items.
class Listener : public SurfaceObserver {
public:
    void ItemChanged(Item &, Change what) override { changes.push_back(what); }
    std::vector<Change> changes;
};

} // namespace

TEST(Look, ItsRowsAreItsMembers) {
    const NodeLook full = FullLook();
    EXPECT_EQ(LookProperties().size(), std::tuple_size_v<decltype(MembersOf(full))>);
    NodeLook look;
    for (const auto &row : LookProperties()) {
        EXPECT_FALSE(row.same(look, full)) << row.name;
        const NodeLook before = look;
        row.set(look, row.get(full));
        EXPECT_NE(look, before) << row.name;
    }
    EXPECT_EQ(look, full);
}

TEST(Look, ItsRowsAreThoseOfTheNodeOfTheSameName) {
    const NodeLook full = FullLook();
    for (const auto &row : LookProperties()) {
        NodeData changed, looked;
        static_cast<NodeLook &>(looked) = full;
        row.set(changed, row.get(full));
        const auto &own = NodeRowNamed(row.name);
        EXPECT_TRUE(own.same(changed, looked)) << row.name;
        EXPECT_FALSE(own.same(changed, NodeData())) << row.name;
    }
}

TEST(Look, ANumberThatTheMemberCannotHoldIsNotInItsRange) {
    for (const std::int32_t number : {-1, 256, 257, 0x10001, INT32_MAX, INT32_MIN}) {
        for (const auto &row : LookProperties()) {
            if (!std::holds_alternative<std::int32_t>(row.get(NodeLook()))) continue;
            if (NodeRowNamed(row.name).get(NodeData()).index() == row.get(NodeLook()).index()) continue;
            NodeLook look;
            row.set(look, number);
            EXPECT_FALSE(row.valid(look)) << row.name << ' ' << number;
            EXPECT_FALSE(row.holds(look, number)) << row.name << ' ' << number;
        }
    }
}

TEST(Look, SetLookIsOneChangeOfAllThatDiffers) {
    Surface surface;
    Node &node = surface.Nodes().Add(10, 20, 300, 400);
    node.SetText(QStringLiteral("kept"));
    Listener listener;
    surface.Observers().Add(listener);
    node.SetLook(FullLook());
    EXPECT_EQ(node.Look(), FullLook());
    EXPECT_EQ(node.Text(), QStringLiteral("kept"));
    EXPECT_EQ(node.Bounds(), QRectF(10, 20, 300, 400));
    EXPECT_EQ(listener.changes, std::vector<Change>{Change::Geometry | Change::Look | Change::Text});
    node.SetLook(FullLook());
    NodeLook darker = FullLook();
    darker.fillColor = 0;
    node.SetLook(darker);
    ASSERT_EQ(listener.changes.size(), 2U) << "the same look is no change";
    EXPECT_EQ(listener.changes[1], Change::Look);
    surface.Observers().Remove(listener);
}

TEST(Look, SetLookIsOneStepOfUndo) {
    Surface surface;
    AttachHistory(surface);
    Node &node = surface.Nodes().Add(0, 0, 300, 400);
    surface.BeginAction(0);
    node.SetLook(FullLook());
    surface.EndAction();
    surface.Undo();
    EXPECT_EQ(node.Look(), NodeLook());
    surface.Redo();
    EXPECT_EQ(node.Look(), FullLook());
}

TEST(Look, SetLookWithAValueOutOfRangeChangesNothing) {
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 300, 400);
    NodeLook look = FullLook();
    look.shape = 20;
    EXPECT_EQ(tests::NumberOf([&] { node.SetLook(look); }), 380);
    EXPECT_EQ(node.Look(), NodeLook());
}

TEST(Look, SetLookFitsANodeThatTakesTheSizeOfItsPicture) {
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 300, 400);
    node.SetPicture(Picture::FromImage(QImage(20, 10, QImage::Format_RGB32)));
    NodeLook look;
    look.autoSize = 2;
    node.SetLook(look);
    EXPECT_EQ(node.Bounds().size(), node.Picture().SizeInTwips());
}

TEST(Look, NewNodesTakeAllOfTheDefaults) {
    Surface surface;
    surface.SetDefaults(FullLook());
    EXPECT_EQ(surface.Nodes().Add(0, 0, 1, 1).Look(), FullLook());
}

TEST(Properties, EachRowReadsAndWritesItsOwnValueAlone) {
    Dice dice(5);
    const auto check = [](const auto &a, const auto &b) {
        for (const auto &row : PropertiesOf(a)) {
            auto mixed = a;
            row.set(mixed, row.get(b));
            EXPECT_TRUE(row.same(mixed, b)) << row.name;
            EXPECT_TRUE(row.holds(mixed, row.get(b))) << row.name;
            EXPECT_EQ(row.holds(a, row.get(b)), row.same(a, b)) << row.name;
            for (const auto &other : PropertiesOf(a)) {
                EXPECT_TRUE(other.id == row.id || other.same(mixed, a))
                    << row.name << " wrote " << other.name;
            }
        }
    };
    Surface one, two;
    Fill(one, dice, 300);
    Fill(two, dice, 300);
    check(AnyNode(one, dice).Data(), AnyNode(two, dice).Data());
    check(AnyLink(one, dice).Data(), AnyLink(two, dice).Data());
    check(one.Data(), two.Data());
    check(one.Data().defaults, two.Data().defaults);
}
