#include "diagram/model/Node.h"

#include "diagram/model/Ranges.h"
#include "diagram/model/Stacking.h"
#include "diagram/shapes/Shapes.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace diagram;
using namespace diagram::testing;

namespace {

// Counts what observers are told.
class Listener : public SurfaceObserver {
public:
    void ItemAdded(Item &item) override { added.push_back(item.Id()); }
    void ItemChanged(Item &item, Change what) override { changed.emplace_back(item.Id(), what); }
    void ItemRemoved(Item &item) override { removed.push_back(item.Id()); }
    void Cleared() override { ++cleared; }
    std::vector<ItemId> added, removed;
    std::vector<std::pair<ItemId, Change>> changed;
    int cleared = 0;
};

struct RangeCase {
    const char *name;
    void (*write)(Node &, double);
    double (*read)(const Node &);
    std::vector<double> good, bad;
};

const double kNan = std::numeric_limits<double>::quiet_NaN();
const RangeCase kRanges[] = {
    {"Left",
     [](Node &n, double v) { n.SetLeft(float(v)); },
     [](const Node &n) { return double(n.Left()); },
     {-1e8, 0, 1e8},
     {2e8, -2e8, kNan}},
    {"Top",
     [](Node &n, double v) { n.SetTop(float(v)); },
     [](const Node &n) { return double(n.Top()); },
     {-1e8, 0, 1e8},
     {2e8, -2e8, kNan}},
    {"Width",
     [](Node &n, double v) { n.SetWidth(float(v)); },
     [](const Node &n) { return double(n.Width()); },
     {0, 1e8},
     {-1, 2e8, kNan}},
    {"Height",
     [](Node &n, double v) { n.SetHeight(float(v)); },
     [](const Node &n) { return double(n.Height()); },
     {0, 1e8},
     {-1, 2e8, kNan}},
    {"Shape",
     [](Node &n, double v) { n.SetShape(int(v)); },
     [](const Node &n) { return double(n.Shape()); },
     {0, 15, 50, 77},
     {-1, 16, 49, 78, 256}},
    {"ShapeOrientation",
     [](Node &n, double v) { n.SetShapeOrientation(int(v)); },
     [](const Node &n) { return double(n.ShapeOrientation()); },
     {0, 3},
     {-1, 4, 256}},
    {"DrawStyle",
     [](Node &n, double v) { n.SetDrawStyle(int(v)); },
     [](const Node &n) { return double(n.DrawStyle()); },
     {0, 6},
     {-1, 7}},
    {"DrawWidth",
     [](Node &n, double v) { n.SetDrawWidth(float(v)); },
     [](const Node &n) { return double(n.DrawWidth()); },
     {0, 1.5, 32767},
     {-1, 32768, kNan}},
    {"Alignment",
     [](Node &n, double v) { n.SetAlignment(int(v)); },
     [](const Node &n) { return double(n.Alignment()); },
     {0, 8},
     {-1, 9}},
    {"Shadow",
     [](Node &n, double v) { n.SetShadow(int(v)); },
     [](const Node &n) { return double(n.Shadow()); },
     {0, 4},
     {-1, 5}},
    {"PicturePos",
     [](Node &n, double v) { n.SetPicturePos(int(v)); },
     [](const Node &n) { return double(n.PicturePos()); },
     {0, 9},
     {-1, 10}},
    {"AutoSize",
     [](Node &n, double v) { n.SetAutoSize(int(v)); },
     [](const Node &n) { return double(n.AutoSize()); },
     {0, 3},
     {-1, 4}},
    {"xTextMargin",
     [](Node &n, double v) { n.SetxTextMargin(int(v)); },
     [](const Node &n) { return double(n.xTextMargin()); },
     {0, 50},
     {-32769, 32768}},
    {"yTextMargin",
     [](Node &n, double v) { n.SetyTextMargin(int(v)); },
     [](const Node &n) { return double(n.yTextMargin()); },
     {0, 50},
     {-32769, 32768}},
};

class FixedWidth : public TextMeasure {
public:
    QSizeF Measure(const QString &text, const Font &font, double) override {
        return {double(text.size()) * font.Size() * 10, font.Size() * 25};
    }
};

} // namespace

TEST(Node, EachRangeIsKept) {
    for (const RangeCase &row : kRanges) {
        Surface surface;
        Node &node = surface.Nodes().Add(0, 0, 10, 10);
        for (double value : row.good) {
            row.write(node, value);
            EXPECT_EQ(row.read(node), value) << row.name;
        }
        const double before = row.read(node);
        for (double value : row.bad) {
            EXPECT_EQ(tests::NumberOf([&] { row.write(node, value); }), 380) << row.name << " " << value;
            EXPECT_EQ(row.read(node), before) << row.name;
        }
    }
}

TEST(Node, AddTakesTheDefaultsOfTheSurface) {
    Surface surface;
    NodeLook defaults;
    defaults.shape = 50;
    defaults.fillColor = 0x123456;
    defaults.font = Font(QStringLiteral("Courier"), 12);
    defaults.drawWidth = 3;
    surface.SetDefaults(defaults);
    const Node &node = surface.Nodes().Add(1, 2, 3, 4);
    EXPECT_EQ(node.Shape(), 50);
    EXPECT_EQ(node.FillColor(), 0x123456);
    EXPECT_EQ(node.Font(), defaults.font);
    EXPECT_EQ(node.DrawWidth(), 3);
    EXPECT_EQ(node.Bounds(), QRectF(1, 2, 3, 4));
    EXPECT_EQ(tests::NumberOf([&] { surface.Nodes().Add(0, 0, -40, 10); }), 380);
    EXPECT_EQ(surface.Nodes().Count(), 1);
}

TEST(Node, KeysAreUniqueAndFound) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(0, 0, 1, 1);
    a.SetKey(QStringLiteral("{A}"));
    EXPECT_EQ(tests::NumberOf([&] { b.SetKey(QStringLiteral("{A}")); }), 457);
    EXPECT_EQ(b.Key(), QString());
    a.SetKey(QStringLiteral("{B}"));
    EXPECT_EQ(&surface.Nodes().Item(QStringLiteral("{B}")), &a);
    EXPECT_EQ(tests::NumberOf([&] { surface.Nodes().Item(QStringLiteral("{A}")); }), 5);
    EXPECT_EQ(tests::NumberOf([&] { surface.Nodes().Item(QString()); }), 5);
    surface.Remove(a);
    b.SetKey(QStringLiteral("{B}"));
    EXPECT_EQ(surface.Nodes().Find(QStringLiteral("{B}")), &b);
}

TEST(Node, PositionsCountFrom1) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1);
    EXPECT_EQ(&surface.Nodes().Item(1), &a);
    EXPECT_EQ(tests::NumberOf([&] { surface.Nodes().Item(0); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { surface.Nodes().Item(2); }), 9);
}

TEST(Node, EveryWriteIsToldOnceAndOnlyWhenItChangesSomething) {
    Surface surface;
    Listener listener;
    surface.Observers().Add(listener);
    Node &node = surface.Nodes().Add(0, 0, 1, 1);
    EXPECT_EQ(listener.added, std::vector{node.Id()});
    node.SetText(QStringLiteral("a"));
    node.SetText(QStringLiteral("a"));
    ASSERT_EQ(listener.changed.size(), 1U);
    EXPECT_EQ(listener.changed[0].second, Change::Text);
    node.SetBounds(1, 2, 3, 4);
    ASSERT_EQ(listener.changed.size(), 2U);
    EXPECT_EQ(listener.changed[1].second, Change::Geometry);
    surface.Observers().Remove(listener);
    node.SetText(QStringLiteral("b"));
    EXPECT_EQ(listener.changed.size(), 2U);
}

TEST(Node, MovingTellsItsLinksToo) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 100, 100), &b = surface.Nodes().Add(900, 0, 100, 100);
    const Link &link = a.Links().Add(b);
    Listener listener;
    surface.Observers().Add(listener);
    a.SetLeft(50);
    EXPECT_EQ(listener.changed.back(), std::pair(link.Id(), Change::Geometry));
}

TEST(Node, RemovingTakesItsLinksAndTellsOfAll) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 100, 100), &b = surface.Nodes().Add(900, 0, 100, 100);
    a.Links().Add(b);
    b.Links().Add(b);
    a.Links().Add(a);
    Listener listener;
    surface.Observers().Add(listener);
    surface.Remove(a);
    EXPECT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(b.Links().Count(), 1);
    EXPECT_EQ(listener.removed.size(), 3U);
    surface.Nodes().Clear();
    EXPECT_EQ(listener.cleared, 1);
    EXPECT_TRUE(surface.Stacking().Order().empty());
}

TEST(Node, AutoSize3TakesTheSizeOfTheText) {
    Surface surface;
    FixedWidth measure;
    surface.SetMeasure(&measure);
    Node &node = surface.Nodes().Add(100, 200, 10, 10);
    node.SetDrawWidth(0);
    node.SetText(QStringLiteral("abcd"));
    EXPECT_EQ(node.Width(), 10);
    node.SetAutoSize(3);
    const QRectF area = TextArea(node.Shape(), 0, node.Bounds());
    EXPECT_NEAR(area.width(), 4 * 8 * 10, 1);
    EXPECT_NEAR(area.height(), 8 * 25, 1);
    EXPECT_EQ(node.Left(), 100);
    const float width = node.Width();
    node.SetxTextMargin(10);
    EXPECT_NEAR(node.Width(), width + 2 * 10 * 15, 2);
    node.SetxTextMargin(0);
    node.SetFont(Font(QStringLiteral("Arial"), 16));
    EXPECT_NEAR(node.Width(), 2 * width, 2);
    const float height = node.Height();
    node.SetDrawWidth(4);
    EXPECT_NEAR(node.Width(), 2 * width + 2 * 4 * 15, 2);
    EXPECT_NEAR(node.Height(), height + 2 * 4 * 15, 2);
}

TEST(Node, AutoSize2TakesTheSizeOfThePicture) {
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 10, 10);
    node.SetAutoSize(2);
    EXPECT_EQ(node.Width(), 10);
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(0);
    node.SetPicture(Picture::FromImage(image));
    EXPECT_EQ(node.Bounds().size(), QSizeF(600, 450));
}

TEST(Node, WhileLoadingNoSizeIsChanged) {
    Surface surface;
    FixedWidth measure;
    surface.SetMeasure(&measure);
    surface.SetLoading(true);
    Node &node = surface.Nodes().Add(0, 0, 10, 10);
    node.SetText(QStringLiteral("abcd"));
    node.SetAutoSize(3);
    surface.SetLoading(false);
    EXPECT_EQ(node.Width(), 10);
}
